#include "files/text_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "core/rendering.h"
#include "image/codec.h"
#include "support/full_data.h"
#include "support/golden.h"

namespace orvane::files {
namespace {

using testing::FullData;

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  for (std::size_t end = text.find("\r\n"); end != std::string_view::npos;
       end = text.find("\r\n")) {
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 2);
  }
  lines.emplace_back(text);
  return lines;
}

/// Lines behind the title line up to the next title, empty when there is no such section.
std::vector<std::string> Section(const core::RadioData& data, const std::string& title) {
  const std::vector<std::string> lines = Lines(BuildTextReport(data));
  auto begin = std::find(lines.begin(), lines.end(), "##### " + title + " #####");
  if (begin == lines.end()) return {};
  const auto end = std::find_if(++begin, lines.end(),
                                [](const std::string& line) { return line.starts_with('#'); });
  return {begin, end == lines.end() ? end : end - 1};
}

/// The first line of a section that starts with the label, without blanks at its end.
std::string LineOf(const core::RadioData& data, const std::string& title, std::string_view label) {
  for (std::string line : Section(data, title)) {
    if (!line.starts_with(label)) continue;
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
  }
  return "no such line";
}

constexpr std::string_view kExtraTitle[] = {"Programable EXP Channel", "Programable LMR Channel"};

std::string ExtraTitleOf(std::int16_t model) {
  return std::string(kExtraTitle[model == 2 || model >= 4 ? 1 : 0]);
}

TEST(TextReport, StartsWithTwoEmptyLinesAndEndsWithoutLineBreak) {
  const std::string text = BuildTextReport(FullData(5));
  EXPECT_TRUE(text.starts_with("\r\n\r\n##### Available CH Group Setup #####\r\n"));
  EXPECT_FALSE(text.ends_with('\n'));
  EXPECT_EQ(text.find("\r\n\r\n\r\n"), std::string::npos);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), std::count(text.begin(), text.end(), '\n'));
}

TEST(TextReport, ChannelTablesHaveTheHeadingsOfTheirModel) {
  struct Case {
    std::vector<std::int16_t> models;
    std::string title;  // "": the EXP/LMR table
    std::string heading, dashes;
  };
  const std::vector<Case> cases = {
      {{1},
       "Programable USA Channel",
       "CH   RX(MHz)  TX(MHz)  TX  LOW  UP  DUP  MEM",
       "---  -------  -------  --  ---  --  ---  ---"},
      {{4},
       "Programable International Channel",
       "CH   RX(MHz)  TX(MHz)  TX  LOW  UP  DUP  VS  CH Name",
       "---  -------  -------  --  ---  --  ---  --  ------------"},
      {{0, 2, 3, 5, 6},
       "Programable Canada Channel",
       "CH   RX(MHz)  TX(MHz)  TX  LOW  UP  DUP  MEM  VS  CH Name",
       "---  -------  -------  --  ---  --  ---  ---  --  ------------"},
      {{1}, "Programable Wx Channel", "CH  ENABLE  MEM", "--  ------  ---"},
      {{4}, "Programable Wx Channel", "CH  ENABLE  CH Name", "--  ------  ------------"},
      {{0, 2, 3, 5, 6},
       "Programable Wx Channel",
       "CH  ENABLE  MEM  CH Name",
       "--  ------  ---  ------------"},
      {{0, 3}, "Memory ID Setting", "No.  Station Name  MMSI", "---  ------------  ---------"},
      {{0, 3}, "Group ID Setting", "No.  Group Name    MMSI", "---  ------------  ---------"},
      {{0, 3},
       "",
       "CH  CHD  ENABLE  RX(MHz)   TX(MHz)   LOW  UP  MEM  VS  CH Name",
       "--  ---  ------  --------  --------  ---  --  ---  --  ------------"},
      {{1},
       "",
       "CH  CHD  ENABLE  RX(MHz)   TX(MHz)   LOW  UP  MEM",
       "--  ---  ------  --------  --------  ---  --  ---"},
      {{2},
       "",
       "CH  CHD  ENABLE  RX(MHz)   TX(MHz)   LOW  UP  MEM  VS  CH Name      W/N  RXT      CMP  TXT",
       "--  ---  ------  --------  --------  ---  --  ---  --  ------------  --  -------  ---  "
       "-------"},
      {{4},
       "",
       "CH  CHD   ENABLE  RX(MHz)   TX(MHz)   LOW  UP  VS  CH Name      W/N  RXT      CMP  TXT",
       "--  ----  ------  --------  --------  ---  --  --  ------------  --  -------  ---  "
       "-------"},
      {{5, 6},
       "",
       "CH  CHD   ENABLE  RX(MHz)   TX(MHz)   LOW  UP  MEM  VS  CH Name      W/N  RXT      CMP  "
       "TXT",
       "--  ----  ------  --------  --------  ---  --  ---  --  ------------  --  -------  ---  "
       "-------"},
      {{5},
       "Programable EXP Channel",
       "CH  CHD   USA  INT  CAN  RX(MHz)   TX(MHz)   LOW  UP  MEM  VS  CH Name      W/N  RXT      "
       "CMP  TXT",
       "--  ----  ---  ---  ---  --------  --------  ---  --  ---  --  ------------  --  -------  "
       "---  -------"}};
  for (const Case& c : cases) {
    for (const std::int16_t model : c.models) {
      const std::string title = c.title.empty() ? ExtraTitleOf(model) : c.title;
      const std::vector<std::string> lines = Section(FullData(model), title);
      ASSERT_GE(lines.size(), 2U) << model << " " << title;
      EXPECT_EQ(lines[0], c.heading) << model << " " << title;
      EXPECT_EQ(lines[1], c.dashes) << model << " " << title;
    }
  }
}

TEST(TextReport, SectionsFollowModelAndGroups) {
  struct Case {
    std::int16_t model;
    bool usa, lmr, exp;
    std::string sections;  // first letters that tell them apart, in order
  };
  // A group, C common, D DSC, I ATIS, S call signs, U/N/K marine, W weather, M/G directories,
  // L/E extra channels
  const Case cases[] = {
      {0, true, true, true, "ACDDDISUNKWMGE"}, {1, true, true, true, "ACIUNKWE"},
      {2, false, true, true, "ACINKWL"},       {3, true, false, true, "ACDDDIUNKWMG"},
      {4, true, true, false, "ACIUNKWL"},      {5, true, true, true, "ACUNKWLE"},
      {5, true, false, true, "ACUNKWE"},       {5, true, true, false, "ACUNKWL"},
      {6, true, true, true, "ACIUNKWL"}};
  const std::pair<std::string_view, char> marks[] = {
      {"##### Available CH Group Setup #####", 'A'},
      {"##### Common Setup #####", 'C'},
      {"##### DSC Setup (Basic Setup) #####", 'D'},
      {"##### DSC Setup (Advanced Setup) #####", 'D'},
      {"##### DSC Setup (Display Setup) #####", 'D'},
      {"##### ATIS Setup (Common) #####", 'I'},
      {"##### ATIS Setup (Call Sign) #####", 'S'},
      {"##### Programable USA Channel #####", 'U'},
      {"##### Programable International Channel #####", 'N'},
      {"##### Programable Canada Channel #####", 'K'},
      {"##### Programable Wx Channel #####", 'W'},
      {"##### Memory ID Setting #####", 'M'},
      {"##### Group ID Setting #####", 'G'},
      {"##### Programable LMR Channel #####", 'L'},
      {"##### Programable EXP Channel #####", 'E'}};
  for (const Case& c : cases) {
    core::RadioData data = FullData(c.model);
    data.Usable[0].Enable = c.usa;
    data.LmrPresent() = c.lmr;
    data.ExpPresent = c.exp;
    std::string found;
    for (const std::string& line : Lines(BuildTextReport(data))) {
      for (const auto& [title, mark] : marks) {
        if (line == title) found += mark;
      }
    }
    EXPECT_EQ(found, c.sections) << c.model;
  }
}

TEST(TextReport, ValuesOutsideTheirRangeReadAsTheirFallback) {
  core::RadioData data = FullData(0);
  EXPECT_EQ(LineOf(data, "Common Setup", "Offset Time:").substr(35), " 0:00");
  data.Common.Offset_Time = 25;
  data.Common.Resume_Time = 4;
  data.Common.TX_Po_Display = -1;
  data.Common.Weater = 1;
  for (const std::string_view label :
       {"Offset Time:", "Resume Time:", "TX Po Display:", "Weather Alert:"}) {
    EXPECT_EQ(LineOf(data, "Common Setup", label), label);
  }
}

TEST(TextReport, PriorityChannelReadsByTheModelsWord) {
  struct Case {
    std::int16_t model;
    std::int32_t channel;
    std::string text;
  };
  const Case cases[] = {
      {2, 245, "LMR6"}, {0, 245, "EXP6"}, {5, -1, "Off"}, {5, 280, "Off"}, {5, 45, "22A"}};
  for (const Case& c : cases) {
    core::RadioData data = FullData(c.model);
    for (core::UsableGroup& group : data.Usable) group.Priority_CH = c.channel;
    std::string expected = core::Cell("Priority CH", 35);
    for (int group = 0; group < 3; ++group) expected += core::Cell(c.text, 18);
    expected.erase(expected.find_last_not_of(' ') + 1);
    EXPECT_EQ(LineOf(data, "Available CH Group Setup", "Priority CH"), expected);
  }
}

TEST(TextReport, RowsOfOneKindUnderTheHeadingOfTheOther) {
  core::RadioData data = FullData(5);
  data.EXP[1].USA_Group = true;
  EXPECT_EQ(LineOf(data, "Programable LMR Channel", "1   ").substr(0, 38),
            "1   Lr 1  ENABLE  150.0125  155.0050  ");
  EXPECT_EQ(LineOf(data, "Programable EXP Channel", "1   ").substr(0, 38),
            "1   Lr 1  ------  150.0125  155.0050  ");
  EXPECT_EQ(LineOf(data, "Programable LMR Channel", "18  ").substr(0, 45),
            "18  bd18  ---  ---  ---  150.2250  155.0900  ");
  EXPECT_EQ(LineOf(data, "Programable EXP Channel", "18  ").substr(0, 45),
            "18  bd18  USE  USE  USE  150.2250  155.0900  ");
}

TEST(TextReport, ModelsWithOneKindReadTheEnableFlagAlone) {
  core::RadioData data = FullData(6);
  EXPECT_EQ(LineOf(data, "Programable LMR Channel", "18  ").substr(0, 18), "18  bd18  ENABLE  ");
}

TEST(TextReport, LongTextsAreCutToTheirCells) {
  core::RadioData data = FullData(0);
  data.Table(core::MarineGroup::kUsa)[32].ChTag = "ABCDEFGHIJKLMNOP";
  data.EXP[1].ChTag = "ABCDEFGHIJKLMNOP";
  data.Stations[1].TagName = "ABCDEFGHIJKLMNOP";
  EXPECT_TRUE(LineOf(data, "Programable USA Channel", "16 ").ends_with("MEM   2  ABCDEFGHIJKL"));
  EXPECT_TRUE(LineOf(data, "Programable EXP Channel", "1  ").ends_with("ABCDEFGHIJKL"));
  EXPECT_EQ(LineOf(data, "Memory ID Setting", "1  "), "1    ABCDEFGHIJKL  211000001");
  EXPECT_EQ(LineOf(data, "Memory ID Setting", "2  "), "2    ------------  211000002");
  EXPECT_EQ(LineOf(data, "Memory ID Setting", "40 "), "40   ------------  ---------");
}

TEST(TextReport, GroupWithoutEnabledChannelsHasHeadingsOnly) {
  core::RadioData data = FullData(5);
  for (core::ChannelRecord& channel : data.Table(core::MarineGroup::kUsa)) channel.Enable = false;
  EXPECT_EQ(Section(data, "Programable USA Channel").size(), 2U);
}

TEST(TextReport, WholeReportsStayAsTheyAre) {
  testing::ExpectGolden("report_model5.txt", BuildTextReport(FullData(5)));
  testing::ExpectGolden("report_model0.txt", BuildTextReport(FullData(0)));
}

/// Records as no file or radio would hold them, from every corner of their types.
core::RadioData WildData(std::mt19937& random, std::int16_t model) {
  const auto flag = [&] { return core::Flag(random() % 2 == 0); };
  const auto number = [&] { return static_cast<std::int16_t>(random()); };
  const auto text = [&] {
    std::string bytes(random() % 20, '\0');
    for (char& c : bytes) c = static_cast<char>(random() % 224 + 32);
    return bytes;
  };
  const auto frequency = [&] { return (static_cast<double>(random()) - 1e9) * 1e-6; };
  core::RadioData data = FullData(model);
  const auto wild_channel = [&](core::ChannelRecord& channel) {
    channel.Position = number();
    channel.Enable = flag();
    channel.Duplex = flag();
    channel.ChTag = text();
    channel.Scramble = number();
    channel.TxDCS = number();
    channel.RxDCS = number();
    channel.TxCTCSS = number();
    channel.RxCTCSS = number();
    channel.CHDisplayL = text();
    channel.CHDisplayR = text();
    channel.Txfreq = frequency();
    channel.Rxfreq = frequency();
    channel.LMR_EXP = number();
  };
  for (core::MarineTable& table : data.Marine) std::ranges::for_each(table, wild_channel);
  std::ranges::for_each(data.WX, wild_channel);
  std::ranges::for_each(data.EXP, wild_channel);
  for (core::UsableGroup& group : data.Usable) {
    group = {flag(), flag(), static_cast<std::int32_t>(random()), flag(), text(), 0};
  }
  data.Common.TX_Po_Display = number();
  data.Common.Resume_Time = number();
  data.Common.Offset_Time = number();
  data.Common.Magnetic_Variation = number();
  data.Common.Weater = number();
  data.Dsc.UserMmsi = text();
  data.Atis.Code = text();
  for (core::DirectoryEntry& entry : data.Stations) entry = {flag(), text(), text()};
  return data;
}

void ExpectWholeExtraTable(core::RadioData& data) {
  data.LmrPresent() = true;
  const std::vector<std::string> rows = Section(data, ExtraTitleOf(data.MODELTYPE));
  ASSERT_EQ(rows.size(), 42U);
  for (std::size_t i = 3; i < rows.size(); ++i) {
    // Rows of models with two kinds differ by the three group cells in place of one.
    const std::size_t longer = std::max(rows[i].size(), rows[2].size());
    const std::size_t shorter = std::min(rows[i].size(), rows[2].size());
    ASSERT_TRUE(longer == shorter || (data.MODELTYPE == 5 && longer - shorter == 7)) << rows[i];
  }
}

TEST(TextReport, KeepsItsFormWhateverTheRecordsHold) {
  std::mt19937 random(20260615);
  for (int round = 0; round < 70; ++round) {
    core::RadioData data = WildData(random, static_cast<std::int16_t>(round % 7));
    ExpectWholeExtraTable(data);
  }
}

TEST(TextReport, ReadsWhateverAnImageDecodesTo) {
  std::mt19937 random(740);
  for (int round = 0; round < 70; ++round) {
    core::RadioData data = FullData(static_cast<std::int16_t>(round % 7));
    for (std::uint8_t& byte : data.Image.All()) byte = static_cast<std::uint8_t>(random());
    image::DecodeAll(data);
    ExpectWholeExtraTable(data);
  }
}

}  // namespace
}  // namespace orvane::files
