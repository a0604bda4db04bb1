#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeWidget>

#include "command_desk.h"
#include "core/app_settings.h"

using namespace orvane;
using testing::CommandDesk;

namespace {

constexpr const char* kItem = "mnuFindCable";

/// The dialog's parts.
struct Parts {
  explicit Parts(QDialog& the_dialog) : dialog(the_dialog) {}
  [[nodiscard]] QString State() const { return label->text(); }
  [[nodiscard]] QString Row(int index) const {
    const QTreeWidgetItem* row = list->topLevelItem(index);
    return row->text(0) + '|' + row->text(1) + '|' + row->text(2);
  }
  [[nodiscard]] QPushButton& Button(const char* name) const {
    return *dialog.findChild<QPushButton*>(name);
  }
  void Press(int key) const { QTest::keyClick(dialog.focusWidget(), static_cast<Qt::Key>(key)); }

  QDialog& dialog;
  QTreeWidget* list = dialog.findChild<QTreeWidget*>("lstPorts");
  editor::LiveLabel* label = dialog.findChild<editor::LiveLabel*>("lblState");
  QLineEdit* command = dialog.findChild<QLineEdit*>("txtCommand");
};

}  // namespace

class FindCableTest : public QObject {
  Q_OBJECT

 private slots:
  void UnpluggingAndPluggingInChoosesThePortByKeyboard() {
    CommandDesk desk;
    desk.ports.Add(1, "Communications Port");
    desk.ports.Add(2, "USB Serial");
    desk.Start();
    desk.InWindowOf(kItem, [&](QDialog& dialog) {
      const Parts parts(dialog);
      QSignalSpy spoken(parts.label, &editor::LiveLabel::Announced);
      QCOMPARE(parts.Row(0), "COM1 (chosen)|Communications Port|free, as far as is known");
      parts.Press(Qt::Key_Space);
      QVERIFY(parts.State().startsWith("Unplug the cable now"));
      QVERIFY(!parts.Button("cmdTest").isEnabled());
      const link::FoundPort cable = desk.ports.ports.back();
      desk.ports.ports.pop_back();
      QTRY_COMPARE(parts.State(), "Plug it in again.");
      QCOMPARE(parts.list->topLevelItemCount(), 1);
      desk.ports.ports.push_back(cable);
      QTRY_VERIFY(parts.State().startsWith("The cable is at COM2 USB Serial, which is chosen"));
      QCOMPARE(spoken.count(), 3);
      QCOMPARE(parts.Row(1), "COM2 (chosen)|USB Serial|free, as far as is known");
      QCOMPARE(parts.list->currentItem(), parts.list->topLevelItem(1));
      QCOMPARE(desk.window->PortNumber(), 2);
      parts.Press(Qt::Key_Space);  // Test has the focus now
      QVERIFY(parts.State().startsWith("COM2 USB Serial: The cable works, and a KT740 answers."));
      QCOMPARE(desk.opened_ports, std::vector<int>{2});
      QCOMPARE(desk.Asked(link::ExchangeKind::kWrite), 0);
    });
    QCOMPARE(core::AppSettings(desk.settings).PortNumber(), 2);
    QVERIFY(desk.Item("mnuOptionsSerialPort1_1").isChecked());
    QVERIFY(!desk.state.Busy && !desk.state.Error && !desk.state.Cancel);
    QVERIFY(desk.Transfer("mnuTransferRead"));
  }

  void SeveralPortsAtOnceAreNotGuessedAt() {
    CommandDesk desk;
    desk.Start();
    desk.InWindowOf(kItem, [&](QDialog& dialog) {
      const Parts parts(dialog);
      QCOMPARE(parts.Row(0), "COM1 (chosen)|(not connected)|");
      parts.Press(Qt::Key_Space);
      desk.ports.Add(3, "Hub A");
      desk.ports.Add(4, "Hub B");
      QTRY_VERIFY(parts.State().startsWith("Several ports came at once: COM3 Hub A, COM4 Hub B."));
      QCOMPARE(desk.window->PortNumber(), 1);
      parts.list->setCurrentItem(parts.list->topLevelItem(1));
      parts.Button("cmdUse").click();
      QCOMPARE(desk.window->PortNumber(), 4);
    });
  }

  void EscapeEndsWhatRunsAndThenCloses() {
    CommandDesk desk;
    desk.ports.Add(1, "Communications Port");
    desk.Start();
    desk.InWindowOf(kItem, [&](QDialog& dialog) {
      const Parts parts(dialog);
      const QString at_first = parts.State();
      parts.Press(Qt::Key_Space);
      parts.Press(Qt::Key_Escape);
      QCOMPARE(parts.State(), at_first);
      desk.waiting = [&] {
        if (desk.asked.size() != 3) return;
        QVERIFY(desk.state.Busy && !parts.Button("cmdTest").isEnabled());
        parts.Press(Qt::Key_Escape);
      };
      parts.Button("cmdTest").click();
      QVERIFY2(parts.State().contains("The test was cancelled."), qPrintable(parts.State()));
      QVERIFY(dialog.isVisible() && !desk.state.Busy);
      parts.Press(Qt::Key_Escape);
      QVERIFY(!dialog.isVisible());
    });
  }

  void WhatToTypeCanBeCopied() {
    CommandDesk desk;
    desk.ports.Add(1, "Communications Port");
    desk.devices.holders = {{"ModemManager", 612}};
    desk.Start();
    desk.InWindowOf(kItem, [&](QDialog& dialog) {
      const Parts parts(dialog);
      QVERIFY(!parts.command->isVisible());
      QVERIFY(parts.Row(0).endsWith("|in use by ModemManager (process 612)"));
      parts.Button("cmdTest").click();
      QVERIFY(parts.command->isVisible());
      parts.Press(Qt::Key_Space);  // Copy has the focus now
      QCOMPARE(QApplication::clipboard()->text(), "sudo systemctl stop ModemManager");
      QVERIFY(desk.asked.empty());
      parts.Button("cmdHelp").click();
      QCOMPARE(desk.help.opened, QStringList{"frmFindCable 3000"});
      desk.devices.holders.clear();
      parts.Button("cmdTest").click();
      QVERIFY(!parts.command->isVisible());
    });
  }
};

QTEST_MAIN(FindCableTest)
#include "find_cable_test.moc"
