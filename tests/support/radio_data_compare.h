#pragma once

#include "core/radio_data.h"

namespace orvane::testing {

/// Everything a refused or failed operation must leave alone: all but the state flags.
[[nodiscard]] inline bool SameContents(core::RadioData a, const core::RadioData& b) {
  a.Flags = b.Flags;
  return a == b;
}

}  // namespace orvane::testing
