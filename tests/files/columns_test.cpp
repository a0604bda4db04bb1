#include "files/columns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/full_data.h"

namespace orvane::files {
namespace {

std::string Captions(const std::vector<ChannelColumn>& columns) {
  std::string text;
  for (const ChannelColumn& column : columns) {
    if (!text.empty()) text += '|';
    text += column.caption;
  }
  return text;
}

const ChannelColumn& Find(const std::vector<ChannelColumn>& columns, std::string_view caption) {
  const auto found = std::find_if(columns.begin(), columns.end(), [=](const ChannelColumn& column) {
    return column.caption == caption;
  });
  EXPECT_NE(found, columns.end()) << caption;
  return found != columns.end() ? *found : columns.front();
}

TEST(GridColumns, ModelWithoutNamesHasShortGrids) {
  const core::ModelProfile& profile = core::ProfileOf(1);
  EXPECT_EQ(Captions(MarineGridColumns(profile)), "CH|RX[MHz]|TX[MHz]|TX|LOW|UP|DUP|MEM");
  for (const bool lmr_form : {true, false}) {
    EXPECT_EQ(Captions(ExtraGridColumns(profile, lmr_form)),
              "CH|ENABLE|DISP|RX[MHz]|TX[MHz]|LOW|UP|MEM");
  }
}

TEST(GridColumns, AllOtherModelsShowEveryColumnWhateverTheirReportShows) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    if (!profile.has_channel_names) continue;
    EXPECT_EQ(Captions(MarineGridColumns(profile)),
              "CH|RX[MHz]|TX[MHz]|TX|LOW|UP|DUP|MEM|VS|CH Name");
    EXPECT_EQ(Captions(ExtraGridColumns(profile, true)),
              "CH|ENABLE|DISP|RX[MHz]|TX[MHz]|LOW|UP|MEM|VS|CH Name|W/N|RxTone|Comp|TxTone");
    EXPECT_EQ(Captions(ExtraGridColumns(profile, false)),
              "CH|USA|INTL|CAN|DISP|RX[MHz]|TX[MHz]|LOW|UP|MEM|VS|CH Name|W/N|RxTone|Comp|TxTone");
  }
}

TEST(GridColumns, MarkStandsInTheEnableCellOrElseInTheChannelCell) {
  struct Case {
    std::int16_t model;
    std::int16_t kind;  // LMR_EXP of the entry
    bool lmr_form;
    std::string_view channel;
    std::string_view enable;  // "none": no such column
  };
  const Case cases[] = {{5, -1, true, "LMR7", "[Enable]"},      {5, 0, true, "LMR7", ""},
                        {5, 0, false, "EXP7[Enable]", "none"},  {5, -1, false, "EXP7", "none"},
                        {6, 0, true, "LMR7", "[Enable]"},       {0, -1, true, "EXP7", "[Enable]"},
                        {0, -1, false, "EXP7[Enable]", "none"}, {1, 0, false, "EXP7", "[Enable]"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.model << " " << c.kind << " " << c.lmr_form);
    const core::ModelProfile& profile = core::ProfileOf(c.model);
    core::ChannelRecord channel;
    channel.Enable = true;
    channel.LMR_EXP = c.kind;
    const ChannelRow row{
        .profile = profile, .channel = channel, .number = 7, .lmr_form = c.lmr_form};
    const std::vector<ChannelColumn> columns = ExtraGridColumns(profile, c.lmr_form);
    EXPECT_EQ(Find(columns, "CH").GridText(row), c.channel);
    const bool has_enable = Captions(columns).find("ENABLE") != std::string::npos;
    EXPECT_EQ(has_enable ? Find(columns, "ENABLE").GridText(row) : "none", c.enable);

    channel.Enable = false;
    EXPECT_EQ(Find(columns, "CH").GridText(row), c.channel.substr(0, 4));
  }
}

TEST(GridColumns, GroupCellsOfTheExpFormAreCheckCells) {
  core::ChannelRecord channel;
  channel.INT_Group = true;
  const core::ModelProfile& profile = core::ProfileOf(5);
  const ChannelRow row{.profile = profile, .channel = channel, .number = 1, .lmr_form = false};
  std::string drawn;
  for (const ChannelColumn& column : ExtraGridColumns(profile, false)) {
    if (column.checked != nullptr) drawn += column.checked(row) ? 'x' : '.';
  }
  EXPECT_EQ(drawn, ".x.");
}

TEST(GridColumns, ValuesReadAsInTheEditorNotAsInTheReport) {
  core::ChannelRecord channel;
  channel.Scramble = 6;
  channel.Rxfreq = 146.5213;
  const core::ModelProfile& profile = core::ProfileOf(5);
  const ChannelRow row{.profile = profile, .channel = channel, .number = 1};
  const std::vector<ChannelColumn> columns = ExtraGridColumns(profile, true);
  EXPECT_EQ(Find(columns, "VS").GridText(row), "2");
  EXPECT_EQ(Find(columns, "VS").text(row), " 2");
  EXPECT_EQ(Find(columns, "RX[MHz]").GridText(row), "146.5213");
  EXPECT_EQ(Find(columns, "RX[MHz]").text(row), "146.5200");
  EXPECT_EQ(Find(columns, "CH Name").GridText(row), "");
  EXPECT_EQ(Find(columns, "CH Name").text(row), "------------");
}

TEST(MarineColumns, FrequenciesFollowDuplexAndReceiveOnly) {
  struct Case {
    std::int16_t position;
    bool duplex, rx_only;
    std::string_view label, rx, tx;
  };
  const Case cases[] = {{48, false, false, "24", "157.200", "157.200"},
                        {48, true, false, "24", "161.800", "157.200"},
                        {140, false, true, "70", "156.525", "---.---"},
                        {49, true, false, "24A", "---.---", "157.200"},
                        {240, false, false, "", "---.---", "---.---"},
                        {-1, true, false, "", "---.---", "---.---"}};
  const core::ModelProfile& profile = core::ProfileOf(5);
  const std::vector<ChannelColumn> columns = MarineGridColumns(profile);
  for (const Case& c : cases) {
    core::ChannelRecord channel;
    channel.Position = c.position;
    channel.Duplex = c.duplex;
    channel.RxOnly = c.rx_only;
    const ChannelRow row{.profile = profile, .channel = channel};
    EXPECT_EQ(Find(columns, "CH").GridText(row), c.label);
    EXPECT_EQ(Find(columns, "RX[MHz]").GridText(row), c.rx) << c.position;
    EXPECT_EQ(Find(columns, "TX[MHz]").GridText(row), c.tx) << c.position;
  }
}

TEST(MarineColumns, RowsAreTheEnabledEntriesInTableOrder) {
  core::MarineTable table{};
  EXPECT_TRUE(EnabledMarineRows(table).empty());
  for (const std::size_t index : {239U, 0U, 33U}) table[index].Enable = true;
  EXPECT_EQ(EnabledMarineRows(table), (std::vector<int>{0, 33, 239}));
}

}  // namespace
}  // namespace orvane::files
