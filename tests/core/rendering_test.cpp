#include "core/rendering.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"
#include "core/tones.h"
#include "support/golden.h"

namespace orvane::core {
namespace {

TEST(Rendering, ListsAreEmptyOutsideTheirItems) {
  using Texts = std::vector<std::string_view>;
  const struct {
    std::string_view (*text)(int);
    Texts texts;  ///< of the values from -1 on
  } cases[] = {
      {TxPoDisplayText, {"", "Lo Po Only", "Lo Po on Changing CH", "Last TX Po", ""}},
      {ResumeTimeText, {"", "--", "1Sec", "2Sec", "3Sec", ""}},
      {MagneticVariationText, {"", "True", "Mag", ""}},
      {WeatherAlertText, {"", "Off", "", "", "On", ""}},
  };
  for (const auto& c : cases) {
    Texts texts;
    for (int value = -1; texts.size() < c.texts.size(); ++value) texts.push_back(c.text(value));
    EXPECT_EQ(texts, c.texts);
  }
}

TEST(Rendering, TimeOffsetRunsFromMinusTwelveToPlusTwelve) {
  const std::pair<int, std::string_view> cases[] = {{-1, ""},      {0, "-12:00"}, {11, "-1:00"},
                                                    {12, " 0:00"}, {13, "+1:00"}, {24, "+12:00"},
                                                    {25, ""}};
  for (const auto& [value, text] : cases) EXPECT_EQ(OffsetTimeText(value), text) << value;
}

TEST(Rendering, FrequenciesHaveFixedDecimals) {
  EXPECT_EQ(PlanFrequencyText(156.05), "156.050");
  EXPECT_EQ(PlanFrequencyText(0), "---.---");
  EXPECT_EQ(PlanFrequencyText(-1), "---.---");
  EXPECT_EQ(FrequencyText(146.5213), "146.5213");
  EXPECT_EQ(FrequencyText(5.5), "005.5000");
  EXPECT_EQ(FrequencyText(0), "---.----");
}

TEST(Rendering, OffRasterFrequenciesAreLoweredToFiveKilohertz) {
  const std::pair<double, std::string_view> cases[] = {
      {146.5213, "146.5200"}, {146.5125, "146.5125"}, {146.52, "146.5200"},
      {146.525, "146.5250"},  {146.5249, "146.5200"}, {146.5375, "146.5375"},
      {0.003, "000.0000"},    {0, "---.----"},        {-3, "---.----"}};
  for (const auto& [mhz, text] : cases) EXPECT_EQ(RasterFrequencyText(mhz), text) << mhz;
}

TEST(Rendering, ScramblerShowsItsCodeOnlyWhenOn) {
  EXPECT_EQ(ScramblerText(6), "2");
  EXPECT_EQ(ScramblerText(4), "0");
  EXPECT_EQ(ScramblerText(2), "--");
}

TEST(Rendering, ChannelDisplayFillsFourPlaces) {
  struct Case {
    std::string left, right, shown;
  };
  const Case cases[] = {{"BD", "7", "bd 7"},    {"", "", "    "},     {"M", "12", "M 12"},
                        {"ABC", "XYZ", "AbyZ"}, {"NO", "QT", "noqt"}, {"a1", "", "a1  "}};
  for (const Case& c : cases) {
    ChannelRecord channel;
    channel.CHDisplayL = c.left;
    channel.CHDisplayR = c.right;
    EXPECT_EQ(DisplayText(channel), c.shown);
  }
}

TEST(Tones, InvertedCodesFollowTheNormalOnes) {
  const std::pair<int, std::string_view> cases[] = {
      {-1, ""}, {0, ""}, {1, "023N"}, {104, "754N"}, {105, "023I"}, {208, "754I"}, {209, ""}};
  for (const auto& [index, text] : cases) EXPECT_EQ(DcsText(index), text) << index;
  std::string lists;
  for (int i = 0; i < 51; ++i) lists += std::string(CtcssText(i)) + '\n';
  for (const std::string_view code : DcsList()) lists += std::string(code) + '\n';
  ::orvane::testing::ExpectGolden("tone_lists.txt", lists);
  EXPECT_EQ(CtcssText(51), "");
}

TEST(Tones, ToneWinsOverCodeAndEachDirectionHasItsOwn) {
  struct Case {
    std::int16_t ctcss, dcs;
    std::string_view text;
  };
  const Case cases[] = {{9, 1, "88.5Hz"},   {0, 1, "023N"},      {0, 0, "-------"},
                        {51, 1, "-------"}, {0, 209, "-------"}, {-1, 105, "023I"}};
  for (const Case& c : cases) {
    ChannelRecord channel;
    channel.RxCTCSS = c.ctcss;
    channel.RxDCS = c.dcs;
    EXPECT_EQ(ToneText(channel, ToneDirection::kReceive), c.text);
    EXPECT_EQ(ToneText(channel, ToneDirection::kTransmit), "-------");
    std::swap(channel.RxCTCSS, channel.TxCTCSS);
    std::swap(channel.RxDCS, channel.TxDCS);
    EXPECT_EQ(ToneText(channel, ToneDirection::kTransmit), c.text);
  }
}

TEST(Text, BytesOutsideAsciiKeepTheirValue) {
  EXPECT_EQ(UpperCase("caf\xE9 z"), "CAF\xE9 Z");
  EXPECT_EQ(LowerCase("\xC9TAT"), "\xC9tat");
  EXPECT_FALSE(EqualsIgnoringCase("\xE9", "\xC9"));
  EXPECT_FALSE(EqualsIgnoringCase("kt", "kt7"));
}

TEST(Text, TrimAndSplitKeepInnerBlanksAndEmptyPieces) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(TrimRight("  a "), "  a");
  EXPECT_EQ(Split("a,,b,", ','), (std::vector<std::string_view>{"a", "", "b", ""}));
  EXPECT_EQ(Split("", ','), std::vector<std::string_view>{""});
}

}  // namespace
}  // namespace orvane::core
