// The whole road over a real serial port object: the window, a pseudo-terminal, and orvane-radio at
// its other end as a process of its own.

#include <QCheckBox>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <memory>

#include "platform/qt_serial_port.h"
#include "real_time_desk.h"
#include "support/open_descriptors.h"

using namespace orvane;

namespace {

constexpr int kStartTimeout = 20'000;  // ms
constexpr const char* kModel = "1";    // the smallest memory: the cable's pauses make up the time
constexpr double kLongestEnd = 5;      // seconds from pressing OK to the end by an unplugged cable
constexpr const char* kRead = "mnuTransferRead";
constexpr const char* kProgram = "mnuTransferProgram";

}  // namespace

class CableTest : public QObject {
  Q_OBJECT

 private slots:
  void ReadsEditsProgramsAndReadsAgain() {
    StartRadio();
    testing::RealTimeDesk desk = Desk();
    desk.Start();

    QVERIFY(desk.Transfer(kRead));
    core::ChannelRecord& channel = desk.data.Table(core::MarineGroup::kUsa)[32];
    QVERIFY(channel.Enable);
    const bool scanned = channel.ScanMemory;
    desk.window->SelectNode("PU32");
    QTest::mouseClick(desk.Find<QCheckBox>("chkCScan"), Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(static_cast<bool>(channel.ScanMemory), !scanned);
    QVERIFY(desk.document.HasChanged());

    QVERIFY(desk.Transfer(kProgram));
    channel.ScanMemory = scanned;
    QVERIFY(desk.Transfer(kRead));
    QCOMPARE(static_cast<bool>(desk.data.Table(core::MarineGroup::kUsa)[32].ScanMemory), !scanned);
    QVERIFY(!desk.document.HasChanged());
    QCOMPARE(desk.Messages(), QStringList({"Complete!!", "Complete!!", "Complete!!"}));
  }

  void UnpluggedCableEndsInAMessage_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("fault");
    QTest::newRow("read, first block") << kRead << "unplug@read:5";
    QTest::newRow("read, within a block") << kRead << "unplug@read:20=30";
    QTest::newRow("program, within a block") << kProgram << "unplug@write:10=30";
  }
  void UnpluggedCableEndsInAMessage() {
    QFETCH(QString, item);
    QFETCH(QString, fault);
    StartRadio({"--fault", fault, "--replug", "3600"});
    testing::RealTimeDesk desk = Desk();
    core::AppSettings(desk.settings).SetKeepsCopyFirst(false);
    desk.Start();
    desk.data.Table(core::MarineGroup::kUsa)[32].ChTag = "MINE";
    desk.document.MarkSaved("/out/boat.dat", {});
    desk.document.NoteChange();
    const core::RadioData before = desk.data;
    const std::ptrdiff_t descriptors = testing::OpenDescriptors();
    const double began = desk.real_clock.Now();
    const bool reading = item == QLatin1String(kRead);
    desk.InWindowOf(qPrintable(item), [&](QDialog& dialog) {
      auto* ok = dialog.findChild<QPushButton*>("cmdOK");
      ok->click();
      QVERIFY(desk.real_clock.Now() - began < kLongestEnd);
      QVERIFY(dialog.isVisible() && ok->isEnabled());
      QCOMPARE(desk.Messages(),
               QStringList{"5\r\rInput/output error\r\n"
                           "The port no longer answers. Check that the cable is plugged in."});
      const std::string& details = desk.prompts.messages[0].details;
      QCOMPARE(details.find(core::kPartlyWrittenText) == std::string::npos, reading);
      QVERIFY(details.starts_with("COM1 failed"));
      QVERIFY(dialog.findChild<QLabel*>("lblState")->text().startsWith("Failed "));
      QCOMPARE(dialog.findChild<QLabel*>("lblNote")->isVisible(), !reading);
      ok->click();  // the cable still is unplugged
      QVERIFY(dialog.isVisible());
      QCOMPARE(desk.Messages().size(), 2);
      QCOMPARE(desk.Messages()[1], "port inicialize error!!");
    });
    if (reading) QVERIFY(desk.data == before);
    QCOMPARE(desk.document.FileName(), "/out/boat.dat");
    QVERIFY(desk.document.HasChanged() && !desk.state.Busy && desk.window->isEnabled());
    QCOMPARE(testing::OpenDescriptors(), descriptors);
  }

  void cleanup() {
    radio_.terminate();
    QVERIFY(radio_.waitForFinished());
  }

 private:
  /// Starts the radio with a configuration folder of its own and learns its device.
  void StartRadio(const QStringList& faults = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", config_.path());
    radio_.setProcessEnvironment(environment);
    radio_.start(ORVANE_RADIO, QStringList{"--model", kModel, "--baud", "0", "--quiet"} + faults);
    QVERIFY(QTest::qWaitFor([this] { return radio_.canReadLine(); }, kStartTimeout));
    const QString ready = QString::fromUtf8(radio_.readLine()).trimmed();
    QVERIFY2(ready.startsWith("COM16 is "), qPrintable(ready));
    device_ = ready.section(' ', 2).toStdString();
  }

  [[nodiscard]] testing::RealTimeDesk Desk() const {
    return {kModel, [device = device_](const core::Clock& /*clock*/) {
              return std::make_unique<platform::QtSerialPort>(device);
            }};
  }

  QTemporaryDir config_;
  QProcess radio_;
  std::string device_;
};

QTEST_MAIN(CableTest)
#include "cable_test.moc"
