#pragma once

#include <tuple>

#include "core/radio_data.h"

namespace orvane::testing {

/// Everything a refused or failed operation must leave alone: all but the state flags.
[[nodiscard]] inline bool SameContents(const core::RadioData& a, const core::RadioData& b) {
  const auto members = [](const core::RadioData& data) {
    return std::tie(data.MODELTYPE, data.ModelName, data.SEL1, data.SEL2, data.Image, data.Marine,
                    data.WX, data.EXP, data.Usable, data.Common, data.Dsc, data.Atis,
                    data.CallSigns, data.Stations, data.StationGroups, data.ExpPresent,
                    data.CurrentFileName);
  };
  return members(a) == members(b);
}

}  // namespace orvane::testing
