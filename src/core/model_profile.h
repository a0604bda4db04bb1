#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/radio_data.h"

namespace orvane::core {

/// Columns of the channel tables that only some models show.
struct ColumnChoice {
  bool scan_memory;  ///< "MEM"
  bool scrambler;    ///< "VS"
  bool name;         ///< "CH Name"
};

/// Everything that differs from model to model. The rest of the program asks the profile and
/// never compares model numbers.
struct ModelProfile {
  std::int16_t model_type;  ///< MODELTYPE, 0..6
  std::string_view model;
  std::uint16_t code;            ///< stands at image bytes 64-65 and in the last two used bytes
  std::int32_t image_size;       ///< bytes used: 16384 or 8192
  int radio_code_address;        ///< where the first copy of the code is read from a radio: 0 or 64
  std::string_view extra_word;   ///< "EXP" or "LMR": what the extra channels are called
  std::optional<int> tone_byte;  ///< first tone byte in an EXP/LMR record; none = no tones
  std::optional<std::uint8_t> product_byte;  ///< required at image byte 16370
  bool has_channel_names;                    ///< ChTag, Scramble and Status name are kept
  bool has_dsc;                 ///< DSC settings, both directories, time offset, magnetic variation
  bool has_call_signs;          ///< ATIS call signs, ATIS killer group, rotary beep in the radio
  bool splits_lmr_and_exp;      ///< LMR and EXP channels are two groups in one table
  bool narrowband_rule;         ///< the FCC narrowband rule applies
  bool reports_atis;            ///< ATIS settings appear in reports
  ColumnChoice marine_columns;  ///< marine tables of the reports
  ColumnChoice wx_columns;      ///< weather table of the reports (no scrambler there)
  bool wx_name_dashed;          ///< the weather report shows dashes in place of the names
  ColumnChoice extra_columns;   ///< EXP/LMR table of the text report
  int display_dashes;           ///< dashes under "CHD" in the text report
  double min_frequency;         ///< lowest EXP/LMR frequency the editor takes, MHz
  bool raster_25khz;            ///< the editor takes whole multiples of 25 kHz only
  bool shows_common_settings;   ///< the common page has more than the weather alert
  bool shows_rotary_beep;       ///< the common page shows the rotary beep
  bool shows_scrambler;         ///< the channel editor has a scrambler list
  bool shows_bandwidth;         ///< the channel editor fills its Wide/Narrow buttons
  std::string_view series;      ///< name of the model command whose series it belongs to

  [[nodiscard]] constexpr std::int32_t LastIndex() const { return image_size - 1; }
  [[nodiscard]] constexpr bool HasTones() const { return tone_byte.has_value(); }
  /// "LMR" or "EXP", as the flag says; models without LMR channels say "EXP" always.
  [[nodiscard]] std::string_view GroupWord(bool lmr) const {
    return lmr ? extra_word : std::string_view("EXP");
  }
};

inline constexpr std::int16_t kDefaultModelType = 5;
/// Highest EXP/LMR frequency of every model, MHz, inclusive.
inline constexpr double kMaxFrequency = 174.0;

/// All models, in MODELTYPE order.
[[nodiscard]] const std::array<ModelProfile, 7>& ModelProfiles();

/// The profile of a MODELTYPE. A number outside 0..6 yields the default model's.
[[nodiscard]] const ModelProfile& ProfileOf(std::int16_t model_type);
[[nodiscard]] inline const ModelProfile& ProfileOf(const RadioData& data) {
  return ProfileOf(data.MODELTYPE);
}

/// The model whose code is given, or null.
[[nodiscard]] const ModelProfile* FindProfileByCode(std::uint16_t code);

/// The two copies of the model code that a radio or an image carries.
struct CodePair {
  std::uint16_t first = 0;
  std::uint16_t second = 0;
};

/// True when both copies of the model code agree and are the model's own.
[[nodiscard]] bool ModelCodeMatches(const ModelProfile& profile, CodePair codes);
[[nodiscard]] bool ProductMatches(const ModelProfile& profile, std::uint8_t product);
[[nodiscard]] bool ImageLengthMatches(const ModelProfile& profile, std::uint64_t length);

/// Display name of the model, as written after "MODEL=#". Model 5 is named by its SEL1 bit.
[[nodiscard]] std::string ModelDisplayName(std::int16_t model_type, bool sel1);

}  // namespace orvane::core
