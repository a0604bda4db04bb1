#include "files/settings_file_table.h"

#include <optional>

#include "core/text.h"

namespace orvane::files {
namespace {

constexpr std::size_t kMainValueLimit = 127;

/// Lines of a text, ended by CR LF, LF or CR.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  std::optional<std::string_view> Next() {
    if (rest_.empty()) return std::nullopt;
    const std::size_t end = rest_.find_first_of("\r\n");
    const std::string_view line = rest_.substr(0, end);
    if (end == std::string_view::npos) {
      rest_ = {};
    } else {
      rest_.remove_prefix(end + (rest_.substr(end).starts_with("\r\n") ? 2 : 1));
    }
    return line;
  }

 private:
  std::string_view rest_;
};

std::string_view WithoutMarker(std::string_view value) {
  return value.starts_with('#') ? value.substr(1) : value;
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

/// Text between "[" at the first character and the next "]".
std::optional<std::string_view> HeaderName(std::string_view line) {
  if (!line.starts_with('[')) return std::nullopt;
  const std::size_t end = line.find(']');
  if (end == std::string_view::npos || end == 1) return std::nullopt;
  return line.substr(1, end - 1);
}

/// Collects the entries that follow a header; returns the line that ended the section.
std::optional<std::string_view> ReadEntries(LineReader& lines, SettingSection& section) {
  while (const std::optional<std::string_view> line = lines.Next()) {
    const std::size_t equals = line->find('=');
    if (equals != std::string_view::npos && equals > 0) {
      const std::string_view value = core::Trim(line->substr(equals + 1));
      section.entries.push_back({core::UpperCase(core::Trim(line->substr(0, equals))),
                                 std::string(WithoutMarker(value))});
    } else if (line->find('[') != std::string_view::npos) {
      return line;
    }
  }
  return std::nullopt;
}

}  // namespace

std::string_view SectionView::Value(std::string_view key) const {
  if (indexes_ == nullptr) return {};
  for (const std::size_t index : *indexes_) {
    for (const SettingEntry& entry : (*sections_)[index].entries) {
      if (entry.key.size() == key.size() && core::EqualsIgnoringCase(entry.key, key)) {
        return entry.value;
      }
    }
  }
  return {};
}

SettingSection& SettingTable::AddSection(std::string_view name) {
  std::string key = core::UpperCase(core::Trim(name));
  by_name_[key].push_back(sections_.size());
  return sections_.emplace_back(SettingSection{std::move(key), {}});
}

SectionView SettingTable::Find(std::string_view name) const& {
  const auto it = by_name_.find(core::UpperCase(name));
  return it == by_name_.end() ? SectionView() : SectionView(&sections_, &it->second);
}

SettingTable ParseSettingFile(std::string_view text) {
  SettingTable table;
  LineReader lines(text);
  std::optional<std::string_view> line = lines.Next();
  while (line) {
    if (const std::optional<std::string_view> name = HeaderName(*line)) {
      line = ReadEntries(lines, table.AddSection(*name));
    } else {
      line = lines.Next();
    }
  }
  return table;
}

std::string ReadMainValue(std::string_view text, std::string_view section, std::string_view key) {
  LineReader lines(text);
  bool inside = false;
  while (const std::optional<std::string_view> raw = lines.Next()) {
    const std::string_view line = core::Trim(*raw);
    if (line.starts_with(';')) continue;
    if (line.starts_with('[')) {
      const std::optional<std::string_view> name = HeaderName(line);
      inside = name && core::EqualsIgnoringCase(core::Trim(*name), section);
      continue;
    }
    const std::size_t equals = line.find('=');
    if (!inside || equals == std::string_view::npos) continue;
    if (!core::EqualsIgnoringCase(core::Trim(line.substr(0, equals)), key)) continue;
    const std::string_view value = WithoutQuotes(core::Trim(line.substr(equals + 1)));
    return std::string(WithoutMarker(value.substr(0, kMainValueLimit)));
  }
  return {};
}

}  // namespace orvane::files
