#include "core/narrowband.h"

#include <gtest/gtest.h>

#include "support/dates.h"
#include "support/fakes.h"

namespace orvane::core {
namespace {

using testing::ScriptedPrompts;

using ::orvane::testing::kAfterCutOver;
using ::orvane::testing::kBeforeCutOver;
using ::orvane::testing::kCutOver;

constexpr std::string_view kConvertQuestion =
    "FCC Rule Caution!\r\n\r\n"
    "Your Data includes some Wide bandwidth CHs in 150 - 174 MHz band.\r\n"
    "After Jan.1, 2013, You must change their CHs to Narrow bandwidth.\r\n\r\n"
    "Do you change their CHs to Narrow bandwidth automatically, and start Do you start downloading "
    "them?\r\n"
    "    Yes : It will be change the bandwidth into Narrow and start downloading.\r\n"
    "    No : It will start downloading (w/o changing the bandwidth)";
constexpr std::string_view kStartQuestion =
    "FCC Rule Caution!\r\n\r\n"
    "Your Data includes some Wide bandwidth CHs in 150 - 174 MHz band.\r\n"
    "After Jan.1, 2013, You must change their CHs to Narrow bandwidth.\r\n\r\n"
    "Your Data was changed Wide CHs to Narrow, and Do you start downloading them?";
constexpr std::string_view kNotice =
    "FCC Rule Caution!\r\n\r\n"
    "After Jan.1, 2013, You must change some Wide CHs to Narrow in the 150 - 174 MHz "
    "band.\r\n\r\n"
    "Your Data was changed Wide CHs to Narrow.";

class Narrowband : public ::testing::Test {
 protected:
  Narrowband() {
    data_.LmrPresent() = true;
    Wide().Enable = true;
    Wide().LMR_EXP = -1;
    Wide().Txfreq = 155;
  }
  /// The one channel the rule touches.
  ChannelRecord& Wide() { return data_.EXP[7]; }

  RadioData data_;
  ScriptedPrompts prompts_;
};

TEST_F(Narrowband, BandEdgesAndCutOverDayCount) {
  struct Case {
    double mhz;
    Date today;
    WideState state;
  };
  const Case cases[] = {
      {149.9999, kAfterCutOver, WideState::kNone},   {150.0, kAfterCutOver, WideState::kForbidden},
      {174.0, kAfterCutOver, WideState::kForbidden}, {174.0001, kAfterCutOver, WideState::kNone},
      {155.0, kBeforeCutOver, WideState::kAllowed},  {155.0, kCutOver, WideState::kForbidden},
      {0, kAfterCutOver, WideState::kNone}};
  for (const Case& c : cases) {
    Wide().Txfreq = c.mhz;
    EXPECT_EQ(WideTest(data_, Wide(), c.today), c.state) << c.mhz;
    EXPECT_EQ(WideChannelState(data_, c.today), c.state) << c.mhz;
  }
}

TEST_F(Narrowband, ChannelsOutsideTheRuleRaiseNothing) {
  struct Case {
    std::string_view what;
    void (*change)(RadioData&);
  };
  const Case cases[] = {
      {"EXP entry", [](RadioData& d) { d.EXP[7].LMR_EXP = 0; }},
      {"disabled entry", [](RadioData& d) { d.EXP[7].Enable = false; }},
      {"narrow already", [](RadioData& d) { d.EXP[7].Narrow = true; }},
      {"group switched off", [](RadioData& d) { d.LmrPresent() = false; }},
      {"KT520", [](RadioData& d) { d.MODELTYPE = 4; }},
      {"KT740E", [](RadioData& d) { d.MODELTYPE = 6; }},
  };
  for (const Case& c : cases) {
    RadioData data = data_;
    c.change(data);
    const ExtraTable before = data.EXP;
    for (const auto direction : {NarrowbandDirection::kDownload, NarrowbandDirection::kUpload}) {
      EXPECT_TRUE(NarrowbandCheck(data, direction, kAfterCutOver, prompts_)) << c.what;
    }
    EXPECT_EQ(data.EXP, before) << c.what;
  }
  EXPECT_TRUE(prompts_.messages.empty());
}

TEST_F(Narrowband, EveryEnabledChannelOfTheBandIsConverted) {
  data_.EXP[40] = Wide();
  data_.EXP[9] = Wide();
  data_.EXP[9].Enable = false;
  data_.EXP[10] = Wide();
  data_.EXP[10].Txfreq = 149;
  SetNarrow(data_, kAfterCutOver);
  for (int n = 1; n <= 40; ++n) EXPECT_EQ(data_.EXP[n].Narrow, n == 7 || n == 40) << n;
}

TEST_F(Narrowband, AsksAndConvertsAsTheDirectionAndTheDayDemand) {
  struct Case {
    NarrowbandDirection direction;
    Date today;
    Answer user;
    std::string_view title, text;  ///< empty: no message
    Buttons buttons;
    bool goes_on, narrow;
  };
  using enum NarrowbandDirection;
  const Case cases[] = {
      {kDownload, kBeforeCutOver, Answer::kYes, "Download", kConvertQuestion, Buttons::kYesNo, true,
       true},
      {kDownload, kBeforeCutOver, Answer::kNo, "Download", kConvertQuestion, Buttons::kYesNo, true,
       false},
      {kDownload, kCutOver, Answer::kYes, "Download", kStartQuestion, Buttons::kYesNo, true, true},
      {kDownload, kCutOver, Answer::kNo, "Download", kStartQuestion, Buttons::kYesNo, false, true},
      {kUpload, kBeforeCutOver, Answer::kOk, "", "", Buttons::kOk, true, false},
      {kUpload, kCutOver, Answer::kOk, "Upload", kNotice, Buttons::kOk, true, true},
      {kSave, kCutOver, Answer::kOk, "Save", kNotice, Buttons::kOk, true, true}};
  for (const Case& c : cases) {
    RadioData data = data_;
    ScriptedPrompts prompts;
    prompts.fallback = c.user;
    SCOPED_TRACE(std::string(c.title) + " " + std::to_string(static_cast<int>(c.user)));
    EXPECT_EQ(NarrowbandCheck(data, c.direction, c.today, prompts), c.goes_on);
    EXPECT_EQ(data.EXP[7].Narrow, c.narrow);
    ASSERT_EQ(prompts.messages.size(), c.text.empty() ? 0U : 1U);
    if (c.text.empty()) continue;
    EXPECT_EQ(prompts.messages[0].title, c.title);
    EXPECT_EQ(prompts.messages[0].text, c.text);
    EXPECT_EQ(prompts.messages[0].buttons, c.buttons);
    EXPECT_EQ(prompts.messages[0].icon, Icon::kNone);
  }
}

}  // namespace
}  // namespace orvane::core
