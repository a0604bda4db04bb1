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
  /// Commands sent, without their fields: "#CMDSY #CMDSY".
  std::string Words() const {
    std::string words;
    for (const std::string& write : port.writes) {
      words += (words.empty() ? "" : " ") + write.substr(0, write.find_first_of("\t\r"));
    }
    return words;
  }
};

TEST(ReadBlock, StoresAWholeRightReplyAndNothingElse) {
  const auto reply = [](const char* address, const char* length, const char* bytes) {
    return kOk + BuildFrame("#WJDDT", address, length, bytes);
  };
  const std::string good = reply("0040", "02", "1aF0");
  struct Case {
    const char* name;
    Replies replies;
    std::string sent;
    Texts messages{};
  };
  const std::vector<Case> cases = {
      {"good", {{good}}, "#WJDRD #CMDOK"},
      {"good, slow", {{good, 9.9}}, "#WJDRD #CMDOK"},
      {"numbers compare by value", {{reply("40", "2", "1AF0")}}, "#WJDRD #CMDOK"},
      {"no answer", {}, "#WJDRD"},
      {"too late", {{good, 10.1}}, "#WJDRD"},
      {"other answer", {{"#CMDUN\r\n"}}, "#WJDRD"},
      {"lower case is no OK", {{"#cmdok" + good.substr(6)}}, "#WJDRD"},
      {"OK without line end", {{"#CMDOK" + good.substr(8)}}, "#WJDRD", {"time out!!"}},
      {"no data", {{kOk}}, "#WJDRD", {"time out!!"}},
      {"refused data", {{kOk + "error\r\n"}}, "#WJDRD"},
      {"other frame", {{kOk + BuildFrame("#WJDSD", "00")}}, "#WJDRD #CMDER"},
      {"unfinished line", {{good.substr(0, 30)}}, "#WJDRD", {"time out!!"}},
      {"wrong checksum", {{Spoilt(good)}}, "#WJDRD #CMDSM"},
      {"other address", {{reply("0041", "02", "1AF0")}}, "#WJDRD", {"address error!!"}},
      {"no address", {{reply("zz", "", "")}}, "#WJDRD", {"address error!!"}},
      {"other length", {{reply("0040", "01", "1AF0")}}, "#WJDRD", {"data error!!"}},
      {"short data", {{reply("0040", "02", "1A")}}, "#WJDRD", {"data error!!"}},
      {"long data", {{reply("0040", "02", "1AF0FF")}}, "#WJDRD", {"data error!!"}},
      {"no digits", {{reply("0040", "02", "1AxF")}}, "#WJDRD", {"data error!!"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.Deliver("stale", 0);
    bench.port.replies = c.replies;
    std::vector<std::uint8_t> target(0x50, 7);
    std::vector<std::uint8_t> expected = target;
    const bool succeeds = c.sent == "#WJDRD #CMDOK";
    if (succeeds) expected[0x40] = 0x1A, expected[0x41] = 0xF0;
    EXPECT_EQ(bench.protocol.ReadBlock(target, 0x40, 2), succeeds);
    EXPECT_EQ(bench.state.Error, !succeeds);
    EXPECT_EQ(target, expected);
    EXPECT_EQ(bench.Words(), c.sent);
    EXPECT_EQ(bench.prompts.Texts(), c.messages);
  }
}

TEST(WriteBlock, SendsTheImageAndCountsOnlyAcknowledgedAndEchoed) {
  Bench bench;
  bench.data.Image[0x42] = 0x0F;
  bench.port.replies = {{kOk}};
  EXPECT_TRUE(bench.protocol.WriteBlock(bench.data.Image.All(), 0x42, 1));
  EXPECT_EQ(bench.port.writes.back(), BuildFrame("#WJDWR", "0042", "01", "0F"));
  EXPECT_FALSE(bench.state.Error);

  bench.port.replies = {{kOk}};
  bench.port.spoil_echo = [](std::string s) { return s.back() = '?', s; };
  EXPECT_FALSE(bench.protocol.WriteBlock(bench.data.Image.All(), 0x42, 1))
      << "acknowledged, but its echo was wrong";
  EXPECT_TRUE(bench.state.Error);
}

TEST(WriteBlock, ARefusalAsksTheUserAndATimeOutDoesNot) {
  struct Case {
    Replies replies;
    Answer answer;
    std::int16_t retry_count;
    bool good;
    bool asked;
    std::string sent;
  };
  const std::string synchronised = "#WJDWR #CMDSY #CMDSY";
  const std::vector<Case> cases = {
      {{{kErr}, {kOk}, {kOk}, {kOk}}, Answer::kOk, 1, true, true, synchronised + " #WJDWR"},
      {{{kErr}, {kOk}, {kOk}, {kErr}}, Answer::kOk, 1, false, true, synchronised + " #WJDWR"},
      {{{kErr}, {kOk}, {""}, {kOk}}, Answer::kOk, 1, false, true, synchronised},
      {{{kErr}, {kOk}, {kOk}, {kOk}}, Answer::kCancel, 1, false, true, "#WJDWR"},
      {{}, Answer::kOk, 1, false, false, "#WJDWR"},
      {{{""}, {kOk}}, Answer::kOk, 2, true, false, "#WJDWR #WJDWR"},
  };
  for (const Case& c : cases) {
    Bench bench;
    bench.port.replies = c.replies;
    bench.prompts.answers = {c.answer};
    bench.prompts.fallback = Answer::kCancel;
    CloneProtocol protocol(bench.link, bench.prompts, kTitle, c.retry_count);
    EXPECT_EQ(protocol.WriteBlock(bench.data.Image.All(), 64, 16), c.good);
    EXPECT_EQ(bench.state.Error, !c.good);
    EXPECT_EQ(bench.Words(), c.sent);
    EXPECT_EQ(!bench.prompts.messages.empty(), c.asked);
    for (const core::Message& message : bench.prompts.messages) {
      EXPECT_EQ(message.text, "confirm the synchronization of the communication");
      EXPECT_EQ(message.buttons, core::Buttons::kOkCancel);
      EXPECT_EQ(message.title, kTitle);
    }
  }
}

TEST(CloneProtocol, CancelPressedBetweenExchangesStopsTheNextOne) {
  Bench bench;
  bench.state.Cancel = true;
  bench.link.SendLine("clears the flag");
  bench.port.writes.clear();
  EXPECT_FALSE(bench.protocol.WriteBlock(bench.data.Image.All(), 64, 16));
  EXPECT_TRUE(bench.state.Cancel);
  EXPECT_TRUE(bench.state.Error);
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
  const std::string answered = "#WJDSR #CMDOK";
  struct Case {
    bool good;
    Replies replies;
    std::string sent;
    Texts messages{};
    Answer answer = Answer::kCancel;
  };
  const std::vector<Case> cases = {
      {true, {{status("00")}}, answered},
      {false, {{status("01")}}, answered, {"Radio is busy!!"}},
      {true,
       {{status("01")}, {""}, {status("00")}},
       answered + " " + answered,
       {"Radio is busy!!"},
       Answer::kRetry},
      {false, {{status("02")}}, answered},
      {false, {}, "#WJDSR"},
      {false, {{kOk}}, "#WJDSR", {"time out!!"}},
      {false, {{kOk + "#WJDSD\t00"}}, "#WJDSR", {"time out!!"}},
      {false, {{kOk + BuildFrame("#WJDDT", "00")}}, "#WJDSR #CMDUN"},
      {false, {{Spoilt(status("00"))}}, "#WJDSR #CMDSM"},
  };
  for (const Case& c : cases) {
    Bench bench;
    bench.port.replies = c.replies;
    bench.prompts.answers = {c.answer};
    EXPECT_EQ(bench.protocol.StatusCheck(), c.good);
    EXPECT_EQ(bench.state.Error, !c.good);
    EXPECT_EQ(bench.Words(), c.sent);
    EXPECT_EQ(bench.prompts.Texts(), c.messages);
  }
}

TEST(Connect, GoesOnOrGivesUpAsTheRadioAnswers) {
  const std::string whole = "P 0 ACMD:002 #CMDSY #CMDSY";
  const std::string stopped = "P 0 ACMD:002";
  struct Case {
    bool good;
    Replies replies;
    std::string sent;
    Texts messages{};
  };
  const std::vector<Case> cases = {
      {true, {{"P"}, {""}, {"OK\r\n"}, {kOk}, {kOk}}, whole},
      {true, {{"P"}, {""}, {"#CMDUN\r\n"}, {kOk}, {kOk}}, whole},
      {true, {{"P"}, {""}, {""}, {kOk}, {kOk}}, whole},
      {true, {{"P"}, {""}, {"OK\rx"}, {kOk}, {kOk}}, whole, {"error!!"}},
      {false, {{"P"}, {""}, {kErr}}, stopped, {"ACMD Command error!!"}},
      {false, {{"P"}, {""}, {"what\r\n"}}, stopped, {"error!!"}},
      {true, {{""}, {"x"}, {"P"}, {""}, {"OK\r\n"}, {kOk}, {kOk}}, "P P " + whole},
      {false, {{""}, {""}, {""}, {"P"}}, "P P P", {"Communication Error!!"}},
  };
  for (const Case& c : cases) {
    Bench bench;
    bench.port.replies = c.replies;
    EXPECT_EQ(bench.protocol.Connect(), c.good);
    EXPECT_EQ(bench.Words(), c.sent);
    EXPECT_EQ(bench.prompts.Texts(), c.messages);
    EXPECT_EQ(bench.port.IsOpen(), c.sent != "P P P");
  }
}

TEST(Connect, SaysWhyThePortCannotBeOpened) {
  const core::SystemError refusal{13, "Permission denied"};
  for (const std::size_t opening : {0U, 1U}) {
    Bench bench;
    bench.port.open_failures.assign(opening, std::nullopt);
    bench.port.open_failures.emplace_back(refusal);
    bench.port.replies = {{"P"}, {""}, {"OK\r\n"}};
    EXPECT_FALSE(bench.protocol.Connect());
    ASSERT_EQ(bench.prompts.Texts(), Texts{"port inicialize error!!"});
    EXPECT_NE(bench.prompts.messages[0].details.find("cannot be opened: Permission denied\r\n"),
              std::string::npos);
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

TEST(AbortTransfer, SendsCanOnceTheLineHasRunDryAndWaitsTenSecondsForTheAnswer) {
  for (const bool answered : {true, false}) {
    SCOPED_TRACE(answered);
    Bench bench;
    bench.state.Cancel = true;
    for (const double delay : {0.0, 0.05, 0.13}) bench.port.Deliver("rest of a reply", delay);
    if (answered) bench.port.replies = {{"\x06"}};
    const double start = bench.clock.now;
    bench.protocol.AbortTransfer();
    EXPECT_EQ(bench.port.writes, Texts{"\x18"});
    EXPECT_TRUE(bench.state.Cancel);
    EXPECT_EQ(bench.port.Unread(), "");
    EXPECT_NEAR(bench.clock.now - start, 0.13 + 0.1 + (answered ? 0 : 10), 0.06);
  }
}

}  // namespace
}  // namespace orvane::link
