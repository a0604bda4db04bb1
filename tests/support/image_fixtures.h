#pragma once

#include <initializer_list>
#include <vector>

#include "core/model_profile.h"
#include "image/codec.h"
#include "support/dates.h"

/// Data sets to start image tests from.
namespace orvane::testing {

inline core::RadioData NewData(int model_type) {
  core::RadioData data;
  data.MODELTYPE = static_cast<std::int16_t>(model_type);
  image::ResetToDefaults(data, kAfterCutOver);
  return data;
}

inline void SetBytes(core::MemoryImage& image, int offset, std::initializer_list<int> bytes) {
  for (const int byte : bytes) image[offset++] = static_cast<std::uint8_t>(byte);
}

inline std::vector<int> BytesOf(const core::MemoryImage& image, int offset, int length) {
  const auto bytes =
      image.All().subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
  return {bytes.begin(), bytes.end()};
}

}  // namespace orvane::testing
