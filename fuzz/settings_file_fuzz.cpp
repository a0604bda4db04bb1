#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "core/model_profile.h"
#include "core/text.h"
#include "files/settings_file.h"
#include "image/codec.h"

/// Any bytes are read into a model's data. What was read must then survive being written and read.
namespace orvane {
namespace {

class IdlePump : public core::EventPump {
 public:
  void WaitForEvents(double /*deadline*/) override {}
  void ProcessEvents() override {}
};

core::RadioData MakeFresh(std::int16_t model_type) {
  core::RadioData data;
  data.MODELTYPE = model_type;
  image::ResetToDefaults(
      data, core::Date{std::chrono::year{2026}, std::chrono::month{6}, std::chrono::day{15}});
  return data;
}

const core::RadioData& Fresh(std::int16_t model_type) {
  static const std::array<core::RadioData, 7> models = [] {
    std::array<core::RadioData, 7> made;
    for (const core::ModelProfile& profile : core::ModelProfiles()) {
      made[static_cast<std::size_t>(profile.model_type)] = MakeFresh(profile.model_type);
    }
    return made;
  }();
  return models[static_cast<std::size_t>(model_type)];
}

/// Texts that are written without a "#" lose these at their start when they are read.
void DropLeadingMarks(std::string& text) {
  text.erase(0, std::min(text.find_first_not_of(" #"), text.size()));
}

/// The lines of the file that a new data set is saved as.
const std::vector<std::string>& UsualLines(const core::ModelProfile& profile) {
  static std::array<std::vector<std::string>, 7> models;
  std::vector<std::string>& lines = models[static_cast<std::size_t>(profile.model_type)];
  if (lines.empty()) {
    IdlePump pump;
    const std::string text = files::SettingFileText(Fresh(profile.model_type), pump);
    for (const std::string_view line : core::Split(text, '\n')) lines.emplace_back(line);
  }
  return lines;
}

/// Any bytes; but 1 and two bytes more are that line of the usual file, and 2 and two bytes more
/// are the line up to its "=". So a short input reaches every section and key.
std::string Unfold(const core::ModelProfile& profile, std::string_view input) {
  const std::vector<std::string>& lines = UsualLines(profile);
  std::string text = "[MAIN]\nMODELTYPE=" + std::to_string(profile.model_type) + "\n";
  for (std::size_t i = 0; i < input.size(); ++i) {
    const bool whole = input[i] == 1;
    if ((!whole && input[i] != 2) || i + 2 >= input.size()) {
      text += input[i];
      continue;
    }
    const auto byte = [&](std::size_t at) -> std::size_t {
      return static_cast<std::uint8_t>(input[at]);
    };
    const std::string& line = lines[(byte(i + 1) << 8U | byte(i + 2)) % lines.size()];
    text += whole ? line + '\n' : line.substr(0, line.find('=') + 1);
    i += 2;
  }
  return text;
}

/// A whole file is a thousand times longer than most inputs, so not every input pays for one.
void Check(const core::ModelProfile& profile, std::string_view input, bool write) {
  IdlePump pump;
  core::RadioData data = Fresh(profile.model_type);
  if (!files::ApplySettingText(data, Unfold(profile, input), pump)) std::abort();
  if (!write) return;
  for (core::UsableGroup& usable : data.Usable) DropLeadingMarks(usable.Status_name);
  for (core::ChannelRecord& channel : data.EXP) {
    DropLeadingMarks(channel.CHDisplayL);
    DropLeadingMarks(channel.CHDisplayR);
  }
  const std::string written = files::SettingFileText(data, pump);
  core::RadioData again = Fresh(profile.model_type);
  if (!files::ApplySettingText(again, written, pump)) std::abort();
  if (files::SettingFileText(again, pump) != written) std::abort();
}

}  // namespace
}  // namespace orvane

/// The first byte picks the model and, in one case of 37, the way through a written file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size == 0) return 0;
  const auto& profiles = orvane::core::ModelProfiles();
  const std::string_view text(reinterpret_cast<const char*>(bytes + 1), size - 1);
  orvane::Check(profiles[bytes[0] % profiles.size()], text, bytes[0] / profiles.size() == 0);
  return 0;
}
