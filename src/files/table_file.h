#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/catalogue.h"
#include "core/radio_data.h"

/// Tables of a data set as CSV, for spreadsheets: a line for each entry, a column for each field
/// that the model has. The first heading is the table's name, the others are the fields' labels;
/// the first column names the entries, as paths do. Values are written as `get` prints them.
///
/// A table is one of core::Catalogue(), by its place there, as in core::FieldRef.
namespace orvane::files {

/// With a semicolon the decimal sign of frequencies is a comma, as in the countries where
/// spreadsheets write such files.
enum class TableSeparator : std::uint8_t { kComma, kSemicolon, kTab };

/// All but the memory image and the model, neither of which is set by hand.
[[nodiscard]] bool IsTextTable(std::uint8_t table);
/// Those that the model has, in catalogue order.
[[nodiscard]] std::vector<std::uint8_t> TextTables(const core::ModelProfile& profile);
/// By its id or its label, in any letter case.
[[nodiscard]] std::optional<std::uint8_t> FindTextTable(std::string_view name);

/// UTF-8 with CR LF, and with a byte-order mark where there is more than ASCII in it: without one
/// spreadsheets take it for something else. A cell that a spreadsheet would take for a formula or
/// write otherwise (a name that begins with "=", an MMSI that begins with 0) stands behind an
/// apostrophe, which PlanImport takes off again.
[[nodiscard]] std::string TableText(const core::RadioData& data, std::uint8_t table,
                                    TableSeparator separator = TableSeparator::kComma);

/// The tables that a text may be meant for, best first: the one that its first heading names, or
/// those whose headings and entries fit best. None when nothing fits.
[[nodiscard]] std::vector<std::uint8_t> TablesFor(std::string_view text,
                                                  const core::ModelProfile& profile);

/// What taking a text over would do; nothing has been done yet. Its texts are UTF-8.
struct ImportPlan {
  enum class Verdict : std::uint8_t { kSame, kChanges, kRefused };

  struct Cell {
    core::FieldRef at;
    std::string before;
    std::string after;    ///< of a refused cell: as it stands in the text
    std::string refusal;  ///< a sentence; "" for a change
  };
  struct Line {
    int number = 0;     ///< of the text, from 1
    std::string entry;  ///< as the table calls it; an unknown one as the text does
    Verdict verdict = Verdict::kSame;
    std::vector<Cell> cells;  ///< the changes, what follows from them included, or the refusals
    std::string refusal;      ///< of the line as a whole, a sentence
  };
  struct UnusedColumn {
    std::string heading;
    std::string reason;  ///< a sentence
  };

  /// Why the text is no such table, and where: "line 3: ...". All else is empty then.
  std::string unreadable;
  std::vector<Line> lines;  ///< in the text's order, but for empty ones
  std::vector<UnusedColumn> unused;
  std::vector<Cell> elsewhere;        ///< what follows in entries that no line changes
  std::vector<core::Change> changes;  ///< all together: core::Apply(data, changes) takes it over

  [[nodiscard]] int Count(Verdict verdict) const;
};

/// Byte-order marks, Windows-1252, LF, the three separators and decimal commas are understood. A
/// line is taken whole or not at all: a refused cell refuses its line, and lines that only went
/// together with that one. Fields are set by the rules of document::SetField. Never fails, whatever
/// the text holds. REQUIRES: a table that the model has.
[[nodiscard]] ImportPlan PlanImport(std::string_view text, std::uint8_t table,
                                    const core::RadioData& data, core::Date today);

/// "3 lines change, 1 is refused, 236 stay as they are", without a full stop.
[[nodiscard]] std::string SummaryOf(const ImportPlan& plan);

}  // namespace orvane::files
