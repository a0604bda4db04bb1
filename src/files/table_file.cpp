#include "files/table_file.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

#include "core/model_profile.h"
#include "core/text.h"
#include "core/utf8.h"
#include "files/table_cells.h"

namespace orvane::files {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string CellText(const core::RadioData& data, core::FieldRef at, TableSeparator separator) {
  const core::Value value = core::Get(data, at);
  std::string text = core::AnsiToUtf8(core::FieldOf(at).notation->show(value));
  if (separator == TableSeparator::kSemicolon && std::holds_alternative<double>(value)) {
    std::replace(text.begin(), text.end(), '.', ',');
    return text;
  }
  return Marked(std::move(text));
}

const core::Table& TableAt(std::uint8_t table) {
  return core::Catalogue()[table];
}

// How well the headings and the entries of a text fit a table: the number of those it knows.
struct Fit {
  std::size_t headings = 0;
  std::size_t entries = 0;

  [[nodiscard]] bool IsWorseThan(const Fit& other) const {
    return std::tie(headings, entries) < std::tie(other.headings, other.entries);
  }
};

Fit FitOf(const TextRows& rows, const core::Table& table, const core::ModelProfile& profile) {
  Fit fit;
  for (std::size_t column = 1; column < rows.front().size(); ++column) {
    const std::optional<int> field = FindField(table, rows.front()[column]);
    if (field && core::HasField(profile, table, table.fields[static_cast<std::size_t>(*field)])) {
      ++fit.headings;
    }
  }
  for (std::size_t row = 1; fit.headings > 0 && row < rows.size(); ++row) {
    if (FindEntry(table, rows[row].front())) ++fit.entries;
  }
  return fit;
}

}  // namespace

bool IsTextTable(std::uint8_t table) {
  const std::span<const core::Field> fields = TableAt(table).fields;
  return TableAt(table).kind != core::TableKind::kMemory &&
         !std::all_of(fields.begin(), fields.end(),
                      [](const core::Field& field) { return field.derived; });
}

std::vector<std::uint8_t> TextTables(const core::ModelProfile& profile) {
  std::vector<std::uint8_t> tables;
  for (std::uint8_t table = 0; table < core::Catalogue().size(); ++table) {
    if (IsTextTable(table) && core::Has(profile, TableAt(table).when)) tables.push_back(table);
  }
  return tables;
}

std::optional<std::uint8_t> FindTextTable(std::string_view name) {
  for (std::uint8_t table = 0; table < core::Catalogue().size(); ++table) {
    if (IsTextTable(table) && (core::EqualsIgnoringCase(TableAt(table).id, name) ||
                               core::EqualsIgnoringCase(TableAt(table).label, name))) {
      return table;
    }
  }
  return {};
}

std::string TableText(const core::RadioData& data, std::uint8_t table, TableSeparator separator) {
  const core::Table& described = TableAt(table);
  const core::ModelProfile& profile = core::ProfileOf(data);
  TextRows rows(static_cast<std::size_t>(described.count) + 1);
  rows.front().emplace_back(described.label);
  core::FieldRef at{.table = table};
  for (; at.entry < described.count; ++at.entry) {
    rows[at.entry + std::size_t{1}].push_back(EntryText(described, at.entry));
  }
  for (const core::Field& field : described.fields) {
    if (core::HasField(profile, described, field)) {
      rows.front().emplace_back(field.label);
      for (at.entry = 0; at.entry < described.count; ++at.entry) {
        rows[at.entry + std::size_t{1}].push_back(CellText(data, at, separator));
      }
    }
    ++at.field;
  }
  std::string text = JoinText(rows, SignOf(separator));
  const bool ascii = std::all_of(text.begin(), text.end(),
                                 [](char sign) { return static_cast<unsigned char>(sign) < 0x80; });
  return ascii ? text : std::string(kByteOrderMark) + text;
}

std::vector<std::uint8_t> TablesFor(std::string_view text, const core::ModelProfile& profile) {
  const TableRows table = SplitTable(text);
  if (!table.unreadable.empty()) return {};
  const std::vector<std::uint8_t> all = TextTables(profile);
  const std::string_view name = core::Trim(table.split.rows.front().front());
  const std::optional<std::uint8_t> named = FindTextTable(name);
  if (named && std::find(all.begin(), all.end(), *named) != all.end()) return {*named};
  std::vector<std::uint8_t> best;
  Fit best_fit{.headings = 1};
  for (const std::uint8_t candidate : all) {
    const Fit fit = FitOf(table.split.rows, TableAt(candidate), profile);
    if (fit.IsWorseThan(best_fit)) continue;
    if (best_fit.IsWorseThan(fit)) best.clear();
    best_fit = fit;
    best.push_back(candidate);
  }
  return best;
}

}  // namespace orvane::files
