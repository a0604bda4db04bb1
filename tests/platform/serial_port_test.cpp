#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cerrno>
#include <functional>
#include <optional>

#include "platform/ansi_text.h"
#include "platform/qt_clock.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_port_finder.h"
#include "platform/qt_serial_port.h"
#include "platform/serial_open_failure.h"
#include "pty.h"

namespace orvane::platform {
namespace {

constexpr double kLong = 20;  // seconds after which a test gives up

class SerialPort : public ::testing::Test {
 protected:
  void Open() { ASSERT_FALSE(port_.Open()); }
  bool Until(const std::function<bool()>& condition) {
    const double deadline = clock_.Now() + kLong;
    while (!condition()) {
      if (clock_.Now() > deadline) return false;
      pump_.WaitForEvents(deadline);
    }
    return true;
  }
  std::string ReadAll() {
    std::string bytes;
    while (const std::optional<std::uint8_t> byte = port_.ReadByte()) {
      bytes.push_back(static_cast<char>(*byte));
    }
    return bytes;
  }

  Pty pty_;
  QtSerialPort port_{pty_.Device()};
  QtClock clock_;
  QtEventPump pump_{clock_};
};

std::string AllBytes() {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes.push_back(static_cast<char>(value));
  return bytes;
}

TEST_F(SerialPort, EveryByteTravelsUnchangedInBothDirections) {
  Open();
  const std::string bytes = AllBytes();
  ASSERT_TRUE(pty_.Send(bytes));
  EXPECT_TRUE(Until([&] { return port_.Waiting() == bytes.size(); }));
  EXPECT_EQ(ReadAll(), bytes);
  EXPECT_FALSE(port_.Write(std::vector<std::uint8_t>(bytes.begin(), bytes.end())));
  EXPECT_EQ(pty_.Received(), bytes) << "must have left without any pass of the event loop";
}

TEST_F(SerialPort, ADeviceWithoutModemLinesIsNoFailure) {
  Open();
  port_.SetDtr(true);
  port_.SetRts(true);
  pump_.ProcessEvents();
  EXPECT_FALSE(port_.Failure());
}

TEST_F(SerialPort, DiscardingAlsoDropsWhatTheSystemStillHolds) {
  Open();
  ASSERT_TRUE(pty_.Send("stale"));
  port_.DiscardInput();
  ASSERT_TRUE(pty_.Send("fresh"));
  EXPECT_TRUE(Until([&] { return port_.Waiting() >= 5; }));
  EXPECT_EQ(ReadAll(), "fresh");
}

TEST_F(SerialPort, UnpluggingIsReportedOnceAndCostsNoProcessorTime) {
  Open();
  ASSERT_TRUE(pty_.Send("last"));
  pty_.Unplug();
  EXPECT_TRUE(Until([&] { return port_.Failure().has_value(); }));
  EXPECT_EQ(port_.Failure()->number, EIO);
  EXPECT_TRUE(port_.IsOpen());
  const std::uint8_t byte = 'P';
  EXPECT_TRUE(port_.Write({&byte, 1}));
  pump_.ProcessEvents();
  int passes = 0;
  const double deadline = clock_.Now() + 0.1;
  for (; clock_.Now() <= deadline; ++passes) pump_.WaitForEvents(deadline);
  EXPECT_LE(passes, 3) << "a hung-up device must not wake the wait again and again";
  static int own_lines;
  own_lines = 0;
  const QtMessageHandler usual = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString&) { ++own_lines; });
  port_.SetDtr(true);
  port_.SetRts(true);
  port_.DiscardInput();
  port_.Close();
  qInstallMessageHandler(usual);
  EXPECT_EQ(own_lines, 0) << "Qt's own words on standard error";
  EXPECT_FALSE(port_.IsOpen());
}

TEST_F(SerialPort, CanBeOpenedAgainAfterClosing) {
  Open();
  port_.Close();
  Open();
  ASSERT_TRUE(pty_.Send("x"));
  EXPECT_TRUE(Until([&] { return port_.Waiting() == 1; }));
}

TEST(OpenFailure, SaysTheSystemsReasonAndTheRemedyOnTheNextLine) {
  QtSerialPort missing("/dev/orvane-no-such-device");
  const std::optional<core::SystemError> failure = missing.Open();
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number, ENOENT);
  EXPECT_EQ(failure->description,
            "No such file or directory\r\n"
            "There is no such device. Connect the cable or choose another port.");
  EXPECT_FALSE(missing.IsOpen());

  QtSerialPort file("/dev/null");
  EXPECT_NE(file.Open().value().description.find("not a serial port"), std::string::npos);
}

TEST(OpenFailure, NamesTheProgramThatUsesThePort) {
  const Pty pty;
  QProcess other;
  other.start("sh", {"-c", "exec 3<>" + QString::fromStdString(pty.Device()) + "; echo; exec cat"});
  ASSERT_TRUE(other.waitForReadyRead());
  const std::string remedy = OpenRemedy(EBUSY, pty.Device()).value();
  EXPECT_NE(remedy.find("(process " + std::to_string(other.processId()) + ")"), std::string::npos)
      << remedy;
  other.closeWriteChannel();
  EXPECT_TRUE(other.waitForFinished());
  EXPECT_EQ(OpenRemedy(EBUSY, pty.Device()).value().find("process"), std::string::npos);
}

TEST(EventPump, WakesWhenTheDeadlineHasPassedAndSleepsUntilThen) {
  const QtClock clock;
  QtEventPump pump(clock);
  const double deadline = clock.Now() + 0.05;
  int passes = 0;
  for (; clock.Now() <= deadline; ++passes) pump.WaitForEvents(deadline);
  EXPECT_LE(passes, 3);
  EXPECT_LT(clock.Now(), deadline + kLong / 2);
}

TEST(EventPump, APendingEventEndsTheWait) {
  const QtClock clock;
  QtEventPump pump(clock);
  const double deadline = clock.Now() + kLong;
  bool ran = false;
  QObject receiver;
  QObject::connect(
      &receiver, &QObject::objectNameChanged, &receiver, [&ran] { ran = true; },
      Qt::QueuedConnection);
  receiver.setObjectName("changed");
  while (!ran && clock.Now() <= deadline) pump.WaitForEvents(deadline);
  EXPECT_LT(clock.Now(), deadline);
}

TEST(EventPump, AnEarlierDeadlineIsNotHiddenByTheOneBefore) {
  const QtClock clock;
  QtEventPump pump(clock);
  QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::User));
  pump.WaitForEvents(clock.Now() + kLong);
  const double deadline = clock.Now() + 0.02;
  while (clock.Now() <= deadline) pump.WaitForEvents(deadline);
  EXPECT_LT(clock.Now(), deadline + kLong / 2);
}

TEST(PortFinder, LinksPinNumbersToDevicesThatTheSystemDoesNotList) {
  const Pty pty;
  const QTemporaryDir folder;
  const auto link = [&](const QString& target, const char* name) {
    ASSERT_TRUE(QFile::link(target, folder.filePath(name)));
  };
  link(QString::fromStdString(pty.Device()), "COM16");
  link("/dev/orvane-unplugged", "COM15");
  link("/dev/null", "COM17");
  QtPortFinder finder(ToUtf8(folder.path()));
  link::CComList list(finder);
  list.Create();
  const link::PortEntry radio = list.PortItem(list.FindPortIndex(16));
  EXPECT_EQ(radio.device, pty.Device());
  EXPECT_EQ(list.RefComName(list.FindPortIndex(16)), "COM16 Simulated radio ");
  EXPECT_EQ(list.FindPortIndex(15), -1);
  EXPECT_EQ(DeviceOfPort(finder, 16), pty.Device());
  EXPECT_EQ(DeviceOfPort(finder, 15), "COM15");
}

}  // namespace
}  // namespace orvane::platform
