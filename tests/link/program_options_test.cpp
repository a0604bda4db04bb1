#include <gtest/gtest.h>

#include <tuple>

#include "core/narrowband.h"
#include "core/text.h"
#include "files/settings_file.h"
#include "support/program_bench.h"

namespace orvane::link {
namespace {

using testing::ProgramBench;
using testing::RandomData;
using testing::TrueDifferences;
using Texts = std::vector<std::string>;

struct ProgramOptions : ::testing::TestWithParam<std::int16_t> {};

TEST_P(ProgramOptions, ACopyIsWhatAReadWouldGiveAndComesBeforeTheFirstWrite) {
  RandomData random(11);
  const core::RadioData desk = random.Of(GetParam());
  const auto memory = RandomMemory(random, desk);
  core::RadioData fresh;
  fresh.MODELTYPE = GetParam();
  image::ResetToDefaults(fresh, testing::kAfterCutOver);
  image::SetDestinationBits(fresh.Image, image::Sel1(desk.Image), image::Sel2(desk.Image));
  ProgramBench reading(fresh, memory);
  reading.Run({}, SessionKind::kRead);

  ProgramBench bench(desk, memory);
  const TransferOutcome outcome = bench.Run({.keep_copy = true});
  EXPECT_EQ(outcome.ending, Ending::kDone);
  EXPECT_EQ(bench.witness.writes_before, 0);
  ASSERT_TRUE(bench.witness.kept && bench.witness.sent);
  EXPECT_EQ(MemoryCrc(bench.witness.kept->Image), MemoryCrc(reading.data.Image));
  EXPECT_EQ(outcome.receipt->crc_before, MemoryCrc(reading.data.Image));
  // Reading goes through the narrowband rule, a copy does not.
  for (int n = 1; n <= core::kExtraChannels; ++n) {
    reading.data.EXP[n].Narrow = bench.witness.kept->EXP[n].Narrow;
  }
  EXPECT_TRUE(core::Differences(reading.data, *bench.witness.kept).empty());
  EXPECT_EQ(*bench.witness.sent, bench.data);
  EXPECT_TRUE(TrueDifferences(bench.data, bench.radio.radio.Memory()).empty());
}

TEST_P(ProgramOptions, AnHonestRadioIsFoundToHoldWhatWasSent) {
  RandomData random(12);
  const core::RadioData desk = random.Of(GetParam());
  const auto memory = RandomMemory(random, desk);
  ProgramBench bench(desk, memory);
  // A cable that lives on the port's lines would lose its power in between.
  bench.view.on_phase = [&] { EXPECT_TRUE(bench.radio.port.IsOpen()); };
  const TransferOutcome outcome = bench.Run({.keep_copy = true, .read_back = true});
  ASSERT_EQ(outcome.ending, Ending::kDone);
  EXPECT_EQ(bench.prompts.Texts().back(), "Complete!!");
  EXPECT_EQ(bench.view.bytes_so_far, bench.view.bytes_total);
  EXPECT_TRUE(std::is_sorted(bench.view.percents.begin(), bench.view.percents.end() - 1));
  EXPECT_EQ(bench.view.percents.end()[-2], 100);
  EXPECT_EQ(bench.view.phases, (Texts{"Keeping a copy", "Writing", "Reading back"}));

  const Receipt& receipt = *outcome.receipt;
  EXPECT_TRUE(receipt.Verified());
  EXPECT_EQ(receipt.bytes_compared + 1, receipt.bytes_written);
  EXPECT_EQ(receipt.blocks_compared, receipt.blocks_written);
  EXPECT_EQ(receipt.port, "COM3 Cable");
  ProgramBench after(desk, bench.Memory());
  EXPECT_EQ(after.Run({.keep_copy = true}).receipt->crc_before, receipt.crc_after);
  EXPECT_NE(receipt.crc_before, receipt.crc_after);
}

TEST_P(ProgramOptions, ARadioMayChangeWhatIsItsOwnMeanwhileAndNothingElse) {
  RandomData random(13);
  const core::RadioData desk = random.Of(GetParam());
  for (const auto& [at, bits, own] : {std::tuple(90, 0xFF, true), std::tuple(168, 0x04, true),
                                      std::tuple(168, 0x20, false), std::tuple(91, 0x01, false)}) {
    SCOPED_TRACE(std::to_string(at) + " " + std::to_string(bits));
    ProgramBench bench(desk, RandomMemory(random, desk));
    bench.view.on_phase = [&bench, at = at, bits = bits] {
      if (bench.view.phases.back() != "Reading back") return;
      std::uint8_t& byte = bench.radio.radio.Memory()[static_cast<std::size_t>(at)];
      byte = static_cast<std::uint8_t>(byte ^ bits);
    };
    const TransferOutcome outcome = bench.Run({.read_back = true});
    EXPECT_EQ(outcome.ending, own ? Ending::kDone : Ending::kDiffers);
    EXPECT_EQ(outcome.receipt->mismatches.size(), own ? 0U : 1U);
  }
}

// The other road to the same contents: what the radio holds, and the file opened over it.
TEST_P(ProgramOptions, ASettingsFileProgramsWhatItHoldsAndLeavesTheRest) {
  for (unsigned seed = 0; seed < 4; ++seed) {
    SCOPED_TRACE(seed);
    RandomData random(seed);
    core::RadioData origin = random.Of(GetParam());
    for (core::MarineTable& table : origin.Marine) {
      for (std::size_t i = 0; i < table.size(); ++i) {
        table[i].Position = static_cast<std::int16_t>(i);
      }
    }
    const std::string file = files::SettingFileText(origin);
    core::RadioData desk = testing::NewData(GetParam());
    testing::ManualClock clock;
    testing::ManualPump pump(clock);
    ASSERT_TRUE(files::ApplySettingText(desk, file, pump));
    const auto memory = RandomMemory(random, desk);

    ProgramBench bench(desk, memory);
    EXPECT_EQ(bench.Run({.keep_copy = true, .fill_from_radio = true}).ending, Ending::kDone);
    core::RadioData expected = *bench.witness.kept;
    const bool lacks = FileLacksSomething(core::ProfileOf(desk));
    EXPECT_EQ(lacks, GetParam() <= 1 || GetParam() == 3);
    if (!lacks) expected = desk;
    const auto stations = expected.Stations;
    ASSERT_TRUE(files::ApplySettingText(expected, file, pump));
    expected.Stations = stations;
    static_cast<void>(core::NarrowbandCheck(expected, core::NarrowbandDirection::kDownload,
                                            testing::kAfterCutOver, bench.prompts));
    image::EncodeAll(expected, testing::kAfterCutOver);
    image::ConsistencyPass(expected);
    expected.Image[504] = 0xA1;
    EXPECT_EQ(TrueDifferences(expected, bench.radio.radio.Memory()), std::vector<Mismatch>());
    EXPECT_EQ(bench.data.Dsc, expected.Dsc);
    EXPECT_EQ(*bench.witness.sent, bench.data);

    // One reading serves both; without a copy to keep it is done where the file needs it.
    ProgramBench alone(desk, memory);
    alone.Run({.fill_from_radio = true});
    EXPECT_EQ(alone.Memory(), bench.Memory());
    EXPECT_EQ(alone.radio.asked.size() == bench.radio.asked.size(), lacks);
  }
}

TEST(FillFromRadio, ASlipOfABrokenRunIsNotTakenForTheRadiosOwn) {
  const core::RadioData desk = testing::NewData(0);
  RandomData random(9);
  const auto before = RandomMemory(random, desk);
  ProgramBench whole(desk, before);
  ASSERT_EQ(whole.Run({.fill_from_radio = true}).ending, Ending::kDone);
  const auto sent = std::make_shared<core::RadioData>(whole.data);
  const auto after = whole.Memory();
  auto slipped = after;
  core::RadioData wrong = *sent;
  wrong.Dsc.UserMmsi = "133456789";
  image::EncodeAll(wrong, testing::kAfterCutOver);
  for (std::size_t i = 0; i < slipped.size(); ++i) {
    const int address = static_cast<int>(i);
    if (wrong.Image[address] != sent->Image[address]) slipped[i] = wrong.Image[address];
  }
  ASSERT_NE(slipped, after);
  auto broken_off = before;
  std::copy_n(after.begin(), after.size() / 2, broken_off.begin());
  const auto of_another_model = std::make_shared<core::RadioData>(testing::NewData(3));

  const struct {
    const char* what;
    const decltype(slipped)& memory;
    std::shared_ptr<const core::RadioData> broken_run;
    Ending ending;
  } cases[] = {
      {"nothing written yet", before, sent, Ending::kDone},
      {"broken off", broken_off, sent, Ending::kDone},
      {"a byte stored wrongly", slipped, sent, Ending::kFailed},
      {"another radio's mark", slipped, of_another_model, Ending::kDone},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.what);
    ProgramBench bench(desk, one.memory);
    const Ending ending = bench.Run({.fill_from_radio = true, .broken_run = one.broken_run}).ending;
    EXPECT_EQ(ending, one.ending);
    if (one.ending == Ending::kDone) continue;
    EXPECT_EQ(bench.prompts.messages.back().text,
              core::MakeMessage(core::MessageId::kRadioMixed, "").text);
    EXPECT_EQ(bench.Memory(), one.memory);
    EXPECT_EQ(bench.data, desk);
  }
}

TEST(FillFromRadio, WhatTheUserHasSetSinceGoesAsItIs) {
  core::RadioData desk = testing::NewData(0);
  RandomData random(6);
  const core::RadioData opened = desk;
  desk.EXP[3].ChTag = "MINE";
  desk.Dsc.UserMmsi = "232001234";
  std::vector<core::FieldRef> edited;
  for (const core::Change& change : core::Differences(opened, desk)) edited.push_back(change.at);
  ProgramBench bench(desk, RandomMemory(random, desk));
  EXPECT_EQ(bench.Run({.keep_copy = true, .fill_from_radio = true, .edited = edited}).ending,
            Ending::kDone);
  EXPECT_EQ(bench.data.EXP[3].ChTag, "MINE");
  EXPECT_EQ(bench.data.EXP[4].ChTag, core::UpperCase(bench.witness.kept->EXP[4].ChTag));
  EXPECT_EQ(bench.data.Dsc.UserMmsi, "232001234");
  bench.data.Dsc.UserMmsi = bench.witness.kept->Dsc.UserMmsi;
  EXPECT_EQ(bench.data.Dsc, bench.witness.kept->Dsc);
}

INSTANTIATE_TEST_SUITE_P(Models, ProgramOptions, ::testing::Range<std::int16_t>(0, 7));

struct Trouble {
  const char* name;
  const char* fault;  ///< "": the user cancels at that read
  int read;           ///< number of the read, 4 before those of the whole memory
};

void PressCancelAt(ProgramBench& bench, int read) {
  bench.radio.radio.SetObserver([&bench, read, count = 0](const Exchange& exchange) mutable {
    bench.radio.asked.push_back(exchange);
    if (exchange.kind == ExchangeKind::kRead && ++count == read) bench.state.Cancel = true;
  });
}

TEST(KeepingACopy, WhenItFailsNothingIsWrittenAndThatIsSaid) {
  struct Case {
    Trouble trouble;
    Ending ending;
    Texts texts;
  };
  for (const Case& c :
       {Case{{"unplugged", "unplug@read:9=30", 0}, Ending::kFailed, {"5\r\rInput/output error"}},
        {{"garbled", "garbled-reply@read:700=20", 0}, Ending::kFailed, {"Communication Error!!"}},
        {{"cancelled", "", 300}, Ending::kCancelled, {"Nothing was written to the radio."}},
        {{"not kept", "busy@status:9", 0},
         Ending::kFailed,
         {"The copy of what the radio holds could not be kept."}}}) {
    for (const bool fill : {false, true}) {
      SCOPED_TRACE(c.trouble.name);
      RandomData random(3);
      const core::RadioData desk = random.Of(0);
      const auto memory = RandomMemory(random, desk);
      FaultPlan faults;
      if (*c.trouble.fault != '\0') faults.Add(*ParseFault(c.trouble.fault).fault);
      ProgramBench bench(desk, memory, 9600, faults);
      if (c.trouble.read > 0) PressCancelAt(bench, c.trouble.read);
      if (std::string_view(c.trouble.name) == "not kept") {
        bench.witness.failure = {28, "No space left on device"};
      }
      const TransferOutcome outcome = bench.Run({.keep_copy = true, .fill_from_radio = fill});
      EXPECT_EQ(outcome.ending, c.ending);
      EXPECT_FALSE(outcome.partly_written);
      EXPECT_TRUE(outcome.said);
      EXPECT_FALSE(outcome.receipt);
      EXPECT_EQ(bench.prompts.Texts(), c.texts);
      const core::Message& last = bench.prompts.messages.back();
      EXPECT_NE((last.text + last.details).find("Nothing was written"), std::string::npos);
      EXPECT_EQ(bench.Memory(), memory);
      EXPECT_EQ(bench.data.Dsc, desk.Dsc);
      EXPECT_FALSE(bench.radio.port.IsOpen());
    }
  }
}

TEST(ReadingBack, ARadioThatCannotBeReadBackIsNoFailedWrite) {
  // Four reads of the model check and two of the radio's own bits come before.
  for (const Trouble& trouble : {Trouble{"unplugged", "unplug@read:7=30", 0},
                                 {"garbled", "garbled-reply@read:40=20", 0},
                                 {"silent", "missing-reply@read:500", 0},
                                 {"cancelled", "", 100}}) {
    SCOPED_TRACE(trouble.name);
    RandomData random(4);
    const core::RadioData desk = testing::NewData(5);
    const auto memory = RandomMemory(random, desk);
    FaultPlan faults;
    if (*trouble.fault != '\0') faults.Add(*ParseFault(trouble.fault).fault);
    ProgramBench bench(desk, memory, 9600, faults);
    if (trouble.read > 0) PressCancelAt(bench, trouble.read);
    const TransferOutcome outcome = bench.Run({.read_back = true});
    EXPECT_EQ(outcome.ending, Ending::kDone);
    EXPECT_TRUE(outcome.not_read_back);
    EXPECT_FALSE(outcome.partly_written);
    ASSERT_TRUE(outcome.receipt);
    EXPECT_FALSE(outcome.receipt->Verified());
    EXPECT_LT(outcome.receipt->bytes_compared, outcome.receipt->bytes_written - 1);
    EXPECT_EQ(bench.prompts.Texts().back(),
              "The radio was written and has acknowledged everything, but it could not be read "
              "back.");
    EXPECT_EQ(EndingText(outcome, {}), bench.prompts.Texts().back());
    EXPECT_FALSE(bench.state.Error || bench.state.Cancel);
    EXPECT_TRUE(TrueDifferences(bench.data, bench.radio.radio.Memory()).empty());
  }
}

// What the tick boxes say of their time is true, and so is the sum.
TEST(TransferTimes, EachOptionTakesItsWireAndNoMore) {
  const core::RadioData desk = testing::NewData(5);
  RandomData random(5);
  const auto memory = RandomMemory(random, desk);
  const auto seconds = [&](const TransferOptions& options) {
    ProgramBench bench(desk, memory, 9600);
    const double start = bench.radio.clock.now;
    EXPECT_EQ(bench.Run(options).ending, Ending::kDone);
    return bench.radio.clock.now - start;
  };
  const double plain = seconds({});
  const double copy = SecondsOnWire(LoadOfReading(desk.Image.LastIndex()));
  ProgramBench sent(desk, memory);
  sent.Run();
  const double writing = SecondsOnWire(LoadOfWriting(sent.data));
  const double back = SecondsOnWire(LoadOfReadingBack(sent.data));
  constexpr double kConnecting = 1.66;  // handshake, a second's rest, status, model check
  EXPECT_NEAR(plain, writing + kConnecting, 0.001 * plain);
  EXPECT_NEAR(seconds({.keep_copy = true}) - plain, copy, 0.001 * copy);
  EXPECT_NEAR(seconds({.read_back = true}) - plain, back, 0.001 * back);
  EXPECT_NEAR(seconds({.keep_copy = true, .read_back = true}), plain + copy + back,
              0.001 * (plain + copy + back));
  RecordProperty("plain", std::to_string(plain));
  RecordProperty("copy", std::to_string(copy));
  RecordProperty("back", std::to_string(back));
}

}  // namespace
}  // namespace orvane::link
