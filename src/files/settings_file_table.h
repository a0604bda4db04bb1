#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// A settings file's text taken apart into sections and entries, and the look-ups in it. All texts
/// are parts of the file's own, which must live as long; letter case is ignored by the look-ups.
namespace orvane::files {

struct SettingEntry {
  std::string_view key;    ///< trimmed
  std::string_view value;  ///< trimmed, then one leading "#" removed
};
struct SettingSection {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::string_view name;  ///< trimmed
  std::size_t first = 0;  ///< of its entries, which follow one another
  std::size_t count = 0;
  std::size_t next = kNone;  ///< the next section of the same name
};

class SettingTable;

/// All sections of one name, in file order. Valid as long as its table.
class SectionView {
 public:
  SectionView() = default;
  SectionView(const SettingTable* table, std::size_t first) : table_(table), first_(first) {}

  /// First match over all the sections, letter case ignored; "" when there is none.
  [[nodiscard]] std::string_view Value(std::string_view key) const;

 private:
  const SettingTable* table_ = nullptr;
  std::size_t first_ = SettingSection::kNone;
};

/// Sections and entries in file order, duplicates included. A file has some 800 sections and 9000
/// entries and every one is looked up: they lie in two plain lists, and a section is found by a
/// hash of its name.
class SettingTable {
 public:
  /// Takes the room that a file of this length usually needs.
  explicit SettingTable(std::size_t text_length);

  void AddSection(std::string_view name);
  /// To the last section.
  void AddEntry(std::string_view key, std::string_view value);

  [[nodiscard]] const std::vector<SettingSection>& Sections() const& { return sections_; }
  [[nodiscard]] const std::vector<SettingEntry>& Entries() const& { return entries_; }
  [[nodiscard]] SectionView Find(std::string_view name) const&;
  void Sections() const&& = delete;
  void Entries() const&& = delete;
  void Find(std::string_view name) const&& = delete;

 private:
  struct HashIgnoringCase {
    std::size_t operator()(std::string_view text) const;
  };
  struct EqualIgnoringCase {
    bool operator()(std::string_view a, std::string_view b) const;
  };
  struct Chain {
    std::size_t first = 0;
    std::size_t last = 0;
  };

  std::vector<SettingSection> sections_;
  std::vector<SettingEntry> entries_;
  std::unordered_map<std::string_view, Chain, HashIgnoringCase, EqualIgnoringCase> by_name_;
};

/// Never fails: lines that fit no rule of the grammar are skipped.
[[nodiscard]] SettingTable ParseSettingFile(std::string_view text);

/// One value straight from the text, as profile files are read: blanks before "[" and
/// around the key, comment lines with ";", a pair of quotes around the value; at most 127
/// characters.
[[nodiscard]] std::string ReadMainValue(std::string_view text, std::string_view section,
                                        std::string_view key);

}  // namespace orvane::files
