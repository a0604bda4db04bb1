#include "document/edits.h"

#include <gtest/gtest.h>

#include "support/image_fixtures.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::RadioData;
using testing::kAfterCutOver;
using testing::kBeforeCutOver;
using testing::NewData;
using Kind = ChannelPlace::Kind;

constexpr ChannelPlace kUsa16{Kind::kUsa, 32};
constexpr ChannelPlace kLmr3{Kind::kLmr, 3};
constexpr ChannelPlace kExp3{Kind::kExp, 3};

// Extra channel 3: an LMR channel outside the narrowband rule, its group in use with others.
RadioData WithLmr3(int model = 5) {
  RadioData data = NewData(model);
  data.LmrPresent() = true;
  data.ExpPresent = true;
  for (const int n : {3, 4, 5}) {
    data.EXP[n].Enable = true;
    data.EXP[n].LMR_EXP = n == 5 ? std::int16_t{0} : std::int16_t{-1};
    data.EXP[n].USA_Group = false;
    data.EXP[n].INT_Group = n == 5;
    data.EXP[n].CAN_Group = false;
    data.EXP[n].CHDisplayL = "L" + std::to_string(n);
    data.EXP[n].Rxfreq = 140 + n;
    data.EXP[n].Txfreq = 144 + n;
    data.EXP[n].Narrow = false;
  }
  return data;
}

TEST(EnableChannel, SetsThePowerCodeFromTheTransmitSwitches) {
  const struct {
    bool tx_enable, low_power;
    int code;
  } rows[] = {{true, false, 3}, {false, true, 1}, {false, false, 3}, {true, true, 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    RadioData data = NewData(5);
    ChannelRecord& channel = data.Marine[0][32];
    channel.Enable = false;
    channel.TxEnable = row.tx_enable;
    channel.LowPower = row.low_power;
    channel.TXPower = 0;
    EXPECT_TRUE(EnableChannel(data, kUsa16, true, kAfterCutOver));
    EXPECT_TRUE(channel.Enable);
    EXPECT_EQ(channel.TXPower, row.code);
    EXPECT_EQ(channel.TxEnable, row.tx_enable);
    EXPECT_TRUE(EnableChannel(data, kUsa16, false, kAfterCutOver));
    EXPECT_EQ(channel.TXPower, row.code) << "switching off leaves it";
  }
}

TEST(EnableChannel, MakesAnExtraChannelOneOfItsHeading) {
  RadioData data = WithLmr3();
  ChannelRecord& channel = data.EXP[3];
  channel.CAN_Group = true;
  EXPECT_TRUE(EnableChannel(data, kExp3, true, kAfterCutOver));
  EXPECT_EQ(channel.LMR_EXP, 0);
  EXPECT_FALSE(channel.CAN_Group) << "the other heading's groups are not shown, so not taken over";
  channel.CAN_Group = true;
  EXPECT_TRUE(EnableChannel(data, kExp3, true, kAfterCutOver));
  EXPECT_TRUE(channel.CAN_Group);
}

TEST(EnableChannel, AppliesTheNarrowbandRule) {
  const struct {
    int model;
    double tx;
    ChannelPlace place;
    core::Date today;
    bool narrow;
  } rows[] = {
      {5, 150.0, kLmr3, kAfterCutOver, true},   {5, 149.9999, kLmr3, kAfterCutOver, false},
      {5, 174.0, kLmr3, kAfterCutOver, true},   {5, 160.0, kExp3, kAfterCutOver, false},
      {5, 161.0, kLmr3, kBeforeCutOver, false}, {6, 162.0, kLmr3, kAfterCutOver, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.tx);
    RadioData data = WithLmr3(row.model);
    data.EXP[3].Txfreq = row.tx;
    EXPECT_TRUE(EnableChannel(data, row.place, true, row.today));
    EXPECT_EQ(data.EXP[3].Narrow, row.narrow);
    data = WithLmr3(row.model);
    data.EXP[3].SetLmr(row.place.IsLmr());
    SetFrequency(data, row.place, Way::kTransmit, row.tx, row.today);
    EXPECT_EQ(data.EXP[3].Txfreq, row.tx);
    EXPECT_EQ(data.EXP[3].Narrow, row.narrow);
  }
}

// Switching the channel off is refused while its group is in use and has no other one.
TEST(LastChannel, StaysOnWhileItsGroupIsInUse) {
  const struct {
    const char* what;
    int model;
    ChannelPlace place;
    bool lmr_in_use, exp_in_use;
    bool others;  ///< LMR channel 4 and EXP channel 5 are enabled as well
    bool last;
  } rows[] = {
      {"LMR beside another", 5, kLmr3, true, false, true, false},
      {"LMR alone", 5, kLmr3, true, false, false, true},
      {"LMR alone, its group off", 5, kLmr3, false, true, false, false},
      {"EXP alone", 5, kExp3, false, true, false, true},
      {"EXP alone, its group off", 5, kExp3, true, false, false, false},
      {"EXP beside another", 5, kExp3, false, true, true, false},
      {"one kind only, beside another", 4, kLmr3, true, false, true, false},
      {"marine beside others", 5, kUsa16, true, true, true, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    RadioData data = WithLmr3(row.model);
    data.LmrPresent() = row.lmr_in_use;
    data.ExpPresent = row.exp_in_use;
    data.EXP[3].SetLmr(row.place.IsLmr());
    for (int n = 1; n <= core::kExtraChannels; ++n) {
      data.EXP[n].Enable = n == 3 || (row.others && (n == 4 || n == 5));
    }
    EXPECT_EQ(IsLastEnabled(data, row.place), row.last);
    const RadioData before = data;
    EXPECT_EQ(EnableChannel(data, row.place, false, kAfterCutOver), !row.last);
    EXPECT_EQ(ChannelAt(data, row.place).Enable, row.last);
    if (row.last) {
      EXPECT_TRUE(data == before);
    }
  }
  RadioData data = NewData(5);
  for (ChannelRecord& channel : data.Marine[1]) channel.Enable = false;
  data.Marine[1][12].Enable = true;
  EXPECT_FALSE(EnableChannel(data, {Kind::kIntl, 12}, false, kAfterCutOver));
  EXPECT_TRUE(EnableChannel(data, {Kind::kIntl, 14}, false, kAfterCutOver)) << "off already";
}

TEST(SetGroups, JoiningEnablesAndLeavingTheLastDisables) {
  const struct {
    const char* what;
    GroupMembership before, after;
    bool enabled_before, enabled_after;
  } rows[] = {
      {"joins", {}, {.intl = true}, false, true},
      {"joins another", {.usa = true}, {.usa = true, .canada = true}, false, true},
      {"leaves one of two", {.usa = true, .intl = true}, {.usa = true}, false, false},
      {"leaves the last", {.canada = true}, {}, true, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    RadioData data = WithLmr3();
    ChannelRecord& channel = data.EXP[3];
    channel.LMR_EXP = 0;
    channel.Enable = row.enabled_before;
    channel.USA_Group = row.before.usa;
    channel.INT_Group = row.before.intl;
    channel.CAN_Group = row.before.canada;
    EXPECT_EQ(GroupsOf(data, kExp3), row.before);
    EXPECT_TRUE(SetGroups(data, kExp3, row.after, kAfterCutOver));
    EXPECT_EQ(GroupsOf(data, kExp3), row.after);
    EXPECT_EQ(channel.Enable, row.enabled_after);
  }
  RadioData data = WithLmr3();
  EXPECT_FALSE(SetGroups(data, {Kind::kExp, 5}, {}, kAfterCutOver)) << "the last EXP channel";
  EXPECT_TRUE(data.EXP[5].INT_Group);
}

TEST(Tones, AToneAndACodeExcludeEachOtherByWay) {
  RadioData data = NewData(5);
  ChannelRecord& channel = data.EXP[3];
  channel.RxCTCSS = 5;
  channel.TxCTCSS = 6;
  SetDcs(data, kLmr3, Way::kTransmit, 107);
  SetDcs(data, kLmr3, Way::kReceive, 0);
  EXPECT_EQ(channel.TxDCS, 107);
  EXPECT_EQ(channel.TxCTCSS, 0);
  EXPECT_EQ(channel.RxCTCSS, 5);
  channel.RxDCS = 8;
  SetCtcss(data, kLmr3, Way::kTransmit, 0);
  SetCtcss(data, kLmr3, Way::kReceive, 9);
  EXPECT_EQ(channel.TxDCS, 107);
  EXPECT_EQ(channel.RxCTCSS, 9);
  EXPECT_EQ(channel.RxDCS, 0);
}

TEST(Groups, AMarineGroupThatIsSwitchedOnHasAChannel) {
  for (const std::size_t group : {0U, 1U, 2U}) {
    SCOPED_TRACE(group);
    const int first_byte = 256 + 64 * static_cast<int>(group);
    RadioData data = NewData(5);
    data.Marine[group][1].Enable = false;
    SwitchGroup(data, group, true);
    EXPECT_FALSE(data.Marine[group][1].Enable) << "the memory has channels";
    for (int i = 0; i < 30; ++i) data.Image[first_byte + i] = 0;
    data.Image[first_byte + 30] = 0xFF;
    SwitchGroup(data, group, false);
    EXPECT_FALSE(data.Marine[group][1].Enable);
    SwitchGroup(data, group, true);
    EXPECT_TRUE(data.Usable[group].Enable);
    EXPECT_TRUE(data.Marine[group][1].Enable);
    EXPECT_EQ(data.Image[first_byte], 0x80);
  }
}

TEST(Groups, ExpChannelsAreEnabledByMembership) {
  RadioData data = WithLmr3();
  data.EXP[5].Enable = false;
  data.EXP[6].LMR_EXP = 0;
  data.EXP[6].Enable = true;
  data.EXP[6].USA_Group = data.EXP[6].INT_Group = data.EXP[6].CAN_Group = false;
  SwitchExp(data, false);
  EXPECT_FALSE(data.ExpPresent);
  EXPECT_FALSE(data.EXP[5].Enable);
  SwitchExp(data, true);
  EXPECT_TRUE(data.ExpPresent);
  EXPECT_TRUE(data.EXP[5].Enable);
  EXPECT_FALSE(data.EXP[6].Enable);
  EXPECT_TRUE(data.EXP[3].Enable) << "an LMR channel keeps its own";
}

TEST(Missing, NamesWhatAnEnabledExtraChannelLacks) {
  RadioData data = WithLmr3();
  EXPECT_FALSE(MissingOf(data, kLmr3).Any());
  data.EXP[3].CHDisplayL = "7";
  EXPECT_TRUE(MissingOf(data, kLmr3).display);
  EXPECT_FALSE(MissingOf(data, kLmr3).frequency);
  EXPECT_FALSE(MissingOf(data, kExp3).Any()) << "not one of that heading";
  data.EXP[3].CHDisplayL = "LR";
  data.EXP[3].Rxfreq = 0;
  EXPECT_TRUE(MissingOf(data, kLmr3).frequency);
  EXPECT_FALSE(MissingOf(data, kLmr3).display);
  data.EXP[3].Enable = false;
  EXPECT_FALSE(MissingOf(data, kLmr3).Any());
  EXPECT_FALSE(MissingOf(data, kUsa16).Any());
}

TEST(SetField, GoesByTheRulesOfTheField) {
  const struct {
    int model;
    std::string path;
    std::string text;
    std::string refusal;  ///< "": taken
    std::string then;     ///< path of another field that follows
    std::string reads;
  } rows[] = {
      {5, "usa/16/name", "hailing", "", "usa/16/name", "HAILING"},
      {5, "usa/16/low_power", "on", "", "usa/16/tx_power", "1"},
      {5, "usa/16/tx_enable", "off", "", "usa/16/tx_power", "3"},
      {5, "usa/15/tx_enable", "on", "The channel plan allows reception only.", "usa/15/tx_enable",
       "Off"},
      {5, "usa/22A/duplex", "on", "The channel plan has no second frequency for duplex here.",
       "usa/22A/duplex", "Off"},
      {5, "extra/3/tx_frequency", "160.5", "", "extra/3/narrow", "On"},
      {5, "extra/3/rx_frequency", "133.9", "A KT740 takes 134 to 174 MHz.", "extra/3/rx_frequency",
       "143"},
      {5, "extra/3/rx_dcs", "023N", "", "extra/3/rx_ctcss", "Off"},
      {5, "extra/3/enable", "perhaps", "It must be On or Off.", "extra/3/enable", "On"},
      {5, "extra/5/int_group", "off", std::string(kLastChannelRefusal), "extra/5/int_group", "On"},
      {5, "extra/5/usa_group", "on", "", "extra/5/enable", "On"},
      {5, "extra/3/usa_group", "off", "", "extra/3/enable", "On"},
      {5, "extra/3/display_left", "bd", "", "extra/3/display_left", "BD"},
      {5, "dsc/user_mmsi", "211234567", "A KT740 has no such field.", "usa/16/enable", "On"},
      {0, "dsc/user_mmsi", "211234567", "", "dsc/user_mmsi", "211234567"},
      {5, "image/0100", "00", "It follows from other data and cannot be set.", "usa/16/enable",
       "On"},
      {5, "usa/16/scramble", "2", "The scrambler is not offered for this channel and destination.",
       "usa/16/scramble", "Off"},
      {5, "usa/17/scramble", "2", "", "usa/17/scramble", "2"},
      {5, "common/tx_po_display", "Last TX Po", "", "common/tx_po_display", "Last TX Po"},
      {5, "usable_groups/usa/priority_ch", "22A", "", "usable_groups/usa/priority_ch", "22A"},
      {5, "exp_present", "off", "", "exp_present", "Off"},
      {1, "usa/16/name", "HAILING", "A KT310 has no such field.", "usa/16/enable", "On"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path + "=" + row.text);
    RadioData data = WithLmr3(row.model);
    data.EXP[3].RxCTCSS = 12;
    const RadioData before = data;
    EXPECT_EQ(SetField(data, core::RefOf(row.path).value(), row.text, kAfterCutOver), row.refusal);
    const core::FieldRef then = core::RefOf(row.then).value();
    EXPECT_EQ(core::FieldOf(then).notation->show(core::Get(data, then)), row.reads);
    if (!row.refusal.empty()) {
      EXPECT_TRUE(data == before);
    }
  }
}

}  // namespace
}  // namespace orvane::document
