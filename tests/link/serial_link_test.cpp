#include "link/serial_link.h"

#include <gtest/gtest.h>

#include "support/scripted_port.h"

namespace orvane::link {
namespace {

using Bench = testing::ScriptedBench;

TEST(SerialLinkEcho, CountsOnlyWhenWholeAndUnchanged) {
  struct Case {
    const char* name;
    std::function<std::string(const std::string&)> spoil;
    double cancel_after;  ///< seconds, 0 = never
    bool fails;
    double seconds;
    std::string unread;
  };
  const std::vector<Case> cases = {
      {"whole", nullptr, 0, false, 0.01, "answer"},
      {"one byte changed", [](std::string s) { return s[2] = '?', s; }, 0, true, 0.01,
       "D\r\nanswer"},
      {"one byte short", [](const std::string& s) { return s.substr(1); }, 0, true, 0.01,
       "MD\r\nanswer"},
      {"no echo", [](const std::string&) { return ""; }, 0, true, 100, ""},
      {"no echo, cancelled", [](const std::string&) { return ""; }, 3, true, 3, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.spoil_echo = c.spoil;
    if (c.seconds < 1) bench.port.replies = {{"answer"}};
    const double start = bench.clock.now;
    if (c.cancel_after > 0) bench.cancel_at = start + c.cancel_after;
    bench.link.SendLine("#CMD");
    EXPECT_EQ(bench.state.Error, c.fails);
    EXPECT_EQ(bench.state.Cancel, c.cancel_after > 0);
    EXPECT_NEAR(bench.clock.now - start, c.seconds, 0.02);
    EXPECT_EQ(bench.port.Unread(), c.unread);
  }
}

TEST(SerialLinkEcho, BeginsUncancelledButDoesNotForgetThatCancelWasPressed) {
  Bench bench;
  bench.state.Cancel = true;
  bench.link.SendLine("x");
  EXPECT_FALSE(bench.state.Error);
  EXPECT_FALSE(bench.state.Cancel);
  EXPECT_TRUE(bench.link.CancelRequested());
  bench.link.ForgetCancel();
  EXPECT_FALSE(bench.link.CancelRequested());
}

TEST(SerialLinkSend, WaitsTenMillisecondsAndWritesTheBytesAtOnce) {
  Bench bench;
  bench.port.Deliver("stale", 0);
  const double start = bench.clock.now;
  bench.link.SendByte(0x50);
  EXPECT_GE(bench.clock.now - start, 0.010);
  bench.link.SendFixedLine("ACMD:00");
  bench.link.SendFixedLine("ACMD:0020");
  bench.link.SendFixedLine("ACMD:002");
  EXPECT_EQ(bench.port.writes, (std::vector<std::string>{"P", "ACMD:002\r\n"}));
  EXPECT_FALSE(bench.state.Error) << "the stale bytes were taken for the echo";
}

struct ReadCase {
  const char* name;
  std::function<ReceivedText(SerialLink&)> read;
  std::string arriving;
  WaitStatus status;
  std::string text;
  std::string unread;
};

ReceivedText Six(SerialLink& link) {
  return link.ReadText(6, 10);
}
ReceivedText Line(SerialLink& link) {
  return link.ReadLine(10);
}
ReceivedText BinaryLine(SerialLink& link) {
  return link.ReadLineBinary(10);
}
ReceivedText Ack(SerialLink& link) {
  return {"", link.WaitByte(0x06, 10)};
}

TEST(SerialLinkReading, EndsWithItsStatusAndLeavesTheRest) {
  const std::vector<ReadCase> cases = {
      {"text", Six, "#CMDOK\r\n", WaitStatus::kArrived, "#CMDOK", "\r\n"},
      {"refusal", Six, "eRRoR\r\n", WaitStatus::kRefused, "eRRoR", "\r\n"},
      {"refusal inside", Six, "xERROR", WaitStatus::kArrived, "xERROR", ""},
      {"short text", Six, "#CMD", WaitStatus::kTimedOut, "#CMD", ""},
      {"line", Line, "a\tb\r\nrest", WaitStatus::kArrived, "a\tb", "rest"},
      {"line with rubbish behind CR", Line, "ab\rxy\r\nrest", WaitStatus::kArrived, "ab", "rest"},
      {"line without LF", Line, "ab\r", WaitStatus::kTimedOut, "ab", ""},
      {"LF alone ends no line", Line, "a\nb\r\n", WaitStatus::kArrived, "a\nb", ""},
      {"binary line", BinaryLine, "OK\r\nrest", WaitStatus::kArrived, "OK", "rest"},
      {"binary line, CR alone", BinaryLine, "OK\rrest", WaitStatus::kMismatch, "OK", "est"},
      {"binary line, nothing", BinaryLine, "", WaitStatus::kTimedOut, "", ""},
      {"byte behind others", Ack, "ab\x06rest", WaitStatus::kArrived, "", "rest"},
      {"byte missing", Ack, "ab", WaitStatus::kTimedOut, "", ""},
  };
  for (const ReadCase& c : cases) {
    SCOPED_TRACE(c.name);
    Bench bench;
    bench.port.Deliver(c.arriving, 0.5);
    const double start = bench.clock.now;
    const ReceivedText received = c.read(bench.link);
    EXPECT_EQ(received.status, c.status);
    EXPECT_EQ(received.text, c.text);
    EXPECT_EQ(bench.port.Unread(), c.unread);
    EXPECT_NEAR(bench.clock.now - start, c.status == WaitStatus::kTimedOut ? 10 : 0.5, 0.01);
    EXPECT_LE(bench.pump.waits, 2) << "sleeps until something happens";
  }
}

TEST(SerialLinkReading, CancelEndsEveryKindOfWaitWithWhatHasCome) {
  for (ReceivedText (*const read)(SerialLink&) : {Six, Line, BinaryLine, Ack}) {
    Bench bench;
    bench.port.Deliver("ab\r", 1);
    bench.cancel_at = bench.clock.now + 2;
    const double start = bench.clock.now;
    // The binary line ends by itself at the byte behind CR, so nothing comes behind it here.
    const ReceivedText received = read(bench.link);
    EXPECT_EQ(received.status, WaitStatus::kCancelled);
    EXPECT_EQ(bench.clock.now, start + 2);
    EXPECT_EQ(read(bench.link).status, WaitStatus::kCancelled) << "without sleeping";
    EXPECT_EQ(bench.clock.now, start + 2);
  }
}

TEST(SerialLinkSending, AnEchoThatStaysOutForThreeSecondsIsShownOnceAndStillAwaited) {
  for (const auto& [echo_after, silences] : {std::pair(2.9, 0), {3.1, 1}, {99.0, 1}}) {
    SCOPED_TRACE(echo_after);
    Bench bench;
    bench.port.spoil_echo = [](const std::string&) { return std::string(); };
    bench.port.replies = {{"P", echo_after}};
    bench.link.SendByte('P');
    EXPECT_EQ(bench.view.silences, silences);
    EXPECT_FALSE(bench.state.Error);
  }
  Bench bench;
  bench.port.spoil_echo = [](const std::string&) { return std::string("#CMD"); };
  bench.link.SendText("#CMDSY");
  EXPECT_EQ(bench.view.silences, 0) << "part of an echo has come";
  static_cast<void>(bench.link.ReadText(6, 10));
  EXPECT_EQ(bench.view.silences, 0) << "an answer may take its time";
}

TEST(SerialLinkReading, TheDeadlineItselfIsNotYetLate) {
  for (const double delay : {10.0, 10.0005}) {
    Bench bench;
    bench.port.Deliver("\x06", delay);
    bench.pump.on_wait = [&](double) { return bench.port.NextArrival(); };
    EXPECT_EQ(bench.link.WaitByte(0x06, 10),
              delay > 10 ? WaitStatus::kTimedOut : WaitStatus::kArrived);
  }
}

TEST(SerialLinkReading, CancelIsSeenWhileBytesKeepComing) {
  Bench bench;
  bench.port.Deliver(std::string(100'000, 'x'), 0);
  struct Button : core::EventPump {
    void WaitForEvents(double /*deadline*/) override {
      FAIL() << "slept although bytes were waiting";
    }
    void ProcessEvents() override { state->Cancel = true; }
    core::RunState* state = nullptr;
  } button;
  button.state = &bench.state;
  SerialLink link(bench.state, {bench.port, bench.clock, button, bench.log, bench.view});
  EXPECT_EQ(link.WaitByte(0x06, 10), WaitStatus::kCancelled);
}

TEST(SerialLinkPort, AFailedDeviceEndsAWaitAtOnce) {
  Bench bench;
  bench.port.Deliver("#CMD", 0);
  bench.port.failure = core::SystemError{5, "Input/output error"};
  const double start = bench.clock.now;
  EXPECT_THROW(static_cast<void>(bench.link.ReadText(6, 10)), LinkFailure);
  EXPECT_EQ(bench.port.Unread(), "") << "what had come was read first";
  EXPECT_THROW(bench.link.SendByte(0x50), LinkFailure);
  EXPECT_LT(bench.clock.now - start, 1);
}

TEST(SerialLinkPort, OpensOnceReopensOnInitAndRaisesTheModemLinesBeforeClosing) {
  Bench bench;
  EXPECT_TRUE(bench.link.PortOpen());
  EXPECT_TRUE(bench.link.PortOpen());
  EXPECT_TRUE(bench.link.PortInit());
  bench.link.PortClose();
  bench.link.PortClose();
  EXPECT_EQ(bench.port.calls,
            (std::vector<std::string>{"open", "close", "open", "dtr", "rts", "close"}));
}

TEST(SerialLinkPort, AFailureToOpenIsLoggedInDebugModeOnly) {
  for (const bool debug : {false, true}) {
    Bench bench;
    bench.state.Debug = debug;
    bench.port.open_failures.assign(3, core::SystemError{13, "Permission denied\r\nJoin a group."});
    EXPECT_FALSE(bench.link.PortOpen());
    EXPECT_FALSE(bench.link.PortInit());
    EXPECT_FALSE(bench.link.PortInitCP());
    EXPECT_EQ(bench.link.OpenFailure().number, 13);
    const std::vector<std::string> lines = {"frmRadio102.PortOpen -> 13Permission denied",
                                            "frmRadio102.PortInit -> 13Permission denied",
                                            "frmRadio102.PortInitCP -> 13Permission denied"};
    EXPECT_EQ(bench.log.lines, debug ? lines : std::vector<std::string>{});
  }
}

}  // namespace
}  // namespace orvane::link
