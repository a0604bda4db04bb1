#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/model_profile.h"

/// The profiles as constants, for what is proved while compiling. Everybody else asks ProfileOf().
namespace orvane::core::model_profile_rows {

inline constexpr std::int32_t kFullImage = 16384;
inline constexpr std::int32_t kHalfImage = 8192;

inline constexpr ColumnChoice kAllColumns = {.scan_memory = true, .scrambler = true, .name = true};
inline constexpr ColumnChoice kScanMemoryOnly = {
    .scan_memory = true, .scrambler = false, .name = false};
inline constexpr ColumnChoice kNoScanMemory = {
    .scan_memory = false, .scrambler = true, .name = true};
inline constexpr ColumnChoice kWxColumns = {.scan_memory = true, .scrambler = false, .name = true};
inline constexpr ColumnChoice kWxNameOnly = {
    .scan_memory = false, .scrambler = false, .name = true};

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

inline constexpr std::string_view kKt520Model = Kt520().model;

inline constexpr std::array<ModelProfile, 7> kProfiles = {Rb6100s(), Kt310(), Kt510(), Qm9000(),
                                                          Kt520(),   Kt740(), Kt740e()};

}  // namespace orvane::core::model_profile_rows
