#include "files/text_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

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

TEST(TextReport, WholeReportsStayAsTheyAre) {
  testing::ExpectGolden("report_model5.txt", BuildTextReport(FullData(5)));
  testing::ExpectGolden("report_model0.txt", BuildTextReport(FullData(0)));
}

/// Each title with the two lines below it: in the channel tables the headings and their dashes.
TEST(TextReport, SectionsAndTheirHeadingsFollowTheModel) {
  std::string headings;
  for (std::int16_t model = 0; model <= 6; ++model) {
    headings += "model " + std::to_string(model) + "\n";
    int left = 0;
    for (const std::string& line : Lines(BuildTextReport(FullData(model)))) {
      if (line.starts_with('#')) left = 3;
      if (left-- > 0) headings += line + "\n";
    }
  }
  testing::ExpectGolden("report_headings.txt", headings);
}

TEST(TextReport, GroupsThatAreNotInUseHaveNoTable) {
  struct Case {
    std::int16_t model;
    bool usa, lmr, exp;
    std::string tables;  ///< those of the USA, LMR and EXP channels that are there
  };
  for (const Case& c : {Case{2, false, true, true, "L"}, Case{3, true, false, true, "U"},
                        Case{4, true, true, false, "UL"}, Case{5, true, false, true, "UE"},
                        Case{5, true, true, false, "UL"}}) {
    core::RadioData data = FullData(c.model);
    data.Usable[0].Enable = c.usa;
    data.LmrPresent() = c.lmr;
    data.ExpPresent = c.exp;
    std::string tables;
    for (const std::string group : {"USA", "LMR", "EXP"}) {
      if (!Section(data, "Programable " + group + " Channel").empty()) tables += group.front();
    }
    EXPECT_EQ(tables, c.tables) << c.model;
  }
}

/// The report's order is not that of the stored flags.
TEST(TextReport, EachBeepIsShownByItsOwnFlag) {
  const std::pair<std::size_t, std::string> beeps[] = {
      {0, "Send Distress Alert:"}, {1, "Received All Ships:"},   {2, "Received Group:"},
      {3, "Received Individual:"}, {4, "Received POS Request:"}, {5, "Received POS Send:"},
      {6, "Received Geografic:"}};
  for (const auto& [index, label] : beeps) {
    core::RadioData data = FullData(3);
    data.Dsc.BeepOutput = {};
    data.Dsc.BeepOutput[index] = true;
    for (const auto& [other, other_label] : beeps) {
      const std::string line = LineOf(data, "DSC Setup (Basic Setup)", other_label);
      EXPECT_EQ(line.ends_with(" On"), other == index) << label << " " << line;
    }
  }
}

TEST(TextReport, LongTextsAreCutToTheirCells) {
  core::RadioData data = FullData(0);
  data.Table(core::MarineGroup::kUsa)[32].ChTag = "ABCDEFGHIJKLMNOP";
  data.EXP[1].ChTag = "ABCDEFGHIJKLMNOP";
  data.Stations[1].TagName = "ABCDEFGHIJKLMNOP";
  EXPECT_TRUE(LineOf(data, "Programable USA Channel", "16 ").ends_with("MEM   2  ABCDEFGHIJKL"));
  EXPECT_TRUE(LineOf(data, "Programable EXP Channel", "1  ").ends_with("ABCDEFGHIJKL"));
  EXPECT_EQ(LineOf(data, "Memory ID Setting", "1  "), "1    ABCDEFGHIJKL  211000001");
}

TEST(TextReport, GroupWithoutEnabledChannelsHasHeadingsOnly) {
  core::RadioData data = FullData(5);
  for (core::ChannelRecord& channel : data.Table(core::MarineGroup::kUsa)) channel.Enable = false;
  EXPECT_EQ(Section(data, "Programable USA Channel").size(), 2U);
}

TEST(TextReport, KeepsItsFormWhateverAnImageDecodesTo) {
  std::mt19937 random(740);
  for (int round = 0; round < 70; ++round) {
    core::RadioData data = FullData(static_cast<std::int16_t>(round % 7));
    for (std::uint8_t& byte : data.Image.All()) byte = static_cast<std::uint8_t>(random());
    image::DecodeAll(data);
    data.LmrPresent() = true;
    const std::string group(core::ProfileOf(data).extra_word);
    const std::vector<std::string> rows = Section(data, "Programable " + group + " Channel");
    ASSERT_EQ(rows.size(), 42U);
    for (std::size_t i = 3; i < rows.size(); ++i) {
      // Rows of models with two kinds differ by the three group cells in place of one.
      const std::size_t longer = std::max(rows[i].size(), rows[2].size());
      const std::size_t shorter = std::min(rows[i].size(), rows[2].size());
      ASSERT_TRUE(longer == shorter || (data.MODELTYPE == 5 && longer - shorter == 7)) << rows[i];
    }
  }
}

}  // namespace
}  // namespace orvane::files
