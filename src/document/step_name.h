#pragma once

#include <string>

#include "core/catalogue.h"
#include "core/radio_data.h"

namespace orvane::document {

/// The entry of a table as the navigation tree or the page calls it: "CH22A", "LMR7", "Station 3";
/// "" where its fields need no place.
[[nodiscard]] std::string PlaceName(const core::RadioData& data, core::FieldRef at);
/// What an edit of that field is called in the history: "CH16 CH Name", "LMR7 Tx Frequency",
/// "USA TX TOT", "Dual Watch".
[[nodiscard]] std::string StepName(const core::RadioData& data, core::FieldRef at);

}  // namespace orvane::document
