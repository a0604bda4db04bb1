#pragma once

#include <array>
#include <cstdint>

#include "core/calendar.h"
#include "core/radio_data.h"

/// Memory contents made from the channel plans, for radios and files that do not exist yet.
namespace orvane::image {

/// A radio in use: all channel plans, transmit power on every programmed channel that may
/// transmit, weather channels, a dozen extra channels. Records and image agree, the image passes
/// the model's checks and carries the destination bits of a new data set.
[[nodiscard]] core::RadioData MakeSampleRadio(std::int16_t model_type, core::Date today);

/// The models that come with a template of either built-in destination.
inline constexpr std::array<std::int16_t, 3> kTemplateModels = {4, 5, 6};

/// The image of a destination template: the channel plans with transmit power on every programmed
/// channel that may transmit, weather channels named by their kilohertz ("162550KHZ": a name ends
/// at a point when it is read back), SEL1 as given. All else is as in a new data set.
[[nodiscard]] core::MemoryImage MakeDestinationTemplate(std::int16_t model_type, bool sel1,
                                                        core::Date today);

}  // namespace orvane::image
