#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace orvane::core {

/// A day of the local calendar.
using Date = std::chrono::year_month_day;

/// The local time an hour before that one, both as Clock::Timestamp gives them. The text itself
/// when it is no time.
[[nodiscard]] std::string HourBefore(std::string_view timestamp);

}  // namespace orvane::core
