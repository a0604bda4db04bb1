#pragma once

#include "core/radio_data.h"

namespace orvane::image {

/// Image to the usable groups and the common, DSC and ATIS settings.
void DecodeSettings(core::RadioData& data);

}  // namespace orvane::image
