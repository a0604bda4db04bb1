#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/radio_data.h"
#include "files/delimited_text.h"
#include "files/sheet.h"

/// What the user does to many cells at once. A plan is made first and changes nothing, so that the
/// refused cells can be shown; run as the body of a Document::Edit it is one step.
namespace orvane::files {

/// A rectangle of cells.
struct Area {
  int row = 0;
  int column = 0;
  int rows = 1;
  int columns = 1;

  bool operator==(const Area&) const = default;
};

struct CellText {
  Cell at;
  std::string text;
};

/// A cell that stays as it is.
struct RefusedCell {
  std::string cell;  ///< "USA 22A, CH Name"
  std::string text;  ///< what should have come there
  std::string reason;
};

struct SheetEdit {
  std::string name;                ///< of the step: "Paste 5 cells in USA", "CH16 CH Name"
  int cells = 0;                   ///< that change
  std::vector<Typed::Part> parts;  ///< what is set for it, in this order
  std::vector<RefusedCell> refused;
};

/// The cells of the area as text for a spreadsheet, parted by tabs.
[[nodiscard]] std::string CopiedText(const core::RadioData& data, const Sheet& sheet, Area area);

/// Where the cells of a table of texts come to stand: at the area's upper left corner, again and
/// again where the area is a multiple of the table. A row that is shorter leaves its cells alone.
struct Pasted {
  std::vector<CellText> cells;
  int beyond = 0;  ///< cells that would stand beyond the sheet's edge
};
[[nodiscard]] Pasted Place(const Sheet& sheet, Area area, const TextRows& rows);

[[nodiscard]] SheetEdit PlanPaste(const core::RadioData& data, const Sheet& sheet, Area area,
                                  const TextRows& rows, core::Date today);
/// One cell as typed or picked; its own field names the step.
[[nodiscard]] SheetEdit PlanTyped(const core::RadioData& data, const Sheet& sheet,
                                  const CellText& typed, core::Date today);
/// The switches and scrambler codes among the cells, all to the other side of what `first` shows;
/// where that cannot be switched, of what the first one that can be shows.
[[nodiscard]] SheetEdit PlanSwitch(const core::RadioData& data, const Sheet& sheet,
                                   std::span<const Cell> cells, Cell first, core::Date today);
/// The area's first row, or the row above when it has but one, into its other rows.
[[nodiscard]] SheetEdit PlanFillDown(const core::RadioData& data, const Sheet& sheet, Area area,
                                     core::Date today);
/// The same for names and displayed numbers alone, with the number at their end one higher in each
/// row.
[[nodiscard]] SheetEdit PlanCountUp(const core::RadioData& data, const Sheet& sheet, Area area,
                                    core::Date today);
/// Empties the names among the cells. verb: "Empty" or "Cut".
[[nodiscard]] SheetEdit PlanEmpty(const core::RadioData& data, const Sheet& sheet,
                                  std::span<const Cell> cells, std::string_view verb,
                                  core::Date today);
/// Switches marine channels on or off, by their rows: the other way than the first one stands.
[[nodiscard]] SheetEdit PlanUse(const core::RadioData& data, const Sheet& sheet,
                                std::span<const int> rows, core::Date today);

/// Does what was planned. REQUIRES: the data are those the plan was made from.
void Run(core::RadioData& data, const SheetEdit& edit, core::Date today);

/// The text with the number at its end so much higher, as wide as before where it can be: "CH 01"
/// and 1 make "CH 02", "9" and 1 "10". Nothing for a text that ends in no number.
[[nodiscard]] std::optional<std::string> CountedUp(std::string_view text, int by);

}  // namespace orvane::files
