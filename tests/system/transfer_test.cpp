#include <csignal>

#include "core/number_text.h"
#include "system_bench.h"

namespace orvane {
namespace {

class Transfers : public testing::SystemBench {
 protected:
  /// Replaces a line of one section of a settings file.
  void ChangeLine(const std::string& from, const std::string& to, const std::string& section,
                  const std::string& key, const std::string& value) const {
    std::string text = Contents(from);
    const std::size_t start = text.find("[" + section + "]");
    const std::size_t line = text.find("\n" + key + "=", start) + 1;
    ASSERT_NE(start, std::string::npos);
    text.replace(line, text.find('\r', line) - line, key + "=" + value);
    std::ofstream(Path(to), std::ios::binary) << text;
  }

  /// A raw image is the radio's memory byte for byte where it travels.
  void ExpectKeptBytes(const std::string& raw) const {
    const std::string kept = Contents("kept");
    ASSERT_EQ(raw.size(), 16384U);
    ASSERT_EQ(kept.size(), 16384U);
    EXPECT_TRUE(raw.substr(64, 13504) == kept.substr(64, 13504));
    EXPECT_TRUE(raw.substr(16304) == kept.substr(16304));
  }

  /// What a program run with all groups asks of the radio, and nothing else.
  void ExpectBytesOfTheRadio() const {
    Words expected = {"read 0x005A 1", "read 0x00A8 1"};
    const auto add = [&](int first, int last, int length) {
      for (int i = first; i <= last; i += length) {
        expected.push_back("write 0x" + core::HexText(static_cast<unsigned>(i), 4) + " " +
                           std::to_string(length));
      }
    };
    add(66, 73, 1), add(75, 79, 1);
    add(80, 91, 1), add(93, 95, 1);
    add(96, 144, 16);
    add(160, 168, 1), add(173, 173, 1);
    add(256, 496, 16);
    add(768, 12416, 16);
    Words asked = Asked();
    std::erase_if(asked, [](const std::string& line) {
      return !line.starts_with("write") && line != "read 0x005A 1";
    });
    asked.insert(asked.begin() + 1, "read 0x00A8 1");
    EXPECT_EQ(asked, expected);
  }
};

TEST_F(Transfers, WhatIsReadChangedAndProgrammedIsWhatIsReadAgain) {
  StartRadio();
  ASSERT_EQ(Read("boat.hex"), 0) << said_;
  EXPECT_EQ(said_, "Read from Radio: Complete!!\n");
  ASSERT_EQ(Cli({"convert", Path("boat.hex"), Path("boat.dat")}), 0) << said_;
  ChangeLine("boat.dat", "changed.dat", "CHUSA32", "ChTag", "#HAILING");
  ASSERT_EQ(Cli({"program", "--port", "16", Path("changed.dat")}), 0) << said_;
  ASSERT_EQ(Read("after.hex", {"--raw"}), 0) << said_;
  ASSERT_EQ(Cli({"convert", Path("after.hex"), Path("after.dat")}), 0) << said_;
  EXPECT_FALSE(Contents("after.dat") == Contents("boat.dat"));
  EXPECT_TRUE(Contents("after.dat") == Contents("changed.dat"));

  StopRadio(SIGTERM);
  ExpectKeptBytes(Contents("after.hex"));
  ExpectBytesOfTheRadio();
}

TEST_F(Transfers, CtrlCDuringAReadSendsCancelAndWritesNothing) {
  StartRadio({}, "9600");
  const auto program =
      StartCli({"read", "--model", "5", "--port", "COM16", "-o", Path("boat.hex")});
  ASSERT_TRUE(AwaitAsked("read", 8));
  program->Signal(SIGINT);
  EXPECT_EQ(program->Wait(), 1);
  EXPECT_EQ(program->Err(), "Read from Radio: cancelled\n");
  EXPECT_TRUE(AwaitAsked("cancel", 1));
  EXPECT_FALSE(Exists("boat.hex"));
}

TEST_F(Transfers, AnUnpluggedCableEndsAReadWithoutAFile) {
  StartRadio({"--fault", "unplug@read:50", "--replug", "3600"});
  EXPECT_EQ(Read("boat.hex"), 1);
  EXPECT_EQ(said_,
            "Orvane: 5\n\nInput/output error\n"
            "The port no longer answers. Check that the cable is plugged in.\n");
  EXPECT_FALSE(Exists("boat.hex"));
}

TEST_F(Transfers, AKilledProgramLeavesTheOldFileAndAPortThatTheNextOneCanUse) {
  StartRadio({}, "9600");
  const Words read = {"read", "--model", "5", "--port", "16", "-o", Path("boat.hex")};
  std::ofstream(Path("boat.hex")) << "old";
  const auto killed = StartCli(read);
  ASSERT_TRUE(AwaitAsked("read", 8));
  killed->Signal(SIGKILL);
  EXPECT_EQ(killed->Wait(), 128 + SIGKILL);
  EXPECT_EQ(Contents("boat.hex"), "old");
  const auto next = StartCli(read);
  EXPECT_TRUE(AwaitAsked("status", 2));  // the radio is at the killed program's last answer yet
}

TEST_F(Transfers, AProgramRunThatIsStoppedOrKilledCanBeRepeated) {
  // Of the model with the least memory, so that a whole run is short.
  ASSERT_EQ(Cli({"new", "--model", "1", "-o", Path("boat.hex")}), 0) << said_;
  const Words program = {"program", "--port", "COM16", Path("boat.hex")};
  for (const int signal : {SIGINT, SIGKILL}) {
    StartRadio({"--model", "1"}, "9600");
    const auto stopped = StartCli(program);
    ASSERT_TRUE(AwaitAsked("write", 3));
    stopped->Signal(signal);
    EXPECT_EQ(stopped->Wait(), signal == SIGINT ? 1 : 128 + SIGKILL);
    EXPECT_EQ(stopped->Err(), signal == SIGINT
                                  ? "Program to Radio: cancelled\nThe radio now holds a partly "
                                    "written image. Do not use it until it has been programmed "
                                    "again.\n"
                                  : "");
    StopRadio(SIGTERM);
  }
  StartRadio({"--model", "1"});
  EXPECT_EQ(Cli(program), 0) << said_;
  StopRadio(SIGTERM);
  const std::string wanted = Contents("boat.hex");
  const std::string kept = Contents("kept");
  ASSERT_EQ(kept.size(), wanted.size());
  // Between these lie the extra channels, which a new data set does not use.
  EXPECT_TRUE(kept.substr(768, 1536) == wanted.substr(768, 1536));
  EXPECT_TRUE(kept.substr(2944) == wanted.substr(2944));
}

struct Refusal {
  const char* name;
  std::vector<std::string> radio;  ///< its options
  std::vector<std::string> words;
  int status;
  const char* said;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << refusal.name;
}

class Refusals : public Transfers, public ::testing::WithParamInterface<Refusal> {};

TEST_P(Refusals, EndWithTheirMessageStatusAndNoFile) {
  StartRadio(GetParam().radio);
  Words words = GetParam().words;
  for (std::string& word : words) {
    if (word == "OUT") word = Path("out.hex");
  }
  EXPECT_EQ(Cli(words), GetParam().status);
  EXPECT_NE(said_.find(GetParam().said), std::string::npos) << said_;
  EXPECT_FALSE(Exists("out.hex"));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Refusals,
    ::testing::Values(
        Refusal{"model",
                {"--model", "5"},
                {"read", "--model", "4", "--port", "16", "-o", "OUT"},
                1,
                "Read from Radio: ModelType Error !!\n"},
        Refusal{"busy",
                {"--fault", "busy@status"},
                {"read", "--model", "5", "--port", "16", "-o", "OUT"},
                1,
                "Radio is busy!!"},
        Refusal{"silent",
                {"--fault", "missing-reply@handshake"},
                {"read", "--model", "5", "--port", "16", "-o", "OUT"},
                1,
                "Read from Radio: Communication Error!!\n"},
        Refusal{"checksum",
                {"--fault", "wrong-checksum@read:100"},
                {"read", "--model", "5", "--port", "16", "-o", "OUT"},
                1,
                "Read from Radio: Communication Error!!\n"},
        Refusal{"no_port",
                {},
                {"read", "--model", "5", "--port", "COM9", "-o", "OUT"},
                1,
                "Read from Radio: port inicialize error!!\nNo such file or directory\n"},
        Refusal{"no_device",
                {},
                {"read", "--model", "5", "--port", "/dev/none", "-o", "OUT"},
                1,
                "Read from Radio: port inicialize error!!\nNo such file or directory\n"},
        Refusal{"no_folder",
                {},
                {"read", "--model", "5", "--port", "16", "-o", "/nowhere/boat.hex"},
                1,
                "FileSave Error!!"},
        Refusal{"no_file",
                {},
                {"program", "--port", "16", "/nowhere/boat.hex"},
                1,
                "No such file or directory"},
        Refusal{"no_model", {}, {"read", "--port", "16", "-o", "OUT"}, 2, "--model"},
        Refusal{"port_number",
                {},
                {"read", "--model", "5", "--port", "COM17", "-o", "OUT"},
                2,
                "COM17"},
        Refusal{"command", {}, {"reed"}, 2, "one of the commands below"}),
    [](const auto& refusal) { return std::string(refusal.param.name); });

TEST_F(Transfers, APortInUseIsToldOfWithTheRemedy) {
  StartRadio({}, "9600");
  const auto first = StartCli({"read", "--model", "5", "--port", "16", "-o", Path("first.hex")});
  ASSERT_TRUE(AwaitAsked("handshake", 1));
  EXPECT_EQ(Read("second.hex"), 1);
  EXPECT_TRUE(said_.starts_with("Read from Radio: port inicialize error!!\n")) << said_;
  EXPECT_NE(said_.find("Close that program."), std::string::npos) << said_;
  EXPECT_FALSE(Exists("second.hex"));
}

TEST_F(Transfers, EveryModelIsMadeAndConverted) {
  for (int model = 0; model <= 6; ++model) {
    const std::string name = std::to_string(model);
    EXPECT_EQ(Cli({"new", "--model", name, "-o", Path(name + ".dat")}), 0) << said_;
    EXPECT_EQ(Cli({"convert", Path(name + ".dat"), Path(name + ".hex")}), 0) << said_;
    EXPECT_EQ(Cli({"convert", Path(name + ".dat"), Path(name + ".txt")}), 0) << said_;
    EXPECT_TRUE(Contents(name + ".txt").starts_with("\r\n\r\n#####"));
    EXPECT_EQ(Contents(name + ".hex").size(), model == 1 ? 8192U : 16384U);
    // A new image of this model has no product byte yet.
    const bool loads = model != 5;
    EXPECT_EQ(Cli({"convert", Path(name + ".hex"), Path(name + "b.dat")}), loads ? 0 : 1);
    EXPECT_EQ(said_.find("ProductType Error !!") == std::string::npos, loads) << said_;
    EXPECT_EQ(Exists(name + "b.dat"), loads) << name;
  }
}

}  // namespace
}  // namespace orvane
