#pragma once

#include <chrono>

namespace orvane::core {

/// A day of the local calendar.
using Date = std::chrono::year_month_day;

}  // namespace orvane::core
