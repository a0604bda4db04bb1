#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/radio_data.h"
#include "core/services.h"

/// The program's own document: sections of keys and values, 8-bit text, CR LF line ends. One key
/// table per section drives writer and reader.
namespace orvane::files {

/// The whole file as text. Yields to the pump now and then so that a window keeps repainting.
[[nodiscard]] std::string SettingFileText(const core::RadioData& data, core::EventPump& pump);

/// Writes the file whole or leaves the old one. Clears the error flag first. Returns the failure,
/// or nothing on success; the caller tells the user.
[[nodiscard]] std::optional<core::SystemError> WriteSettingFile(core::RadioData& data,
                                                                const std::string& path,
                                                                core::FileStore& store,
                                                                core::EventPump& pump);

/// Overwrites the data from the file, which must be of the current MODELTYPE. A refused file sets
/// the error flag, tells the user ("different model!!", "FileRead Error!!") and changes nothing.
/// What the file does not mention keeps its value.
void ReadSettingFile(core::RadioData& data, const std::string& path, core::FileStore& store,
                     core::Prompts& prompts, core::EventPump& pump);

/// MODELTYPE of a settings file's text, nothing when it names none.
[[nodiscard]] std::optional<double> SettingFileModel(std::string_view text);

/// The text parsed into sections.
struct SettingEntry {
  std::string key;    ///< upper case
  std::string value;  ///< trimmed, one leading "#" removed
};
struct SettingSection {
  std::string name;  ///< upper case
  std::vector<SettingEntry> entries;
};
using SettingTable = std::vector<SettingSection>;

[[nodiscard]] SettingTable ParseSettingFile(std::string_view text);
/// First match over all sections of that name, letter case ignored; "" when there is none.
[[nodiscard]] std::string GetSettingValue(const SettingTable& table, std::string_view section,
                                          std::string_view key);
/// As GetSettingValue, straight from the text, at most 127 characters.
[[nodiscard]] std::string ReadMainValue(std::string_view text, std::string_view section,
                                        std::string_view key);

}  // namespace orvane::files
