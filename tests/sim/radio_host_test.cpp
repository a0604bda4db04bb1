#include "sim/radio_host.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "link/clone_frame.h"

namespace orvane::sim {
namespace {

constexpr double kByteTime = 10.0 / 9600;

/// Plays the PC: sends texts at given times, notes what arrives when, and stops when nothing more
/// is going to happen. Time moves only while the radio sleeps.
class ScriptedTerminal : public Terminal {
 public:
  [[nodiscard]] std::optional<core::SystemError> Open() override {
    static_cast<void>(Read());  // what was sent to nobody
    open = true;
    ++opened;
    return std::nullopt;
  }
  void HangUp() override { open = false; }
  [[nodiscard]] std::string Device() const override { return "tty" + std::to_string(opened); }
  [[nodiscard]] std::vector<std::uint8_t> Read() override {
    std::vector<std::uint8_t> bytes;
    while (!script.empty() && script.begin()->first <= now) {
      const std::string text = script.extract(script.begin()).mapped();
      bytes.insert(bytes.end(), text.begin(), text.end());
    }
    return bytes;
  }
  void Write(std::span<const std::uint8_t> bytes) override {
    EXPECT_TRUE(open);
    received.append(bytes.begin(), bytes.end());
    for (std::size_t i = 0; i < bytes.size(); ++i) arrival_times.push_back(now);
  }
  [[nodiscard]] double Now() const override { return now; }
  [[nodiscard]] bool Wait(std::optional<double> until) override {
    std::optional<double> next = until;
    const bool sends = open && !script.empty();
    if (sends && (!next || script.begin()->first < *next)) next = script.begin()->first;
    if (!next || (stop_at && *next >= *stop_at)) return false;
    now = std::max(now, *next);
    return true;
  }

  std::multimap<double, std::string> script;  ///< time and what the PC sends
  std::optional<double> stop_at;
  double now = 100;
  bool open = false;
  int opened = 0;
  std::string received;
  std::vector<double> arrival_times;
};

class FakeRegistration : public PortRegistration {
 public:
  [[nodiscard]] std::string Register(const std::string& device) override {
    if (refuse) return "COM16 is taken";
    devices.push_back(device);
    registered = true;
    return {};
  }
  [[nodiscard]] int Number() const override { return 16; }
  void Withdraw() override { registered = false; }

  bool refuse = false;
  bool registered = false;
  std::vector<std::string> devices;
};

struct Bench {
  int Run(std::vector<link::Fault> faults = {}, double baud = 0) {
    radio.SetFaults(link::FaultPlan(std::move(faults)));
    RadioHost host(
        radio, {baud, 3},
        {terminal, registration, [this](const std::string& line) { log.push_back(line); }, out, err,
         [this](std::span<const std::uint8_t> memory) {
           saved.emplace_back(terminal.now, memory[0x42]);
           return save_error;
         }});
    return host.Run();
  }

  ScriptedTerminal terminal;
  FakeRegistration registration;
  link::SimulatedRadio radio{std::vector<std::uint8_t>(16384, 0)};
  std::vector<std::string> log;
  std::vector<std::pair<double, int>> saved;  ///< when, and byte 0x42 at that time
  std::optional<core::SystemError> save_error;
  std::ostringstream out, err;
};

std::string Write42(const std::string& data) {
  return link::BuildFrame(link::kCommandWrite, "0042", "01", data);
}

TEST(RadioHost, PassesEachByteOnWhenItsTimeOnTheWireIsOver) {
  Bench bench;
  bench.terminal.script = {{101, "P0#CMDSY\r\n"}};
  EXPECT_EQ(bench.Run({}, 9600), 0);
  EXPECT_EQ(bench.terminal.received, "PP0#CMDSY\r\n#CMDOK\r\n");
  ASSERT_EQ(bench.terminal.arrival_times.size(), 19U);
  for (std::size_t i = 0; i < 19; ++i) {
    EXPECT_NEAR(bench.terminal.arrival_times[i], 101 + kByteTime * static_cast<double>(i + 1),
                1e-9);
  }
  EXPECT_EQ(bench.log, (std::vector<std::string>{"handshake", "confirm", "sync"}));
  EXPECT_EQ(bench.out.str(), "COM16 is tty1\n");
  EXPECT_FALSE(bench.registration.registered) << "withdrawn at the end";
}

TEST(RadioHost, SavesOnceWhenThePcHasStoppedWriting) {
  Bench bench;
  bench.terminal.script = {
      {101, "P0#CMDSY\r\n"}, {102, Write42("01")}, {102.5, Write42("02")}, {103, Write42("03")}};
  EXPECT_EQ(bench.Run(), 0);
  EXPECT_EQ(bench.saved, (std::vector<std::pair<double, int>>{{104, 3}}));
}

TEST(RadioHost, SavesAtTheEndWhatIsNotSavedYetAndNothingElse) {
  Bench stopped, idle;
  stopped.terminal.script = {{101, "P0#CMDSY\r\n"}, {102, Write42("01")}};
  stopped.terminal.stop_at = 102.5;
  EXPECT_EQ(stopped.Run(), 0);
  EXPECT_EQ(stopped.saved, (std::vector<std::pair<double, int>>{{102, 1}}));
  idle.terminal.script = {{101, "P0#CMDSY\r\n"}, {102, Write42("01")}};
  EXPECT_EQ(idle.Run({link::MakeFault(link::FaultKind::kRefusal, link::ExchangeKind::kWrite, 1)}),
            0);
  EXPECT_TRUE(idle.saved.empty());
}

TEST(RadioHost, TellsWhenTheMemoryCannotBeSaved) {
  Bench bench;
  bench.save_error = core::SystemError{28, "No space left on device"};
  bench.terminal.script = {{101, "P0#CMDSY\r\n" + Write42("01")}};
  EXPECT_EQ(bench.Run(), 1);
  EXPECT_NE(bench.err.str().find("No space left on device"), std::string::npos);
}

TEST(RadioHost, APulledPlugComesBackAsANewDevice) {
  Bench bench;
  bench.terminal.script = {{101, "P0#CMDSY\r\n"}, {102, "lost"}, {105, "P"}};
  EXPECT_EQ(bench.Run({link::MakeFault(link::FaultKind::kUnplug, 3)}), 0);
  EXPECT_EQ(bench.terminal.received, "PP0PP");
  EXPECT_EQ(bench.registration.devices, (std::vector<std::string>{"tty1", "tty2"}));
  EXPECT_EQ(bench.out.str(), "COM16 is tty1\nCOM16 is unplugged\nCOM16 is tty2\n");
}

TEST(RadioHost, FailsWithTheReasonWhenItsNumberIsTaken) {
  Bench bench;
  bench.registration.refuse = true;
  EXPECT_EQ(bench.Run(), 1);
  EXPECT_EQ(bench.err.str(), "orvane-radio: COM16 is taken\n");
}

}  // namespace
}  // namespace orvane::sim
