// Each cause of a connection that fails, at a real pseudo-terminal: what the far end does is played
// by a simulated radio, who has the port is planted, and the clock jumps where nothing comes.

#include "link/port_check.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "image/sample_radio.h"
#include "link/simulated_radio.h"
#include "platform/ansi_text.h"
#include "platform/qt_serial_port.h"
#include "platform/system_devices.h"
#include "pty.h"
#include "support/fakes.h"

namespace orvane::platform {
namespace {

using link::Verdict;

constexpr std::int16_t kModel = 5;
constexpr const char* kNowhere = "/dev/orvane-no-such-device";

/// A running program of that name that has the device open, or none when it is "".
class Planted {
 public:
  Planted(const char* name, const std::string& device) {
    const QString program = folder_.filePath(name);
    QFile::link(QStandardPaths::findExecutable("cat"), program);
    const QString open = device.empty() ? QString() : "exec 3<>" + FromUtf8(device) + "; ";
    process_.start("sh", {"-c", open + "exec " + program});
    process_.write("here\n");
    running_ = process_.waitForReadyRead();  // it runs under its name
  }
  Planted(const Planted&) = delete;
  Planted& operator=(const Planted&) = delete;
  ~Planted() {
    process_.closeWriteChannel();
    process_.waitForFinished();
  }
  [[nodiscard]] bool Running() const { return running_; }
  [[nodiscard]] std::string Text() const {
    return "(process " + std::to_string(process_.processId()) + ")";
  }

 private:
  QTemporaryDir folder_;
  QProcess process_;
  bool running_ = false;
};

/// Waits as the program does, with the far end played in between; time passes only when nothing
/// comes.
class FarEnd : public core::EventPump {
 public:
  using Reply = std::function<std::string(std::uint8_t)>;

  FarEnd(testing::ManualClock& clock, const Pty& pty, QtSerialPort& port)
      : clock_(clock), pty_(pty), port_(port) {}

  void WaitForEvents(double deadline) override {
    if (Play()) return;
    if (port_.Waiting() == 0) clock_.now = deadline + 0.001;
  }
  void ProcessEvents() override { Play(); }

  Reply reply = [](std::uint8_t /*byte*/) { return std::string(); };

 private:
  /// True when something came back.
  bool Play() {
    std::string back;
    for (const char byte : pty_.Received()) back += reply(static_cast<std::uint8_t>(byte));
    if (back.empty()) return false;
    EXPECT_TRUE(pty_.Send(back));
    while (port_.Waiting() < back.size()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
  }

  testing::ManualClock& clock_;
  const Pty& pty_;
  QtSerialPort& port_;
};

class PortCheckAtDevice : public ::testing::Test {
 protected:
  link::Diagnosis Check(const std::string& device) {
    QtSerialPort port(device);
    FarEnd far_end(clock_, pty_, port);
    if (reply_) far_end.reply = reply_;
    link::PortCheck check({clock_, far_end, log_, &devices_});
    return check.Run(port, device, &core::ProfileOf(kModel));
  }
  void Expect(const link::Diagnosis& found, Verdict verdict, const std::string& told,
              const std::string& command = {}) {
    EXPECT_EQ(link::RowOf(found.verdict).name, link::RowOf(verdict).name);
    EXPECT_NE((found.text + " " + found.remedy).find(told), std::string::npos) << OneLine(found);
    EXPECT_EQ(found.command, command);
  }

  Pty pty_;
  testing::ManualClock clock_;
  testing::RecordingLog log_;
  SystemDevices devices_;
  FarEnd::Reply reply_;
};

TEST_F(PortCheckAtDevice, NoDeviceOrNoSerialOne) {
  Expect(Check(kNowhere), Verdict::kNoDevice, "Connect the cable");
  Expect(Check("/dev/null"), Verdict::kNotSerial, "not a serial port");
  const Planted brltty("brltty", {});
  ASSERT_TRUE(brltty.Running());
  Expect(Check(kNowhere), Verdict::kNoDeviceBrltty, brltty.Text(), "sudo apt remove brltty");
}

TEST_F(PortCheckAtDevice, AnotherProgramHasIt) {
  const struct {
    const char* program;
    Verdict verdict;
    const char* command = "";
  } cases[] = {{"terminal-program", Verdict::kBusy},
               {"ModemManager", Verdict::kModemManager, "sudo systemctl stop ModemManager"},
               {"brltty", Verdict::kBrltty, "sudo apt remove brltty"}};
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.program);
    const Planted program(expected.program, pty_.Device());
    ASSERT_TRUE(program.Running());
    // A name of a process ends after 15 letters.
    Expect(Check(pty_.Device()), expected.verdict,
           std::string(expected.program).substr(0, 15) + " " + program.Text(), expected.command);
    EXPECT_EQ(pty_.Received(), "") << "nothing may be sent to a port that another program has";
  }
}

TEST_F(PortCheckAtDevice, AnotherProgramHasItAndTheSystemDoesNotTellWhich) {
  // What this process itself has open is hidden as are the programs of other users.
  QtSerialPort hidden(pty_.Device());
  ASSERT_FALSE(hidden.Open());
  Expect(Check(pty_.Device()), Verdict::kBusyUnknown, "Close that program",
         "sudo fuser -v " + pty_.Device());
  const Planted manager("ModemManager", {});
  ASSERT_TRUE(manager.Running());
  Expect(Check(pty_.Device()), Verdict::kModemManager, "most likely by ModemManager",
         "sudo systemctl stop ModemManager");
}

/// Gives up the rights of the superuser, if there are any.
class AsNobody {
 public:
  AsNobody() {
    if (mine_ == 0) ok_ = ::seteuid(65534) == 0;
  }
  AsNobody(const AsNobody&) = delete;
  AsNobody& operator=(const AsNobody&) = delete;
  ~AsNobody() {
    if (mine_ != 0) return;
    EXPECT_EQ(::seteuid(0), 0);
  }
  [[nodiscard]] bool Ok() const { return ok_; }

 private:
  uid_t mine_ = ::geteuid();
  bool ok_ = true;
};

TEST_F(PortCheckAtDevice, NoPermission) {
  // Neither owner nor group may read, whoever they are; what is told is who may write.
  ASSERT_EQ(::chmod(pty_.Device().c_str(), 0020), 0);
  const auto [group, user] = devices_.GroupOf(pty_.Device());
  ASSERT_FALSE(group.empty() || user.empty());
  {
    const AsNobody nobody;
    ASSERT_TRUE(nobody.Ok());
    Expect(Check(pty_.Device()), Verdict::kNoPermission, "Join the group \"" + group + "\"",
           "sudo usermod -aG " + group + " " + user);
  }
  ASSERT_EQ(::chmod(pty_.Device().c_str(), 0000), 0);
  const AsNobody nobody;
  Expect(Check(pty_.Device()), Verdict::kNoGroup, "permission to use " + pty_.Device());
}

TEST_F(PortCheckAtDevice, TheFarEnd) {
  const auto sample = [](std::int16_t model) {
    const core::RadioData data = image::MakeSampleRadio(model, testing::kAfterCutOver);
    return std::make_unique<link::SimulatedRadio>(
        link::RadioMemory(core::ProfileOf(model), data.Image.Used()));
  };
  const auto playing = [this](link::SimulatedRadio& radio) {
    return [this, &radio](std::uint8_t byte) {
      const link::CableReaction reaction = radio.Receive(byte, clock_.now);
      return std::string(1, static_cast<char>(reaction.echo.value())) + reaction.answer;
    };
  };
  const auto right = sample(kModel);
  const auto other = sample(1);
  const struct {
    FarEnd::Reply reply;
    Verdict verdict;
    const char* told;
  } cases[] = {
      {{}, Verdict::kNothingBack, "nothing comes back"},
      {[](std::uint8_t) { return "$GPRMC,1"; }, Verdict::kOtherDevice, "another device"},
      {[](std::uint8_t byte) { return std::string(1, static_cast<char>(byte)); }, Verdict::kNoRadio,
       "no radio answers"},
      {playing(*other), Verdict::kOtherModel, "KT310"},
      {playing(*right), Verdict::kReady, "KT740 answers"},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.told);
    reply_ = expected.reply;
    Expect(Check(pty_.Device()), expected.verdict, expected.told);
    static_cast<void>(pty_.Received());
  }
}

}  // namespace
}  // namespace orvane::platform
