#pragma once

#include <string>
#include <vector>

#include "core/radio_data.h"

namespace orvane::files {

/// The names of the channels in use, each once, in the order of the tables; as a data set is told
/// from others at a glance. Windows-1252 bytes.
[[nodiscard]] std::vector<std::string> ChannelNamesInUse(const core::RadioData& data);

}  // namespace orvane::files
