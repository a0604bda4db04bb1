// The whole road over a real serial port object: the window, a pseudo-terminal, and orvane-radio at
// its other end as a process of its own.

#include <QCheckBox>
#include <QDialog>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <memory>

#include "command_desk.h"
#include "editor/window_commands.h"
#include "platform/qt_clock.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_serial_port.h"

using namespace orvane;

namespace {

constexpr int kStartTimeout = 20'000;  // ms
constexpr const char* kModel = "1";    // the smallest memory: the cable's pauses make up the time

}  // namespace

class CableTest : public QObject {
  Q_OBJECT

 private slots:
  void ReadsEditsProgramsAndReadsAgain() {
    StartRadio();
    testing::WindowDesk desk;
    platform::QtClock clock;
    platform::QtEventPump pump(clock);
    testing::ScriptedPrinter printer;
    desk.settings.Write("ModelPath", "ModelNum", kModel);
    const auto services = [&](editor::Commands* commands) {
      return editor::WindowServices{desk.data,     desk.prompts, clock,      pump,
                                    desk.settings, desk.files,   desk.log,   desk.ports,
                                    desk.dialogs,  commands,     "/program", "/share"};
    };
    editor::WindowCommands commands(
        services(nullptr),
        {.make_port =
             [&](int /*number*/) { return std::make_unique<platform::QtSerialPort>(device_); },
         .printer = printer,
         .help = nullptr});
    desk.window = std::make_unique<editor::MainWindow>(services(&commands));
    desk.window->show();
    QVERIFY(QTest::qWaitFor(
        [&] { return !desk.Find<QTimer>("Timer1")->isActive() && desk.window->isEnabled(); }));

    QVERIFY(Transfer(desk, "mnuTransferRead"));
    core::ChannelRecord& channel = desk.data.Table(core::MarineGroup::kUsa)[32];
    QVERIFY(channel.Enable);
    const bool scanned = channel.ScanMemory;
    desk.window->SelectNode("PU32");
    QTest::mouseClick(desk.Find<QCheckBox>("chkCScan"), Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(static_cast<bool>(channel.ScanMemory), !scanned);
    QVERIFY(desk.data.Flags.DataChanged);

    QVERIFY(Transfer(desk, "mnuTransferProgram"));
    channel.ScanMemory = scanned;
    QVERIFY(Transfer(desk, "mnuTransferRead"));
    QCOMPARE(static_cast<bool>(desk.data.Table(core::MarineGroup::kUsa)[32].ScanMemory), !scanned);
    QVERIFY(!desk.data.Flags.DataChanged);
    QCOMPARE(desk.Messages(), QStringList({"Complete!!", "Complete!!", "Complete!!"}));
  }

  void cleanup() {
    radio_.terminate();
    QVERIFY(radio_.waitForFinished());
  }

 private:
  /// Starts the radio with a configuration folder of its own and learns its device.
  void StartRadio() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", config_.path());
    radio_.setProcessEnvironment(environment);
    radio_.start(ORVANE_RADIO, {"--model", kModel, "--baud", "0", "--quiet"});
    QVERIFY(QTest::qWaitFor([this] { return radio_.canReadLine(); }, kStartTimeout));
    const QString ready = QString::fromUtf8(radio_.readLine()).trimmed();
    QVERIFY2(ready.startsWith("COM16 is "), qPrintable(ready));
    device_ = ready.section(' ', 2).toStdString();
  }

  /// True when the dialog closed by itself.
  static bool Transfer(const testing::WindowDesk& desk, const char* item) {
    bool closed = false;
    QTimer::singleShot(0, desk.window.get(), [&closed] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      dialog->findChild<QPushButton*>("cmdOK")->click();
      closed = !dialog->isVisible();
      dialog->close();
    });
    desk.Item(item).trigger();
    return closed;
  }

  QTemporaryDir config_;
  QProcess radio_;
  std::string device_;
};

QTEST_MAIN(CableTest)
#include "cable_test.moc"
