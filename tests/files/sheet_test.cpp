#include "files/sheet.h"

#include <gtest/gtest.h>

#include "sheet_bench.h"

namespace orvane::files {
namespace {

using testing::kAfterCutOver;
using testing::SheetBench;

constexpr int kUsa16 = 32;

TEST(Sheet, KnowsWhatEachColumnIsAbout) {
  // In the order of CellKind.
  constexpr std::string_view kLetters = "-snfdtc";
  const struct {
    const char* sheet;
    std::int16_t model;
    const char* kinds;
  } cases[] = {{"USA", 5, "---ssssscn"},       {"LMR", 5, "-sdffssscnstst"},
               {"EXP", 5, "-sssdffssscnstst"}, {"CANADA", 1, "---sssss"},
               {"EXP", 1, "-sdffsss"},         {"LMR", 6, "-sdffssscnstst"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.sheet << c.model);
    std::string kinds;
    for (const ChannelColumn& column : SheetBench(c.sheet, c.model).sheet.columns) {
      kinds += kLetters[static_cast<std::size_t>(KindOf(column))];
    }
    EXPECT_EQ(kinds, c.kinds);
  }
}

TEST(Sheet, ListsChannelsInUseOrAll) {
  SheetBench bench("USA");
  const Sheet in_use = MarineSheet(bench.data, core::MarineGroup::kUsa, false);
  EXPECT_EQ(in_use.numbers, EnabledMarineRows(bench.data.Marine[0]));
  EXPECT_EQ(bench.sheet.Rows(), 240);
  EXPECT_FALSE(IsRowInUse(bench.data, bench.sheet, 0));
  EXPECT_TRUE(IsRowInUse(bench.data, bench.sheet, kUsa16));
  const Sheet lmr = ExtraSheet(bench.data, true);
  EXPECT_TRUE(IsRowInUse(bench.data, lmr, 11));
  EXPECT_FALSE(IsRowInUse(bench.data, lmr, 12)) << "an EXP channel";
  EXPECT_EQ(SheetName(bench.data, lmr), "LMR");
  EXPECT_EQ(SheetName(bench.data, bench.SheetOf("CANADA")), "CANADA");
  EXPECT_EQ(CellName(bench.data, bench.sheet, bench.At(kUsa16, "VS")), "USA 16, VS");
}

TEST(Sheet, UnderstandsWhatCellsShowAndWhatTheirFieldsTake) {
  struct Case {
    const char* caption;
    const char* text;
    const char* shown;    // by the cell afterwards
    const char* refusal;  // its beginning
  };
  const Case cases[] = {
      {"CH Name", "boat 7-", "BOAT 7-", ""},
      {"CH Name", "", "", ""},
      {"CH Name", "a;b", "CREW 2", "A channel name has capital letters"},
      {"CH Name", "ABCDEFGHIJKLM", "CREW 2", "At most 12 characters fit."},
      {"RX[MHz]", "161.5", "161.5000", ""},
      {"RX[MHz]", " ---.---- ", "---.----", ""},
      {"RX[MHz]", "", "---.----", ""},
      {"RX[MHz]", "133.9", "150.0250", "A "},
      {"RX[MHz]", "161,5", "150.0250", "It must be a frequency in MHz, or Off."},
      {"DISP", "b7 9", "b7 9", ""},
      {"DISP", "M", "M", ""},
      {"DISP", "1M", "Lr 2", "The display shows"},
      {"DISP", "12345", "Lr 2", "At most 4 characters fit."},
      {"RxTone", "88.5", "88.5Hz", ""},
      {"RxTone", "254.1hz", "254.1Hz", ""},
      {"RxTone", "754i", "754I", ""},
      {"RxTone", "off", "-------", ""},
      {"RxTone", "88.6", "065N", "It must be a tone such as 88.5Hz, a code"},
      {"MEM", "mem", "MEM", ""},
      {"MEM", "1", "MEM", ""},
      {"MEM", "x", "---", "It must be On or Off."},
      {"VS", "3", "3", ""},
      {"VS", "--", "--", ""},
      {"VS", "4", "--", "It must be a code 0 to 3, or Off."},
      {"Comp", "---", "---", ""},
      {"ENABLE", "", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.caption << " " << c.text);
    SheetBench bench("LMR");
    bench.data.EXP[2].ScanMemory = false;
    bench.data.EXP[2].RxDCS = 12;
    const core::RadioData before = bench.data;
    const std::string refusal = bench.Type(2, c.caption, c.text);
    EXPECT_TRUE(refusal.starts_with(c.refusal) && refusal.empty() == (*c.refusal == '\0'))
        << refusal;
    EXPECT_EQ(bench.Text(2, c.caption), c.shown);
    EXPECT_EQ(TextToEdit(bench.data, bench.sheet, bench.At(2, c.caption)),
              *c.shown == '-' ? "" : c.shown);
    EXPECT_TRUE(refusal.empty() || bench.data == before);
  }
}

// Digits that a spreadsheet has dropped, and what no radio shows but the memory may hold.
TEST(Sheet, TakesWhatTheCellShowsAnywayForNoChange) {
  SheetBench bench("USA");
  bench.data.Marine[0][kUsa16].ChTag = "odd*name";
  for (const auto& [caption, text] :
       {std::pair("CH", "16.0"), {"RX[MHz]", "156.8"}, {"CH Name", "odd*name"}, {"TX", "tx"}}) {
    SCOPED_TRACE(caption);
    const core::RadioData before = bench.data;
    EXPECT_EQ(bench.Type(kUsa16, caption, text), "");
    EXPECT_EQ(bench.data, before);
  }
  EXPECT_EQ(bench.Type(kUsa16, "CH", "17"), "It is the number of the channel's place.");
  EXPECT_EQ(bench.Type(kUsa16, "RX[MHz]", "156.85"), "It follows from the channel plan.");
}

TEST(Sheet, LocksWhatThePageGreys) {
  constexpr int kUsa70 = 140;
  const struct {
    const char* sheet;
    int number;
    const char* caption;
    void (*arrange)(core::ChannelRecord&);
    const char* reason;
  } cases[] = {
      {"USA", kUsa16, "TX", [](auto& c) { c.Enable = false; }, "The channel is not in use."},
      {"USA", kUsa16, "TX", [](auto& c) { c.RxOnly = true; }, "The channel plan allows reception"},
      {"USA", kUsa16, "LOW", [](auto& c) { c.RxOnly = true; }, "Low Power Only goes with"},
      {"USA", kUsa16, "LOW", [](auto& c) { c.TxEnable = false; }, "Low Power Only goes with"},
      {"USA", kUsa16, "UP", [](auto& c) { c.LowPower = false; }, "Power Up goes with"},
      {"USA", kUsa16, "UP", [](auto& c) { c.LowPower = true; }, ""},
      {"USA", kUsa16, "DUP", [](auto& c) { c.DuplexAllowed = false; }, "The channel plan has no"},
      {"USA", kUsa16, "DUP", [](auto& c) { c.DuplexAllowed = true; }, ""},
      {"USA", kUsa70, "VS", [](auto&) {}, "The scrambler is not offered for this channel"},
      {"LMR", 1, "W/N", [](auto& c) { c.Txfreq = 160; }, "LMR channels from 150"},
      {"LMR", 1, "W/N", [](auto& c) { c.Txfreq = 149; }, ""},
      {"LMR", 1, "Comp", [](auto& c) { c.RxDCS = 0; }, "COMP goes with a receive DCS code"},
      {"LMR", 1, "CH", [](auto&) {}, "It is the number"},
      {"LMR", 20, "ENABLE", [](auto&) {}, ""},
      {"LMR", 20, "CH Name", [](auto&) {}, "The channel is not in use."},
      {"EXP", 1, "CAN", [](auto&) {}, "The place is used as LMR1."},
      {"EXP", 1, "CH Name", [](auto&) {}, "The place is used as LMR1."},
      {"EXP", 1, "CAN", [](auto& c) { c.Rxfreq = 0; }, ""},
      {"EXP", 1, "CH Name", [](auto& c) { c.Rxfreq = 0; }, "The channel is not in use."},
      {"EXP", 14, "CH Name", [](auto&) {}, ""},
      {"EXP", 14, "CH Name", [](auto& c) { c.USA_Group = c.INT_Group = false; },
       "The channel is not in use."},
      {"EXP", 20, "CAN", [](auto&) {}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.sheet << c.number << c.caption << c.reason);
    SheetBench bench(c.sheet);
    const document::ChannelPlace place = bench.sheet.Place(bench.At(c.number, "CH").row);
    c.arrange(place.IsMarine() ? bench.data.Marine[0][static_cast<std::size_t>(c.number)]
                               : bench.data.EXP[c.number]);
    const std::string lock =
        LockOf(bench.data, bench.sheet, bench.At(c.number, c.caption), kAfterCutOver);
    EXPECT_TRUE(lock.starts_with(c.reason) && lock.empty() == (*c.reason == '\0')) << lock;
  }
}

}  // namespace
}  // namespace orvane::files
