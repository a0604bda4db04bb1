#include "link/clone_protocol.h"

#include <gtest/gtest.h>

#include "link/clone_frame.h"
#include "support/scripted_port.h"

namespace orvane::link {
namespace {

using core::Answer;
using testing::ScriptedPort;
using Replies = std::deque<ScriptedPort::Reply>;
using Texts = std::vector<std::string>;

constexpr const char* kTitle = "Read from Radio";
const std::string kOk = "#CMDOK\r\n";
const std::string kErr = "ERROR\r\n";

std::string Spoilt(std::string frame) {
  frame[frame.size() - 3] ^= 1;
  return frame;
}

struct Bench : testing::ScriptedBench {
  CloneProtocol protocol{link, prompts, kTitle};
  /// Commands sent: the words before the first TAB or line end.
  Texts Words() const {
    Texts words;
    for (const std::string& write : port.writes) {
      words.push_back(write.substr(0, write.find_first_of("\t\r")));
    }
    return words;
  }
};

TEST(ReadBlock, StoresAWholeRightReplyAndNothingElse) {
  const std::string data = BuildFrame("#WJDDT", "0040", "02", "1aF0");
  struct Case {
    const char* name;
    Replies replies;
    Texts sent;  ///< behind "#WJDRD"
    Texts messages;
    bool good = false;
  };
  const std::vector<Case> cases = {
      {"good", {{kOk + data}}, {"#CMDOK"}, {}, true},
      {"good, slow", {{kOk + data, 9.9}}, {"#CMDOK"}, {}, true},
      {"numbers compare by value",
       {{kOk + BuildFrame("#WJDDT", "40", "2", "1AF0")}},
       {"#CMDOK"},
       {},
       true},
      {"no answer", {}, {}, {}},
      {"too late", {{kOk + data, 10.1}}, {}, {}},
      {"other answer", {{"#CMDUN\r\n"}}, {}, {}},
      {"lower case is no OK", {{"#cmdok\r\n" + data}}, {}, {}},
      {"OK without line end", {{"#CMDOK" + data}}, {}, {"time out!!"}},
      {"no data", {{kOk}}, {}, {"time out!!"}},
      {"refused data", {{kOk + "error\r\n"}}, {}, {}},
      {"other frame", {{kOk + BuildFrame("#WJDSD", "00")}}, {"#CMDER"}, {}},
      {"unfinished line", {{kOk + "#WJDDT\t0040\t02"}}, {}, {"time out!!"}},
      {"wrong checksum", {{kOk + Spoilt(data)}}, {"#CMDSM"}, {}},
      {"other address",
       {{kOk + BuildFrame("#WJDDT", "0041", "02", "1AF0")}},
       {},
       {"address error!!"}},
      {"no address", {{kOk + BuildFrame("#WJDDT", "zz")}}, {}, {"address error!!"}},
      {"other length", {{kOk + BuildFrame("#WJDDT", "0040", "01", "1AF0")}}, {}, {"data error!!"}},
      {"short data", {{kOk + BuildFrame("#WJDDT", "0040", "02", "1A")}}, {}, {"data error!!"}},
      {"long data", {{kOk + BuildFrame("#WJDDT", "0040", "02", "1AF0FF")}}, {}, {"data error!!"}},
      {"no digits", {{kOk + BuildFrame("#WJDDT", "0040", "02", "1AxF")}}, {}, {"data error!!"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.Deliver("stale", 0);
    bench.port.replies = c.replies;
    std::vector<std::uint8_t> target(0x50, 7);
    std::vector<std::uint8_t> expected = target;
    if (c.good) expected[0x40] = 0x1A, expected[0x41] = 0xF0;
    EXPECT_EQ(bench.protocol.ReadBlock(target, 0x40, 2), c.good);
    EXPECT_EQ(bench.data.Flags.Error, !c.good);
    EXPECT_EQ(target, expected);
    Texts sent = {"#WJDRD"};
    sent.insert(sent.end(), c.sent.begin(), c.sent.end());
    EXPECT_EQ(bench.Words(), sent);
    EXPECT_EQ(bench.prompts.Texts(), c.messages);
  }
}

TEST(ReadBlock, AWrongEchoOfTheClosingLineIsAFailure) {
  Bench bench;
  bench.port.replies = {{kOk + BuildFrame("#WJDDT", "0000", "01", "AA")}};
  bench.port.spoil_echo = [](const std::string& s) { return s == kOk ? "#CMDxx\r\n" : s; };
  std::vector<std::uint8_t> target(1);
  EXPECT_FALSE(bench.protocol.ReadBlock(target, 0, 1));
  EXPECT_TRUE(bench.data.Flags.Error);
}

TEST(WriteBlock, SendsTheImageAndCountsOnlyAcknowledgedAndEchoed) {
  Bench bench;
  bench.data.Image[0x42] = 0x0F;
  bench.port.replies = {{kOk}};
  EXPECT_TRUE(bench.protocol.WriteBlock(0x42, 1));
  EXPECT_EQ(bench.port.writes.back(), BuildFrame("#WJDWR", "0042", "01", "0F"));
  EXPECT_FALSE(bench.data.Flags.Error);

  bench.port.replies = {{kOk}};
  bench.port.spoil_echo = [](std::string s) { return s.back() = '?', s; };
  EXPECT_FALSE(bench.protocol.WriteBlock(0x42, 1)) << "acknowledged, but its echo was wrong";
  EXPECT_TRUE(bench.data.Flags.Error);
}

TEST(WriteBlock, ARefusalAsksTheUserAndATimeOutDoesNot) {
  struct Case {
    const char* name;
    Replies replies;
    Answer answer;
    std::int16_t retry_count;
    Texts sent;
    bool good;
    bool asked;
  };
  const Replies refused_then_fine = {{kErr}, {kOk}, {kOk}, {kOk}};
  const std::vector<Case> cases = {
      {"OK",
       refused_then_fine,
       Answer::kOk,
       1,
       {"#WJDWR", "#CMDSY", "#CMDSY", "#WJDWR"},
       true,
       true},
      {"Cancel", refused_then_fine, Answer::kCancel, 1, {"#WJDWR"}, false, true},
      {"no sync",
       {{kErr}, {""}, {kOk}},
       Answer::kOk,
       1,
       {"#WJDWR", "#CMDSY", "#CMDSY"},
       false,
       true},
      {"time-out", {}, Answer::kOk, 1, {"#WJDWR"}, false, false},
      {"time-out, then fine", {{""}, {kOk}}, Answer::kOk, 2, {"#WJDWR", "#WJDWR"}, true, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.replies = c.replies;
    bench.prompts.fallback = c.answer;
    CloneProtocol protocol(bench.link, bench.prompts, kTitle, c.retry_count);
    EXPECT_EQ(protocol.WriteBlock(64, 16), c.good);
    EXPECT_EQ(bench.data.Flags.Error, !c.good);
    EXPECT_EQ(bench.Words(), c.sent);
    ASSERT_EQ(bench.prompts.messages.size(), c.asked ? 1U : 0U);
    if (!c.asked) continue;
    EXPECT_EQ(bench.prompts.messages[0].text, "confirm the synchronization of the communication");
    EXPECT_EQ(bench.prompts.messages[0].buttons, core::Buttons::kOkCancel);
    EXPECT_EQ(bench.prompts.messages[0].title, kTitle);
  }
}

TEST(CloneProtocol, CancelPressedBetweenExchangesStopsTheNextOne) {
  Bench bench;
  bench.data.Flags.Cancel = true;
  bench.link.SendLine("clears the flag");
  bench.port.writes.clear();
  EXPECT_FALSE(bench.protocol.WriteBlock(64, 16));
  EXPECT_TRUE(bench.data.Flags.Cancel);
  EXPECT_TRUE(bench.data.Flags.Error);
  EXPECT_TRUE(bench.port.writes.empty());
}

TEST(Sync, NeedsBothPasses) {
  struct Case {
    const char* name;
    Replies replies;
    bool good;
    std::size_t passes;
  };
  for (const Case& c : {Case{"both", {{kOk}, {kOk}}, true, 2},
                        {"first silent", {{""}, {kOk}}, false, 2},
                        {"first late", {{kOk, 10.5}, {kOk}}, false, 2},
                        {"first refused", {{"ERROR"}, {kOk}}, false, 2},
                        {"second silent", {{kOk}}, false, 2},
                        {"first nonsense", {{"#CMDUN\r\n"}, {kOk}}, false, 1}}) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.replies = c.replies;
    EXPECT_EQ(bench.protocol.Sync(), c.good);
    EXPECT_EQ(bench.port.writes, Texts(c.passes, "#CMDSY\r\n"));
  }
}

TEST(StatusCheck, OnlyReadyIsReady) {
  const auto status = [](const char* code) { return kOk + BuildFrame("#WJDSD", code); };
  struct Case {
    const char* name;
    Replies replies;
    std::deque<Answer> answers;
    Texts sent;
    Texts messages;
    bool good = false;
  };
  const std::vector<Case> cases = {
      {"ready", {{status("00")}}, {}, {"#WJDSR", "#CMDOK"}, {}, true},
      {"busy, given up",
       {{status("01")}},
       {Answer::kCancel},
       {"#WJDSR", "#CMDOK"},
       {"Radio is busy!!"}},
      {"busy, then ready",
       {{status("01")}, {""}, {status("00")}},
       {Answer::kRetry},
       {"#WJDSR", "#CMDOK", "#WJDSR", "#CMDOK"},
       {"Radio is busy!!"},
       true},
      {"other status", {{status("02")}}, {}, {"#WJDSR", "#CMDOK"}, {}},
      {"silent", {}, {}, {"#WJDSR"}, {}},
      {"no frame", {{kOk}}, {}, {"#WJDSR"}, {"time out!!"}},
      {"unfinished frame", {{kOk + "#WJDSD\t00"}}, {}, {"#WJDSR"}, {"time out!!"}},
      {"other frame", {{kOk + BuildFrame("#WJDDT", "00")}}, {}, {"#WJDSR", "#CMDUN"}, {}},
      {"wrong checksum", {{Spoilt(status("00"))}}, {}, {"#WJDSR", "#CMDSM"}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.replies = c.replies;
    bench.prompts.answers = c.answers;
    EXPECT_EQ(bench.protocol.StatusCheck(), c.good);
    EXPECT_EQ(bench.data.Flags.Error, !c.good);
    EXPECT_EQ(bench.Words(), c.sent);
    EXPECT_EQ(bench.prompts.Texts(), c.messages);
  }
}

TEST(Connect, GoesOnOrGivesUpAsTheRadioAnswers) {
  const Texts whole = {"P", "0", "ACMD:002", "#CMDSY", "#CMDSY"};
  const Texts stopped = {"P", "0", "ACMD:002"};
  struct Case {
    const char* name;
    Replies replies;
    Texts sent;
    Texts messages;
    bool good = false;
  };
  const std::vector<Case> cases = {
      {"OK", {{"P"}, {""}, {"OK\r\n"}, {kOk}, {kOk}}, whole, {}, true},
      {"unknown command", {{"P"}, {""}, {"#CMDUN\r\n"}, {kOk}, {kOk}}, whole, {}, true},
      {"silent on the mode", {{"P"}, {""}, {""}, {kOk}, {kOk}}, whole, {}, true},
      {"CR without LF", {{"P"}, {""}, {"OK\rx"}, {kOk}, {kOk}}, whole, {"error!!"}, true},
      {"refused", {{"P"}, {""}, {kErr}}, stopped, {"ACMD Command error!!"}},
      {"nonsense", {{"P"}, {""}, {"what\r\n"}}, stopped, {"error!!"}},
      {"third try",
       {{""}, {"x"}, {"P"}, {""}, {"OK\r\n"}, {kOk}, {kOk}},
       {"P", "P", "P", "0", "ACMD:002", "#CMDSY", "#CMDSY"},
       {},
       true},
      {"silent", {{""}, {""}, {""}, {"P"}}, {"P", "P", "P"}, {"Communication Error!!"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.replies = c.replies;
    EXPECT_EQ(bench.protocol.Connect(), c.good);
    EXPECT_EQ(bench.Words(), c.sent);
    EXPECT_EQ(bench.prompts.Texts(), c.messages);
    EXPECT_EQ(bench.port.IsOpen(), c.sent.size() > 3 || !c.messages.empty() == (c.sent == stopped));
  }
}

TEST(Connect, SaysWhyThePortCannotBeOpened) {
  const core::SystemError refusal{13, "Permission denied"};
  for (const std::size_t opening : {0U, 1U}) {
    Bench bench;
    bench.port.open_failures.assign(opening, std::nullopt);
    bench.port.open_failures.push_back(refusal);
    bench.port.replies = {{"P"}, {""}, {"OK\r\n"}};
    EXPECT_FALSE(bench.protocol.Connect());
    ASSERT_EQ(bench.prompts.Texts(), Texts{"port inicialize error!!"});
    EXPECT_EQ(bench.prompts.messages[0].details, "Permission denied");
    EXPECT_EQ(bench.prompts.messages[0].icon, core::Icon::kCritical);
  }
}

TEST(Connect, ACancelAtAnyTimeEndsItWithoutAMessage) {
  for (const double after : {0.005, 0.5, 1.5, 2.5, 3.5, 4.5}) {
    Bench bench;
    bench.port.replies = {{""}, {"P"}, {""}};  // then silence: mode, synchronising
    bench.cancel_at = bench.clock.now + after;
    const double start = bench.clock.now;
    EXPECT_FALSE(bench.protocol.Connect());
    EXPECT_TRUE(bench.prompts.messages.empty()) << after;
    EXPECT_LT(bench.clock.now - start, after + 1.2);
  }
}

TEST(AbortTransfer, SendsCanAndWaitsTenSecondsForTheAnswer) {
  for (const bool answered : {true, false}) {
    Bench bench;
    bench.port.Deliver("rest of a reply", 0);
    if (answered) bench.port.replies = {{"\x06"}};
    const double start = bench.clock.now;
    bench.protocol.AbortTransfer();
    EXPECT_EQ(bench.port.writes, Texts{"\x18"});
    EXPECT_TRUE(bench.data.Flags.Cancel);
    EXPECT_NEAR(bench.clock.now - start, answered ? 0.01 : 10.01, 0.01);
  }
}

}  // namespace
}  // namespace orvane::link
