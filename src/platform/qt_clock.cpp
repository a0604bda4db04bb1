#include "platform/qt_clock.h"

#include <QDate>
#include <QDateTime>
#include <chrono>
#include <thread>

namespace orvane::platform {

double QtClock::Now() const {
  return static_cast<double>(elapsed_.nsecsElapsed()) / 1e9;
}

core::Date QtClock::Today() const {
  const QDate today = QDate::currentDate();
  return core::Date{std::chrono::year{today.year()},
                    std::chrono::month{static_cast<unsigned>(today.month())},
                    std::chrono::day{static_cast<unsigned>(today.day())}};
}

std::string QtClock::Timestamp() const {
  return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

void QtClock::Pause(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

}  // namespace orvane::platform
