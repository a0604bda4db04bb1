#include "core/channel_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "core/rendering.h"
#include "support/golden.h"

namespace orvane::core {
namespace {

TEST(ChannelPlan, LabelsAndFrequenciesPerPosition) {
  struct Case {
    std::size_t position;
    std::string label, transmit, duplex;
  };
  const Case cases[] = {{0, "00", "156.000", "160.600"},    {1, "00A", "156.000", "---.---"},
                        {2, "01", "156.050", "160.650"},    {32, "16", "156.800", "161.400"},
                        {118, "59", "158.950", "163.550"},  {120, "60", "156.025", "160.625"},
                        {140, "70", "156.525", "161.125"},  {177, "88A", "157.425", "---.---"},
                        {238, "119", "158.975", "163.575"}, {239, "119A", "158.975", "---.---"}};
  for (const Case& c : cases) {
    const ChannelPlanEntry& entry = ChannelPlan()[c.position];
    EXPECT_EQ(entry.text, c.label);
    EXPECT_EQ(PlanFrequencyText(entry.tx_frequency), c.transmit);
    EXPECT_EQ(PlanFrequencyText(entry.rx_simplex), c.transmit);
    EXPECT_EQ(PlanFrequencyText(entry.rx_duplex), c.duplex);
    EXPECT_EQ(entry.duplex_allowed, c.position % 2 == 0);
    EXPECT_EQ(PlanLabel(static_cast<int>(c.position)), c.label);
  }
  EXPECT_EQ(ChannelPlan()[2].tx_frequency, 156.05) << "the double nearest to the decimal";
  EXPECT_EQ(PlanLabel(240), "");
  EXPECT_EQ(PlanLabel(-1), "");
}

TEST(ChannelPlan, CombinedNumbersReadAcrossAllTables) {
  const std::pair<std::int32_t, std::string_view> cases[] = {
      {-1, "Off"},   {0, "00"},      {239, "119A"}, {240, "LMR1"},
      {245, "LMR6"}, {279, "LMR40"}, {280, "Off"},  {65535, "Off"}};
  for (const auto& [channel, label] : cases) EXPECT_EQ(ChannelLabel(channel, "LMR"), label);
  EXPECT_EQ(ChannelLabel(240, "EXP"), "EXP1");
}

TEST(ChannelPlan, WeatherTableHoldsItsFrequencyTexts) {
  WxTable table;
  table[7].ScanMemory = true;
  ResetWxTable(table);
  EXPECT_EQ(WxPlan()[0].display, "WX01[162.550MHz]");
  EXPECT_EQ(WxPlan()[9].display, "WX10[163.275MHz]");
  EXPECT_EQ(table[7].ChTag, "161.650MHZ");
  EXPECT_EQ(table[7].Position, 8);
  EXPECT_EQ(table[7].Rxfreq, 161.65);
  EXPECT_EQ(table[7].Txfreq, 161.65);
  EXPECT_TRUE(std::all_of(table.begin(), table.end(), [](const auto& c) { return c.Enable; }));
  EXPECT_FALSE(table[7].ScanMemory) << "nothing of the data before a reset may stay";
}

TEST(FreshMarineTables, HoldThePlansAndNothingElse) {
  const std::string names[] = {"USA", "INTL", "Canada"};
  std::string plans;
  for (const MarineGroup group : kMarineGroups) {
    MarineTable table;
    for (ChannelRecord& old : table) {
      old.ChTag = "OLD";
      old.TXPower = 3;
      old.Narrow = true;
    }
    ResetMarineTable(group, table);
    for (std::size_t i = 0; i < table.size(); ++i) {
      const ChannelRecord& channel = table[i];
      ChannelRecord rest = channel;
      rest.ChTag.clear();
      rest.Enable = rest.PowUp = rest.LowPower = rest.Duplex = rest.RxOnly = false;
      ChannelRecord unused;
      unused.Position = static_cast<std::int16_t>(i);
      unused.TxEnable = !channel.RxOnly;
      unused.DuplexAllowed = i % 2 == 0 && !channel.RxOnly;
      EXPECT_EQ(rest, unused) << PlanLabel(channel.Position);

      std::string flags;
      if (channel.PowUp) flags += 'P';
      if (channel.LowPower) flags += 'L';
      if (channel.Duplex) flags += 'D';
      if (channel.RxOnly) flags += 'R';
      if (!channel.Enable) flags += 'x';
      if (flags == "x" && channel.ChTag.empty()) continue;
      plans += names[static_cast<std::size_t>(group)] + ' ' +
               std::string(PlanLabel(channel.Position)) + ' ' +
               (channel.ChTag.empty() ? "-" : channel.ChTag) + (flags.empty() ? "" : " ") + flags +
               '\n';
    }
  }
  ::orvane::testing::ExpectGolden("marine_plans.txt", plans);
}

}  // namespace
}  // namespace orvane::core
