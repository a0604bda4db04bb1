#pragma once

#include "image/sample_radio.h"

namespace orvane::bench {

inline constexpr core::Date kToday{std::chrono::year{2026}, std::chrono::month{6},
                                   std::chrono::day{15}};
inline constexpr std::int16_t kModel = 5;

/// A radio in use, of the model with the most fields.
inline core::RadioData UsedRadio() {
  return image::MakeSampleRadio(kModel, kToday);
}

}  // namespace orvane::bench
