#include "document/problems.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/field_ref.h"
#include "core/model_profile.h"
#include "document/compare.h"
#include "document/document.h"
#include "image/layout_places.h"
#include "image/raw_areas.h"
#include "image/sample_radio.h"
#include "support/random_data.h"

namespace orvane::document {
namespace {

using core::RadioData;
using testing::kAfterCutOver;
using Kind = ProblemKind;

RadioData Sample(int model = 5) {
  return image::MakeSampleRadio(static_cast<std::int16_t>(model), kAfterCutOver);
}

const char* Word(Severity severity) {
  return severity == Severity::kError     ? "error"
         : severity == Severity::kWarning ? "warning"
                                          : "note";
}

std::string Lines(const std::vector<Problem>& problems) {
  std::string lines;
  for (const Problem& problem : problems) {
    lines += std::string(Word(problem.severity)) + ": " + core::PathOf(problem.at) + ": " +
             problem.text + " [" + problem.remedy + "]\n";
  }
  return lines;
}

TEST(FindProblems, NothingIsWrongWithARadioInUse) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    EXPECT_EQ(Lines(FindProblems(Sample(profile.model_type), kAfterCutOver)), "") << profile.model;
  }
}

struct ProblemRow {
  Kind kind;
  int model;
  void (*spoil)(RadioData&);
  const char* line;
};

const ProblemRow kRows[] = {
    {Kind::kValue, 5, [](RadioData& data) { data.Common.SQL = 16; },
     "error: common/sql: The model does not take \"16\". It goes from 0 to 15. []"},
    {Kind::kValue, 2, [](RadioData& data) { data.EXP[7].Rxfreq = 136; },
     "error: extra/7/rx_frequency: The model does not take \"136\". A KT510 takes 137 to 174 MHz. "
     "[]"},
    {Kind::kValue, 5, [](RadioData& data) { data.EXP[3].TxDCS = 220; },
     "note: extra/3/tx_dcs: No DCS code has that number. Choose a code, or Off. [Switch it off]"},
    {Kind::kNoFrequency, 5, [](RadioData& data) { data.EXP[7].Rxfreq = 0; },
     "error: extra/7/rx_frequency: The channel is on, but has no receive frequency. Give it one, "
     "or "
     "switch it off. [Switch the channel off]"},
    {Kind::kNoDisplay, 5, [](RadioData& data) { data.EXP[7].CHDisplayL = ""; },
     "error: extra/7/display_left: The channel is on, but has no two characters on the left of CH "
     "Display. Give it some, or switch it off. [Switch the channel off]"},
    {Kind::kEmptyGroup, 5,
     [](RadioData& data) {
       for (int n = 9; n <= 12; ++n) data.EXP[n].Enable = false;
     },
     "error: exp_present: The group is in use, but none of its channels is switched on. Switch one "
     "on, or the group off. [Switch the group off]"},
    {Kind::kEmptyGroup, 0,
     [](RadioData& data) {
       for (core::ChannelRecord& channel : data.Marine[2]) channel.Enable = false;
       data.Usable[2].Priority_CH = core::kNoChannel;
     },
     "error: usable_groups/canada/enable: The group is in use, but none of its channels is "
     "switched "
     "on. Switch one on, or the group off. [Switch the group off]"},
    {Kind::kPriorityNotInUse, 5, [](RadioData& data) { data.Usable[1].Priority_CH = 61; },
     "error: usable_groups/intl/priority_ch: Channel 30A is not in use. Choose one that is. [Make "
     "it 16]"},
    {Kind::kStoredNotInUse, 5,
     [](RadioData& data) { image::SetStoredChannel(data.Image, 1, 4, 240 + 29); },
     "error: image/0070: The radio's own list of INTL channels names EXP/LMR 30, which is not in "
     "use. Programming takes it off the list. [Take it off the list]"},
    {Kind::kLastNotInUse, 5, [](RadioData& data) { data.Common.Last_Display_CH = 1; },
     "error: common/last_display_ch: Channel 00A is not in use. Choose one that is. [Make it 16]"},
    {Kind::kLastNotInUse, 3,
     [](RadioData& data) {
       data.Usable[0].Enable = false;
       data.Usable[1].Enable = false;
       data.Common.Last_CH_Group = 1;
     },
     "error: common/last_ch_group: Group INTL is not in use. Choose one that is. [Make it CANADA]"},
    {Kind::kPowerCodeZero, 5, [](RadioData& data) { data.Marine[0][3].TXPower = 0; },
     "warning: usa/01A/tx_enable: Tx Enable is ticked, but power code 0 lets nothing out. It takes "
     "power code 3, or Low Power Only. [Let it transmit]"},
    {Kind::kChannel16, 5, [](RadioData& data) { data.Marine[2][32].TxEnable = false; },
     "warning: canada/16/tx_enable: Channel 16, for distress and calling, cannot transmit. Tx "
     "Enable lets it. [Let it transmit]"},
    {Kind::kChannel16, 3,
     [](RadioData& data) {
       data.Marine[1][32].Enable = false;
       data.Usable[1].Priority_CH = core::kNoChannel;
     },
     "warning: intl/16/enable: Channel 16, for distress and calling, is off. It belongs in each "
     "group. [Switch it on]"},
    {Kind::kNoGroup, 5,
     [](RadioData& data) {
       for (core::ChannelRecord* channel : {&data.EXP[10], &data.EXP[2]}) {
         channel->USA_Group = channel->INT_Group = channel->CAN_Group = false;
       }
     },
     "warning: extra/10/usa_group: The channel is on, but belongs to none of the groups [USA], "
     "[INTL] and [CAN], so that nobody comes to it. Tick one. [Put it into the groups in use]"},
    {Kind::kWide, 5, [](RadioData& data) { data.EXP[1].Narrow = false; },
     "warning: extra/1/narrow: LMR channels from 150 to 174 MHz are narrow, by rule of the FCC. "
     "Programming makes it narrow. [Make it narrow]"},
    {Kind::kNameCut, 5, [](RadioData& data) { data.WX[1].ChTag = "162.400MHZ"; },
     "warning: wx/2/name: It comes back from the radio as \"162\": a name ends at a point when it "
     "is "
     "read. [Make it \"162,400MHZ\"]"},
    {Kind::kNameCut, 3, [](RadioData& data) { data.Stations[2].TagName = "wind+SEA"; },
     "warning: stations/2/name: It comes back from the radio as \"wind\": names have letters, "
     "digits, blanks and - / , _ only, and no more of them than fit. [Make it \"WINDSEA\"]"},
    {Kind::kSameDisplay, 5, [](RadioData& data) { data.EXP[5].CHDisplayR = "02"; },
     "warning: extra/5/display_left: LMR2 shows the same number. Give one of the two another one. "
     "[]"},
    {Kind::kSameFrequency, 1,
     [](RadioData& data) {
       data.EXP[10].Rxfreq = data.EXP[9].Rxfreq;
       data.EXP[10].Txfreq = data.EXP[9].Txfreq;
     },
     "warning: extra/10/rx_frequency: EXP9 has the same frequencies and tones. One of the two is "
     "enough. []"},
    {Kind::kSilentChange, 5, [](RadioData& data) { data.Marine[1][32].ChTag = "hailing "; },
     "note: intl/16/name: Programming changes it from \"hailing \" to \"HAILING\". []"},
    {Kind::kSilentChange, 5, [](RadioData& data) { data.Marine[0][26].TXPower = 2; },
     "note: usa/13/tx_power: Programming changes it from \"2\" to \"1\". []"},
};

TEST(FindProblems, EachKindIsFoundAloneAndItsRemedyLeavesNothing) {
  for (const ProblemRow& row : kRows) {
    SCOPED_TRACE(row.line);
    RadioData data = Sample(row.model);
    row.spoil(data);
    const std::vector<Problem> problems = FindProblems(data, kAfterCutOver);
    EXPECT_EQ(Lines(problems), std::string(row.line) + "\n");
    if (problems.size() != 1) continue;
    EXPECT_EQ(problems[0].kind, row.kind);
    RadioData mended = data;
    Mend(mended, problems[0], kAfterCutOver);
    if (problems[0].remedy.empty()) {
      EXPECT_TRUE(mended == data);
    } else {
      EXPECT_EQ(Lines(FindProblems(mended, kAfterCutOver)), "");
      RadioData all = data;
      MendAll(all, row.kind, kAfterCutOver);
      EXPECT_TRUE(all == mended);
    }
  }
}

TEST(FindProblems, WhatIsNotInUseOrOnlyAlikeIsNotComplainedAbout) {
  RadioData data = Sample(5);
  data.Usable[1].Enable = false;
  data.Usable[1].Priority_CH = 1;
  for (core::ChannelRecord& channel : data.Marine[1]) channel.TXPower = 0;
  data.Marine[1][32].Enable = false;
  data.Marine[0][5] = data.Marine[0][3];
  data.Marine[0][5].Enable = false;
  data.Marine[0][5].ChTag = "a.b";
  data.EXP[30].Rxfreq = 12;
  data.EXP[30].RxCTCSS = 60;
  data.EXP[10].Rxfreq = data.EXP[9].Rxfreq;  // for transmitting another one
  data.WX[4].Enable = false;
  data.WX[4].ChTag = "162.450MHZ";
  data.Stations[1] = {true, "no+number", "12345678901"};
  EXPECT_EQ(Lines(FindProblems(data, kAfterCutOver)), "");
  data.EXP[1].Narrow = false;
  EXPECT_EQ(Lines(FindProblems(data, testing::kBeforeCutOver)), "");
}

TEST(FindProblems, RemediesHoldForAnyData) {
  for (int seed = 0; seed < 7; ++seed) {
    SCOPED_TRACE(seed);
    RadioData data = testing::RandomData(static_cast<unsigned>(seed)).Of(seed);
    for (const Problem& problem : FindProblems(data, kAfterCutOver)) {
      EXPECT_FALSE(problem.text.empty());
      if (problem.remedy.empty()) continue;
      RadioData mended = data;
      Mend(mended, problem, kAfterCutOver);
      EXPECT_FALSE(mended == data) << core::PathOf(problem.at);
      const std::vector<Problem> left = FindProblems(mended, kAfterCutOver);
      EXPECT_TRUE(std::none_of(left.begin(), left.end(),
                               [&](const Problem& other) {
                                 return other.kind == problem.kind && other.at == problem.at &&
                                        other.slot == problem.slot;
                               }))
          << core::PathOf(problem.at) << problem.text;
    }
  }
}

TEST(ProblemsForSending, CountTheChannelsOfANewDataSetAndLetThemTransmit) {
  RadioData data = NewContents(5, kAfterCutOver).data;
  data.Usable[1].Enable = data.Usable[2].Enable = false;
  const std::vector<SendingProblem> sending = ProblemsForSending(data, kAfterCutOver);
  ASSERT_EQ(sending.size(), 2U);
  EXPECT_EQ(sending[0].text,
            "46 channels in use may transmit by their page but carry power code 0: USA 01A, 03A, "
            "05A ..., 16 among them.");
  EXPECT_EQ(sending[0].remedy, "Let 46 channels transmit");
  EXPECT_EQ(sending[1].text,
            "10 names do not come back from the radio as they are: Weather 1, 2, 3 ....");
  EXPECT_EQ(sending[1].remedy, "Change 10 names");
  MendAll(data, Kind::kPowerCodeZero, kAfterCutOver);
  MendAll(data, Kind::kNameCut, kAfterCutOver);
  EXPECT_TRUE(ProblemsForSending(data, kAfterCutOver).empty());
}

TEST(ProblemsForSending, NameWhatIsWrongInEveryGroup) {
  RadioData data = Sample();
  data.Marine[0][32].TxEnable = false;
  data.Marine[2][32].Enable = false;
  for (int n = 9; n <= 12; ++n) data.EXP[n].Enable = false;
  data.EXP[3].TxEnable = true;
  data.EXP[3].TXPower = 0;
  const struct {
    Kind kind;
    const char* text;
    const char* remedy;
  } rows[] = {
      {Kind::kPowerCodeZero,
       "1 channel in use may transmit by its page but carries power code 0: LMR3.",
       "Let 1 channel transmit"},
      {Kind::kChannel16, "Channel 16 is off or cannot transmit in 2 groups in use: USA, CANADA.",
       "Let channel 16 transmit"},
      {Kind::kEmptyGroup, "1 group in use has no channel: EXP CH.", "Switch 1 group off"},
  };
  const std::vector<SendingProblem> sending = ProblemsForSending(data, kAfterCutOver);
  ASSERT_EQ(sending.size(), std::size(rows));
  for (std::size_t i = 0; i < sending.size(); ++i) {
    EXPECT_EQ(sending[i].kind, rows[i].kind);
    EXPECT_EQ(sending[i].text, rows[i].text);
    EXPECT_EQ(sending[i].remedy, rows[i].remedy);
    MendAll(data, rows[i].kind, kAfterCutOver);
    EXPECT_EQ(ProblemsForSending(data, kAfterCutOver).size(), std::size(rows) - 1 - i);
  }
}

}  // namespace
}  // namespace orvane::document
