#include "files/table_cells.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/number_text.h"
#include "core/text.h"
#include "files/byte_order_mark.h"

namespace orvane::files {
namespace {

constexpr std::array kSeparators = {',', ';', '\t'};  // by TableSeparator

constexpr char kMark = '\'';
constexpr std::string_view kFormulaSigns = "=+-@\t\r";
constexpr std::string_view kNumberSigns = "0123456789-/:.eE+ ";

// Five times what the greatest table with the longest names takes, and its lines ten times.
constexpr std::size_t kLongestText = std::size_t{1024} * 1024;
constexpr std::size_t kMostRows = 2400;

bool BeginsWithOneOf(std::string_view text, std::string_view signs) {
  return !text.empty() && signs.find(text.front()) != std::string_view::npos;
}

// "05", "5-6" and "1E5" are numbers and dates to a spreadsheet, and are shown otherwise.
bool IsChangedBySpreadsheets(std::string_view text) {
  if (BeginsWithOneOf(text, kFormulaSigns)) return true;
  if (!BeginsWithOneOf(text, "0123456789")) return false;
  if (text.find_first_not_of(kNumberSigns) != std::string_view::npos) return false;
  const std::optional<double> number = core::ParseNumber(text);
  return !number || core::ShortestText(*number) != text;
}

std::string_view WithoutMarks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kMark), text.size()));
}

// The separator that the line of the headings has most of, outside of quotes.
TableSeparator FindSeparator(std::string_view text) {
  std::array<int, kSeparators.size()> counts{};
  bool quoted = false;
  for (const char sign : text) {
    if (sign == '"') quoted = !quoted;
    if (quoted) continue;
    if (sign == '\n' || sign == '\r') break;
    for (std::size_t i = 0; i < counts.size(); ++i) counts[i] += sign == kSeparators[i] ? 1 : 0;
  }
  return static_cast<TableSeparator>(std::max_element(counts.begin(), counts.end()) -
                                     counts.begin());
}

std::string AtLine(int line, std::string_view sentence) {
  return "line " + std::to_string(line) + ": " + std::string(sentence);
}

std::string WhyUnreadable(const DelimitedText& split) {
  if (split.rows.empty()) return "The file is empty.";
  if (split.quote_left_open) {
    return AtLine(split.lines.back(), "A cell that begins with a quotation mark has no end.");
  }
  if (split.rows.size() > kMostRows) {
    return AtLine(split.lines[kMostRows], "No table of this program has so many lines.");
  }
  for (const std::string& heading : split.rows.front()) {
    if (heading.find('\0') != std::string::npos) {
      return AtLine(split.lines.front(), "This is no text: there are zero bytes in it.");
    }
  }
  if (split.rows.front().size() < 2) {
    return AtLine(split.lines.front(),
                  "There is one column only. The first one names the entries, the next ones are "
                  "fields, parted by comma, semicolon or tab.");
  }
  return {};
}

// By way of a path, of which the catalogue looks names up.
std::optional<int> EntryOf(const core::Table& table, std::string_view name) {
  std::string path(table.id);
  for (const std::string_view part : {name, table.fields.front().id})
    path += "/" + std::string(part);
  const std::optional<core::FieldRef> at = core::RefOf(path);
  if (!at) return {};
  return at->entry;
}

}  // namespace

char SignOf(TableSeparator separator) {
  return kSeparators[static_cast<std::size_t>(separator)];
}

std::string Marked(std::string text) {
  return IsChangedBySpreadsheets(WithoutMarks(text)) ? kMark + std::move(text) : text;
}

std::string_view Unmarked(std::string_view text) {
  const bool marked = text.starts_with(kMark) && IsChangedBySpreadsheets(WithoutMarks(text));
  return text.substr(marked ? 1 : 0);
}

std::string EntryText(const core::Table& table, int entry) {
  return table.entry_name != nullptr ? table.entry_name(entry) : std::string(table.label);
}

std::optional<int> FindEntry(const core::Table& table, std::string_view name) {
  name = core::Trim(Unmarked(core::Trim(name)));
  if (table.entry_name == nullptr) {
    const bool named = name.empty() || core::EqualsIgnoringCase(table.label, name);
    return named ? std::optional<int>(0) : std::nullopt;
  }
  const std::optional<int> entry = EntryOf(table, name);
  const bool number = !name.empty() && name.front() >= '0' && name.front() <= '9';
  return entry || !number ? entry : EntryOf(table, "0" + std::string(name));
}

std::optional<int> FindField(const core::Table& table, std::string_view heading) {
  heading = core::Trim(Unmarked(core::Trim(heading)));
  int number = 0;
  for (const core::Field& field : table.fields) {
    const bool by_id = !field.id.empty() && core::EqualsIgnoringCase(field.id, heading);
    if (by_id || core::EqualsIgnoringCase(field.label, heading)) return number;
    ++number;
  }
  return {};
}

TableRows SplitTable(std::string_view text) {
  TableRows table;
  if (text.size() > kLongestText) {
    table.unreadable = "The file is longer than 1 MB. No table of this program is.";
    return table;
  }
  const std::string utf8 = AsUtf8(text);
  table.separator = FindSeparator(utf8);
  table.split = SplitText(utf8, SignOf(table.separator));
  table.unreadable = WhyUnreadable(table.split);
  return table;
}

}  // namespace orvane::files
