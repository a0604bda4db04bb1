#include <algorithm>

#include "cli_bench.h"
#include "files/settings_file.h"

namespace orvane::cli {
namespace {

using link::ExchangeKind;
using Words = std::vector<std::string>;

class TransferCommands : public CliBench {
 protected:
  TransferCommands() {
    files.files["radio.hex"] = std::string(sample.Image.Used().begin(), sample.Image.Used().end());
  }
  [[nodiscard]] long Count(ExchangeKind kind) const {
    return std::count_if(bench.asked.begin(), bench.asked.end(),
                         [=](const link::Exchange& exchange) { return exchange.kind == kind; });
  }
  void Fault(const char* text) {
    bench.radio.SetFaults(link::FaultPlan({*link::ParseFault(text).fault}));
  }
  [[nodiscard]] std::string Memory() const {
    return {bench.radio.Memory().begin(), bench.radio.Memory().end()};
  }

  const Words read_ = {"read", "--model", "5", "--port", "COM16", "-o", "got.hex"};
};

TEST_F(TransferCommands, ReadSavesWhatTheRadioHolds) {
  ASSERT_EQ(Run(read_), kDone) << err_;
  EXPECT_EQ(opened, Words{"/dev/radio"});
  EXPECT_EQ(err_, "Read from Radio: Complete!!\n");
  ASSERT_EQ(Run({"convert", "radio.hex", "want.hex"}), kDone);
  // Bytes 0..63 do not travel.
  EXPECT_EQ(files.files["got.hex"].substr(64, 13504), files.files["want.hex"].substr(64, 13504));
}

TEST_F(TransferCommands, ReadRawWritesTheImageExactlyAsReceived) {
  bench.radio.Memory()[3000] = 0x5A;
  bench.radio.Memory()[95] = 0x77;
  Words words = read_;
  words.emplace_back("--raw");
  ASSERT_EQ(Run(words), kDone) << err_;
  EXPECT_EQ(files.files["got.hex"].substr(64, 13504), Memory().substr(64, 13504));
}

TEST_F(TransferCommands, ARadioOfAnotherDestinationIsReadFromABaseFile) {
  bench.radio.Memory()[168] ^= 0x20;
  EXPECT_EQ(Run(read_), kFailed);
  EXPECT_TRUE(
      err_.starts_with("Read from Radio: Destination Error !!\nThe radio's destination is "
                       "KT520-usa (SEL1 0, SEL2 1), "))
      << err_;
  EXPECT_FALSE(files.files.contains("got.hex"));
  files.files["other_02E4.ini"] = Memory();
  Words words = read_;
  words.insert(words.end(), {"--base", "other_02E4.ini"});
  EXPECT_EQ(Run(words), kDone) << err_;
  files.files["other_02E4.ini"].pop_back();
  EXPECT_EQ(Run(words), kFailed);
  EXPECT_TRUE(ErrHas("bad file!!"));
}

TEST_F(TransferCommands, EverythingIsCheckedBeforeThePortIsTouched) {
  files.failing["got.hex"] = {30, "Read-only file system"};
  EXPECT_EQ(Run(read_), kFailed);
  EXPECT_TRUE(ErrHas("FileSave Error!!\ngot.hex: Read-only file system\n")) << err_;
  EXPECT_EQ(Run({"program", "--port", "16", "missing.hex"}), kFailed);
  EXPECT_EQ(Run({"program", "--port", "16", "--model", "4", "radio.hex"}), kFailed);
  EXPECT_TRUE(ErrHas("ModelType Error !!"));
  EXPECT_TRUE(opened.empty());
}

TEST_F(TransferCommands, APortThatCannotBeOpenedIsToldWithTheReason) {
  Fault("unplug@1");
  static_cast<void>(bench.radio.Receive('P', 0));
  ASSERT_FALSE(bench.radio.Plugged());
  EXPECT_EQ(Run(read_), kFailed);
  EXPECT_TRUE(err_.starts_with("Read from Radio: port inicialize error!!\n")) << err_;
  EXPECT_GT(err_.size(), std::string("Read from Radio: port inicialize error!!\n").size());
}

TEST_F(TransferCommands, CtrlCDuringAReadSendsCancelAndWritesNothing) {
  bench.radio.SetObserver([this](const link::Exchange& exchange) {
    bench.asked.push_back(exchange);
    if (Count(ExchangeKind::kRead) == 20 && exchange.kind == ExchangeKind::kRead) {
      interrupts.press();
    }
  });
  EXPECT_EQ(Run(read_), kFailed);
  EXPECT_EQ(err_, "Read from Radio: Cancelled at block 0130\n");
  EXPECT_EQ(Count(ExchangeKind::kCancel), 1);
  EXPECT_FALSE(files.files.contains("got.hex"));
  EXPECT_FALSE(interrupts.press) << "afterwards Ctrl-C ends the program as usual";
}

TEST_F(TransferCommands, ProgramWritesTheFileIntoTheRadio) {
  sample.Table(core::MarineGroup::kUsa)[32].ChTag = "HARBOUR";
  files.files["boat.dat"] = files::SettingFileText(sample, bench.pump);
  ASSERT_EQ(Run({"--yes", "program", "--port", "16", "boat.dat"}), kDone) << err_;
  EXPECT_TRUE(ErrHas("Program to Radio: Complete!!\n"));
  ASSERT_EQ(Run(read_), kDone) << err_;
  ASSERT_EQ(Run({"show", "got.hex"}), kDone);
  EXPECT_NE(out_.find("    16: enable on name \"HARBOUR\""), std::string::npos);
}

TEST_F(TransferCommands, ARadioThatRefusesForEverEndsTheRunEvenWithYes) {
  Fault("refusal@read");
  Words words = read_;
  words.insert(words.begin(), "--yes");
  EXPECT_EQ(Run(words), kFailed);
  EXPECT_TRUE(ErrHas("once more; Cancel gives up.\nAnswered OK (--yes).\n")) << err_;
  EXPECT_TRUE(ErrHas("Communication Error!!"));
}

TEST_F(TransferCommands, ARadioThatCannotBeSynchronisedIsToldOf) {
  Fault("missing-reply@sync:2");
  EXPECT_EQ(Run(read_), kFailed);
  EXPECT_TRUE(
      err_.starts_with("Read from Radio: The radio does not answer on COM16 Simulated radio\n"))
      << err_;
}

TEST_F(TransferCommands, AFailureTellsThePortOrTheBlockItCameAt) {
  for (const auto& [fault, told] :
       {std::pair("missing-reply@handshake",
                  "The radio did not answer on COM16 Simulated radio in three tries"),
        {"garbled-reply@read:9", "\nRead from Radio: Failed at block 0080\n"}}) {
    Fault(fault);
    EXPECT_EQ(Run(read_), kFailed);
    EXPECT_TRUE(ErrHas(told)) << err_;
  }
}

TEST_F(TransferCommands, ASilentLineIsShownWithTheWayToAnotherPort) {
  services.terminals.err = true;
  bench.radio.SetFaults(link::FaultPlan({*link::ParseFault("missing-echo@handshake:1").fault,
                                         *link::ParseFault("missing-reply@handshake:1").fault}));
  EXPECT_EQ(Run(read_), kDone);
  EXPECT_TRUE(
      ErrHas("\nNothing comes back on COM16 Simulated radio. Check the cable, or press "
             "Ctrl-C and name another port with --port; \"orvane-cli ports\" lists them.\n"));
}

TEST_F(TransferCommands, ProgressShowsOnATerminalOnly) {
  services.terminals.err = true;
  ASSERT_EQ(Run(read_), kDone);
  EXPECT_TRUE(err_.starts_with("\rconnecting on COM16 Simulated radio...")) << err_;
  EXPECT_TRUE(ErrHas("\r 83 %  block 34F0  ")) << err_;
  EXPECT_TRUE(ErrHas(" bytes/s  0:0"));
  EXPECT_TRUE(ErrHas("\nRead from Radio: Complete!!\n")) << "messages start on a line of their own";
}

TEST_F(TransferCommands, DebugShowsTheStepsAndKeepsTheLog) {
  Words words = read_;
  words.emplace_back("--debug");
  Fault("unplug@read:1");
  EXPECT_EQ(Run(words), kFailed);
  EXPECT_TRUE(err_.starts_with("startsync...\n")) << err_;
  EXPECT_TRUE(ErrHas("\nmodel check...\n"));
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_TRUE(log.lines[0].starts_with("frmRadio102.ReadDataChkModel -> ")) << log.lines[0];
  log.lines.clear();
  EXPECT_EQ(Run({"convert", "missing.hex", "x.dat"}), kFailed);
  EXPECT_TRUE(log.lines.empty()) << "outside debug mode nothing is logged";
}

}  // namespace
}  // namespace orvane::cli
