#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli_bench.h"
#include "files/settings_file.h"
#include "image/codec.h"

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
  /// A radio of model 0; boat.dat holds what a settings file can of it.
  void PutRadioWithMmsi(const char* mmsi) {
    core::RadioData radio = image::MakeSampleRadio(0, testing::kAfterCutOver);
    files.files["boat.dat"] = files::SettingFileText(radio, bench.pump);
    radio.Dsc.UserMmsi = mmsi;
    image::EncodeAll(radio, testing::kAfterCutOver);
    std::ranges::copy(link::RadioMemory(core::ProfileOf(0), radio.Image.Used()),
                      bench.radio.Memory().begin());
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
  for (const char* const option : {"--keep", "--receipt"}) {
    EXPECT_EQ(Run({"program", "--port", "16", "radio.hex", option, "got.hex"}), kFailed);
    EXPECT_TRUE(ErrHas("FileSave Error!!\ngot.hex: Read-only file system\n")) << err_;
  }
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

TEST_F(TransferCommands, ARadioLeftPartlyWrittenIsTold) {
  const std::string note = "The radio on COM16 was left partly written on 24 November at 14:02.\n";
  const std::string mixed = "What comes in is mixed, partly of before and partly new.\n";
  files.files["boat.dat"] = files::SettingFileText(sample, bench.pump);
  bench.radio.SetObserver([this](const link::Exchange& exchange) {
    bench.asked.push_back(exchange);
    if (exchange.kind == ExchangeKind::kWrite && Count(exchange.kind) == 20) interrupts.press();
  });
  EXPECT_EQ(Run({"--yes", "program", "--port", "/dev/radio", "boat.dat"}), kFailed);
  EXPECT_FALSE(ErrHas(note));
  ASSERT_EQ(Run(read_), kDone) << err_;
  EXPECT_TRUE(err_.starts_with("Read from Radio: " + note + mixed)) << err_;
  files.files["before.hex"] = "the only copy";
  EXPECT_EQ(Run({"--yes", "program", "--port", "16", "boat.dat", "--keep", "before.hex"}), kFailed);
  EXPECT_TRUE(ErrHas("before.hex is there already")) << err_;
  EXPECT_EQ(files.files["before.hex"], "the only copy");
  ASSERT_EQ(Run({"--yes", "program", "--port", "16", "boat.dat", "--keep", "mixed.hex"}), kDone)
      << err_;
  EXPECT_TRUE(err_.starts_with("Program to Radio: " + note)) << err_;
  ASSERT_EQ(Run(read_), kDone);
  EXPECT_FALSE(ErrHas(note));
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

TEST_F(TransferCommands, ProgramKeepsWhatWasThereComparesAndGivesAReceipt) {
  const std::string before = Memory();
  sample.Table(core::MarineGroup::kUsa)[32].ChTag = "HARBOUR";
  files.files["boat.dat"] = files::SettingFileText(sample, bench.pump);
  const Words words = {"--yes", "program", "--port", "16", "boat.dat", "--verify", "--keep"};
  for (const char* const kept : {"old.hex", "old.dat", "old.orvsnap", "old"}) {
    std::copy(before.begin(), before.end(), bench.radio.Memory().begin());
    Words all = words;
    all.insert(all.end(), {kept, "--receipt", "run.txt"});
    ASSERT_EQ(Run(all), kDone) << err_;
  }
  EXPECT_EQ(files.files["old.hex"].substr(64, 13504), before.substr(64, 13504));
  EXPECT_EQ(files.files["old.dat"].substr(0, 7), "[MAIN]\r");
  EXPECT_EQ(files.files["old.orvsnap"], files.files["old"]);
  ASSERT_EQ(Run({"get", "old.orvsnap", "usa/16/name"}), kDone) << err_;
  EXPECT_NE(out_, "HARBOUR\n");
  const std::string& receipt = files.files["run.txt"];
  EXPECT_NE(receipt.find("\r\nPort            COM16 Simulated radio\r\nModel           KT740\r\n"
                         "Destination     KT740-usa\r\nFile            boat.dat\r\n"),
            std::string::npos)
      << receipt;
  EXPECT_NE(receipt.find("\r\nDifferences     none\r\n"), std::string::npos) << receipt;

  // As the radio is now, read whole, is what the receipt of the run before says.
  Words all = words;
  all.insert(all.end(), {"new.hex", "--receipt", "run.json"});
  ASSERT_EQ(Run(all), kDone) << err_;
  const auto json = nlohmann::json::parse(files.files["run.json"]);
  EXPECT_EQ(json["verified"], true);
  EXPECT_EQ(json["crc32_before"], json["crc32_after"]);
  EXPECT_NE(receipt.find("CRC-32 after    " + json["crc32_before"].get<std::string>()),
            std::string::npos)
      << receipt;
  EXPECT_EQ(json["bytes_written"].get<int>(), json["bytes_compared"].get<int>() + 1);
  EXPECT_TRUE(json["bytes"].empty());
}

TEST_F(TransferCommands, ARadioThatLiesIsToldOfByFieldAndByteAndEndsInFailure) {
  sample.Table(core::MarineGroup::kUsa)[32].ChTag = "HARBOUR";
  files.files["boat.dat"] = files::SettingFileText(sample, bench.pump);
  const Words words = {"--yes",    "program",  "--port",    "16",
                       "boat.dat", "--verify", "--receipt", "run.json"};
  Fault("other-stored@write");  // the first byte of each
  EXPECT_EQ(Run(words), kFailed);
  EXPECT_TRUE(ErrHas("Program to Radio: The radio does not hold what was sent.\n")) << err_;
  EXPECT_TRUE(ErrHas("\nUSA 16 CH Name: sent HARBOUR, the radio holds IARBOUR\n")) << err_;
  EXPECT_FALSE(ErrHas("Complete!!"));
  const auto json = nlohmann::json::parse(files.files["run.json"]);
  EXPECT_EQ(json["verified"], false);
  const nlohmann::json name = {{"address", 3456}, {"written", 'H'}, {"found", 'I'}};
  EXPECT_NE(std::find(json["bytes"].begin(), json["bytes"].end(), name), json["bytes"].end());

  Fault("missing-reply@read:900");  // counted since the first run
  EXPECT_EQ(Run(words), kFailed) << "who asks for proof gets it or a failure";
  EXPECT_TRUE(ErrHas("has acknowledged everything, but it could not be read back.\n")) << err_;
}

TEST_F(TransferCommands, WhatARadioStoredWronglyIsNotTakenForItsOwn) {
  PutRadioWithMmsi("211234560");
  const Words program = {"program", "--port", "16", "boat.dat", "--verify"};
  Fault("other-stored@write");
  EXPECT_EQ(Run(program), kFailed);
  EXPECT_TRUE(ErrHas("User MMSI: sent 211234560, the radio holds ")) << err_;
  const std::string wrong = Memory();
  EXPECT_EQ(Run(program), kFailed);
  EXPECT_TRUE(ErrHas("does not hold what an earlier run was writing")) << err_;
  EXPECT_FALSE(ErrHas("Failed at block")) << err_;
  EXPECT_EQ(Memory(), wrong);
}

TEST_F(TransferCommands, ASettingsFileLeavesARadiosOwnMmsiOrTakesItFromTheBase) {
  PutRadioWithMmsi("211234560");
  const Words program = {"program", "--port", "16", "boat.dat"};
  const Words mmsi = {"get", "now.orvsnap", "dsc/user_mmsi"};
  const Words read = {"read", "--model", "0", "--port", "16", "-o", "now.orvsnap"};
  ASSERT_EQ(Run(program), kDone) << err_;
  ASSERT_EQ(Run(read), kDone) << err_;
  ASSERT_EQ(Run(mmsi), kDone) << err_;
  EXPECT_EQ(out_, "211234560\n");

  ASSERT_EQ(Run({"set", "now.orvsnap", "dsc/user_mmsi=232009876", "-o", "base.orvsnap"}), kDone);
  bench.asked.clear();
  Words from_base = program;
  from_base.insert(from_base.end(), {"--base", "base.orvsnap"});
  ASSERT_EQ(Run(from_base), kDone) << err_;
  EXPECT_LT(Count(ExchangeKind::kRead), 10) << "nothing is read for it";
  ASSERT_EQ(Run(read), kDone) << err_;
  ASSERT_EQ(Run(mmsi), kDone) << err_;
  EXPECT_EQ(out_, "232009876\n");
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
  EXPECT_TRUE(ErrHas("\r 83 %  block 34F0  Reading  ")) << err_;
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
