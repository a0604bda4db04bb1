#include "core/calendar.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <optional>

#include "core/number_text.h"

namespace orvane::core {
namespace {

constexpr std::size_t kHourPlace = 11;

std::optional<int> NumberAt(std::string_view text, std::size_t place, std::size_t digits) {
  if (text.size() < place + digits) return std::nullopt;
  return ParseInt16(text.substr(place, digits));
}

}  // namespace

std::string HourBefore(std::string_view timestamp) {
  const auto year = NumberAt(timestamp, 0, 4);
  const auto month = NumberAt(timestamp, 5, 2);
  const auto day = NumberAt(timestamp, 8, 2);
  const auto hour = NumberAt(timestamp, kHourPlace, 2);
  if (!year || !month || !day || !hour) return std::string(timestamp);
  using std::chrono::sys_days;
  const auto before =
      sys_days(Date(std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                    std::chrono::day(static_cast<unsigned>(*day)))) +
      std::chrono::hours(*hour - 1);
  const auto midnight = std::chrono::floor<std::chrono::days>(before);
  const Date date(midnight);
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>((before - midnight).count()));
  return text.data() + std::string(timestamp.substr(kHourPlace + 2));
}

}  // namespace orvane::core
