#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "core/model_profile.h"

/// The tests an image must pass before it is taken for a model's own.
namespace orvane::image {

enum class ImageFault { kLength, kModel, kProduct };

/// The big-endian model codes of an image of the model's length: bytes 64-65 and the last two.
struct ModelCodes {
  std::uint16_t first = 0;
  std::uint16_t second = 0;
};
[[nodiscard]] ModelCodes ReadModelCodes(std::span<const std::uint8_t> bytes);

inline constexpr int kModelCodeOffset = 64;
inline constexpr int kProductOffset = 0x3FF2;
/// Byte that holds the destination bits.
inline constexpr int kDestinationOffset = 168;

}  // namespace orvane::image
