#include <csignal>

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
  // A raw image is the radio's memory byte for byte where it travels.
  const std::string raw = Contents("after.hex");
  const std::string kept = Contents("kept");
  ASSERT_EQ(raw.size(), 16384U);
  ASSERT_EQ(kept.size(), 16384U);
  EXPECT_TRUE(raw.substr(64, 13504) == kept.substr(64, 13504));
  EXPECT_TRUE(raw.substr(16304) == kept.substr(16304));
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
  const std::string note = "Program to Radio: The radio on COM16 was left partly written on ";
  for (const int signal : {SIGINT, SIGKILL}) {
    StartRadio({"--model", "1"}, "9600");
    const auto stopped = StartCli(program);
    ASSERT_TRUE(AwaitAsked("write", 3));
    stopped->Signal(signal);
    EXPECT_EQ(stopped->Wait(), signal == SIGINT ? 1 : 128 + SIGKILL);
    // The block is that of the single bytes, or on a slow machine the next.
    const auto told = [](const char* block) {
      return std::string("Program to Radio: Cancelled at block ") + block +
             "\nThe radio now holds a partly written image. Do not use it until it has been "
             "programmed again.\n";
    };
    const std::string said = stopped->Err();
    EXPECT_TRUE(signal == SIGINT ? said == told("0040") || said == told("0050")
                                 : said.starts_with(note))
        << said;
    StopRadio(SIGTERM);
  }
  StartRadio({"--model", "1"});
  EXPECT_EQ(Cli(program), 0) << said_;
  EXPECT_TRUE(said_.starts_with(note)) << said_;
  EXPECT_EQ(Cli(program), 0);
  EXPECT_TRUE(said_.starts_with("Program to Radio: Complete!!")) << said_;
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
  const char* radio;  ///< its options
  const char* words;
  int status;
  const char* said;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << refusal.name;
}

class Refusals : public Transfers, public ::testing::WithParamInterface<Refusal> {
 protected:
  /// The words of a line; OUT stands for a file that must not come to be.
  [[nodiscard]] Words WordsOf(const char* line) const {
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;) words.push_back(word == "OUT" ? Path("out.hex") : word);
    return words;
  }
};

TEST_P(Refusals, EndWithTheirMessageStatusAndNoFile) {
  StartRadio(WordsOf(GetParam().radio));
  EXPECT_EQ(Cli(WordsOf(GetParam().words)), GetParam().status);
  EXPECT_NE(said_.find(GetParam().said), std::string::npos) << said_;
  EXPECT_FALSE(Exists("out.hex"));
}

constexpr const char* kRead = "read --model 5 --port 16 -o OUT";
constexpr const char* kNoAnswer = "Read from Radio: Communication Error!!\n";
constexpr const char* kNoPort = " cannot be opened: No such file or directory\n";

constexpr const char* kUnplugged =
    "Orvane: 5\n\nInput/output error\n"
    "The port no longer answers. Check that the cable is plugged in.\n"
    "COM16 Simulated radio failed in the middle of the transfer";

const Refusal kRefusals[] = {
    {"model", "", "read --model 4 --port 16 -o OUT", 1, "Read from Radio: ModelType Error !!\n"},
    {"busy", "--fault busy@status", kRead, 1, "Radio is busy!!"},
    {"silent", "--fault missing-reply@handshake", kRead, 1, kNoAnswer},
    {"checksum", "--fault wrong-checksum@read:100", kRead, 1, kNoAnswer},
    {"unplugged", "--fault unplug@read:50 --replug 3600", kRead, 1, kUnplugged},
    {"no_port", "", "read --model 5 --port COM9 -o OUT", 1, kNoPort},
    {"no_device", "", "read --model 5 --port /dev/none -o OUT", 1, kNoPort},
    {"no_folder", "", "read --model 5 --port 16 -o /nowhere/boat.hex", 1, "FileSave Error!!"},
    {"no_file", "", "program --port 16 /nowhere/boat.hex", 1, "No such file or directory"},
    {"usage", "", "read --port 16 -o OUT", 2, "--model"},
};

INSTANTIATE_TEST_SUITE_P(Cases, Refusals, ::testing::ValuesIn(kRefusals),
                         [](const auto& refusal) { return std::string(refusal.param.name); });

TEST_F(Transfers, APortInUseIsToldOfWithTheRemedy) {
  StartRadio({}, "9600");
  const auto first = StartCli({"read", "--model", "5", "--port", "16", "-o", Path("first.hex")});
  // Between the steps of connecting the port is closed for an instant.
  ASSERT_TRUE(AwaitAsked("read", 8));
  EXPECT_EQ(Read("second.hex"), 1);
  EXPECT_TRUE(said_.starts_with("Read from Radio: port inicialize error!!\n")) << said_;
  EXPECT_NE(said_.find("Close that program."), std::string::npos) << said_;
  EXPECT_FALSE(Exists("second.hex"));
}

}  // namespace
}  // namespace orvane
