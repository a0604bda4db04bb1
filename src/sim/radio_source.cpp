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

}  // namespace

RadioContents SampleContents(std::int16_t model_type, core::Date today) {
  const core::RadioData data = image::MakeSampleRadio(model_type, today);
  return {link::RadioMemory(core::ProfileOf(data), data.Image.Used()), {}};
}

RadioContents ContentsOfImage(const std::string& name, std::string_view bytes,
                              std::optional<std::int16_t> model_type) {
  const std::vector<std::uint8_t> image(bytes.begin(), bytes.end());
  const core::ModelProfile* const profile =
      model_type ? &core::ProfileOf(*model_type) : image::NamedModel(image);
  if (profile == nullptr) return Refuse(name, "it names no radio's model");
  const std::string model(profile->model);
  const image::ImageFaults faults = image::CheckImage(image, *profile);
  if (faults.length) {
    return Refuse(name, "it has " + std::to_string(image.size()) + " bytes, a " + model + " has " +
                            std::to_string(profile->image_size));
  }
  if (faults.model) {
    return Refuse(name, "its two model codes are not both " + std::to_string(profile->code) +
                            ", that of a " + model);
  }
  if (faults.product) return Refuse(name, "its product byte is not that of a " + model);
  return {link::RadioMemory(*profile, image), {}};
}

}  // namespace orvane::sim
