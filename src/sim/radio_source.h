#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"

namespace orvane::sim {

/// What the radio holds when it is switched on.
struct RadioContents {
  std::vector<std::uint8_t> memory;
  std::string error;  ///< set: there is no memory; a sentence
};

/// A radio in use, of that model.
[[nodiscard]] RadioContents SampleContents(std::int16_t model_type, core::Date today);
/// The bytes of an image file, which must be a whole image of the model, or of the model its own
/// code names. Name: what the error calls it.
[[nodiscard]] RadioContents ContentsOfImage(const std::string& name, std::string_view bytes,
                                            std::optional<std::int16_t> model_type);

}  // namespace orvane::sim
