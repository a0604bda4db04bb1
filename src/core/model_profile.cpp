#include "core/model_profile.h"

#include <algorithm>

#include "core/model_profile_rows.h"

namespace orvane::core {

using model_profile_rows::kKt520Model;
using model_profile_rows::kProfiles;

const std::array<ModelProfile, 7>& ModelProfiles() {
  return kProfiles;
}

const ModelProfile& ProfileOf(std::int16_t model_type) {
  const auto* const found =
      std::find_if(kProfiles.begin(), kProfiles.end(),
                   [=](const ModelProfile& profile) { return profile.model_type == model_type; });
  return found != kProfiles.end() ? *found : kProfiles[kDefaultModelType];
}

const ModelProfile* FindProfileByCode(std::uint16_t code) {
  const auto* const found =
      std::find_if(kProfiles.begin(), kProfiles.end(),
                   [=](const ModelProfile& profile) { return profile.code == code; });
  return found != kProfiles.end() ? found : nullptr;
}

bool ModelCodeMatches(const ModelProfile& profile, CodePair codes) {
  return codes.first == codes.second && codes.first == profile.code;
}

bool ProductMatches(const ModelProfile& profile, std::uint8_t product) {
  return !profile.product_byte || *profile.product_byte == product;
}

bool ImageLengthMatches(const ModelProfile& profile, std::uint64_t length) {
  return length == static_cast<std::uint64_t>(profile.image_size);
}

std::string ModelDisplayName(std::int16_t model_type, bool sel1) {
  const ModelProfile& profile = ProfileOf(model_type);
  constexpr std::int16_t kNamedBySel1 = 5;
  constexpr std::int16_t kNamedTwice = 6;
  if (profile.model_type == kNamedBySel1 && !sel1) return std::string(kKt520Model);
  if (profile.model_type == kNamedTwice) {
    return std::string(profile.model) + "/" + std::string(kKt520Model);
  }
  return std::string(profile.model);
}

}  // namespace orvane::core
