// Transfers while events pour in upon the window and its dialog.

#include <QWindow>
#include <array>

#include "files/text_report.h"
#include "real_time_desk.h"

using namespace orvane;
using link::ExchangeKind;

namespace {

constexpr const char* kRead = "mnuTransferRead";
constexpr const char* kProgram = "mnuTransferProgram";

// As the window system delivers them; neither looks at other events.
void PressKey(const QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  qt_handleKeyEvent(window.windowHandle(), QEvent::KeyPress, key, modifiers);
  qt_handleKeyEvent(window.windowHandle(), QEvent::KeyRelease, key, modifiers);
}
void Click(const QWidget& window, QPoint place) {
  const auto send = [&](Qt::MouseButtons state, QEvent::Type type) {
    qt_handleMouseEvent(window.windowHandle(), place, window.mapToGlobal(place), state,
                        Qt::LeftButton, type, {}, 0);
  };
  send(Qt::LeftButton, QEvent::MouseButtonPress);
  send({}, QEvent::MouseButtonRelease);
}

/// While it lives and a transfer runs, there always is something to process: events that beget
/// events, timers without an interval, resizing, and keys and clicks that would do harm if they
/// got through.
class Flood : public QObject {
 public:
  explicit Flood(const testing::WindowDesk& desk) : desk_(desk) {
    for (QTimer& timer : timers_) {
      connect(&timer, &QTimer::timeout, this, &Flood::Pour);
      timer.start(0);
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    return true;
  }
  [[nodiscard]] int Poured() const { return poured_; }

 private:
  void Pour() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || !desk_.state.Busy) return;
    ++poured_;
    for (QWidget* target : {static_cast<QWidget*>(desk_.window.get()), dialog}) {
      target->resize(target->width() + (poured_ % 2 == 0 ? 3 : -3), target->height());
      target->update();
      PressKey(*target, Qt::Key_N, Qt::ControlModifier);
      PressKey(*target, Qt::Key_F6);
      PressKey(*target, Qt::Key_Return);
      Click(*target, {40, 120});
      QVERIFY(!target->close());
      QCoreApplication::postEvent(target, new QEvent(QEvent::LanguageChange));
    }
  }

  const testing::WindowDesk& desk_;
  std::array<QTimer, 3> timers_;
  int poured_ = 0;
};

}  // namespace

class FloodTest : public QObject {
  Q_OBJECT

 private slots:
  // In simulated time, with a look at the events every so many waits.
  void WholeTransfersEndAsWithoutIt() {
    constexpr int kWaitsBetweenLooks = 500;
    testing::CommandDesk desk;
    desk.Start();
    const auto pass = desk.pump.on_wait;
    desk.pump.on_wait = [&](double deadline) {
      if (desk.pump.waits % kWaitsBetweenLooks == 0) QCoreApplication::processEvents();
      return pass(deadline);
    };
    const Flood flood(desk);
    QVERIFY(desk.Transfer(kRead));
    desk.data.Table(core::MarineGroup::kUsa)[32].ChTag = "HARBOUR";
    QVERIFY(desk.Transfer(kProgram));
    const std::string programmed = files::BuildTextReport(desk.data);
    desk.data.Table(core::MarineGroup::kUsa)[32].ChTag = "";
    QVERIFY(desk.Transfer(kRead));
    QCOMPARE(files::BuildTextReport(desk.data), programmed);
    QCOMPARE(desk.Messages(), QStringList({"Complete!!", "Complete!!", "Complete!!"}));
    QVERIFY(flood.Poured() > 100);
  }

  void CancelIsHeardAtOnce_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<ExchangeKind>("kind");
    QTest::newRow("read") << kRead << ExchangeKind::kRead;
    QTest::newRow("program") << kProgram << ExchangeKind::kWrite;
  }
  void CancelIsHeardAtOnce() {
    QFETCH(QString, item);
    QFETCH(ExchangeKind, kind);
    const bool reading = kind == ExchangeKind::kRead;
    testing::RealTimeRadioDesk desk;
    desk.Start();
    desk.data.Table(core::MarineGroup::kUsa)[32].ChTag = "MINE";
    desk.document.NoteChange();
    const core::RadioData before = desk.data;
    double cancelled_at = 0;
    int exchanges = 0;
    desk.radio.SetObserver([&](const link::Exchange& exchange) {
      if (exchange.kind != kind || ++exchanges != 20) return;
      // As a key press from outside: it queues behind what is there already.
      QTimer::singleShot(0, QApplication::activeModalWidget(), [&] {
        cancelled_at = desk.real_clock.Now();
        PressKey(*QApplication::activeModalWidget(), Qt::Key_Escape);
      });
    });
    const Flood flood(desk);
    desk.InWindowOf(qPrintable(item), [&](QDialog& dialog) {
      dialog.findChild<QPushButton*>("cmdOK")->click();
      QVERIFY(cancelled_at > 0);
      const double lasted = desk.real_clock.Now() - cancelled_at;
      // Half a second of it is the pause at the end of a session.
      QVERIFY2(lasted < 3, qPrintable(QString::number(lasted)));
      QCOMPARE(dialog.isVisible(), !reading);
    });
    QVERIFY(flood.Poured() > 100);
    QVERIFY(desk.prompts.messages.empty());
    if (reading) QVERIFY(desk.data == before);
    QVERIFY(desk.document.HasChanged() && !desk.state.Busy);
    QVERIFY(desk.window->isVisible() && desk.window->isEnabled());
    QCOMPARE(desk.Tree().CurrentKey(), "General");
  }
};

QTEST_MAIN(FloodTest)
#include "flood_test.moc"
