#pragma once

#include <QString>

#include "core/catalogue.h"
#include "core/radio_data.h"

/// Where the fields stand when two data sets lie side by side: in groups as in the navigation tree,
/// and in those by the channel, or whatever else there are several of.
namespace orvane::editor {

struct ComparisonPlace {
  int rank = 0;     ///< of the group, in the order of the navigation tree; tells groups apart
  QString group;    ///< "USA", "LMR Channel", "Common Setup", "Station"
  QString entry{};  ///< "CH22A", "LMR7", "Station 3"; "" where a field stands in the group itself
};

/// Of all fields of that table's entry. EXP/LMR channels stand under the heading that they have in
/// the data.
[[nodiscard]] ComparisonPlace PlaceInComparison(const core::RadioData& data, core::FieldRef at);

}  // namespace orvane::editor
