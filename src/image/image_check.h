#pragma once

#include <cstdint>
#include <span>

#include "core/model_profile.h"
#include "image/layout_places.h"

/// The tests an image must pass before it is taken for a model's own.
namespace orvane::image {

/// What is wrong with an image; model and product may both be.
struct ImageFaults {
  bool length = false;  ///< not the model's length; nothing else was tested then
  bool model = false;   ///< the two model codes differ or are not the model's
  bool product = false;

  [[nodiscard]] bool Any() const { return length || model || product; }
};
[[nodiscard]] ImageFaults CheckImage(std::span<const std::uint8_t> bytes,
                                     const core::ModelProfile& profile);

/// The big-endian model codes of an image of the model's length: bytes 64-65 and the last two.
/// 0 and 0 when there are not that many bytes.
struct ModelCodes {
  std::uint16_t first = 0;
  std::uint16_t second = 0;
};
[[nodiscard]] ModelCodes ReadModelCodes(std::span<const std::uint8_t> bytes);

inline constexpr int kModelCodeOffset = places::kModelCode.FirstByte();
inline constexpr int kProductOffset = places::kProduct.FirstByte();
/// Byte that holds the destination bits.
inline constexpr int kDestinationOffset = places::kSel1.FirstByte();

}  // namespace orvane::image
