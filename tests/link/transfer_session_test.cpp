#include "link/transfer_session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <tuple>

#include "image/codec.h"
#include "link/transfer_pace.h"
#include "link/transfer_plan.h"
#include "support/image_fixtures.h"
#include "support/scripted_port.h"
#include "support/simulated_bench.h"

namespace orvane::link {
namespace {

using Texts = std::vector<std::string>;

// A radio of the model whose every byte that is no code, product or destination differs from a new
// image's.
std::vector<std::uint8_t> UsedMemory(const core::RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  core::MemoryImage image = data.Image;
  for (int i = 66; i < profile.image_size - 2; ++i) {
    image[i] = static_cast<std::uint8_t>(data.Image[i] ^ (1 + i % 200));
  }
  // The destination bits are the data's, every other bit is not.
  image[168] = static_cast<std::uint8_t>(data.Image[168] ^ 0xCF);
  if (profile.product_byte) image[16370] = *profile.product_byte;
  return RadioMemory(profile, image.Used());
}

struct Bench {
  explicit Bench(std::int16_t model = 5, double baud = 0) : data(testing::NewData(model)) {
    radio = std::make_unique<testing::SimulatedBench>(UsedMemory(data), baud);
    session = std::make_unique<TransferSession>(
        data, state,
        LinkServices{radio->port, radio->clock, radio->pump, log, view, {"COM3", "Cable"}},
        prompts);
    before = data;
  }
  TransferOutcome Run(SessionKind kind) {
    const TransferOutcome outcome = session->Run(kind);
    EXPECT_FALSE(state.Busy);
    EXPECT_FALSE(radio->port.IsOpen());
    EXPECT_EQ(outcome.ending == Ending::kFailed, static_cast<bool>(state.Error));
    return outcome;
  }
  void Fault(const char* text) {
    faults.Add(*ParseFault(text).fault), radio->radio.SetFaults(faults);
  }
  /// Addresses asked for, runs of pieces of one length joined: "66-73/1 96-159/16".
  std::string Asked(ExchangeKind kind) const {
    std::string text;
    int first = 0, next = -1, length = 0;
    const auto close = [&] {
      if (next < 0) return;
      text += (text.empty() ? "" : " ") + std::to_string(first) + "-" + std::to_string(next - 1) +
              "/" + std::to_string(length);
    };
    for (const Exchange& exchange : radio->asked) {
      if (exchange.kind != kind) continue;
      if (exchange.address != next || exchange.length != length) {
        close();
        first = exchange.address;
        length = exchange.length;
      }
      next = exchange.address + exchange.length;
    }
    close();
    return text;
  }
  /// Messages as title: text.
  Texts Told() const {
    Texts told;
    for (const core::Message& message : prompts.messages) {
      told.push_back(message.title + ": " + message.text);
    }
    return told;
  }
  core::RadioData data;
  core::RunState state;
  core::RadioData before;
  std::unique_ptr<testing::SimulatedBench> radio;
  testing::RecordingLog log;
  testing::RecordingView view;
  testing::ScriptedPrompts prompts;
  FaultPlan faults;
  std::unique_ptr<TransferSession> session;
};

TEST(ReadSession, TakesWhatIsReadAndKeepsTheRestForEveryModel) {
  for (std::int16_t model = 0; model <= 6; ++model) {
    SCOPED_TRACE(model);
    Bench bench(model);
    EXPECT_EQ(bench.Run(SessionKind::kRead).ending, Ending::kDone);
    EXPECT_EQ(bench.Told().front(), "Read from Radio: Complete!!");
    const std::string code = model <= 3 ? "0-1/2" : "64-65/2";
    EXPECT_EQ(bench.Asked(ExchangeKind::kRead),
              model == 1
                  ? "0-1/2 8190-8191/2 168-168/1 64-8191/16"
                  : code + " 16382-16383/2 16370-16370/1 168-168/1 64-13567/16 16304-16383/16");
    for (int i = 0; i <= bench.data.Image.LastIndex(); ++i) {
      const bool read = i >= 64 && (i < 13568 || i >= 16304);
      const auto radio_byte = bench.radio->radio.Memory()[static_cast<std::size_t>(i)];
      ASSERT_EQ(bench.data.Image[i], read ? radio_byte : bench.before.Image[i]) << i;
    }
    EXPECT_FALSE(bench.data.Common == bench.before.Common) << "not decoded";
    EXPECT_EQ(bench.view.bytes_so_far, bench.view.bytes_total);
    EXPECT_EQ(bench.view.percents.back(), 0);
    EXPECT_EQ(*std::max_element(bench.view.percents.begin(), bench.view.percents.end()), 100);
  }
}

TEST(ProgramSession, WritesTheBytesOfTheAvailableGroupsOnly) {
  const std::string common = "66-73/1 75-91/1 93-95/1 96-159/16 160-168/1 173-173/1 256-511/16 ";
  struct Case {
    std::array<bool, 4> enabled;
    std::string channels;
  };
  const std::vector<Case> cases = {
      {{true, true, true, true}, "768-12431/16"},
      {{false, true, true, true}, "1248-3071/16 5952-12431/16"},
      {{true, false, true, true}, "768-1279/16 1760-5951/16 8832-12431/16"},
      {{true, true, false, true}, "768-1791/16 2272-8831/16 11712-12431/16"},
      {{true, true, true, false}, "768-2303/16 2944-11839/16 12320-12431/16"},
      {{false, false, false, false},
       "1248-1279/16 1760-1791/16 2272-2303/16 2944-3071/16 11712-11839/16 12320-12431/16"},
  };
  for (const Case& c : cases) {
    Bench bench;
    for (std::size_t i = 0; i < 4; ++i) bench.data.Usable[i].Enable = c.enabled[i];
    bench.data.ExpPresent = false;
    const TransferOutcome outcome = bench.Run(SessionKind::kProgram);
    EXPECT_EQ(outcome.ending, Ending::kDone);
    EXPECT_FALSE(outcome.partly_written);
    EXPECT_EQ(bench.Asked(ExchangeKind::kWrite), common + c.channels);
    EXPECT_EQ(bench.Told(), Texts{"Program to Radio: Complete!!"});
    EXPECT_EQ(bench.view.bytes_so_far, bench.view.bytes_total);
  }
}

TEST(ProgramSession, ExpChannelsInUseAreWrittenEvenWhenTheirGroupIsSwitchedOff) {
  core::RadioData data = testing::NewData(0);
  data.Usable[core::kExtraGroup].Enable = false;
  for (const bool present : {false, true}) {
    data.ExpPresent = present;
    EXPECT_EQ(PiecesToWrite(2304, data).size(), present ? 1U : 0U);
    EXPECT_EQ(PiecesToWrite(12304, data).size(), present ? 1U : 0U);
  }
}

TEST(ProgramSession, LeavesTheRadioWithTheImageAndItsOwnBytes) {
  Bench bench(1);
  const std::vector<std::uint8_t> old(bench.radio->radio.Memory().begin(),
                                      bench.radio->radio.Memory().end());
  EXPECT_EQ(bench.Run(SessionKind::kProgram).ending, Ending::kDone);
  EXPECT_TRUE(bench.Asked(ExchangeKind::kWrite).ends_with("-8191/16"));
  EXPECT_EQ(bench.data.Image[504], 0xA1);
  EXPECT_EQ(bench.data.Image[90], old[90]);
  EXPECT_EQ(bench.data.Image[168] & 0x04, old[168] & 0x04);
  EXPECT_EQ(bench.data.Image[168] & 0xFB, bench.before.Image[168] & 0xFB);
  const auto now = bench.radio->radio.Memory();
  for (const int own : {0, 1, 65, 74, 92, 169, 172, 174, 255, 512, 767}) {
    EXPECT_EQ(now[static_cast<std::size_t>(own)], old[static_cast<std::size_t>(own)]) << own;
  }
  for (const int written : {66, 90, 95, 96, 168, 173, 504, 1250, 8190}) {
    EXPECT_EQ(now[static_cast<std::size_t>(written)], bench.data.Image[written]) << written;
  }
}

TEST(ProgramSession, TheRadiosOwnBytesCannotSpoilTheImageWhenTheyAreNotRead) {
  Bench bench;
  bench.Fault("missing-reply@read:5");
  bench.Fault("wrong-checksum@read:6");
  bench.data.Image[90] = 0x42;
  EXPECT_EQ(bench.Run(SessionKind::kProgram).ending, Ending::kDone);
  EXPECT_EQ(bench.data.Image[168], bench.before.Image[168]);
  EXPECT_EQ(bench.radio->radio.Memory()[90], bench.data.Image[90]);
  EXPECT_NE(bench.Asked(ExchangeKind::kWrite), "");
}

TEST(ProgramSession, AByteThatWasNotWrittenNeverEndsInSuccess) {
  struct Case {
    const char* fault;
    const char* written;
    int block;
  };
  for (const Case& c : {Case{"missing-reply@write:3", "66-73/1 75-79/1", 64},
                        {"missing-reply@write:13", "66-73/1 75-79/1", 64},
                        {"garbled-reply@write:14", "66-73/1 75-91/1 93-95/1", 80},
                        {"missing-reply@write:30", "66-73/1 75-91/1 93-95/1 96-127/16", 112}}) {
    SCOPED_TRACE(c.fault);
    Bench bench;
    bench.Fault(c.fault);
    EXPECT_EQ(bench.Run(SessionKind::kProgram),
              (TransferOutcome{Ending::kFailed, true, true, c.block}));
    EXPECT_EQ(bench.Asked(ExchangeKind::kWrite), c.written);
    EXPECT_EQ(bench.Told(), Texts{"Program to Radio: Communication Error!!"});
    EXPECT_NE(bench.prompts.messages[0].details.find(core::kPartlyWrittenText), std::string::npos);
  }
}

// Cancel pressed when the radio has been asked that; what the run then comes to.
TEST(TransferSession, ACancelledRunTellsHowFarItCame) {
  struct Case {
    SessionKind kind;
    ExchangeKind asked;
    int address;
    TransferOutcome outcome;
  };
  for (const Case& c :
       {Case{SessionKind::kRead, ExchangeKind::kSync, 0, {Ending::kCancelled}},
        {SessionKind::kRead, ExchangeKind::kRead, 168, {Ending::kCancelled}},
        {SessionKind::kRead, ExchangeKind::kRead, 992, {Ending::kCancelled, false, false, 992}},
        {SessionKind::kProgram, ExchangeKind::kRead, 90, {Ending::kCancelled}},
        {SessionKind::kProgram,
         ExchangeKind::kWrite,
         256,
         {Ending::kCancelled, true, false, 256}}}) {
    SCOPED_TRACE(c.address);
    Bench bench(5, 9600);
    bench.radio->radio.SetObserver([&](const Exchange& exchange) {
      bench.radio->asked.push_back(exchange);
      if (exchange.kind == c.asked && exchange.address == c.address) bench.state.Cancel = true;
    });
    EXPECT_EQ(bench.session->Run(c.kind), c.outcome);
    EXPECT_EQ(bench.Told(), Texts{});
    EXPECT_EQ(bench.Asked(ExchangeKind::kWrite).empty(), !c.outcome.partly_written);
  }
}

TEST(ModelCheck, RefusesAnyOtherRadioBeforeAnythingTravels) {
  struct Case {
    const char* name;
    std::vector<std::pair<std::size_t, int>> bytes;
    Texts texts;
    const char* says;  ///< below the first of them
  };
  const std::vector<Case> cases = {
      {"other code", {{65, 8}, {16383, 8}}, {"ModelType Error !!"}, "model is KT520 (code 520); "},
      {"codes differ", {{16383, 0}}, {"ModelType Error !!"}, "codes 740 and 512; "},
      {"product", {{16370, 3}}, {"Product Error !!"}, "is 2, the radio's is 3: "},
      {"code and product",
       {{64, 0}, {16370, 3}},
       {"ModelType Error !!", "Product Error !!"},
       "codes 228 and 740; "},
      {"SEL1", {{168, 0x20}}, {"Destination Error !!"}, "is KT520-usa (SEL1 0, SEL2 1), the "},
      {"SEL2", {{168, 0x10}}, {"Destination Error !!"}, "is KT740-usa (SEL1 1, SEL2 0), the "},
      {"code and destination", {{64, 0}, {168, 0x20}}, {"ModelType Error !!"}, "codes 228 and"},
  };
  for (const SessionKind kind : {SessionKind::kRead, SessionKind::kProgram, SessionKind::kClear}) {
    for (const Case& c : cases) {
      SCOPED_TRACE(c.name);
      Bench bench;
      for (const auto& [at, value] : c.bytes) {
        std::uint8_t& byte = bench.radio->radio.Memory()[at];
        byte = static_cast<std::uint8_t>(at == 168 ? byte ^ value : value);
      }
      EXPECT_EQ(bench.Run(kind), (TransferOutcome{Ending::kFailed, false, true}));
      ASSERT_EQ(bench.prompts.Texts(), c.texts);
      const std::string& details = bench.prompts.messages[0].details;
      EXPECT_NE(details.find(c.says), std::string::npos) << details;
      EXPECT_EQ(bench.prompts.messages[0].title,
                kind == SessionKind::kClear ? "Radio Clear" : ModeTitle(kind));
      EXPECT_EQ(bench.Asked(ExchangeKind::kWrite), "");
      EXPECT_FALSE(bench.Asked(ExchangeKind::kRead).ends_with("/16"));
    }
  }
}

TEST(TransferSession, AnUnpluggedCableIsLoggedWithTheRoutineThatMetIt) {
  struct Case {
    SessionKind kind;
    const char* fault;
    std::string routine;
    std::optional<int> block;
  };
  for (const Case& c : {Case{SessionKind::kRead, "unplug@read:2=5", "ReadDataChkModel", {}},
                        {SessionKind::kRead, "unplug@read:99=40", "ReadData", 1568},
                        {SessionKind::kProgram, "unplug@write:29=9", "WriteData", 96}}) {
    SCOPED_TRACE(c.fault);
    Bench bench;
    bench.state.Debug = true;
    bench.Fault(c.fault);
    EXPECT_EQ(bench.Run(c.kind), (TransferOutcome{Ending::kFailed, c.block == 96, true, c.block}));
    EXPECT_EQ(bench.Told(), Texts{"Orvane: 5\r\rInput/output error"});
    EXPECT_TRUE(bench.prompts.messages[0].details.starts_with("COM3 Cable failed"));
    EXPECT_EQ(bench.log.lines, Texts{"frmRadio102." + c.routine + " -> 5Input/output error"});
    EXPECT_TRUE(bench.state.Cancel);
  }
}

// What a program that was killed had asked for still arrives while the next one connects.
TEST(TransferSession, TheRestOfAKilledSessionDoesNotDisturbTheNext) {
  const std::string_view longest_read = "P0#CMDSY\r\n#WJDRD\t0040\tFF\t63\r\n";
  for (const std::string_view asked : {std::string_view("P"), longest_read}) {
    for (int step = 0; step < 35; ++step) {
      const double passed = 0.02 * step;
      Bench bench(5, 9600);
      ASSERT_FALSE(bench.radio->port.Open());
      ASSERT_FALSE(bench.radio->port.Write(
          {reinterpret_cast<const std::uint8_t*>(asked.data()), asked.size()}));
      bench.radio->port.Close();
      bench.radio->clock.now += passed;
      EXPECT_EQ(bench.Run(SessionKind::kRead).ending, Ending::kDone)
          << asked << " before " << passed;
      EXPECT_EQ(bench.Told(), Texts{"Read from Radio: Complete!!"});
    }
  }
}

TEST(TransferSession, AnAnswerToTheModeRequestThatComesLateIsNoEcho) {
  for (const char* fault : {"late-reply@mode=0.9", "late-reply@mode=1.5", "late-reply@mode=1.9"}) {
    Bench bench(5, 9600);
    bench.Fault(fault);
    EXPECT_EQ(bench.Run(SessionKind::kRead).ending, Ending::kDone) << fault;
  }
}

// An LMR channel that has to be narrow and is not.
void AddWideChannel(core::RadioData& data) {
  core::ChannelRecord& channel = data.EXP[1];
  channel.Enable = true;
  channel.LMR_EXP = -1;
  channel.Txfreq = 155;
  channel.Rxfreq = 156;
  data.LmrPresent() = true;
}

TEST(TransferSession, NoToTheNarrowbandQuestionSendsNothingAndLeavesTheImage) {
  Bench bench;
  AddWideChannel(bench.data);
  bench.prompts.answers = {core::Answer::kNo};
  EXPECT_EQ(bench.Run(SessionKind::kProgram), (TransferOutcome{Ending::kDeclined}));
  EXPECT_EQ(bench.radio->asked.back().kind, ExchangeKind::kSync);
  EXPECT_TRUE(bench.data.EXP[1].Narrow);
  EXPECT_TRUE(std::ranges::equal(bench.data.Image.All(), bench.before.Image.All()));
}

TEST(ReadSession, WhatWasReadGoesThroughTheNarrowbandRule) {
  core::RadioData wide = testing::NewData(5);
  wide.Image[16370] = *core::ProfileOf(wide).product_byte;
  AddWideChannel(wide);
  image::EncodeAll(wide, testing::kBeforeCutOver);
  Bench bench;
  std::ranges::copy(RadioMemory(core::ProfileOf(wide), wide.Image.Used()),
                    bench.radio->radio.Memory().begin());
  EXPECT_EQ(bench.Run(SessionKind::kRead).ending, Ending::kDone);
  EXPECT_TRUE(bench.data.EXP[1].Narrow);
  ASSERT_EQ(bench.Told().size(), 2U);
  EXPECT_TRUE(bench.Told()[1].starts_with("Upload: FCC Rule Caution!"));
}

TEST(ProgramSession, StoredChannelsThatNobodyEnabledDoNotReachTheRadio) {
  Bench bench;
  bench.data.Image[96] = 0x0D;  // channel 269 of all: LMR 30, the low byte first
  bench.data.Image[97] = 0x01;
  EXPECT_EQ(bench.Run(SessionKind::kProgram).ending, Ending::kDone);
  EXPECT_EQ(bench.radio->radio.Memory()[96], 0xFF);
  EXPECT_EQ(bench.radio->radio.Memory()[97], 0xFF);
}

// Between two bytes that leave the PC passes what the radio needs to turn round.
TEST(TransferSession, PausesBeforeWritingAndAtTheEnd) {
  constexpr double kPauseBeforeEachSending = 0.010;
  for (const auto& [kind, first, pause] :
       {std::tuple(SessionKind::kRead, ExchangeKind::kMode, 0.0),
        std::tuple(SessionKind::kProgram, ExchangeKind::kWrite, 0.010)}) {
    SCOPED_TRACE(ModeTitle(kind));
    Bench bench;
    double last = 0;
    double before_first = 0;
    bench.radio->radio.SetObserver([&, first = first](const Exchange& exchange) {
      if (exchange.kind == first && before_first == 0) before_first = bench.radio->clock.now - last;
      last = bench.radio->clock.now;
    });
    EXPECT_EQ(bench.Run(kind).ending, Ending::kDone);
    EXPECT_NEAR(bench.radio->clock.now - last, 0.500, 1e-6);
    EXPECT_NEAR(before_first, pause + kPauseBeforeEachSending, 1e-6);
  }
}

// From the first figure on, within a fifth of what really is left.
TEST(TransferSession, TheTimeLeftIsRightFromTheStart) {
  class TimedView : public testing::RecordingView {
   public:
    explicit TimedView(const core::Clock& clock) : clock_(clock) {}
    void BlockDone(int /*address*/, std::size_t so_far, std::size_t total) override {
      const double now = clock_.Now();
      if (const auto figures = pace_.BlockDone(so_far, total, now)) {
        ends.push_back(now + figures->seconds_left);
        last = now;
      }
    }
    std::vector<double> ends;
    double last = 0;

   private:
    const core::Clock& clock_;
    TransferPace pace_;
  };
  for (const SessionKind kind : {SessionKind::kRead, SessionKind::kProgram}) {
    SCOPED_TRACE(ModeTitle(kind));
    Bench bench(5, 9600);
    const double start = bench.radio->clock.now;
    TimedView view(bench.radio->clock);
    TransferSession session(
        bench.data, bench.state,
        {bench.radio->port, bench.radio->clock, bench.radio->pump, bench.log, view}, bench.prompts);
    EXPECT_EQ(session.Run(kind).ending, Ending::kDone);
    for (const double end : view.ends) {
      ASSERT_NEAR(end, view.last, (view.last - start) / 5);
    }
    EXPECT_NEAR(view.ends.back(), view.last, 1e-6);
  }
}

TEST(TransferSession, MonitorsItsStepsInDebugModeOnlyAndAClearSessionEndsAfterItsCheck) {
  Bench bench;
  bench.Run(SessionKind::kRead);
  EXPECT_TRUE(bench.view.monitor.empty());
  bench.state.Debug = true;
  EXPECT_EQ(bench.Run(SessionKind::kClear).ending, Ending::kDeclined);
  EXPECT_EQ(bench.Asked(ExchangeKind::kWrite), "");
  EXPECT_EQ(bench.view.monitor,
            (Texts{"startsync...", "9600,N,8,1", "sending 'ACMD:002'...", "9600,N,8,1",
                   "sending '#CMDSY'...(1)", "sending '#CMDSY'...(2)", "sync ok", "status check..",
                   "status check.. OK", "model check..."}));
}

}  // namespace
}  // namespace orvane::link
