#include "core/model_profile.h"

#include <algorithm>

namespace orvane::core {
namespace {

constexpr std::int32_t kFullImage = 16384;
constexpr std::int32_t kHalfImage = 8192;

constexpr ColumnChoice kAllColumns = {.scan_memory = true, .scrambler = true, .name = true};
constexpr ColumnChoice kScanMemoryOnly = {.scan_memory = true, .scrambler = false, .name = false};
constexpr ColumnChoice kNoScanMemory = {.scan_memory = false, .scrambler = true, .name = true};
constexpr ColumnChoice kWxColumns = {.scan_memory = true, .scrambler = false, .name = true};
constexpr ColumnChoice kWxNameOnly = {.scan_memory = false, .scrambler = false, .name = true};

/// What most models share. Each maker of a profile below states only how its model differs.
constexpr ModelProfile Common(std::int16_t model_type, std::string_view model, std::uint16_t code,
                              std::string_view series) {
  return {.model_type = model_type,
          .model = model,
          .code = code,
          .image_size = kFullImage,
          .radio_code_address = 0,
          .extra_word = "EXP",
          .tone_byte = std::nullopt,
          .product_byte = std::nullopt,
          .has_channel_names = true,
          .has_dsc = false,
          .has_call_signs = false,
          .splits_lmr_and_exp = false,
          .narrowband_rule = false,
          .reports_atis = true,
          .marine_columns = kAllColumns,
          .wx_columns = kWxColumns,
          .wx_name_dashed = false,
          .extra_columns = kAllColumns,
          .display_dashes = 3,
          .min_frequency = 137,
          .raster_25khz = false,
          .shows_common_settings = true,
          .shows_rotary_beep = false,
          .shows_scrambler = true,
          .shows_bandwidth = true,
          .series = series};
}

/// Marine radios with digital selective calling.
constexpr ModelProfile DscModel(std::int16_t model_type, std::string_view model,
                                std::uint16_t code) {
  ModelProfile profile = Common(model_type, model, code, model);
  profile.has_dsc = true;
  profile.raster_25khz = true;
  return profile;
}

/// The KT520 and its successors: land-mobile channels from 134 MHz on.
constexpr ModelProfile LandMobileModel(std::int16_t model_type, std::string_view model,
                                       std::uint16_t code) {
  ModelProfile profile = Common(model_type, model, code, "KT520");
  profile.radio_code_address = 64;
  profile.extra_word = "LMR";
  profile.tone_byte = 11;
  profile.display_dashes = 4;
  profile.min_frequency = 134;
  return profile;
}

constexpr ModelProfile Rb6100s() {
  ModelProfile profile = DscModel(0, "RB6100S", 6100);
  profile.has_call_signs = true;
  profile.shows_rotary_beep = true;
  return profile;
}

constexpr ModelProfile Kt310() {
  ModelProfile profile = Common(1, "KT310", 310, "KT310");
  profile.image_size = kHalfImage;
  profile.has_channel_names = false;
  profile.marine_columns = kScanMemoryOnly;
  profile.wx_columns = kScanMemoryOnly;
  profile.extra_columns = kScanMemoryOnly;
  profile.shows_rotary_beep = true;
  return profile;
}

constexpr ModelProfile Kt510() {
  ModelProfile profile = Common(2, "KT510", 510, "");
  profile.extra_word = "LMR";
  profile.tone_byte = 10;
  profile.shows_rotary_beep = true;
  return profile;
}

constexpr ModelProfile Qm9000() {
  ModelProfile profile = DscModel(3, "QM9000", 9000);
  profile.shows_common_settings = false;
  profile.shows_scrambler = false;
  return profile;
}

constexpr ModelProfile Kt520() {
  ModelProfile profile = LandMobileModel(4, "KT520", 520);
  profile.marine_columns = kNoScanMemory;
  profile.wx_columns = kWxNameOnly;
  profile.extra_columns = kNoScanMemory;
  profile.shows_bandwidth = false;
  return profile;
}

constexpr ModelProfile Kt740() {
  ModelProfile profile = LandMobileModel(5, "KT740", 740);
  profile.product_byte = std::uint8_t{2};
  profile.splits_lmr_and_exp = true;
  profile.narrowband_rule = true;
  profile.reports_atis = false;
  return profile;
}

constexpr ModelProfile Kt740e() {
  ModelProfile profile = LandMobileModel(6, "KT740E", 741);
  profile.wx_name_dashed = true;
  return profile;
}

constexpr std::array<ModelProfile, 7> kProfiles = {Rb6100s(), Kt310(), Kt510(), Qm9000(),
                                                   Kt520(),   Kt740(), Kt740e()};

}  // namespace

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
  if (profile.model_type == kNamedBySel1 && !sel1) return std::string(Kt520().model);
  if (profile.model_type == kNamedTwice) {
    return std::string(profile.model) + "/" + std::string(Kt520().model);
  }
  return std::string(profile.model);
}

}  // namespace orvane::core
