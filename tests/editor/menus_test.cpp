#include <QToolButton>

#include "core/app_settings.h"
#include "image/codec.h"
#include "image/sample_radio.h"
#include "window_desk.h"

using namespace orvane;
using testing::WindowDesk;

namespace {

/// Puts a destination's template file beside the program.
void PutTemplate(WindowDesk& desk, const std::string& name, std::int16_t model_type, bool sel1) {
  const core::MemoryImage image =
      image::MakeDestinationTemplate(model_type, sel1, desk.clock.today);
  desk.files.files["/share/" + core::DestinationFileName(name, model_type)] =
      std::string(image.Used().begin(), image.Used().end());
}

QString ItemName(const char* name, int index) {
  return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index);
}

QStringList VisibleItems(const WindowDesk& desk, const char* name, int count,
                         bool checked_only = false) {
  QStringList texts;
  for (int i = 0; i < count; ++i) {
    const QAction& item = desk.Item(qPrintable(ItemName(name, i)));
    if (item.isVisible() && (item.isChecked() || !checked_only)) texts << item.text();
  }
  return texts;
}
QStringList Destinations(const WindowDesk& desk) {
  return VisibleItems(desk, "mnuDestination", 11);
}
QStringList CheckedDestinations(const WindowDesk& desk) {
  return VisibleItems(desk, "mnuDestination", 11, true);
}
QStringList Ports(const WindowDesk& desk) {
  return VisibleItems(desk, "mnuOptionsSerialPort1", 64);
}
QStringList CheckedPorts(const WindowDesk& desk) {
  return VisibleItems(desk, "mnuOptionsSerialPort1", 64, true);
}

}  // namespace

class MenusTest : public QObject {
  Q_OBJECT

 private slots:
  void CaptionsAreTheSystemsOwn() {
    WindowDesk desk;
    desk.Start();
    const std::pair<const char*, const char*> items[] = {
        {"mnuFileNew", "&New"},
        {"mnuFileOpen", "&Open"},
        {"mnuFileSave", "&Save"},
        {"mnuFileSaveAs", "Save &As..."},
        {"mnuFilePrint", "&Print"},
        {"mnuFilePrintFile", "P&rint to File"},
        {"mnuFileExit", "E&xit"},
        {"mnuEditModel_0", "&KT740 Series"},
        {"mnuTransferProgram", "&Program to Radio"},
        {"mnuTransferRead", "&Read from Radio"},
        {"mnuOptionsSerialPortNone", "(not exist)"},
        {"mnuHelpAbout", "&About KIV Version"}};
    for (const auto& [name, caption] : items) QCOMPARE(desk.Item(name).text(), caption);
    QStringList menus;
    for (const QAction* menu : desk.window->menuBar()->actions()) menus << menu->text();
    QCOMPARE(menus,
             QStringList({"&File", "&Edit", "&Transfer", "&Destination", "&Options", "&Help"}));
    for (const char* hidden : {"mnuEditModel_1", "mnuEditModel_2", "mnuEditModel_3"}) {
      QVERIFY(!desk.Item(hidden).isVisible() && !desk.Item(hidden).isEnabled());
    }
  }

  void EachCommandRunsFromMenuAndToolbar() {
    WindowDesk desk;
    desk.Start();
    for (const char* name : {"mnuFilePrint", "mnuFilePrintFile", "mnuTransferProgram",
                             "mnuTransferRead", "mnuHelpContents", "mnuHelpAbout"}) {
      desk.Item(name).trigger();
    }
    for (const char* key : {"Print", "Program", "Read"}) desk.Find<QToolButton>(key)->click();
    for (const char* key : {"Program2", "Read2"}) {
      QVERIFY(!desk.Item(key).isVisible());
      desk.Item(key).trigger();
    }
    QCOMPARE(desk.commands.ran,
             QStringList({"Print", "PrintToFile", "Program", "Read", "HelpContents", "About",
                          "Print", "Program", "Read", "Program", "Read"}));
    desk.commands.ran.clear();
    desk.Item("mnuTransferRead").setEnabled(false);
    desk.Find<QToolButton>("Read")->click();
    desk.Item("Read2").trigger();
    QVERIFY(desk.commands.ran.isEmpty());
  }

  void ImageKeysWorkInDebugModeOnly() {
    for (const bool debug : {false, true}) {
      WindowDesk desk;
      desk.data.Flags.Debug = debug;
      desk.Start();
      QTest::keyClick(&desk.Tree(), Qt::Key_F3, Qt::ControlModifier);
      QTest::keyClick(&desk.Tree(), Qt::Key_F2, Qt::ControlModifier);
      QCOMPARE(desk.commands.ran, debug ? QStringList({"SaveHex", "LoadHex"}) : QStringList());
    }
  }

  void F1OpensTheHelpOfTheFocusedControl() {
    WindowDesk desk;
    desk.Start();
    QTest::keyClick(&desk.Tree(), Qt::Key_F1);
    desk.Tree().setProperty(editor::kHelpContextProperty, 2502);
    QTest::keyClick(&desk.Tree(), Qt::Key_F1);
    desk.Tree().setProperty(editor::kHelpContextProperty, 0);
    QTest::keyClick(&desk.Tree(), Qt::Key_F1);
    QCOMPARE(desk.commands.ran, QStringList({"Help 1000", "Help 2502"}));
  }

  void PortMenuIsFreshEachTimeItOpens() {
    WindowDesk desk;
    desk.Start();
    auto* menu = desk.Find<QMenu>("mnuOptionsSerialPort");
    QVERIFY(desk.Item("mnuOptionsSerialPortNone").isVisible());
    QCOMPARE(Ports(desk), QStringList());
    desk.ports.Add(12, "USB & Serial");
    desk.ports.Add(2, "Communications Port");
    emit menu->aboutToShow();
    QCOMPARE(Ports(desk), QStringList({"COM2 Communications Port ", "COM12 USB && Serial "}));
    QVERIFY(!desk.Item("mnuOptionsSerialPortNone").isVisible());
    desk.Item("mnuOptionsSerialPort1_1").trigger();
    QCOMPARE(CheckedPorts(desk), QStringList({"COM12 USB && Serial "}));
    QCOMPARE(core::AppSettings(desk.settings).PortNumber(), 12);
    QCOMPARE(desk.window->PortNumber(), 12);
    desk.Item("mnuOptionsSerialPort1_1").trigger();  // picking it again keeps it
    QCOMPARE(CheckedPorts(desk).size(), 1);
  }

  void StoredPortIsUsedEvenWhenItIsGone() {
    WindowDesk desk;
    core::AppSettings(desk.settings).SetPortNumber(3);
    desk.ports.Add(1, "Built in");
    desk.Start();
    QCOMPARE(CheckedPorts(desk), QStringList());
    QCOMPARE(desk.window->PortNumber(), 3);
  }

  void BuiltInDestinationsNeedNoFile() {
    WindowDesk desk;
    desk.Start();
    QCOMPARE(Destinations(desk), QStringList({"KT740-usa", "KT520-usa"}));
    QCOMPARE(CheckedDestinations(desk), QStringList({"KT740-usa"}));
    desk.prompts.messages.clear();
    desk.Item("mnuDestination_1").trigger();
    QCOMPARE(desk.Messages(),
             QStringList({"Do yo want to change to KT520-usa?", "IniFileRead Error!!"}));
    QVERIFY(desk.prompts.messages[1].icon == core::Icon::kExclamation);
    QCOMPARE(CheckedDestinations(desk), QStringList({"KT740-usa"}));
  }

  void DestinationReplacesTheDataSet() {
    WindowDesk desk;
    PutTemplate(desk, "KT520-usa", 5, false);
    desk.Start();
    QCOMPARE(Destinations(desk), QStringList({"KT520-usa", "KT740-usa"}));
    desk.window->DataChanged();
    desk.data.CurrentFileName = "/boat.dat";
    desk.window->SelectNode("Common");
    desk.Item("mnuDestination_0").trigger();
    QCOMPARE(desk.Messages(), QStringList({"Do yo want to change to KT520-usa?"}));
    QVERIFY(!image::Sel1(desk.data.Image));
    QCOMPARE(desk.Model(), "KT520");
    QCOMPARE(int{desk.data.Table(core::MarineGroup::kUsa)[32].TXPower}, 3);
    QVERIFY(!desk.data.Flags.DataChanged);
    QVERIFY(desk.data.CurrentFileName.empty());
    QCOMPARE(desk.PageName(), "pictGeneral");
    QCOMPARE(CheckedDestinations(desk), QStringList({"KT520-usa"}));
    QCOMPARE(core::AppSettings(desk.settings).Destination(5), "KT520-usa");

    desk.Item("mnuDestination_0").trigger();  // checked already: nothing is asked
    QCOMPARE(desk.Messages().size(), 1);
    QCOMPARE(CheckedDestinations(desk), QStringList({"KT520-usa"}));
  }

  void DecliningADestinationKeepsEverything() {
    WindowDesk desk;
    desk.Start();
    desk.window->DataChanged();
    desk.prompts.answers = {core::Answer::kCancel};
    desk.Item("mnuDestination_1").trigger();
    QVERIFY(desk.data.Flags.DataChanged);
    QCOMPARE(CheckedDestinations(desk), QStringList({"KT740-usa"}));
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

  void EachModelCommandSelectsItsModel_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("model_type");
    const std::pair<int, int> rows[] = {{0, 4}, {1, 1}, {2, 0}, {3, 3}};
    for (const auto& [index, model_type] : rows) {
      QTest::addRow("command %d", index) << index << model_type;
    }
  }
  void EachModelCommandSelectsItsModel() {
    QFETCH(int, index);
    WindowDesk desk;
    core::AppSettings(desk.settings).SetModelType(2);
    desk.Start();
    const QByteArray name = ItemName("mnuEditModel", index).toLatin1();
    desk.Item(name.constData()).setEnabled(true);
    desk.TriggerAndWait(name.constData());
    QTEST(int{desk.data.MODELTYPE}, "model_type");
  }
};

QTEST_MAIN(MenusTest)
#include "menus_test.moc"
