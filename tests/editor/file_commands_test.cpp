#include <QDropEvent>
#include <QMimeData>

#include "core/app_settings.h"
#include "image/codec.h"
#include "window_desk.h"

using namespace orvane;
using core::Answer;
using testing::WindowDesk;

namespace {

constexpr const char* kTitle = "Orvane  PC Program for KT740 Series";

core::ChannelRecord& Channel16(WindowDesk& desk) {
  return desk.data.Table(core::MarineGroup::kUsa)[32];
}

/// Saves the present data under a path as the user would.
void SaveAs(WindowDesk& desk, const std::string& path) {
  desk.dialogs.paths = {path};
  desk.Item("mnuFileSaveAs").trigger();
}

}  // namespace

class FileCommandsTest : public QObject {
  Q_OBJECT

 private slots:
  void StartShowsTheLogoPageWithUnchangedData() {
    WindowDesk desk;
    desk.Start();
    QCOMPARE(desk.PageName(), "pictGeneral");
    QCOMPARE(desk.Tree().CurrentKey(), "General");
    QVERIFY(desk.Find<QLabel>("pictLogo")->isVisible());
    QVERIFY(!desk.data.Flags.DataChanged && !desk.data.Flags.Busy);
    QCOMPARE(int{desk.data.MODELTYPE}, 5);
    QCOMPARE(desk.Model(), "KT740");
    QCOMPARE(desk.window->windowTitle(), kTitle);
    QCOMPARE(desk.window->size(), QSize(607, 480));
  }

  void NewResetsDataNameAndTitleWithoutAsking() {
    WindowDesk desk;
    desk.Start();
    SaveAs(desk, "/out/Boat1.DAT");
    QCOMPARE(desk.window->windowTitle(), QString(kTitle) + " - boat1.dat");
    Channel16(desk).ChTag = "X";
    desk.window->DataChanged();
    desk.window->SelectNode("PU32");
    desk.TriggerAndWait("mnuFileNew");
    QVERIFY(desk.prompts.messages.empty());
    QCOMPARE(Channel16(desk).ChTag, "DISTRESS");
    QVERIFY(!desk.data.Flags.DataChanged);
    QCOMPARE(desk.window->windowTitle(), kTitle);
    QCOMPARE(desk.PageName(), "pictGeneral");
  }

  void SaveAsksForANameOnce() {
    WindowDesk desk;
    desk.Start();
    desk.dialogs.paths = {"/out/Boat1.DAT"};
    desk.Item("mnuFileSave").trigger();
    QVERIFY(!desk.data.Flags.Cancel);
    Channel16(desk).ChTag = "LATER";
    desk.Item("mnuFileSave").trigger();
    QCOMPARE(desk.dialogs.requests.size(), std::size_t{1});
    QCOMPARE(desk.dialogs.requests[0].filter, "dat files(*.dat)|*.dat|All files(*.*)|*.*");
    QCOMPARE(desk.dialogs.requests[0].folder, "/program");
    QVERIFY(desk.files.files["/out/Boat1.DAT"].find("LATER") != std::string::npos);
    SaveAs(desk, "/out/B.dat");
    QCOMPARE(desk.window->windowTitle(), QString(kTitle) + " - b.dat");
  }

  void CancelledDialogChangesNothing() {
    WindowDesk desk;
    desk.Start();
    for (const char* item : {"mnuFileOpen", "mnuFileSave", "mnuFileSaveAs"}) {
      desk.data.Flags.Cancel = false;
      desk.Item(item).trigger();
      QVERIFY(desk.data.Flags.Cancel);
      QCOMPARE(desk.window->windowTitle(), kTitle);
      QVERIFY(desk.window->isEnabled());
    }
    QVERIFY(desk.files.files.empty());
  }

  void FailedSaveIsToldAndLogged() {
    WindowDesk desk;
    desk.Start();
    desk.files.failing["/full/a.dat"] = {28, "No space left on device"};
    SaveAs(desk, "/full/a.dat");
    QCOMPARE(desk.Messages(), QStringList{"FileSave Error!!"});
    QVERIFY(desk.prompts.messages[0].icon == core::Icon::kExclamation);
    QCOMPARE(desk.log.lines,
             std::vector<std::string>{"frmMain.SaveFileAs -> 28No space left on device"});
    QVERIFY(desk.data.Flags.Error && desk.data.Flags.Cancel && !desk.data.Flags.Busy);
    QVERIFY(desk.data.CurrentFileName.empty());
  }

  void OpenBringsBackWhatWasSaved() {
    WindowDesk desk;
    desk.Start();
    Channel16(desk).ChTag = "HARBOUR";
    desk.data.Usable[1].Enable = false;
    image::SetDestinationBits(desk.data.Image, false, false);
    SaveAs(desk, "/out/Boat.dat");
    desk.TriggerAndWait("mnuFileNew");
    desk.window->SelectNode("PI3");
    desk.dialogs.paths = {"/out/Boat.dat"};
    desk.Item("mnuFileOpen").trigger();
    QCOMPARE(Channel16(desk).ChTag, "HARBOUR");
    QVERIFY(!desk.Tree().Contains("PI3"));
    QCOMPARE(desk.Tree().CurrentKey(), "General");
    QCOMPARE(desk.PageName(), "pictGeneral");
    QCOMPARE(desk.window->windowTitle(), QString(kTitle) + " - boat.dat");
    QCOMPARE(desk.Model(), "KT520");
    QVERIFY(desk.Item("mnuDestination_1").isChecked());  // KT520-usa, by the SEL1 bit
    QVERIFY(!desk.data.Flags.Cancel);
  }

  void FileOfAnotherModelIsRefused() {
    WindowDesk desk;
    desk.Start();
    SaveAs(desk, "/out/five.dat");
    std::string text = desk.files.files["/out/five.dat"];
    text.replace(text.find("MODELTYPE=5"), 11, "MODELTYPE=4");
    desk.files.files["/out/four.dat"] = text;
    desk.dialogs.paths = {"/out/four.dat"};
    desk.Item("mnuFileOpen").trigger();
    QCOMPARE(desk.Messages(), QStringList{"different model!!"});
    QCOMPARE(desk.window->windowTitle(), QString(kTitle) + " - five.dat");
    QVERIFY(desk.data.Flags.Cancel);
  }

  void DroppedFileOpens() {
    WindowDesk desk;
    desk.Start();
    SaveAs(desk, "/out/drop.dat");
    desk.TriggerAndWait("mnuFileNew");
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile("/out/drop.dat")});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(desk.window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(desk.window.get(), &drop);
    QTRY_COMPARE(desk.window->windowTitle(), QString(kTitle) + " - drop.dat");
  }

  void ClosingAsksAboutChangedData_data() {
    QTest::addColumn<bool>("changed");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("closes");
    const auto yes = static_cast<int>(Answer::kYes);
    QTest::newRow("unchanged") << false << yes << "" << true;
    QTest::newRow("cancel") << true << static_cast<int>(Answer::kCancel) << "" << false;
    QTest::newRow("no") << true << static_cast<int>(Answer::kNo) << "" << true;
    QTest::newRow("yes, saved") << true << yes << "/out/a.dat" << true;
    QTest::newRow("yes, dialog cancelled") << true << yes << "" << false;
    QTest::newRow("yes, disk full") << true << yes << "/full/a.dat" << false;
  }
  void ClosingAsksAboutChangedData() {
    QFETCH(bool, changed);
    QFETCH(int, answer);
    QFETCH(QString, path);
    WindowDesk desk;
    desk.Start();
    desk.files.failing["/full/a.dat"] = {28, "No space left on device"};
    if (changed) desk.window->DataChanged();
    desk.prompts.answers = {static_cast<Answer>(answer)};
    if (!path.isEmpty()) desk.dialogs.paths = {path.toStdString()};
    QTEST(desk.window->close(), "closes");
    QCOMPARE(desk.commands.ran, QStringList{"CloseHelp"});
    QCOMPARE(desk.prompts.messages.empty(), !changed);
    if (changed) {
      QCOMPARE(desk.Messages()[0], "KIV data has changed.\r\nDo you want to save changes?");
      QVERIFY(desk.prompts.messages[0].buttons == core::Buttons::kYesNoCancel);
    }
    QTEST(core::AppSettings(desk.settings).MainWindow().has_value(), "closes");
  }

  void SavingDoesNotSilenceTheQuestion() {
    WindowDesk desk;
    desk.Start();
    desk.window->DataChanged();
    SaveAs(desk, "/out/a.dat");
    desk.prompts.answers = {Answer::kCancel};
    QVERIFY(!desk.window->close());
  }

  void WindowStaysWhileACommandWorks() {
    WindowDesk desk;
    desk.Start();
    desk.data.Flags.Busy = true;
    QVERIFY(!desk.window->close());
    desk.data.Flags.Busy = false;
    desk.Item("mnuFileNew").trigger();
    QVERIFY(!desk.window->isEnabled());
    QVERIFY(!desk.window->close());
    QTRY_VERIFY(desk.window->isEnabled());
    QVERIFY(desk.window->close());
  }

  void PlaceIsKeptInTwipsAndRestoredWhereItFits() {
    WindowDesk desk;
    core::AppSettings kept(desk.settings);
    kept.SetMainWindow({.left = 150, .top = 300, .width = 10500, .height = 7500});
    desk.Start();
    QCOMPARE(desk.window->size(), QSize(700, 500));
    QCOMPARE(desk.window->pos(), QPoint(10, 20));
    desk.window->resize(650, 460);
    QVERIFY(desk.window->close());
    QCOMPARE(kept.MainWindow()->width, 650 * 15);

    kept.SetMainWindow({.left = 900000, .top = 0, .width = 10500, .height = 7500});
    desk.Start();
    QCOMPARE(desk.window->size(), QSize(607, 480));
    desk.window->showMinimized();
    QVERIFY(desk.window->close());
    QCOMPARE(kept.MainWindow()->left, 900000);
  }
};

QTEST_MAIN(FileCommandsTest)
#include "file_commands_test.moc"
