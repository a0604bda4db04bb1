// The machine's clock is set while a session runs. This program answers the toolkit's and its own
// questions for the time of day itself, shifted; the clock that never goes back stays as it is.

#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <QDateTime>
#include <QRegularExpression>
#include <chrono>
#include <cstdint>

#include "link/serial_link.h"
#include "real_time_desk.h"
#include "support/scripted_port.h"

namespace {

std::int64_t wall_clock_shift = 0;  // seconds

}  // namespace

extern "C" int clock_gettime(clockid_t clock, struct timespec* now) noexcept {
  const auto result = static_cast<int>(::syscall(SYS_clock_gettime, clock, now));
  if (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE) now->tv_sec += wall_clock_shift;
  return result;
}

extern "C" int gettimeofday(struct timeval* now, void* /*zone*/) noexcept {
  timespec exact{};
  const int result = clock_gettime(CLOCK_REALTIME, &exact);
  *now = {.tv_sec = exact.tv_sec, .tv_usec = exact.tv_nsec / 1000};
  return result;
}

extern "C" time_t time(time_t* now) noexcept {
  timespec exact{};
  clock_gettime(CLOCK_REALTIME, &exact);
  if (now != nullptr) *now = exact.tv_sec;
  return exact.tv_sec;
}

using namespace orvane;
using link::ExchangeKind;

namespace {

constexpr std::int64_t kDay = std::int64_t{24} * 60 * 60;

}  // namespace

class WallClockTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { wall_clock_shift = 0; }

  void ShiftReachesEveryoneWhoAsksForTheTimeOfDay() {
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const auto before_in_standard = std::chrono::system_clock::now();
    wall_clock_shift = -kDay;
    QVERIFY(before.secsTo(QDateTime::currentDateTimeUtc()) < -kDay / 2);
    QVERIFY(std::chrono::system_clock::now() < before_in_standard);
  }

  void WaitLastsAsLongAsItShould_data() {
    QTest::addColumn<std::int64_t>("shift");
    QTest::newRow("clock set back") << -kDay;
    QTest::newRow("clock set forward") << kDay;
  }
  void WaitLastsAsLongAsItShould() {
    QFETCH(std::int64_t, shift);
    constexpr double kWait = 0.4;  // seconds
    testing::RealTimeRadioDesk desk;
    link::SimulatedPort port(desk.radio, desk.real_clock);
    testing::RecordingView view;
    link::SerialLink link(desk.state, {port, desk.real_clock, desk.real_pump, desk.log, view});
    QVERIFY(link.PortOpen());
    QTimer::singleShot(100, qApp, [&] { wall_clock_shift = shift; });
    const auto began = std::chrono::steady_clock::now();
    QVERIFY(link.ReadLine(kWait).status == link::WaitStatus::kTimedOut);
    const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - began;
    QCOMPARE(wall_clock_shift, shift);
    QVERIFY2(lasted.count() >= kWait && lasted.count() < 2 * kWait,
             qPrintable(QString::number(lasted.count())));
  }

  void SessionGoesOnAndStillCanBeCancelled() {
    testing::RealTimeRadioDesk desk;
    desk.Start();
    desk.document.NoteChange();
    const core::RadioData before = desk.data;
    int reads = 0;
    desk.radio.SetObserver([&](const link::Exchange& exchange) {
      if (exchange.kind != ExchangeKind::kRead) return;
      ++reads;
      if (reads == 8) wall_clock_shift = kDay;
      if (reads == 16) wall_clock_shift = -kDay;
      if (reads == 24) CheckTimeLeftAndCancel();
    });
    QVERIFY(desk.Transfer("mnuTransferRead"));
    QCOMPARE(reads, 24);
    QVERIFY(desk.prompts.messages.empty());
    QVERIFY(desk.data == before);
    QVERIFY(desk.document.HasChanged() && !desk.state.Busy);
  }

 private:
  static void CheckTimeLeftAndCancel() {
    const QWidget& dialog = *QApplication::activeModalWidget();
    const QString state = dialog.findChild<QLabel*>("lblState")->text();
    QVERIFY2(QRegularExpression("[1-9]\\d* bytes/s +0:\\d\\d left$").match(state).hasMatch(),
             qPrintable(state));
    dialog.findChild<QPushButton*>("cmdCancel")->click();
  }
};

QTEST_MAIN(WallClockTest)
#include "wall_clock_test.moc"
