#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QToolButton>

#include "core/app_settings.h"
#include "files/settings_file.h"
#include "image/codec.h"
#include "image/sample_radio.h"
#include "window_desk.h"

using namespace orvane;
using testing::WindowDesk;

namespace {

constexpr const char* kDestinations = "mnuDestination";
constexpr const char* kPorts = "mnuOptionsSerialPort";

/// The captions of the items on show in a menu, or of the checked ones alone.
QStringList Captions(const WindowDesk& desk, const char* menu, bool checked_only = false) {
  QStringList texts;
  for (const QAction* item : desk.Find<QMenu>(menu)->actions()) {
    const bool shown = item->isVisible() && !item->isSeparator();
    if (shown && (item->isChecked() || !checked_only)) texts << item->text();
  }
  return texts;
}

}  // namespace

class MenusTest : public QObject {
  Q_OBJECT

 private slots:
  void CaptionsAreTheSystemsOwn() {
    WindowDesk desk;
    desk.Start();
    QStringList menus;
    for (const QAction* menu : desk.window->menuBar()->actions()) menus << menu->text();
    QCOMPARE(menus,
             QStringList({"&File", "&Edit", "&Transfer", "&Destination", "&Options", "&Help"}));
    QCOMPARE(Captions(desk, "mnuFile"),
             QStringList({"&New", "&Open", "&Save", "Save &As...", "&Print", "P&rint to File",
                          "Recent &Files", "&Backups...", "&Export Table...", "&Import Table...",
                          "E&xit"}));
    QCOMPARE(Captions(desk, "mnuEditModel"), QStringList({"&KT740 Series"}));
    QCOMPARE(Captions(desk, "mnuTransfer"),
             QStringList({"&Program to Radio", "&Read from Radio", "&Compare with Radio..."}));
    QCOMPARE(Captions(desk, "mnuHelp"),
             QStringList({"&Contents", "&About KIV Version", "&Find my Cable..."}));
    for (const char* hidden : {"mnuEditModel_1", "mnuEditModel_2", "mnuEditModel_3"}) {
      QVERIFY(!desk.Item(hidden).isEnabled());
    }
  }

  void EachCommandRunsFromMenuAndToolbar() {
    WindowDesk desk;
    desk.Start();
    // What the item opens; nothing for one that opens no window.
    const auto opened = [&desk](const char* name) {
      QString title;
      QTimer::singleShot(0, desk.window.get(), [&title] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) return;
        title = dialog->windowTitle();
        dialog->close();
      });
      desk.Item(name).trigger();
      QCoreApplication::processEvents();
      return title;
    };
    for (const char* name : {"mnuTransferProgram", "Program", "Program2"}) {
      QCOMPARE(opened(name), "Program to Radio");
    }
    for (const char* name : {"mnuTransferRead", "Read", "Read2"}) {
      QCOMPARE(opened(name), "Read from Radio");
    }
    QCOMPARE(opened("mnuHelpAbout"), "Version Infomation");
    for (const char* name : {"mnuFilePrint", "Print", "mnuHelpContents"}) desk.Item(name).trigger();
    QCOMPARE(desk.printer.printed.size(), 2U);
    QCOMPARE(desk.help.opened, QStringList{"frmMain 1000"});
    for (const char* key : {"Program2", "Read2"}) QVERIFY(!desk.Item(key).isVisible());
    desk.Item("mnuTransferRead").setEnabled(false);
    for (const char* name : {"Read", "Read2"}) QVERIFY(opened(name).isEmpty());
  }

  void F1OpensTheHelpOfTheFocusedControl() {
    WindowDesk desk;
    desk.Start();
    desk.data.LmrPresent() = true;
    desk.window->RebuildTree();
    QTest::keyClick(&desk.Tree(), Qt::Key_F1);
    for (const char* key : {"L1", "PU32"}) {
      desk.window->SelectNode(key);
      for (const char* name : {"chkCEnable", "txtCN_0", "txtCRF", "txtCTF"}) {
        QTest::keyClick(desk.Find<QWidget>(name), Qt::Key_F1);
      }
    }
    QCOMPARE(desk.help.opened, QStringList({"frmMain 1000", "frmMain 2500", "frmMain 2501",
                                            "frmMain 2502", "frmMain 2503", "frmMain 1028"}));
  }

  void AccessKeysOfMenusAndOtherWindowsWorkWhileAFrequencyIsWrong() {
    WindowDesk desk;
    desk.Start();
    desk.data.LmrPresent() = desk.data.EXP[1].Enable = true;
    desk.data.EXP[1].LMR_EXP = -1;
    desk.window->RebuildTree();
    desk.window->SelectNode("L1");
    auto* box = desk.Find<QWidget>("txtCRF");
    box->setFocus();
    QTest::keyClicks(box, "120");
    QDialog other(desk.window.get());
    QPushButton button("&Yes", &other);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    other.open();
    QTRY_COMPARE(QApplication::activeWindow(), &other);
    QTest::keyClick(&button, Qt::Key_Y, Qt::AltModifier);
    QTRY_COMPARE(clicked.count(), 1);
    other.close();
    desk.window->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), desk.window.get());
    QVERIFY(desk.prompts.messages.empty());
    QSignalSpy pressed(desk.Find<QCheckBox>("chkCScan"), &QCheckBox::pressed);
    QTest::keyClick(box, Qt::Key_M, Qt::AltModifier);  // one of the page's own
    QTRY_COMPARE(desk.Messages(), QStringList{"Data Error!!"});
    QVERIFY(box->hasFocus() && pressed.isEmpty());
    QTest::keyClick(box, Qt::Key_F, Qt::AltModifier);
    QVERIFY(desk.Find<QMenu>("mnuFile")->isVisible());
    QCOMPARE(desk.Messages().size(), 1);
  }

  void PortMenuIsFreshEachTimeItOpensButTheStoredPortIsUsedAnyway() {
    WindowDesk desk;
    core::AppSettings(desk.settings).SetPortNumber(3);
    desk.Start();
    QCOMPARE(desk.window->PortNumber(), 3);
    const QStringList after_ports = {"&Find my Cable...", "&Try the Simulated Radio",
                                     "&End the Simulated Radio"};
    QCOMPARE(Captions(desk, kPorts), QStringList("(not exist)") + after_ports);
    desk.ports.Add(12, "USB & Serial");
    desk.ports.Add(2, "Communications Port");
    emit desk.Find<QMenu>(kPorts)->aboutToShow();
    QCOMPARE(Captions(desk, kPorts),
             QStringList({"COM2 Communications Port ", "COM12 USB && Serial "}) + after_ports);
    desk.Item("mnuOptionsSerialPort1_1").trigger();
    QCOMPARE(Captions(desk, kPorts, true), QStringList({"COM12 USB && Serial "}));
    QCOMPARE(core::AppSettings(desk.settings).PortNumber(), 12);
    QCOMPARE(desk.window->PortNumber(), 12);
    desk.Item("mnuOptionsSerialPort1_1").trigger();  // picking it again keeps it
    QCOMPARE(Captions(desk, kPorts, true).size(), 1);
    const std::vector<link::FoundPort> both = desk.ports.ports;
    for (const bool there : {false, true}) {
      desk.ports.ports = there ? both : std::vector{both[1]};
      emit desk.Find<QMenu>(kPorts)->aboutToShow();
      const QString gone = "COM12 USB && Serial (not connected)";
      QCOMPARE(Captions(desk, kPorts).contains(gone), !there);
      QVERIFY(!desk.Item("mnuOptionsSerialPortGone").isEnabled());
    }
  }

  void DestinationIsAskedForAndMayHaveNoFile() {
    WindowDesk desk;
    desk.Start();
    QCOMPARE(Captions(desk, kDestinations), QStringList({"KT740-usa", "KT520-usa"}));
    QCOMPARE(Captions(desk, kDestinations, true), QStringList({"KT740-usa"}));
    desk.document.NoteChange();
    desk.prompts.answers = {core::Answer::kCancel, core::Answer::kOk};
    desk.Item("mnuDestination_1").trigger();
    QVERIFY(desk.document.HasChanged());
    desk.Item("mnuDestination_1").trigger();
    const QString question = "Do yo want to change to KT520-usa?";
    QCOMPARE(desk.Messages(), QStringList({question, question, "IniFileRead Error!!"}));
    QVERIFY(desk.prompts.messages[2].icon == core::Icon::kExclamation);
    QCOMPARE(Captions(desk, kDestinations, true), QStringList({"KT740-usa"}));
  }

  void DestinationReplacesTheDataSet() {
    WindowDesk desk;
    const core::MemoryImage image = image::MakeDestinationTemplate(5, false, desk.clock.today);
    desk.files.files["/share/" + core::DestinationFileName("KT520-usa", 5)] =
        std::string(image.Used().begin(), image.Used().end());
    desk.Start();
    QCOMPARE(Captions(desk, kDestinations), QStringList({"KT520-usa", "KT740-usa"}));
    desk.document.NoteChange();
    desk.document.MarkSaved("/boat.dat", {});
    desk.window->SelectNode("Common");
    desk.Item("mnuDestination_0").trigger();
    QCOMPARE(desk.Messages(), QStringList({"Do yo want to change to KT520-usa?"}));
    QVERIFY(!image::Sel1(desk.data.Image));
    QCOMPARE(desk.Model(), "KT520");
    QCOMPARE(int{desk.data.Table(core::MarineGroup::kUsa)[32].TXPower}, 3);
    QVERIFY(!desk.document.HasChanged());
    QVERIFY(desk.document.FileName().empty());
    QCOMPARE(desk.PageName(), "pictGeneral");
    QCOMPARE(Captions(desk, kDestinations, true), QStringList({"KT520-usa"}));
    QCOMPARE(core::AppSettings(desk.settings).Destination(5), "KT520-usa");

    desk.Item("mnuDestination_0").trigger();  // checked already: nothing is asked
    QCOMPARE(desk.Messages().size(), 1);
    QCOMPARE(Captions(desk, kDestinations, true), QStringList({"KT520-usa"}));
  }

  void CheckedDestinationIsAChoiceUnlessTheDataComeFromIt_data() {
    QTest::addColumn<QString>("replaced_by");
    for (const char* by : {"start", "New", "file", "radio or image", "failed template", "nothing"})
      QTest::addRow("%s", by) << QString(by);
  }
  void CheckedDestinationIsAChoiceUnlessTheDataComeFromIt() {
    QFETCH(QString, replaced_by);
    WindowDesk desk;
    const std::string template_file = "/share/" + core::DestinationFileName("KT740-usa", 5);
    const core::MemoryImage image = image::MakeDestinationTemplate(5, true, desk.clock.today);
    desk.files.files[template_file] = std::string(image.Used().begin(), image.Used().end());
    desk.Start();
    core::RadioData fresh = desk.data;
    QAction& entry = desk.Item("mnuDestination_0");
    if (replaced_by != "start") entry.trigger();
    desk.prompts.messages.clear();
    if (replaced_by == "New") desk.TriggerAndWait("mnuFileNew");
    if (replaced_by == "file") {
      static_cast<void>(files::WriteSettingFile(fresh, "/boat.dat", desk.files, desk.pump));
      desk.dialogs.paths = {"/boat.dat"};
      desk.Item("mnuFileOpen").trigger();
    }
    if (replaced_by == "radio or image") desk.ShowArranged();
    if (replaced_by == "failed template") {
      desk.Item("mnuDestination_1").trigger();  // has no file
      desk.prompts.messages.clear();
    }
    QCOMPARE(Captions(desk, kDestinations, true), QStringList({"KT740-usa"}));
    entry.trigger();
    const bool asked = replaced_by != "nothing";
    QCOMPARE(desk.Messages(),
             asked ? QStringList{"Do yo want to change to KT740-usa?"} : QStringList());
    QCOMPARE(int{desk.data.Table(core::MarineGroup::kUsa)[32].TXPower}, 3);
    entry.trigger();  // now they do come from it
    QCOMPARE(desk.Messages().size(), asked ? 1 : 0);
    QCOMPARE(Captions(desk, kDestinations, true), QStringList({"KT740-usa"}));
  }

  void ModelCommandStartsAFreshDataSetOfTheModel() {
    WindowDesk desk;
    desk.Start();
    desk.Item("mnuEditModel_0").trigger();
    QVERIFY(desk.prompts.messages.empty());  // of the series already
    desk.Item("mnuEditModel_1").setEnabled(true);
    desk.prompts.answers = {core::Answer::kCancel};
    desk.Item("mnuEditModel_1").trigger();
    QCOMPARE(int{desk.data.MODELTYPE}, 5);
    desk.TriggerAndWait("mnuEditModel_1");
    QCOMPARE(desk.Messages().constLast(), "Do yo want to program the KT310 series?");
    QCOMPARE(int{desk.data.MODELTYPE}, 1);
    QCOMPARE(desk.data.Image.LastIndex(), 8191);
    QCOMPARE(desk.Model(), "KT310");
    QCOMPARE(int{core::AppSettings(desk.settings).ModelType()}, 1);
    const auto asked = desk.prompts.messages.size();
    desk.Item("mnuEditModel_1").trigger();
    QCOMPARE(desk.prompts.messages.size(), asked);
  }

  void EachModelCommandSelectsItsModel() {
    const std::pair<const char*, int> rows[] = {
        {"mnuEditModel_0", 4}, {"mnuEditModel_1", 1}, {"mnuEditModel_2", 0}, {"mnuEditModel_3", 3}};
    for (const auto& [name, model_type] : rows) {
      WindowDesk desk;
      core::AppSettings(desk.settings).SetModelType(2);
      desk.Start();
      desk.Item(name).setEnabled(true);
      desk.TriggerAndWait(name);
      QCOMPARE(int{desk.data.MODELTYPE}, model_type);
    }
  }
};

QTEST_MAIN(MenusTest)
#include "menus_test.moc"
