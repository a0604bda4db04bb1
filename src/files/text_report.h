#pragma once

#include <string>

#include "core/radio_data.h"

namespace orvane::files {

/// The whole data set as fixed-width text for reading and saving: CR LF between lines, none after
/// the last. Never fails; values outside their range read as the fallback their rendering names.
[[nodiscard]] std::string BuildTextReport(const core::RadioData& data);

}  // namespace orvane::files
