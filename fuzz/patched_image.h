#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "core/model_profile.h"
#include "image/codec.h"
#include "image/sample_radio.h"

namespace orvane::fuzz {

inline constexpr core::Date kToday{std::chrono::year{2026}, std::chrono::month{6},
                                   std::chrono::day{15}};

/// A data set with any image of any model; its records do not belong to the image yet. The first
/// byte picks the model and where to start: a new data set, a radio in use or erased memory. Three
/// bytes each then change the image: address, high byte first, and value. So a short input reaches
/// every byte, and one changed byte of the input moves one field.
inline core::RadioData PatchedImage(std::span<const std::uint8_t> input) {
  constexpr std::size_t kModels = 7;
  enum Start { kNew, kUsed, kErased, kStarts };
  static const auto data_sets = [] {
    std::array<std::array<core::RadioData, kStarts>, kModels> made;
    for (std::size_t model = 0; model < kModels; ++model) {
      core::RadioData& fresh = made[model][kNew];
      fresh.MODELTYPE = static_cast<std::int16_t>(model);
      image::ResetToDefaults(fresh, kToday);
      made[model][kUsed] = image::MakeSampleRadio(fresh.MODELTYPE, kToday);
      made[model][kErased] = fresh;
      for (std::uint8_t& byte : made[model][kErased].Image.All()) byte = 0xFF;
    }
    return made;
  }();
  const std::size_t choice = input.empty() ? 0 : input[0];
  core::RadioData data = data_sets[choice % kModels][choice / kModels % kStarts];
  for (std::size_t i = 1; i + 2 < input.size(); i += 3) {
    const int address = (input[i] << 8 | input[i + 1]) % core::MemoryImage::kSize;
    data.Image[address] = input[i + 2];
  }
  return data;
}

}  // namespace orvane::fuzz
