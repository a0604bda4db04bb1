#pragma once

#include <span>
#include <string_view>

#include "core/radio_data.h"

namespace orvane::core {

/// How a fresh data set fills one position of a marine table.
struct MarineDefault {
  enum Flags : unsigned {
    kNone = 0,
    kPowUp = 1,
    kLowPower = 2,
    kDuplex = 4,
    kRxOnly = 8,
    kDisabled = 16  ///< listed in the plan, yet not switched on
  };

  int position;
  std::string_view name;
  unsigned flags;
};

/// The positions a group's plan names, in channel order. All others stay switched off.
[[nodiscard]] std::span<const MarineDefault> MarineDefaults(MarineGroup group);

}  // namespace orvane::core
