#include "core/calendar.h"

#include <gtest/gtest.h>

namespace orvane::core {
namespace {

TEST(Calendar, AnHourBeforeCrossesMidnightMonthsAndLeapDays) {
  const struct {
    const char* time;
    const char* before;
  } cases[] = {{"2026-11-24 14:02:12", "2026-11-24 13:02:12"},
               {"2026-11-24 00:59:01", "2026-11-23 23:59:01"},
               {"2028-03-01 00:10:20", "2028-02-29 23:10:20"},
               {"2027-01-01 00:30:40", "2026-12-31 23:30:40"},
               {"no time", "no time"}};
  for (const auto& c : cases) EXPECT_EQ(HourBefore(c.time), c.before);
}

}  // namespace
}  // namespace orvane::core
