#include "files/settings_file_table.h"

#include <algorithm>
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
    // Lines are short: searching a set of characters, with a call for each one, took longer than
    // everything else that reading a file does.
    const auto* const end =
        std::find_if(rest_.begin(), rest_.end(), [](char c) { return c == '\r' || c == '\n'; });
    const auto length = static_cast<std::size_t>(end - rest_.begin());
    const std::string_view line = rest_.substr(0, length);
    rest_.remove_prefix(length);
    rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : rest_.empty() ? 0 : 1);
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
std::optional<std::string_view> ReadEntries(LineReader& lines, SettingTable& table) {
  while (const std::optional<std::string_view> line = lines.Next()) {
    const std::size_t equals = line->find('=');
    if (equals != std::string_view::npos && equals > 0) {
      table.AddEntry(core::Trim(line->substr(0, equals)),
                     WithoutMarker(core::Trim(line->substr(equals + 1))));
    } else if (line->find('[') != std::string_view::npos) {
      return line;
    }
  }
  return std::nullopt;
}

}  // namespace

std::string_view SectionView::Value(std::string_view key) const {
  for (std::size_t index = first_; index != SettingSection::kNone;) {
    const SettingSection& section = table_->Sections()[index];
    const SettingEntry* const begin = table_->Entries().data() + section.first;
    const SettingEntry* const end = begin + section.count;
    const auto* const found = std::find_if(begin, end, [key](const SettingEntry& entry) {
      return entry.key.size() == key.size() &&
             (entry.key == key || core::EqualsIgnoringCase(entry.key, key));
    });
    if (found != end) return found->value;
    index = section.next;
  }
  return {};
}

std::size_t SettingTable::HashIgnoringCase::operator()(std::string_view text) const {
  std::size_t hash = text.size();
  for (const char c : text) hash = hash * 31 + static_cast<unsigned char>(core::UpperCase(c));
  return hash;
}

bool SettingTable::EqualIgnoringCase::operator()(std::string_view a, std::string_view b) const {
  return core::EqualsIgnoringCase(a, b);
}

SettingTable::SettingTable(std::size_t text_length) {
  constexpr std::size_t kCharactersInALine = 10;
  constexpr std::size_t kCharactersInASection = 120;
  entries_.reserve(text_length / kCharactersInALine);
  sections_.reserve(text_length / kCharactersInASection);
  by_name_.reserve(text_length / kCharactersInASection);
}

void SettingTable::AddSection(std::string_view name) {
  const std::size_t index = sections_.size();
  name = core::Trim(name);
  sections_.push_back({.name = name, .first = entries_.size()});
  const auto [place, is_first] = by_name_.try_emplace(name, Chain{index, index});
  if (is_first) return;
  sections_[place->second.last].next = index;
  place->second.last = index;
}

void SettingTable::AddEntry(std::string_view key, std::string_view value) {
  entries_.push_back({key, value});
  ++sections_.back().count;
}

SectionView SettingTable::Find(std::string_view name) const& {
  const auto it = by_name_.find(name);
  return it == by_name_.end() ? SectionView() : SectionView(this, it->second.first);
}

SettingTable ParseSettingFile(std::string_view text) {
  SettingTable table(text.size());
  LineReader lines(text);
  std::optional<std::string_view> line = lines.Next();
  while (line) {
    if (const std::optional<std::string_view> name = HeaderName(*line)) {
      table.AddSection(*name);
      line = ReadEntries(lines, table);
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
