#include "files/printed_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/full_data.h"

namespace orvane::files {
namespace {

using testing::FullData;

constexpr double kA4Height = 297;
constexpr double kLetterHeight = 279.4;

/// "text@x text@x ..." of a line, x in whole millimetres without the left margin.
std::string LineText(const PrintedPage& page, int line) {
  std::ostringstream text;
  for (const PlacedText& placed : page.texts) {
    if (placed.line != line) continue;
    if (text.tellp() > 0) text << '|';
    text << placed.text << '@' << std::lround(placed.x_mm - kPrintLeftMm);
  }
  return text.str();
}

int LineCount(const PrintedPage& page) {
  int lines = 0;
  for (const PlacedText& placed : page.texts) lines = std::max(lines, placed.line + 1);
  return lines;
}

const PrintedPage* PageWith(const std::vector<PrintedPage>& pages, const std::string& title) {
  for (const PrintedPage& page : pages) {
    for (const PlacedText& placed : page.texts) {
      if (placed.text == "##### " + title + " #####") return &page;
    }
  }
  return nullptr;
}

std::vector<PrintedPage> Print(const core::RadioData& data) {
  return BuildPrintedPages(data, LinesPerPage(kLetterHeight));
}

TEST(PrintedPages, OnePageForEachGroupInUse) {
  struct Case {
    std::vector<int> groups;  // switched on, of USA, INTL, Canada, EXP/LMR
    std::size_t pages;
    std::int16_t model;
    bool exp;
  };
  const Case cases[] = {{{0}, 3, 5, false}, {{0, 1, 2, 3}, 7, 5, true}, {{3}, 3, 5, false},
                        {{}, 3, 5, true},   {{0, 1, 2, 3}, 6, 0, true}, {{}, 2, 2, true},
                        {{}, 2, 6, false}};
  for (const Case& c : cases) {
    core::RadioData data = FullData(c.model);
    for (core::UsableGroup& group : data.Usable) group.Enable = false;
    for (const int group : c.groups) data.Usable[static_cast<std::size_t>(group)].Enable = true;
    data.ExpPresent = c.exp;
    const std::vector<PrintedPage> pages = Print(data);
    EXPECT_EQ(pages.size(), c.pages) << c.model;
    for (const PrintedPage& page : pages) {
      EXPECT_EQ(LineText(page, 0), data.ModelName + " Kivomatic@0");
      EXPECT_EQ(LineText(page, 1), "");
      EXPECT_GT(LineCount(page), 2);
    }
  }
}

TEST(PrintedPages, HeadingsStandAtTheirPositions) {
  struct Case {
    std::vector<std::int16_t> models;
    std::string title;
    std::string headings;
  };
  const std::string marine = "CH@0|RX(MHz)@12|TX(MHz)@29|TX@46|LOW@54|UP@63|DUP@71|";
  const std::string extra = "CH@0|CHD@8|ENABLE@18|RX(MHz)@35|TX(MHz)@54|LOW@73|UP@83|";
  const std::string tones = "MEM@90|VS@100|CH Name@107|W/N@129|RXT@136|CMP@151|TXT@158";
  const std::vector<Case> cases = {
      {{1}, "Programable USA Channel", marine + "MEM@80"},
      {{4}, "Programable International Channel", marine + "VS@80|CH Name@89"},
      {{0, 2, 3, 5, 6}, "Programable Canada Channel", marine + "MEM@80|VS@89|CH Name@97"},
      {{1}, "Programable WX Channel", "CH@0|ENABLE@9|MEM@28"},
      {{4}, "Programable WX Channel", "CH@0|ENABLE@9|CH Name@28"},
      {{0, 2, 3, 5, 6}, "Programable WX Channel", "CH@0|ENABLE@9|MEM@28|CH Name@40"},
      {{0, 1, 3}, "Programable EXP Channel", extra + "MEM@90"},
      {{2, 5, 6}, "Programable LMR Channel", extra + tones},
      {{4}, "Programable LMR Channel", extra + "VS@90|CH Name@97|W/N@119|RXT@126|CMP@141|TXT@148"}};
  for (const Case& c : cases) {
    for (const std::int16_t model : c.models) {
      const std::vector<PrintedPage> pages = Print(FullData(model));
      const PrintedPage* page = PageWith(pages, c.title);
      ASSERT_NE(page, nullptr) << model << c.title;
      EXPECT_EQ(LineText(*page, 2), "##### " + c.title + " #####@0");
      EXPECT_EQ(LineText(*page, 3), c.headings) << model;
    }
  }
}

TEST(PrintedPages, CellsStandUnderTheirHeadings) {
  const std::vector<PrintedPage> pages = Print(FullData(5));
  const PrintedPage* lmr = PageWith(pages, "Programable LMR Channel");
  ASSERT_NE(lmr, nullptr);
  EXPECT_EQ(LineText(*lmr, 4),
            "--@0|----@8|------@18|--------@35|--------@54|---@73|--@83|---@90|--@100|"
            "------------@107|--@129|-------@136|---@151|-------@158");
  EXPECT_EQ(LineText(*lmr, 5),
            "1@0|Lr 1@8|ENABLE@18|150.0125@35|155.0050@54|---@73|UP@83|MEM@90|--@100|CREW 1@107|"
            "--@129|-------@136|---@151|179.9Hz@158");
  // An EXP channel has three cells in the room of one.
  EXPECT_TRUE(LineText(*lmr, 17).starts_with("13@0|bd13@8|---@18|---@24|---@29|150.1625@35|"))
      << LineText(*lmr, 17);

  const PrintedPage* exp = PageWith(pages, "Programable EXP Channel");
  ASSERT_NE(exp, nullptr);
  EXPECT_TRUE(LineText(*exp, 3).starts_with("CH@0|CHD@7|USA@17|INT@25|CAN@34|RX(MHz)@42|"))
      << LineText(*exp, 3);
  EXPECT_TRUE(LineText(*exp, 5).starts_with("1@0|Lr 1@7|------@17|150.0125@42|"))
      << LineText(*exp, 5);
  EXPECT_TRUE(LineText(*exp, 22).starts_with("18@0|bd18@7|USE@17|USE@25|USE@34|150.2250@42|"))
      << LineText(*exp, 22);
}

TEST(PrintedPages, NothingOverlapsOrLeavesThePage) {
  for (std::int16_t model = 0; model <= 6; ++model) {
    core::RadioData data = FullData(model);
    for (core::UsableGroup& group : data.Usable) group.Status_name = std::string(40, 'W');
    data.Atis.Code = std::string(40, '8');
    for (core::ChannelRecord& channel : data.EXP) {
      channel.ChTag = std::string(30, 'W');
      channel.RxCTCSS = channel.TxCTCSS = 20;
      channel.Rxfreq = channel.Txfreq = 156.8;
    }
    for (core::ChannelRecord& channel : data.Table(core::MarineGroup::kUsa)) channel.Enable = true;
    for (const double height : {kA4Height, kLetterHeight}) {
      for (const PrintedPage& page : BuildPrintedPages(data, LinesPerPage(height))) {
        EXPECT_LE(LineCount(page), LinesPerPage(height));
        std::map<int, double> line_ends;
        for (const PlacedText& placed : page.texts) {
          const auto [end, first] = line_ends.try_emplace(placed.line, 0);
          EXPECT_GE(placed.x_mm + 1e-6, end->second) << model << " " << placed.text;
          end->second = placed.x_mm + static_cast<double>(placed.text.size()) * kPrintCharacterMm;
          EXPECT_LE(end->second, kPrintRightMm) << model << " " << placed.text;
        }
      }
    }
  }
}

TEST(PrintedPages, LongTablesGoOnUnderTheSameHeadings) {
  core::RadioData data = FullData(5);
  for (core::ChannelRecord& channel : data.Table(core::MarineGroup::kUsa)) channel.Enable = true;
  for (std::size_t i = 1; i < data.Usable.size(); ++i) data.Usable[i].Enable = false;
  data.ExpPresent = false;
  constexpr int kLines = 50;
  const std::vector<PrintedPage> pages = BuildPrintedPages(data, kLines);
  // 45 rows on the page with the title, 46 on each of those that follow: 240 take six.
  ASSERT_EQ(pages.size(), 1U + 6U + 1U);
  std::vector<std::string> rows;
  for (std::size_t p = 1; p <= 6; ++p) {
    const int heading = p == 1 ? 3 : 2;
    EXPECT_EQ(LineText(pages[p], 0), "KT740 Kivomatic@0");
    EXPECT_TRUE(LineText(pages[p], heading).starts_with("CH@0|RX(MHz)@12|"));
    EXPECT_TRUE(LineText(pages[p], heading + 1).starts_with("---@0|-------@12|"));
    for (int line = heading + 2; line < LineCount(pages[p]); ++line) {
      const std::string text = LineText(pages[p], line);
      rows.push_back(text.substr(0, text.find('@')));
    }
  }
  ASSERT_EQ(rows.size(), 240U);
  for (int i = 0; i < 240; ++i) EXPECT_EQ(rows[static_cast<std::size_t>(i)], core::PlanLabel(i));
}

TEST(PrintedPages, SetupPageLeavesOutWhatOnlyTheTextReportHas) {
  const std::vector<PrintedPage> pages = Print(FullData(0));
  std::string labels;
  for (const PlacedText& placed : pages[0].texts) {
    if (placed.x_mm == kPrintLeftMm) labels += placed.text + "\n";
  }
  EXPECT_EQ(labels,
            "RB6100S Kivomatic\n##### Available CH Group Setup #####\nEnable\nTX TOT\n"
            "Priority CH\nStatus Icon\nStatus name\n##### Common Setup #####\n"
            "[Starting TX Mode]\nTX Po Display:\n[Scanning Function]\nSCAN:\nResume Time:\n"
            "PTT SCAN Clear:\nDual Watch:\n[Weather CH Function]\nWeather Alert:\n"
            "##### ATIS Setup (Common) #####\nUsable ATIS CH Group:\nATIS Code:\n");
}

TEST(PrintedPages, GroupValuesStandInColumnsOfThirtyMillimetres) {
  const std::vector<PrintedPage> pages = Print(FullData(5));
  EXPECT_EQ(LineText(pages[0], 4), "USA@50|INTL@80|Canada@110|LMR CH@140|EXP CH@170");
  EXPECT_EQ(LineText(pages[0], 5), "Enable@0|On@50|On@80|On@110|On@140|On@170");
  EXPECT_EQ(LineText(pages[0], 7), "Priority CH@0|16@50|LMR6@80|Off@110");
  EXPECT_EQ(LineText(pages[0], 9), "Status name@0|USA@50|----@80|CAN@110|LAND@140|LAND@170");
}

}  // namespace
}  // namespace orvane::files
