#include "link/port_list.h"

#include "link/port_links.h"

#include <gtest/gtest.h>

namespace orvane::link {
namespace {

struct Finder : PortFinder {
  std::vector<FoundPort> FindPorts() override { return ports; }
  std::vector<FoundPort> ports;
};

std::vector<std::string> Offered(Finder& finder) {
  CComList list(finder);
  std::vector<std::string> names;
  const int count = list.Create();
  for (int index = 0; index < count; ++index) names.push_back(list.RefComName(index));
  EXPECT_EQ(list.RefComName(count), "");
  EXPECT_EQ(list.RefComName(-1), "");
  EXPECT_EQ(list.PortItem(count).port_number, 0);
  return names;
}

TEST(PortList, OffersDescribedPortsOneToSixteenInOrder) {
  Finder finder;
  finder.ports = {
      {"COM10", "USB Serial (COM10)", "/dev/b"},
      {"com2", "Modem (COM2)", "/dev/c"},
      {"\\\\.\\COM1", "UART (COM1) built in", "/dev/a"},
      {"COM17", "Far (COM17)", "/dev/d"},
      {"COM0", "Zero (COM0)", "/dev/e"},
      {"LPT1", "Printer (LPT1)", "/dev/f"},
      {"COM", "Nameless (COM)", "/dev/g"},
      {"COM3", "", "/dev/h"},
      {"COM4", "Wrong words (COM5)", "/dev/i"},
  };
  EXPECT_EQ(Offered(finder),
            (std::vector<std::string>{"COM1 UART ", "COM2 Modem ", "COM10 USB Serial "}));
}

TEST(PortList, IsEmptyWithoutPortsAndRebuiltEachTime) {
  Finder finder;
  finder.ports = {{"COM3", "A (COM3)", "/dev/a"}, {"COM7", "B (COM7)", "/dev/b"}};
  CComList list(finder);
  EXPECT_EQ(list.Create(), 2);
  EXPECT_EQ(list.FindPortIndex(7), 1);
  EXPECT_EQ(list.PortItem(1).device, "/dev/b");
  EXPECT_EQ(list.FindPortIndex(4), -1);
  EXPECT_EQ(list.FindPortIndex(65536 + 7), -1);
  finder.ports.clear();
  EXPECT_EQ(list.Create(), 0);
  EXPECT_EQ(list.FindPortIndex(7), -1);
  EXPECT_EQ(list.RefComName(0), "");
}

TEST(PortList, TakesNoMoreNamesThanItHasRoomFor) {
  Finder finder;
  for (int i = 0; i < 200; ++i) finder.ports.push_back({"COM5", "X (COM5)", "/dev/x"});
  finder.ports.push_back({"COM6", "Y (COM6)", "/dev/y"});
  EXPECT_EQ(Offered(finder), std::vector<std::string>{"COM5 X "});
}

TEST(NumberDevices, PinsKeepTheirNumbersAndTheOthersFillTheGaps) {
  Finder finder;
  finder.ports = NumberDevices(
      {{"", "UART", "/dev/s0"}, {"", "Adapter", "/dev/u0"}, {"", "", "/dev/u1"}},
      {{2, "/dev/s0"}, {16, "/dev/pts/4", "Simulated radio"}, {16, "/dev/u1"}, {17, "/dev/u1"}});
  EXPECT_EQ(Offered(finder), (std::vector<std::string>{"COM1 Adapter ", "COM2 UART ",
                                                       "COM3 /dev/u1 ", "COM16 Simulated radio "}));
}

TEST(PortLinks, OnlyTerminalsArePorts) {
  constexpr std::string_view kDrivers =
      "/dev/tty             /dev/tty        5       0 system:/dev/tty\n"
      "serial               /dev/ttyS       4      64 serial\n"
      "acm                  /dev/ttyACM   166 0-255 serial\n"
      "pty_slave            /dev/pts      136 0-1048575 pty:slave\n"
      "pty_master           /dev/ptm      128 0-1048575 pty:master\n"
      "unknown              /dev/tty        4 1-63 console\n";
  const struct {
    unsigned major, minor;
    bool terminal;
  } cases[] = {{4, 64, true},     {4, 65, false}, {4, 1, false},   {5, 0, false}, {166, 7, true},
               {166, 256, false}, {136, 9, true}, {128, 9, false}, {1, 3, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(HasTerminalDriver(kDrivers, c.major, c.minor), c.terminal)
        << c.major << ":" << c.minor;
  }
}

TEST(NumberDevices, LeavesOutWhatDoesNotFit) {
  std::vector<FoundPort> devices;
  for (int i = 0; i < 40; ++i) devices.push_back({"", "", "/dev/u" + std::to_string(i)});
  const std::vector<FoundPort> numbered = NumberDevices(devices, {{16, "/dev/u39"}});
  ASSERT_EQ(numbered.size(), 16U);
  EXPECT_EQ(numbered[0].device, "/dev/u39");
  EXPECT_EQ(numbered[15].name, "COM15");
  EXPECT_EQ(numbered[15].device, "/dev/u14");
}

}  // namespace
}  // namespace orvane::link
