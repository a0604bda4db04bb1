#include "platform/qt_event_pump.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <algorithm>
#include <cmath>

namespace orvane::platform {
namespace {

constexpr double kLongestAlarm = 3600;  // seconds; callers wait again

}  // namespace

QtEventPump::QtEventPump(const core::Clock& clock) : clock_(clock) {
  alarm_.setTimerType(Qt::PreciseTimer);
  alarm_.setSingleShot(true);
  QObject::connect(&alarm_, &QTimer::timeout, &alarm_, [this] { armed_for_.reset(); });
}

void QtEventPump::Arm(double deadline, double now) {
  if (armed_for_ == deadline) return;
  const double seconds = std::min(deadline - now, kLongestAlarm);
  // One millisecond more than needed: the deadline must have passed when the alarm wakes us.
  alarm_.start(static_cast<int>(std::ceil(seconds * 1000)) + 1);
  armed_for_ = deadline;
}

void QtEventPump::WaitForEvents(double deadline) {
  const double now = clock_.Now();
  if (now > deadline) {
    ProcessEvents();
    return;
  }
  Arm(deadline, now);
  QEventLoop().processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void QtEventPump::ProcessEvents() {
  QEventLoop().processEvents(QEventLoop::AllEvents);
}

}  // namespace orvane::platform
