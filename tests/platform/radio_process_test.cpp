// The simulated radio as a process of its own, started and ended as the window does it.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/ansi_text.h"
#include "platform/qt_clock.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_radio_process.h"

namespace orvane::platform {
namespace {

constexpr double kLongest = 20;  // seconds
constexpr std::int16_t kModel = 4;

class RadioProcess : public ::testing::Test {
 public:
  RadioProcess() { qputenv("XDG_CONFIG_HOME", config_.path().toUtf8()); }
  ~RadioProcess() override { qunsetenv("XDG_CONFIG_HOME"); }
  RadioProcess(const RadioProcess&) = delete;
  RadioProcess& operator=(const RadioProcess&) = delete;

 protected:
  template <class Condition>
  bool Await(Condition condition) {
    const double deadline = clock_.Now() + kLongest;
    while (!condition() && clock_.Now() < deadline) pump_.WaitForEvents(deadline);
    return condition();
  }
  /// The port numbers that are pinned just now, and the lock files beside them.
  [[nodiscard]] QStringList Ports() const {
    return QDir(config_.path() + "/Orvane/ports")
        .entryList(QDir::Files | QDir::System | QDir::Hidden);
  }
  /// A program of that name that is none of ours.
  [[nodiscard]] std::string FolderWith(const char* script) const {
    QFile program(config_.filePath("orvane-radio"));
    EXPECT_TRUE(program.open(QIODevice::WriteOnly));
    program.write(script);
    program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return ToUtf8(config_.path());
  }

  QTemporaryDir config_;
  QtClock clock_;
  QtEventPump pump_{clock_};
};

TEST_F(RadioProcess, TakesTheFirstFreePortAndGivesItBackWhenItIsStopped) {
  QtRadioProcess one(ORVANE_PROGRAMS);
  QtRadioProcess other(ORVANE_PROGRAMS);
  EXPECT_EQ(one.WhyNone(), "");
  one.Start(kModel, {14, 11});
  ASSERT_TRUE(Await([&] { return one.PortNumber().has_value(); })) << one.WhyEnded();
  EXPECT_EQ(one.PortNumber(), 14);
  other.Start(kModel, {14, 11});
  ASSERT_TRUE(Await([&] { return other.PortNumber().has_value(); })) << other.WhyEnded();
  EXPECT_EQ(other.PortNumber(), 11);

  bool lost = false;
  one.WhenLost([&lost] { lost = true; });
  one.Stop();
  EXPECT_FALSE(one.IsRunning() || one.PortNumber());
  EXPECT_FALSE(lost) << "it was meant to end";
  EXPECT_EQ(Ports(), (QStringList{".COM11.lock", "COM11"}));
  other.Start(kModel, {12, 11});
  ASSERT_TRUE(Await([&] { return other.PortNumber().has_value(); })) << other.WhyEnded();
  EXPECT_EQ(Ports(), (QStringList{".COM12.lock", "COM12"})) << "the one before has gone";
}

TEST_F(RadioProcess, EndsWithItsOwner) {
  {
    QtRadioProcess radio(ORVANE_PROGRAMS);
    radio.Start(kModel, {13, 10});
    ASSERT_TRUE(Await([&] { return radio.PortNumber().has_value(); })) << radio.WhyEnded();
    EXPECT_EQ(Ports().size(), 2);
  }
  EXPECT_EQ(Ports(), QStringList());
}

TEST_F(RadioProcess, WhatEndsByItselfIsToldWithItsReason) {
  const struct {
    const char* script;
    const char* reason;
    bool had_port;
  } cases[] = {
      {"#!/bin/sh\necho COM9 is /dev/pts/0\necho the battery is empty >&2\n",
       "the battery is empty", true},
      {"#!/bin/sh\necho COM9 is /dev/pts/0\nkill -KILL $$\n", "It ended without a word.", true},
      {"#!/bin/sh\necho COM9 was never there\necho no port >&2\n", "no port", false},
  };
  for (const auto& c : cases) {
    QtRadioProcess radio(FolderWith(c.script));
    bool lost = false;
    radio.WhenLost([&lost] { lost = true; });
    radio.Start(kModel, {9, 8});
    ASSERT_TRUE(Await([&] { return !radio.IsRunning(); })) << c.script;
    EXPECT_EQ(lost, c.had_port);
    EXPECT_FALSE(radio.PortNumber());
    EXPECT_EQ(radio.WhyEnded(), c.reason);
  }
}

TEST_F(RadioProcess, AProgramThatIsMissingOrRefusesSaysWhy) {
  QtRadioProcess missing(ToUtf8(config_.path()));
  EXPECT_NE(missing.WhyNone().find("orvane-radio is missing"), std::string::npos);
  missing.Start(kModel, {15, 16});
  EXPECT_TRUE(Await([&] { return !missing.IsRunning(); }));
  EXPECT_NE(missing.WhyEnded(), "");

  QtRadioProcess refusing(ORVANE_PROGRAMS);
  refusing.Start(kModel, {15, 17});
  EXPECT_TRUE(Await([&] { return !refusing.IsRunning(); }));
  EXPECT_FALSE(refusing.PortNumber());
  EXPECT_NE(refusing.WhyEnded().find("1 to 16"), std::string::npos) << refusing.WhyEnded();
}

}  // namespace
}  // namespace orvane::platform
