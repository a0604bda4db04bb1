#pragma once

#include <string>

#include "core/catalogue.h"
#include "core/radio_data.h"

namespace orvane::document {

/// What an edit of that field is called in the history: "CH16 CH Name", "LMR7 Tx Frequency",
/// "USA TX TOT", "Dual Watch".
[[nodiscard]] std::string StepName(const core::RadioData& data, core::FieldRef at);

}  // namespace orvane::document
