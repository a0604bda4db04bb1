#include "core/number_text.h"

#include <gtest/gtest.h>

namespace orvane::core {
namespace {

TEST(NumberText, TakesWholeNumbersOnly) {
  const std::pair<std::string_view, double> cases[] = {{"156.8", 156.8}, {" 12 ", 12}, {"+5", 5},
                                                       {"-.5", -0.5},    {"7.", 7},    {"1e2", 100},
                                                       {"2.5E-1", 0.25}, {"0001", 1}};
  for (const auto& [text, value] : cases) EXPECT_EQ(ParseNumber(text), value) << text;
  for (const std::string_view text : {"", "   ", ".", "-", "5abc", "0x10", "1,5", "inf", "nan",
                                      "1 2", "1e", "e5", "--1", "- 1", "1.2.3", "1e999"}) {
    EXPECT_EQ(ParseNumber(text), std::nullopt) << '"' << text << '"';
  }
}

TEST(NumberText, RoundsHalvesToTheEvenNeighbour) {
  const std::pair<double, double> cases[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},  {-0.5, 0},
                                             {-1.5, -2}, {-2.5, -2}, {2.51, 3}, {-2.49, -2}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundHalfEven(value), rounded) << value;
}

TEST(NumberText, TestsTheRangeAfterRounding) {
  EXPECT_EQ(ParseInt16("32767.4"), 32767);
  EXPECT_EQ(ParseInt16("32767.5"), std::nullopt);
  EXPECT_EQ(ParseInt16("-32768.5"), -32768);
  EXPECT_EQ(ParseInt16("-32769"), std::nullopt);
  EXPECT_EQ(ParseInt32("2147483647"), 2147483647);
  EXPECT_EQ(ParseInt32("2147483648"), std::nullopt);
  EXPECT_EQ(ParseByte("255.5"), std::nullopt);
  EXPECT_EQ(ParseByte("254.5"), 254);
  EXPECT_EQ(ParseByte("-0.5"), 0);
  EXPECT_EQ(ParseByte("-1"), std::nullopt);
}

TEST(NumberText, ReadsAFrequencyBoxUpToTheFirstForeignCharacter) {
  const std::pair<std::string_view, double> cases[] = {
      {"156.025", 156.025}, {"", 0},    {".", 0},       {"---.----", 0}, {"abc", 0},
      {"156.02x", 156.02},  {".5", .5}, {"1.2.3", 1.2}, {"174.", 174},   {"5e3", 5}};
  for (const auto& [text, value] : cases) EXPECT_EQ(LeadingNumber(text), value) << text;
}

TEST(NumberText, WritesFifteenDigitsAtMostAndNoExponent) {
  const std::pair<double, std::string_view> cases[] = {{156.8, "156.8"},
                                                       {157.0125, "157.0125"},
                                                       {0, "0"},
                                                       {-0.0, "0"},
                                                       {0.5, "0.5"},
                                                       {0.1 + 0.2, "0.3"},
                                                       {-12, "-12"},
                                                       {1000000, "1000000"},
                                                       {0.00001, "0.00001"},
                                                       {1e15, "1000000000000000"},
                                                       {100.0 / 3, "33.3333333333333"},
                                                       {9.9999999999999999, "10"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(ShortestText(value), text);
}

TEST(NumberText, EveryHundredHertzStepSurvivesWritingAndReading) {
  for (int units = 1000000; units <= 2000000; ++units) {
    const double mhz = units / 10000.0;
    ASSERT_EQ(ParseNumber(ShortestText(mhz)), mhz);
  }
}

TEST(NumberText, HexadecimalIsPaddedAndReadWhole) {
  EXPECT_EQ(HexText(740, 4), "02E4");
  EXPECT_EQ(HexText(0, 2), "00");
  EXPECT_EQ(HexText(0x12345, 4), "12345");
  EXPECT_EQ(ParseHex("02e4"), 740U);
  for (const std::string_view text : {"", "0x1", "1G", " 1", "-1", "123456789"}) {
    EXPECT_EQ(ParseHex(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace orvane::core
