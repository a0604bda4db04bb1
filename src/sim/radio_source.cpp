#include "sim/radio_source.h"

#include <span>

#include "core/model_profile.h"
#include "image/image_check.h"
#include "image/sample_radio.h"
#include "link/simulated_radio.h"

namespace orvane::sim {
namespace {

RadioContents Refuse(const std::string& name, const std::string& reason) {
  return {{}, "\"" + name + "\" is no memory for this radio: " + reason};
}

/// The code in front; 0 when the bytes do not reach so far.
std::uint16_t CodeOf(std::span<const std::uint8_t> bytes) {
  constexpr auto kAt = static_cast<std::size_t>(image::kModelCodeOffset);
  if (bytes.size() < kAt + 2) return 0;
  return static_cast<std::uint16_t>(bytes[kAt] * 256 + bytes[kAt + 1]);
}

}  // namespace

RadioContents SampleContents(std::int16_t model_type, core::Date today) {
  const core::RadioData data = image::MakeSampleRadio(model_type, today);
  return {link::RadioMemory(core::ProfileOf(data), data.Image.Used()), {}};
}

RadioContents ContentsOfImage(const std::string& name, std::string_view bytes,
                              std::optional<std::int16_t> model_type) {
  const std::vector<std::uint8_t> image(bytes.begin(), bytes.end());
  const std::uint16_t code = CodeOf(image);
  const core::ModelProfile* const profile =
      model_type ? &core::ProfileOf(*model_type) : core::FindProfileByCode(code);
  if (profile == nullptr) {
    return Refuse(name, "its model code " + std::to_string(code) + " is no radio's");
  }
  if (!core::ImageLengthMatches(*profile, image.size())) {
    return Refuse(name, "it has " + std::to_string(image.size()) + " bytes, a " +
                            std::string(profile->model) + " has " +
                            std::to_string(profile->image_size));
  }
  if (code != profile->code) {
    return Refuse(name, "its model code is " + std::to_string(code) + ", that of a " +
                            std::string(profile->model) + " is " + std::to_string(profile->code));
  }
  return {link::RadioMemory(*profile, image), {}};
}

}  // namespace orvane::sim
