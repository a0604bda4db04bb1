#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/model_profile.h"
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

/// A whole file is a thousand times longer than most inputs, so not every input pays for one.
void Check(const core::ModelProfile& profile, std::string_view text, bool write) {
  IdlePump pump;
  core::RadioData data = Fresh(profile.model_type);
  const std::string model_line = "[MAIN]\nMODELTYPE=" + std::to_string(profile.model_type) + "\n";
  if (!files::ApplySettingText(data, model_line + std::string(text), pump)) std::abort();
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

/// The first byte picks the model and, in one case of eight, the way through a written file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size == 0) return 0;
  const auto& profiles = orvane::core::ModelProfiles();
  const std::string_view text(reinterpret_cast<const char*>(bytes + 1), size - 1);
  orvane::Check(profiles[bytes[0] % profiles.size()], text, bytes[0] / profiles.size() % 8 == 0);
  return 0;
}
