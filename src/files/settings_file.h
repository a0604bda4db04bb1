#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/radio_data.h"
#include "core/run_state.h"
#include "core/services.h"

/// The program's own document: sections of keys and values for one model, 8-bit text, CR LF line
/// ends. It keeps the channel tables, the usable groups, the common and ATIS settings and a few
/// raw image bytes; never the DSC settings, the call signs or the two directories.
namespace orvane::files {

inline constexpr std::string_view kSettingsEnding = ".dat";

/// The whole file as text. Yields to the pump now and then so that a window keeps repainting.
[[nodiscard]] std::string SettingFileText(const core::RadioData& data, core::EventPump& pump);

/// The same at one go.
[[nodiscard]] std::string SettingFileText(const core::RadioData& data);

/// Writes the file whole or leaves the old one. Returns the failure, or nothing on success; the
/// caller tells the user.
[[nodiscard]] std::optional<core::SystemError> WriteSettingFile(const core::RadioData& data,
                                                                const std::string& path,
                                                                core::FileStore& store,
                                                                core::EventPump& pump);

/// Overwrites the data from the file, which must be of the current MODELTYPE. A refused file sets
/// the error flag, tells the user ("different model!!", "FileRead Error!!") and changes nothing.
/// What the file does not mention keeps its value. Busy while it runs.
void ReadSettingFile(core::RadioData& data, core::RunState& state, const std::string& path,
                     core::FileStore& store, core::Prompts& prompts, core::EventPump& pump);

/// The reader's work on a text already in memory. False, and nothing changed, when the text is not
/// of the data's MODELTYPE; it never fails otherwise, whatever the text holds.
[[nodiscard]] bool ApplySettingText(core::RadioData& data, std::string_view text,
                                    core::EventPump& pump);

/// MODELTYPE of a settings file's text, nothing when it names none.
[[nodiscard]] std::optional<double> SettingFileModel(std::string_view text);

}  // namespace orvane::files
