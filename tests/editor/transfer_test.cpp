#include <QLabel>
#include <QRegularExpression>
#include <csignal>
#include <string_view>

#include "files/text_report.h"
#include "link/transfer_session.h"
#include "real_time_desk.h"
#include "support/row.h"

using namespace orvane;
using link::ExchangeKind;
using testing::CommandDesk;

namespace {

constexpr const char* kRead = "mnuTransferRead";
constexpr const char* kProgram = "mnuTransferProgram";

core::ChannelRecord& Channel16(core::RadioData& data) {
  return data.Table(core::MarineGroup::kUsa)[32];
}

/// Does something when the n-th exchange of a kind is over.
void After(CommandDesk& desk, ExchangeKind kind, int number, std::function<void()> deed) {
  desk.on_exchange = [&desk, kind, number, deed = std::move(deed)](const link::Exchange& exchange) {
    if (exchange.kind == kind && desk.Asked(kind) == number) deed();
  };
}

template <class T>
T* Child(const char* name) {
  return QApplication::activeModalWidget()->findChild<T*>(QLatin1String(name));
}

link::FaultPlan Everywhere(link::FaultKind kind) {
  return link::FaultPlan({link::MakeFault(kind, 0)});
}

}  // namespace

class TransferTest : public QObject {
  Q_OBJECT

 private slots:
  void DialogTellsHowToStartAndWhatItDoes() {
    CommandDesk desk;
    desk.ports.Add(1, "Adapter");
    desk.Start();
    for (const auto& [item, caption] :
         {std::pair(kRead, "Read from Radio"), std::pair(kProgram, "Program to Radio")}) {
      desk.InWindowOf(item, [&, caption = caption](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), "frmRadio_102");
        QCOMPARE(dialog.windowTitle(), caption);
        QCOMPARE(Child<QLabel>("lblmess")->text(),
                 "1.Connect the KIV cable between the PC serial port and the radio.\n"
                 "2.On the radio, press and hold the [PRESET]+[DOWN]+[SQL] keys\n"
                 "   while turning on.\n"
                 "3.Press the [OK] button to start.");
        const bool reading = caption == QLatin1String("Read from Radio");
        const auto* radio = Child<QWidget>("pictHandy");
        const auto* computer = Child<QWidget>("pictB");
        QVERIFY(radio->isVisible() && computer->isVisible());
        QCOMPARE(radio->x() < computer->x(), reading);
        QVERIFY(!Child<QLabel>("lblmon")->isVisible() && !Child<QLabel>("lblNote")->isVisible());
        QCOMPARE(Child<QLabel>("lblState")->text(), "Port: COM1 Adapter");
        QCOMPARE(Child<QLabel>("lblPercent")->geometry().right(), -1);
        Child<QPushButton>("cmdHelp")->click();
        desk.help.has_help = false;
        Child<QPushButton>("cmdHelp")->click();
        desk.help.has_help = true;
      });
    }
    QCOMPARE(desk.help.opened, QStringList({"frmRadio_102 1012", "frmRadio_102 1012"}));
    QCOMPARE(desk.Messages()[0],
             "Unable to display Help Contents. There is no Help associated with this project.");
  }

  void WholeRoadFromRadioToFileAndBack() {
    CommandDesk desk;
    desk.ports.Add(3, "Adapter");
    desk.Start();
    desk.Item("mnuOptionsSerialPort1_0").trigger();
    desk.dialogs.paths = {"/out/other.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    const std::string other = desk.files.files["/out/other.dat"];
    desk.window->SelectNode("PU32");
    desk.document.NoteChange();
    QVERIFY(desk.Transfer(kRead));
    QCOMPARE(desk.Messages(), QStringList{"Complete!!"});
    desk.Item("mnuFileSave").trigger();  // asks for a name: what was read is another radio's
    QCOMPARE(desk.dialogs.requests.size(), std::size_t{2});
    QCOMPARE(desk.files.files["/out/other.dat"], other);
    QCOMPARE(desk.PageName(), "pictGeneral");
    QVERIFY(!desk.document.HasChanged() && !desk.state.Busy);
    QCOMPARE(desk.data.EXP[1].ChTag, desk.sample.EXP[1].ChTag);

    Channel16(desk.data).ChTag = "HARBOUR";
    desk.data.Usable[2].Enable = false;
    desk.dialogs.paths = {"/out/boat.dat", "/out/boat.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    desk.TriggerAndWait("mnuFileNew");
    desk.Item("mnuFileOpen").trigger();
    QVERIFY(desk.window->windowTitle().endsWith(" - boat.dat"));
    QVERIFY(desk.Transfer(kProgram));
    const core::RadioData programmed = desk.data;

    desk.TriggerAndWait("mnuFileNew");
    QVERIFY(desk.Transfer(kRead));
    QCOMPARE(Channel16(desk.data).ChTag, "HARBOUR");
    QCOMPARE(files::BuildTextReport(desk.data), files::BuildTextReport(programmed));
    QVERIFY(desk.data.EXP == programmed.EXP && desk.data.Usable == programmed.Usable);
    QVERIFY(desk.data.Common == programmed.Common);
    QVERIFY(!desk.window->windowTitle().contains("boat"));
    QVERIFY(!desk.Tree().Contains("PC"));
    QCOMPARE(desk.opened_ports, std::vector<int>({3, 3, 3}));
  }

  void ProgressShowsPercentBlockSpeedAndTimeLeft() {
    CommandDesk desk;
    desk.Start();
    // The 400th bulk block; four single fields are read before the first.
    After(desk, ExchangeKind::kRead, 404, [&] {
      const QRect bar = Child<QLabel>("lblPercent")->geometry();
      const int width = Child<QWidget>("pictProgress")->width();
      QCOMPARE(bar.left(), width * 39 / 100 - width);  // block 400: address 64 + 399 * 16
      QCOMPARE(Child<QLabel>("lblPercent")->text(), "39 %");
      const QString state = Child<QLabel>("lblState")->text();
      QVERIFY2(QRegularExpression("^COM1 +Block 1920 +[78]\\d\\d bytes/s +0:\\d\\d left$")
                   .match(state)
                   .hasMatch(),
               qPrintable(state));
      QVERIFY(!Child<QPushButton>("cmdOK")->isEnabled());
      QVERIFY(!Child<QPushButton>("cmdHelp")->isEnabled());
      // Neither window can be closed now.
      QVERIFY(!QApplication::activeModalWidget()->close() && !desk.window->close());
    });
    QVERIFY(desk.Transfer(kRead));
    QVERIFY(desk.window->isVisible());
    QVERIFY(desk.Asked(ExchangeKind::kRead) > 404);
  }

  void CancelledReadStopsTheRadioAndKeepsTheData() {
    for (const bool by_key : {false, true}) {
      const testing::Row row(by_key);
      CommandDesk desk;
      desk.Start();
      Channel16(desk.data).ChTag = "MINE";
      desk.document.NoteChange();
      const core::RadioData before = desk.data;
      After(desk, ExchangeKind::kRead, 50, [by_key] {
        if (by_key) QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        if (!by_key) Child<QPushButton>("cmdCancel")->click();
      });
      desk.Transfer(kRead);
      QCOMPARE(desk.Asked(ExchangeKind::kCancel), 1);
      QCOMPARE(desk.Asked(ExchangeKind::kRead), 50);
      QVERIFY(desk.data == before);
      QVERIFY(desk.prompts.messages.empty());
      QVERIFY(desk.document.HasChanged());
    }
  }

  void CancelledProgrammingWarnsAndCanBeRepeated() {
    CommandDesk desk;
    desk.Start();
    QVERIFY(desk.Transfer(kRead));
    Channel16(desk.data).ChTag = "AGAIN";
    desk.prompts.messages.clear();
    After(desk, ExchangeKind::kWrite, 60, [] { Child<QPushButton>("cmdCancel")->click(); });
    desk.InWindowOf(kProgram, [&](QDialog& dialog) {
      Child<QPushButton>("cmdOK")->click();
      QVERIFY(dialog.isVisible());
      QCOMPARE(desk.Asked(ExchangeKind::kCancel), 0);
      QCOMPARE(desk.Asked(ExchangeKind::kWrite), 60);
      QVERIFY(desk.prompts.messages.empty());
      const auto* note = Child<QLabel>("lblNote");
      QVERIFY(note->isVisible());
      QCOMPARE(note->text(), platform::FromUtf8(core::kPartlyWrittenText));
      QCOMPARE(Child<QLabel>("lblState")->text(), "Cancelled at block 0310");
      QVERIFY(Child<QPushButton>("cmdOK")->isEnabled());

      // A run that never gets as far as writing does not take the warning away.
      desk.on_exchange = nullptr;
      desk.radio.SetFaults(Everywhere(link::FaultKind::kMissingReply));
      Child<QPushButton>("cmdOK")->click();
      QVERIFY(dialog.isVisible() && note->isVisible());
    });
    QCOMPARE(desk.Messages(), QStringList{"Communication Error!!"});
    // Nor does closing the dialog, or reading.
    desk.radio.SetFaults({});
    bool warns_while_it_writes = true;
    After(desk, ExchangeKind::kWrite, 70, [&warns_while_it_writes] {
      warns_while_it_writes = Child<QLabel>("lblNote")->isVisible();
    });
    for (const char* const item : {kRead, kProgram}) {
      desk.InWindowOf(item, [&](QDialog& dialog) {
        QVERIFY(Child<QLabel>("lblNote")->isVisible());
        Child<QPushButton>("cmdOK")->click();
        QVERIFY(!dialog.isVisible());
      });
      if (item == std::string_view(kRead)) Channel16(desk.data).ChTag = "AGAIN";
    }
    QVERIFY(!warns_while_it_writes);
    desk.InWindowOf(kProgram, [](QDialog&) { QVERIFY(!Child<QLabel>("lblNote")->isVisible()); });
    desk.TriggerAndWait("mnuFileNew");
    QVERIFY(desk.Transfer(kRead));
    QCOMPARE(Channel16(desk.data).ChTag, "AGAIN");
  }

  void SilentRadioEndsInAMessageAndMayBeTriedAgain() {
    CommandDesk desk;
    desk.state.Debug = true;
    desk.Start();
    desk.radio.SetFaults(Everywhere(link::FaultKind::kMissingReply));
    desk.InWindowOf(kRead, [&](QDialog& dialog) {
      const auto* monitor = Child<QLabel>("lblmon");  // in debug mode only
      QVERIFY(monitor->isVisible());
      QCOMPARE(monitor->text(), "starting at debug mode..");
      Child<QPushButton>("cmdOK")->click();
      QVERIFY(dialog.isVisible());
      QCOMPARE(desk.Messages(), QStringList{"Communication Error!!"});
      QCOMPARE(monitor->text(), "can not syncing!!");
      QCOMPARE(Child<QLabel>("lblState")->text(), "Failed before the first block");
      desk.radio.SetFaults(link::FaultPlan({*link::ParseFault("missing-reply@sync:2").fault}));
      Child<QPushButton>("cmdOK")->click();
      QCOMPARE(Child<QLabel>("lblState")->text(), "The radio does not answer on COM1");
      QCOMPARE(desk.Messages().size(), 1);
      desk.radio.SetFaults({});
      Child<QPushButton>("cmdOK")->click();
      QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(desk.Messages().last(), "Complete!!");
  }

  // With the program's own clock and event loop: the echo wait under way would last 100 seconds.
  void CancelAndTheSystemsRequestToEndAreHeardInTheMiddleOfAWait() {
    for (const bool by_signal : {false, true}) {
      const testing::Row row(by_signal);
      testing::RealTimeRadioDesk desk;
      desk.Start();
      desk.radio.SetFaults(Everywhere(link::FaultKind::kMissingEcho));
      double cancelled_at = 0;
      QTimer::singleShot(300, desk.window.get(), [&] {
        cancelled_at = desk.real_clock.Now();
        if (by_signal) std::raise(SIGTERM);
        if (!by_signal) Child<QPushButton>("cmdCancel")->click();
      });
      desk.InWindowOf(kRead, [](QDialog&) {
        Child<QPushButton>("cmdOK")->click();
        QCOMPARE(Child<QLabel>("lblState")->text(), "Cancelled before the first block");
      });
      const double lasted = desk.real_clock.Now() - cancelled_at;
      // The dialog lets half a second pass at the end.
      QVERIFY2(cancelled_at > 0 && lasted < 1, qPrintable(QString::number(lasted)));
      QVERIFY(desk.prompts.messages.empty() && !desk.state.Busy);
    }
  }

  void ALineWithoutEchoIsNamedAfterThreeSeconds() {
    CommandDesk desk;
    desk.Start();
    desk.radio.SetFaults(Everywhere(link::FaultKind::kMissingEcho));
    desk.waiting = [&] {
      const QString state = Child<QLabel>("lblState")->text();
      if (!state.startsWith("Nothing comes back")) return;
      QCOMPARE(state,
               "Nothing comes back on COM1. Check the cable, or press Cancel and choose "
               "another port under Options, SerialPort.");
      Child<QPushButton>("cmdCancel")->click();
    };
    const double start = desk.clock.now;
    desk.Transfer(kRead);
    QVERIFY(desk.clock.now - start > 3 && desk.clock.now - start < 4);
  }
};

QTEST_MAIN(TransferTest)
#include "transfer_test.moc"
