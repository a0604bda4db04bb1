#include "files/sheet_edits.h"

#include <gtest/gtest.h>

#include "sheet_bench.h"
#include "support/random_data.h"

namespace orvane::files {
namespace {

using core::ChannelRecord;
using testing::kAfterCutOver;
using testing::SheetBench;

std::string Told(const std::vector<CellText>& cells) {
  std::string told;
  for (const CellText& cell : cells) {
    told += std::to_string(cell.at.row) + "," + std::to_string(cell.at.column) + cell.text + " ";
  }
  return told;
}

TEST(Place, FillsAndRepeatsAsSpreadsheetsDo) {
  const TextRows square = {{"a", "b"}, {"c", "d"}};
  const struct {
    const char* what;
    Area area;
    TextRows rows;
    const char* told;
    int beyond;
  } cases[] = {
      {"at a cell", {3, 4}, square, "3,4a 3,5b 4,4c 4,5d ", 0},
      {"one cell into all", {1, 2, 3, 1}, {{"x"}}, "1,2x 2,2x 3,2x ", 0},
      {"again in rows and columns",
       {0, 0, 2, 4},
       {{"m", "n"}},
       "0,0m 0,1n 0,2m 0,3n 1,0m 1,1n 1,2m 1,3n ",
       0},
      {"no multiple: once", {5, 6, 3, 3}, square, "5,6a 5,7b 6,6c 6,7d ", 0},
      {"short rows leave cells alone", {0, 1, 2, 2}, {{"p", "q"}, {"r"}}, "0,1p 0,2q 1,1r ", 0},
      {"beyond the edge", {239, 9}, square, "239,9a ", 3},
      {"nothing", {0, 0, 2, 2}, {}, "", 0},
      {"a row of no cells", {0, 0, 2, 2}, {{}}, "", 0},
  };
  const SheetBench bench("USA");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const Pasted pasted = Place(bench.sheet, c.area, c.rows);
    EXPECT_EQ(Told(pasted.cells), c.told);
    EXPECT_EQ(pasted.beyond, c.beyond);
  }
}

TEST(CountedUp, CountsTheNumberAtTheEnd) {
  const std::tuple<const char*, int, const char*> cases[] = {{"CH 1", 1, "CH 2"},
                                                             {"01", 3, "04"},
                                                             {"B09", 2, "B11"},
                                                             {"A-99", 1, "A-100"},
                                                             {"7", 13, "20"},
                                                             {"3 TO 008", 4, "3 TO 012"},
                                                             {"NONE", 1, "-"},
                                                             {"", 2, "-"},
                                                             {"5A", 1, "-"},
                                                             {"X999999999", 1, "X1000000000"},
                                                             {"123456789012", 1, "123456789013"}};
  for (const auto& [text, by, counted] : cases) {
    EXPECT_EQ(CountedUp(text, by).value_or("-"), counted) << text;
  }
}

// What a sheet says is no change to it, in whatever state the radio's memory left it.
TEST(PlanPaste, OfASheetOnItselfDoesNothing) {
  for (std::int16_t model = 0; model <= 6; ++model) {
    testing::RandomData random(static_cast<unsigned>(model) + 5);
    for (const char* name : {"USA", "INTL", "CANADA", "LMR", "EXP"}) {
      SCOPED_TRACE(::testing::Message() << name << model);
      SheetBench bench(name, model);
      random.Scatter(bench.data, 300);
      bench.data.MODELTYPE = model;
      const Area all{0, 0, bench.sheet.Rows(), bench.sheet.Columns()};
      const DelimitedText split = SplitText(CopiedText(bench.data, bench.sheet, all), '\t');
      const SheetEdit edit = PlanPaste(bench.data, bench.sheet, all, split.rows, kAfterCutOver);
      EXPECT_EQ(edit.cells, 0);
      EXPECT_TRUE(edit.refused.empty()) << edit.refused[0].cell << ": " << edit.refused[0].reason;
    }
  }
}

// A whole table from another data set: whichever switches it turns on and off, in that order or
// not, each cell says afterwards what it said there.
TEST(PlanPaste, OfAWholeTableTakesOverItsCells) {
  for (const char* name : {"USA", "LMR"}) {
    SCOPED_TRACE(name);
    SheetBench theirs(name);
    SheetBench ours(name);
    for (int n = 1; n <= 40; ++n) {
      ChannelRecord& channel = theirs.data.EXP[n];
      channel.SetLmr(true);
      channel.Enable = n % 2 == 0;
      channel.RxComp = n % 4 == 0;
      channel.Narrow = true;
      channel.RxDCS = channel.RxComp ? std::int16_t{9} : std::int16_t{0};
      channel.RxCTCSS = channel.RxComp ? std::int16_t{0} : std::int16_t{5};
      if (channel.Enable) channel.ChTag = "T" + std::to_string(n);
      ours.data.EXP[n].SetLmr(true);
      ours.data.EXP[n].Enable = n % 3 == 0;
    }
    for (std::size_t i = 0; i < 240; ++i) {
      ChannelRecord& channel = theirs.data.Marine[0][i];
      channel.TxEnable = i % 2 == 0 && !channel.RxOnly;
      channel.LowPower = i % 3 == 0;
      channel.PowUp = channel.LowPower && i % 5 == 0;
      channel.ChTag = "M" + std::to_string(i);
      channel.Enable = ours.data.Marine[0][i].Enable;
    }
    const Area all{0, 1, theirs.sheet.Rows(), theirs.sheet.Columns() - 1};
    const SheetEdit edit =
        PlanPaste(ours.data, ours.sheet, all,
                  SplitText(CopiedText(theirs.data, theirs.sheet, all), '\t').rows, kAfterCutOver);
    ours.Do(edit);
    int in_use = 0;
    for (int row = 0; row < ours.sheet.Rows(); ++row) {
      if (!IsRowInUse(theirs.data, theirs.sheet, row)) continue;
      ++in_use;
      for (int column = 0; column < ours.sheet.Columns(); ++column) {
        const std::string cell = CellName(ours.data, ours.sheet, {row, column});
        const bool refused =
            std::any_of(edit.refused.begin(), edit.refused.end(),
                        [&](const RefusedCell& each) { return each.cell == cell; });
        if (refused) {
          // Nothing but what no channel of the kind may have.
          EXPECT_TRUE(cell.ends_with(", LOW") || cell.ends_with(", UP")) << cell;
          continue;
        }
        EXPECT_EQ(TextOf(ours.data, ours.sheet, {row, column}),
                  TextOf(theirs.data, theirs.sheet, {row, column}))
            << cell;
      }
    }
    EXPECT_GE(in_use, 20);
  }
}

TEST(PlanPaste, NamesRefusedCellsAndDoesTheRest) {
  SheetBench bench("LMR");
  const Cell corner = bench.At(2, "VS");
  const SheetEdit edit = PlanPaste(bench.data, bench.sheet, {corner.row, corner.column},
                                   {{"1", "ONE"}, {"9", "TWO"}, {"--", "A=B"}}, kAfterCutOver);
  EXPECT_EQ(edit.name, "Paste 4 cells in LMR");
  ASSERT_EQ(edit.refused.size(), 2U);
  EXPECT_EQ(edit.refused[0].cell, "LMR3, VS");
  EXPECT_EQ(edit.refused[0].text, "9");
  EXPECT_EQ(edit.refused[0].reason, "It must be a code 0 to 3, or Off.");
  EXPECT_EQ(edit.refused[1].cell, "LMR4, CH Name");
  bench.Do(edit);
  EXPECT_EQ(bench.Text(2, "VS") + bench.Text(2, "CH Name") + bench.Text(3, "CH Name"), "1ONETWO");
  EXPECT_EQ(bench.Text(4, "CH Name"), "CREW 4");
}

TEST(PlanPaste, KeepsTheLastChannelOfAGroup) {
  SheetBench bench("LMR");
  for (int n = 1; n <= 40; ++n) bench.data.EXP[n].Enable = n == 4;
  const Cell corner = bench.At(4, "ENABLE");
  const Area area{corner.row, corner.column};
  const SheetEdit off = PlanPaste(bench.data, bench.sheet, area, {{""}}, kAfterCutOver);
  ASSERT_EQ(off.refused.size(), 1U);
  EXPECT_EQ(off.refused[0].reason, document::kLastChannelRefusal);
  // Another one comes on with the same paste, though further down.
  const SheetEdit moved =
      PlanPaste(bench.data, bench.sheet, area, {{""}, {"[Enable]"}}, kAfterCutOver);
  EXPECT_TRUE(moved.refused.empty());
  bench.Do(moved);
  EXPECT_FALSE(bench.data.EXP[4].Enable);
  EXPECT_TRUE(bench.data.EXP[5].Enable);
}

TEST(PlanSwitch, SwitchesTheSelectionAsItsFirstCell) {
  struct Case {
    const char* what;
    std::vector<const char*> captions;  // of channels 16 and 17
    int first;                          // channel
    const char* name;
    const char* after;  // TX, LOW, UP, MEM of both
    std::size_t refused;
  };
  // CH16 transmits, CH17 does not; both are in no scan memory.
  const Case cases[] = {
      {"off", {"TX"}, 16, "Switch TX of 1 channel", "---------- ----------", 0},
      {"on", {"TX"}, 17, "Switch TX of 1 channel", "TX-------- TX--------", 0},
      {"both", {"MEM"}, 17, "Switch MEM of 2 channels", "TX-----MEM -------MEM", 0},
      {"locked", {"LOW"}, 16, "Switch LOW of 1 channel", "TXLOW----- ----------", 1},
      {"one needs the other",
       {"UP", "LOW"},
       16,
       "Switch 2 cells in USA",
       "TXLOWUP--- ----------",
       2},
      {"no switch", {"CH Name", "RX[MHz]"}, 16, "", "TX-------- ----------", 0},
  };
  constexpr int kUsa16 = 32;
  constexpr int kUsa17 = 34;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    SheetBench bench("USA");
    std::vector<Cell> cells;
    for (const int number : {kUsa16, kUsa17}) {
      ChannelRecord& channel = bench.data.Marine[0][static_cast<std::size_t>(number)];
      channel.TxEnable = number == kUsa16;
      channel.LowPower = channel.PowUp = channel.ScanMemory = false;
      for (const char* caption : c.captions) cells.push_back(bench.At(number, caption));
    }
    const Cell first = bench.At(c.first == 16 ? kUsa16 : kUsa17, c.captions[0]);
    const SheetEdit edit = PlanSwitch(bench.data, bench.sheet, cells, first, kAfterCutOver);
    bench.Do(edit);
    std::string after;
    for (const int number : {kUsa16, kUsa17}) {
      if (!after.empty()) after += " ";
      for (const char* caption : {"TX", "LOW", "UP", "MEM"}) after += bench.Text(number, caption);
    }
    EXPECT_EQ(after, c.after);
    EXPECT_EQ(edit.name, c.name);
    EXPECT_EQ(edit.refused.size(), c.refused);
  }
}

TEST(PlanSwitch, KeepsTheCodeOfAScrambler) {
  SheetBench bench("LMR");
  bench.data.EXP[2].Scramble = 3;
  bench.data.EXP[3].Scramble = 5;
  const Cell cells[] = {bench.At(2, "VS"), bench.At(3, "VS")};
  bench.Do(PlanSwitch(bench.data, bench.sheet, cells, cells[0], kAfterCutOver));
  EXPECT_EQ(bench.Text(2, "VS") + bench.Text(3, "VS"), "31");
}

TEST(PlanSwitch, OfAGroupMakesAnUnusedPlaceAnExpChannelAndNoUsedOne) {
  SheetBench bench("EXP");
  bench.data.EXP[20].SetLmr(true);
  const Cell cells[] = {bench.At(20, "CAN"), bench.At(1, "CAN")};
  const SheetEdit edit = PlanSwitch(bench.data, bench.sheet, cells, cells[0], kAfterCutOver);
  EXPECT_EQ(edit.refused.size(), 1U);
  bench.Do(edit);
  EXPECT_TRUE(bench.data.EXP[20].Enable && bench.data.EXP[20].IsExp());
  EXPECT_TRUE(bench.data.EXP[1].IsLmr());
}

TEST(Plans, FillCountAndEmpty) {
  SheetBench bench("LMR");
  const auto column = bench.Column("CH Name");
  bench.data.EXP[2].ChTag = "PORT 08";
  bench.data.EXP[2].Scramble = 5;
  const auto names = [&bench] {
    return bench.Text(2, "CH Name") + "|" + bench.Text(3, "CH Name") + "|" +
           bench.Text(4, "CH Name");
  };
  const SheetEdit count = PlanCountUp(bench.data, bench.sheet, {1, column, 3, 1}, kAfterCutOver);
  EXPECT_EQ(count.name, "Count up 2 cells in LMR");
  bench.Do(count);
  EXPECT_EQ(names(), "PORT 08|PORT 09|PORT 10");
  // Of a single row it is the one above that is filled in.
  const SheetEdit fill =
      PlanFillDown(bench.data, bench.sheet, {2, column - 1, 1, 2}, kAfterCutOver);
  EXPECT_EQ(fill.name, "Fill 2 cells in LMR") << "a scrambler code and a name";
  bench.Do(fill);
  EXPECT_EQ(names(), "PORT 08|PORT 08|PORT 10");
  EXPECT_EQ(PlanFillDown(bench.data, bench.sheet, {0, column}, kAfterCutOver).cells, 0);
  const Cell cells[] = {{1, column}, {3, column}, {2, column - 1}};
  const SheetEdit empty = PlanEmpty(bench.data, bench.sheet, cells, "Cut", kAfterCutOver);
  EXPECT_EQ(empty.name, "Cut 2 names in LMR");
  bench.Do(empty);
  EXPECT_EQ(names(), "|PORT 08|");
}

TEST(PlanUse, SwitchesChannelsLikeTheFirst) {
  SheetBench bench("USA");
  const int rows[] = {0, 32};  // not in use, and CH16
  const SheetEdit on = PlanUse(bench.data, bench.sheet, rows, kAfterCutOver);
  EXPECT_EQ(on.name, "Switch on 1 channel in USA");
  bench.Do(on);
  EXPECT_TRUE(bench.data.Marine[0][0].Enable);
  for (std::size_t i = 0; i < 240; ++i) bench.data.Marine[0][i].Enable = i == 0 || i == 32;
  const SheetEdit off = PlanUse(bench.data, bench.sheet, rows, kAfterCutOver);
  EXPECT_EQ(off.name, "Switch off 1 channel in USA");
  ASSERT_EQ(off.refused.size(), 1U);
  EXPECT_EQ(off.refused[0].cell, "USA 16");
}

}  // namespace
}  // namespace orvane::files
