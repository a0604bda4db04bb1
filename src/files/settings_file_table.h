#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// A settings file's text taken apart into sections and entries, and the look-ups in it.
namespace orvane::files {

struct SettingEntry {
  std::string key;    ///< upper case, trimmed
  std::string value;  ///< trimmed, then one leading "#" removed
};
struct SettingSection {
  std::string name;  ///< upper case, trimmed
  std::vector<SettingEntry> entries;
};

/// All sections of one name, in file order. Valid as long as its table.
class SectionView {
 public:
  SectionView() = default;
  SectionView(const std::vector<SettingSection>* sections, const std::vector<std::size_t>* indexes)
      : sections_(sections), indexes_(indexes) {}

  /// First match over all the sections, letter case ignored; "" when there is none.
  [[nodiscard]] std::string_view Value(std::string_view key) const;

 private:
  const std::vector<SettingSection>* sections_ = nullptr;
  const std::vector<std::size_t>* indexes_ = nullptr;
};

/// Sections and entries in file order, duplicates included. Looking up a section costs the
/// logarithm of their count: a file has some 800 of them and every one is looked up.
class SettingTable {
 public:
  /// A new last section; the reference holds until the next call.
  SettingSection& AddSection(std::string_view name);
  [[nodiscard]] const std::vector<SettingSection>& Sections() const& { return sections_; }
  [[nodiscard]] SectionView Find(std::string_view name) const&;
  void Sections() const&& = delete;
  void Find(std::string_view name) const&& = delete;

 private:
  std::vector<SettingSection> sections_;
  std::map<std::string, std::vector<std::size_t>, std::less<>> by_name_;
};

/// Never fails: lines that fit no rule of the grammar are skipped.
[[nodiscard]] SettingTable ParseSettingFile(std::string_view text);

/// One value straight from the text, as profile files are read: blanks before "[" and
/// around the key, comment lines with ";", a pair of quotes around the value; at most 127
/// characters.
[[nodiscard]] std::string ReadMainValue(std::string_view text, std::string_view section,
                                        std::string_view key);

}  // namespace orvane::files
