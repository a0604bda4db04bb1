#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/radio_data.h"
#include "document/edits.h"
#include "files/columns.h"

/// A channel table as the user sees it, cell by cell: what a cell shows, whether it may be changed
/// and what is taken into it. Texts are Windows-1252; rows and columns count from 0.
namespace orvane::files {

/// Which channels are the rows, and what stands in the columns. It does not follow the data: after
/// another model, or channels switched on or off, there is another sheet.
struct Sheet {
  document::ChannelPlace::Kind heading = document::ChannelPlace::Kind::kUsa;
  std::vector<ChannelColumn> columns;
  std::vector<int> numbers;  ///< by row: table index of a marine channel, else 1..40

  [[nodiscard]] bool IsMarine() const { return heading <= document::ChannelPlace::Kind::kCanada; }
  [[nodiscard]] int Rows() const { return static_cast<int>(numbers.size()); }
  [[nodiscard]] int Columns() const { return static_cast<int>(columns.size()); }
  [[nodiscard]] const ChannelColumn& Column(int column) const {
    return columns[static_cast<std::size_t>(column)];
  }
  [[nodiscard]] document::ChannelPlace Place(int row) const {
    return {heading, numbers[static_cast<std::size_t>(row)]};
  }
};

/// Enabled channels only, or all positions of the table.
[[nodiscard]] Sheet MarineSheet(const core::RadioData& data, core::MarineGroup group,
                                bool with_unused);
/// All forty places, as their heading shows them.
[[nodiscard]] Sheet ExtraSheet(const core::RadioData& data, bool lmr_form);
/// "USA", "LMR": what the sheet lists.
[[nodiscard]] std::string SheetName(const core::RadioData& data, const Sheet& sheet);

[[nodiscard]] ChannelRow RowOf(const core::RadioData& data, const Sheet& sheet, int row);
/// The channel of the row is in use under the sheet's heading.
[[nodiscard]] bool IsRowInUse(const core::RadioData& data, const Sheet& sheet, int row);

struct Cell {
  int row = 0;
  int column = 0;

  bool operator==(const Cell&) const = default;
};

enum class CellKind {
  kFixed,  ///< a number or a plan frequency: nothing of it can be set
  kSwitch,
  kName,
  kFrequency,
  kDisplay,  ///< both halves of CH Display
  kTone,     ///< a CTCSS tone or a DCS code
  kCode      ///< scrambler code
};
[[nodiscard]] CellKind KindOf(const ChannelColumn& column);

/// "USA 22A, CH Name".
[[nodiscard]] std::string CellName(const core::RadioData& data, const Sheet& sheet, Cell cell);
/// What the cell says to a spreadsheet.
[[nodiscard]] std::string TextOf(const core::RadioData& data, const Sheet& sheet, Cell cell);
/// The same for an editor in the cell: nothing instead of dashes.
[[nodiscard]] std::string TextToEdit(const core::RadioData& data, const Sheet& sheet, Cell cell);
/// The catalogue's field that the cell is about. REQUIRES: a cell that is not fixed.
[[nodiscard]] core::FieldRef FieldOf(const Sheet& sheet, Cell cell);
/// The column in which the sheet shows a field of its rows' channels, -1 when it does not.
[[nodiscard]] int ColumnOf(const Sheet& sheet, const core::Field& field);

/// Why the user may not change the cell as things stand, as a sentence; "" when it may be changed.
[[nodiscard]] std::string LockOf(const core::RadioData& data, const Sheet& sheet, Cell cell,
                                 core::Date today);

/// Dashes or nothing, as a cell shows that there is nothing.
[[nodiscard]] bool SaysNone(std::string_view text);

/// What has to be set for a cell to say a text.
struct Typed {
  struct Part {
    document::ChannelPlace place;
    const char* member;  ///< of the channel, see core::Field
    std::string text;    ///< in the notation of the member's field
  };
  std::vector<Part> parts;  ///< none when the cell says so already
  std::string refusal;      ///< not "": it cannot say that, a sentence
};
/// Takes what the cell itself would show (words of a switch, dashes for none) and what the
/// notations of its fields take; no text is off, none, or no name.
[[nodiscard]] Typed Understand(const core::RadioData& data, const Sheet& sheet, Cell cell,
                               std::string_view text, core::Date today);

}  // namespace orvane::files
