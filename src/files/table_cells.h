#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/catalogue.h"
#include "files/delimited_text.h"
#include "files/table_file.h"

/// The parts that writing and reading of table files share. Texts are UTF-8.
namespace orvane::files {

[[nodiscard]] char SignOf(TableSeparator separator);

/// What a spreadsheet would take for a formula, or show as another number or a date, behind an
/// apostrophe. Unmarked gives it back; other apostrophes stay.
[[nodiscard]] std::string Marked(std::string text);
[[nodiscard]] std::string_view Unmarked(std::string_view text);

/// What stands in the first column of a table that has one entry: its label.
[[nodiscard]] std::string EntryText(const core::Table& table, int entry);
/// A spreadsheet drops the zeros in front of a number: "5" is 05 where there is no 5. A table with
/// one entry takes an empty name for it too.
[[nodiscard]] std::optional<int> FindEntry(const core::Table& table, std::string_view name);
/// By its label or its id, in any letter case.
[[nodiscard]] std::optional<int> FindField(const core::Table& table, std::string_view heading);

/// A text in rows, with what had to be found out about it.
struct TableRows {
  DelimitedText split;
  TableSeparator separator = TableSeparator::kComma;
  std::string unreadable;  ///< as in ImportPlan
};
[[nodiscard]] TableRows SplitTable(std::string_view text);

}  // namespace orvane::files
