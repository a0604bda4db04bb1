#pragma once

#include <cstdint>
#include <span>

#include "core/model_profile.h"
#include "image/layout_places.h"

/// The tests an image must pass before it is taken for a model's own.
namespace orvane::image {

inline constexpr int kModelCodeOffset = places::kModelCode.FirstByte();
inline constexpr int kProductOffset = places::kProduct.FirstByte();
/// Byte that holds the destination bits.
inline constexpr int kDestinationOffset = places::kSel1.FirstByte();

/// What is wrong with an image, and what it says; model and product may both be wrong.
struct ImageFaults {
  bool length = false;  ///< not the model's length; nothing else was tested then
  bool model = false;   ///< the two model codes differ or are not the model's
  bool product = false;
  core::CodePair codes{};
  std::uint8_t product_byte = 0;  ///< 0 where the image ends before it

  [[nodiscard]] bool Any() const { return length || model || product; }
};
/// Whether the bytes are a whole image of the model. A radio may keep the first copy of its code
/// elsewhere than its image does.
[[nodiscard]] ImageFaults CheckImage(std::span<const std::uint8_t> bytes,
                                     const core::ModelProfile& profile,
                                     int first_code_offset = kModelCodeOffset);

/// The model that the code in front names; null when there is none, or not so many bytes.
[[nodiscard]] const core::ModelProfile* NamedModel(std::span<const std::uint8_t> bytes);

}  // namespace orvane::image
