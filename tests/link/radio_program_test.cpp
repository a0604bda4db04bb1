#include "link/radio_program.h"

#include <gtest/gtest.h>

namespace orvane::link {
namespace {

TEST(RadioProgram, OnlyItsReadyLineNamesANumber) {
  const struct {
    std::string line;
    std::optional<int> number;
  } cases[] = {
      {RadioReadyLine(16, "/dev/pts/3"), 16},
      {RadioReadyLine(1, "/dev/ttys0 is"), 1},
      {"COM17 is /dev/pts/3", std::nullopt},
      {"COM0 is /dev/pts/3", std::nullopt},
      {"COM is /dev/pts/3", std::nullopt},
      {"COM4 is ", std::nullopt},
      {"COM4", std::nullopt},
      {"orvane-radio: COM4 is taken", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(NumberOfReadyLine(c.line), c.number) << c.line;
}

// A port that is there, and a radio left partly written, keep their numbers.
TEST(RadioProgram, TakesTheHighestNumbersThatNobodyElseHas) {
  std::vector<PortEntry> ports(3);
  ports[0].port_number = 1;
  ports[1].port_number = 14;
  ports[2].port_number = 16;
  const auto spoken_for = [](int number) { return number == 13 || (number > 1 && number < 11); };
  EXPECT_EQ(NumbersForSimulatedRadio(ports, spoken_for), (std::vector<int>{15, 12, 11}));
  EXPECT_EQ(RadioProgramWords(4, {15, 12, 11}),
            (std::vector<std::string>{"--model", "4", "--port", "15,12,11", "--quiet",
                                      "--until-input-ends"}));
  EXPECT_TRUE(NumbersForSimulatedRadio({}, [](int /*number*/) { return true; }).empty());
}

TEST(RadioProgram, IsToldFromARealOneByItsDescription) {
  EXPECT_TRUE(IsSimulatedRadio({"COM16", "Simulated radio"}));
  EXPECT_FALSE(IsSimulatedRadio({"COM16", "USB Serial"}));
  EXPECT_FALSE(IsSimulatedRadio({"Simulated radio", ""}));
}

}  // namespace
}  // namespace orvane::link
