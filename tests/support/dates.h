#pragma once

#include <chrono>

#include "core/calendar.h"

/// Days on either side of the narrowband rule's cut-over.
namespace orvane::testing {

inline constexpr core::Date kBeforeCutOver{std::chrono::year{2012}, std::chrono::month{12},
                                           std::chrono::day{31}};
inline constexpr core::Date kCutOver{std::chrono::year{2013}, std::chrono::month{1},
                                     std::chrono::day{1}};
inline constexpr core::Date kAfterCutOver{std::chrono::year{2026}, std::chrono::month{6},
                                          std::chrono::day{15}};

}  // namespace orvane::testing
