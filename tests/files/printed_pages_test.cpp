#include "files/printed_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/full_data.h"
#include "support/golden.h"

namespace orvane::files {
namespace {

using testing::FullData;

constexpr double kA4Height = 297;
constexpr double kLetterHeight = 279.4;
constexpr core::Date kToday{std::chrono::year{2026}, std::chrono::month{6}, std::chrono::day{5}};

std::vector<PrintedPage> Pages(const core::RadioData& data, int lines_per_page) {
  return BuildPrintedPages(data, lines_per_page, {{}, kToday});
}

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

/// One line of text for each printed line: its number, then each text behind its position in
/// millimetres. Of the pages behind the first, only so many lines.
std::string PagesText(const std::vector<PrintedPage>& pages, int head_lines) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(1);
  for (std::size_t number = 0; number < pages.size(); ++number) {
    text << "page " << number + 1 << '\n';
    std::map<int, std::map<double, std::string>> lines;
    for (const PlacedText& placed : pages[number].texts) {
      lines[placed.line][placed.x_mm] = placed.text;
    }
    for (const auto& [line, cells] : lines) {
      if (number > 0 && line >= head_lines) break;
      text << std::setw(2) << line;
      for (const auto& [x_mm, cell] : cells) text << " |" << x_mm << ' ' << cell;
      text << '\n';
    }
  }
  return text.str();
}

TEST(PrintedPages, GoldenPagesOfAFullDataSet) {
  const int lines = LinesPerPage(kA4Height);
  testing::ExpectGolden("printed_model5.txt", PagesText(Pages(FullData(5), lines), lines));
}

TEST(PrintedPages, SettingsAndHeadingsFollowTheModel) {
  std::string text;
  for (std::int16_t model = 0; model <= 6; ++model) {
    constexpr int kHeadLines = 5;
    text += "model " + std::to_string(model) + "\n" +
            PagesText(Pages(FullData(model), LinesPerPage(kA4Height)), kHeadLines);
  }
  testing::ExpectGolden("printed_headings.txt", text);
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
    EXPECT_EQ(Pages(data, LinesPerPage(kLetterHeight)).size(), c.pages) << c.model;
  }
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
      for (const PrintedPage& page : Pages(data, LinesPerPage(height))) {
        EXPECT_LE(LineCount(page), LinesPerPage(height));
        std::map<int, double> line_ends;
        for (const PlacedText& placed : page.texts) {
          const auto [end, first] = line_ends.try_emplace(placed.line, 0);
          const double gap = first ? 0 : kPrintGapMm;
          EXPECT_GE(placed.x_mm - end->second + 1e-6, gap) << model << " " << placed.text;
          end->second = placed.x_mm + static_cast<double>(placed.text.size()) * kPrintCharacterMm;
          EXPECT_LE(end->second, kPrintRightMm) << model << " " << placed.text;
        }
      }
    }
  }
}

TEST(PrintedPages, FootersNameFileDateAndPage) {
  const core::RadioData data = FullData(2);
  EXPECT_EQ(Pages(data, 70)[0].footer_left, "Not saved in a file");
  const std::vector<PrintedPage> pages =
      BuildPrintedPages(data, 70, {"/home/me/B\u00F6otchen.dat", kToday});
  EXPECT_EQ(pages[0].footer_left, "B\u00F6otchen.dat");
  EXPECT_EQ(pages[0].footer_right, "2026-06-05   Page 1 of 6");
  EXPECT_EQ(pages[5].footer_right, "2026-06-05   Page 6 of 6");
}

/// 12 lines: on the first page two below the header are left for the second section.
TEST(PrintedPages, LongSectionsRepeatTheirTitle) {
  const std::vector<PrintedPage> pages = Pages(FullData(5), 12);
  EXPECT_EQ(LineText(pages[0], 3), "##### Available CH Group Setup #####@0");
  EXPECT_EQ(LineText(pages[0], 11), "##### Common Setup #####@0");
  EXPECT_EQ(LineText(pages[1], 2), "##### Common Setup ##### (continued)@0");
  EXPECT_EQ(LineText(pages[1], 3), "[Starting TX Mode]@0");
}

TEST(PrintedPages, LongTablesGoOnUnderTheSameHeadings) {
  core::RadioData data = FullData(5);
  for (core::ChannelRecord& channel : data.Table(core::MarineGroup::kUsa)) channel.Enable = true;
  for (std::size_t i = 1; i < data.Usable.size(); ++i) data.Usable[i].Enable = false;
  data.ExpPresent = false;
  constexpr int kLines = 50;
  const std::vector<PrintedPage> pages = Pages(data, kLines);
  // 45 rows on each page: 240 take six.
  ASSERT_EQ(pages.size(), 1U + 6U + 1U);
  std::vector<std::string> rows;
  for (std::size_t p = 1; p <= 6; ++p) {
    constexpr int kHeading = 3;
    EXPECT_EQ(LineText(pages[p], 0), "KT740 Kivomatic@0");
    EXPECT_EQ(LineText(pages[p], 2), p == 1 ? "##### Programable USA Channel #####@0"
                                            : "##### Programable USA Channel ##### (continued)@0");
    EXPECT_TRUE(LineText(pages[p], kHeading).starts_with("CH@0|RX(MHz)@12|"));
    EXPECT_TRUE(LineText(pages[p], kHeading + 1).starts_with("---@0|-------@12|"));
    for (int line = kHeading + 2; line < LineCount(pages[p]); ++line) {
      const std::string text = LineText(pages[p], line);
      rows.push_back(text.substr(0, text.find('@')));
    }
  }
  ASSERT_EQ(rows.size(), 240U);
  for (int i = 0; i < 240; ++i) EXPECT_EQ(rows[static_cast<std::size_t>(i)], core::PlanLabel(i));
}

}  // namespace
}  // namespace orvane::files
