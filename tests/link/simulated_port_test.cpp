#include "link/simulated_port.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "link/port_links.h"
#include "link/port_name.h"
#include "support/simulated_bench.h"

namespace orvane::link {
namespace {

constexpr double kByteTime = 10.0 / 9600;

struct Bench : testing::SimulatedBench {
  explicit Bench(double baud = 9600, std::vector<Fault> faults = {})
      : SimulatedBench(std::vector<std::uint8_t>(16384, 0x42), baud, FaultPlan(std::move(faults))) {
    EXPECT_FALSE(port.Open());
  }
  void Write(std::string_view text) {
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    EXPECT_FALSE(port.Write(bytes));
  }
  /// Waits until count bytes are there or the time is over.
  std::string Read(std::size_t count, double seconds = 30) {
    const double deadline = clock.now + seconds;
    std::string text;
    while (text.size() < count && clock.now <= deadline) {
      if (const std::optional<std::uint8_t> byte = port.ReadByte()) {
        text += static_cast<char>(*byte);
      } else {
        pump.WaitForEvents(deadline);
      }
    }
    return text;
  }
};

TEST(SimulatedPort, BytesTakeTheirTimeOnOneWire) {
  Bench bench;
  const double start = bench.clock.now;
  const auto bytes_since_start = [&] { return (bench.clock.now - start) / kByteTime; };
  bench.Write("P0#CMDSY\r\n");
  EXPECT_EQ(bench.port.Waiting(), 0U);
  EXPECT_EQ(bench.Read(1), "P");
  EXPECT_NEAR(bytes_since_start(), 1, 1e-6) << "the echo, when the byte is out";
  EXPECT_EQ(bench.Read(1), "P");
  EXPECT_NEAR(bytes_since_start(), 2, 1e-6) << "the radio's own byte";
  EXPECT_EQ(bench.Read(9), "0#CMDSY\r\n");
  EXPECT_NEAR(bytes_since_start(), 11, 1e-6) << "the wire was taken by the answer meanwhile";
  EXPECT_EQ(bench.Read(8), "#CMDOK\r\n");
  EXPECT_NEAR(bytes_since_start(), 19, 1e-6);
}

TEST(SimulatedPort, ALateReplyLeavesTheWireFreeMeanwhile) {
  Bench bench(9600, {MakeFault(FaultKind::kLateReply, ExchangeKind::kSync, 1)});
  const double start = bench.clock.now;
  bench.Write("P0#CMDSY\r\n");
  EXPECT_EQ(bench.Read(11), "PP0#CMDSY\r\n");
  bench.Write("P");
  EXPECT_EQ(bench.Read(2), "PP");
  EXPECT_LT(bench.clock.now - start, 1);
  EXPECT_EQ(bench.Read(8), "#CMDOK\r\n");
  EXPECT_NEAR(bench.clock.now - start, 15 + 19 * kByteTime, 1e-6);
}

TEST(SimulatedPort, OnlyWhatArrivesAnewWakesAWait) {
  Bench bench(0);
  bench.Write("P");
  EXPECT_EQ(bench.port.NextWake(bench.clock.now + 10), bench.clock.now) << "not seen yet";
  EXPECT_EQ(bench.port.Waiting(), 2U);
  EXPECT_EQ(bench.port.NextWake(bench.clock.now + 10), std::nullopt) << "seen and left unread";
}

TEST(SimulatedPort, AWaitEndsAtItsDeadlineWhenTheNextByteComesLater) {
  Bench bench;
  bench.Write("P");
  EXPECT_EQ(bench.port.NextWake(bench.clock.now + kByteTime / 2), std::nullopt);
  EXPECT_NE(bench.port.NextWake(bench.clock.now + kByteTime * 1.5), std::nullopt);
}

TEST(SimulatedPort, DiscardsWhatIsThereAndNotWhatIsOnItsWay) {
  Bench bench;
  bench.Write("P");
  bench.clock.now += kByteTime * 1.5;
  bench.port.DiscardInput();
  EXPECT_EQ(bench.Read(2, 1), "P");
}

TEST(SimulatedPort, WhatComesWhileItIsClosedIsLost) {
  Bench bench;
  bench.Write("P");
  bench.port.Close();
  EXPECT_TRUE(bench.port.Write(std::vector<std::uint8_t>{0x50}).has_value());
  bench.clock.now += 1;
  EXPECT_EQ(bench.port.Waiting(), 0U);
  EXPECT_FALSE(bench.port.Open());
  EXPECT_EQ(bench.port.Waiting(), 0U);
}

TEST(SimulatedPort, FailsWhenThePlugIsPulledAndWorksWhenItIsBack) {
  Bench bench(9600, {MakeFault(FaultKind::kUnplug, ExchangeKind::kSync, 1)});
  bench.Write("P0#CMDSY\r\n");
  EXPECT_FALSE(bench.port.Failure()) << "the bytes are still on the wire";
  EXPECT_EQ(bench.Read(19, 1), "PP0#CMDS") << "a line is known for what it is by its sixth byte";
  EXPECT_TRUE(bench.port.Failure().has_value());
  EXPECT_TRUE(bench.port.Write(std::vector<std::uint8_t>{0x50}).has_value());
  bench.port.Close();
  EXPECT_TRUE(bench.port.Open().has_value());

  bench.radio.SetFaults({});
  bench.radio.PlugIn();
  EXPECT_FALSE(bench.port.Open());
  EXPECT_FALSE(bench.port.Failure());
  bench.Write("P");
  EXPECT_EQ(bench.Read(2), "PP");
}

TEST(PortLinks, StandInTheUsersConfigurationFolder) {
  EXPECT_EQ(PortsFolder(ConfigRoot("/cfg", "/home/a")), "/cfg/Orvane/ports");
  EXPECT_EQ(PortsFolder(ConfigRoot("", "/home/a")), "/home/a/.config/Orvane/ports");
  EXPECT_EQ(ConfigRoot("relative", "/home/a"), "/home/a/.config");
  EXPECT_EQ(ConfigRoot("", ""), "");
}

TEST(PortLinks, AreNamedCom1ToCom16) {
  EXPECT_EQ(ParsePortLinkName("COM1"), 1);
  EXPECT_EQ(ParsePortLinkName(PortName(16)), 16);
  for (const char* const name : {"COM0", "COM17", "COM01", "com1", "COM", "COM1 ", "xCOM1", ""}) {
    EXPECT_EQ(ParsePortLinkName(name), std::nullopt) << name;
  }
}

}  // namespace
}  // namespace orvane::link
