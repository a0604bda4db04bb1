#include <tuple>

#include "core/app_settings.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "image/codec.h"
#include "image/sample_radio.h"
#include "support/row.h"
#include "window_desk.h"

using namespace orvane;
using core::Answer;
using testing::WindowDesk;

namespace {

const core::SystemError kDiskFull = {28, "No space left on device"};
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
    QVERIFY(!desk.document.HasChanged() && !desk.state.Busy);
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
    desk.document.NoteChange();
    desk.window->SelectNode("PU32");
    desk.Find<QWidget>("txtCTag")->setFocus();
    desk.TriggerAndWait("mnuFileNew");
    const QWidget* focus = QApplication::focusWidget();
    QVERIFY(focus != nullptr && focus->isVisible() && focus->isEnabled());
    QVERIFY(desk.prompts.messages.empty());
    QCOMPARE(Channel16(desk).ChTag, "DISTRESS");
    QVERIFY(!desk.document.HasChanged());
    QCOMPARE(desk.window->windowTitle(), kTitle);
    QCOMPARE(desk.PageName(), "pictGeneral");
  }

  void SaveAsksForANameOnce() {
    WindowDesk desk;
    desk.Start();
    desk.dialogs.paths = {"/out/Boat1.DAT"};
    desk.Item("mnuFileSave").trigger();
    QVERIFY(!desk.state.Cancel);
    Channel16(desk).ChTag = "LATER";
    desk.Item("mnuFileSave").trigger();
    QCOMPARE(desk.dialogs.requests.size(), std::size_t{1});
    QCOMPARE(desk.dialogs.requests[0].filter, "dat files(*.dat)|*.dat|All files(*.*)|*.*");
    QCOMPARE(desk.dialogs.requests[0].folder, "/program");
    QVERIFY(desk.files.files["/out/Boat1.DAT"].find("LATER") != std::string::npos);
    SaveAs(desk, "/out/B.dat");
    QCOMPARE(desk.window->windowTitle(), QString(kTitle) + " - b.dat");
  }

  void CancelledDialogsAndFailedSavesChangeNothing() {
    WindowDesk desk;
    desk.Start();
    for (const char* item : {"mnuFileOpen", "mnuFileSave", "mnuFileSaveAs"}) {
      desk.state.Cancel = false;
      desk.Item(item).trigger();
      QVERIFY(desk.state.Cancel);
      QCOMPARE(desk.window->windowTitle(), kTitle);
      QVERIFY(desk.window->isEnabled());
    }
    QVERIFY(desk.prompts.messages.empty() && desk.files.files.empty());
    desk.state.Cancel = false;
    desk.files.failing["/full/a.dat"] = kDiskFull;
    SaveAs(desk, "/full/a.dat");
    QCOMPARE(desk.Messages(), QStringList{"FileSave Error!!"});
    QVERIFY(desk.prompts.messages[0].icon == core::Icon::kExclamation);
    QCOMPARE(desk.log.lines,
             std::vector<std::string>{"frmMain.SaveFileAs -> 28No space left on device"});
    QVERIFY(desk.state.Error && desk.state.Cancel && !desk.state.Busy);
    QVERIFY(desk.document.FileName().empty());
  }

  void OpenBringsBackWhatWasSaved() {
    WindowDesk desk;
    desk.Start();
    Channel16(desk).ChTag = "HARBOUR";
    desk.data.Usable[1].Enable = false;
    image::SetDestinationBits(desk.data.Image, false, false);
    SaveAs(desk, "/out/Boat.dat");
    desk.TriggerAndWait("mnuFileNew");
    const auto* scrambler = desk.Find<QWidget>("cmbScramble");
    desk.window->SelectNode("PI18");
    QVERIFY(scrambler->isEnabled());
    desk.dialogs.paths = {"/out/Boat.dat"};
    desk.Item("mnuFileOpen").trigger();
    QCOMPARE(Channel16(desk).ChTag, "HARBOUR");
    QVERIFY(!desk.Tree().Contains("PI18"));
    QCOMPARE(desk.Tree().CurrentKey(), "General");
    QCOMPARE(desk.PageName(), "pictGeneral");
    QCOMPARE(desk.window->windowTitle(), QString(kTitle) + " - boat.dat");
    QCOMPARE(desk.Model(), "KT520");
    QVERIFY(desk.Item("mnuDestination_1").isChecked());  // KT520-usa, by the SEL1 bit
    QVERIFY(!desk.state.Cancel);
    desk.window->SelectNode("PU18");
    QVERIFY(!scrambler->isEnabled());
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
    QVERIFY(desk.state.Cancel);
  }

  void ClosingAsksAboutChangedData() {
    const std::tuple<bool, Answer, const char*, bool> rows[] = {
        {false, Answer::kYes, "", true},
        {true, Answer::kCancel, "", false},
        {true, Answer::kNo, "", true},
        {true, Answer::kYes, "/out/a.dat", true},
        {true, Answer::kYes, "", false},  // the dialog is cancelled
        {true, Answer::kYes, "/full/a.dat", false}};
    for (const auto& [changed, answer, path, closes] : rows) {
      const testing::Row row(changed, static_cast<int>(answer), path);
      WindowDesk desk;
      desk.Start();
      desk.files.failing["/full/a.dat"] = kDiskFull;
      if (changed) desk.document.NoteChange();
      if (changed) SaveAs(desk, "/out/a.dat");  // silences no question
      desk.prompts.answers = {answer};
      desk.dialogs.paths = {path};
      desk.document.MarkSaved({}, {});
      QCOMPARE(desk.window->close(), closes);
      // The help goes before the question, and is there again for who stays.
      QStringList help = {"closed"};
      if (!closes) help << "reopened";
      QCOMPARE(desk.help.opened, help);
      QCOMPARE(desk.prompts.messages.empty(), !changed);
      if (changed) {
        QCOMPARE(desk.Messages()[0], "KIV data has changed.\r\nDo you want to save changes?");
        QVERIFY(desk.prompts.messages[0].buttons == core::Buttons::kYesNoCancel);
      }
      QCOMPARE(core::AppSettings(desk.settings).MainWindow().has_value(), closes);
    }
  }

  void FileChangedByOthersIsToldAndNotLost() {
    using core::Answer;
    const std::tuple<Answer, const char*, bool, bool> rows[] = {
        {Answer::kSaveAs, "/out/mine.dat", false, true},
        {Answer::kSaveAs, "", false, false},
        {Answer::kCancel, "/out/unasked.dat", false, false},
        {Answer::kOverwrite, "/out/unasked.dat", true, false}};
    for (const auto& [answer, other, overwritten, saved_elsewhere] : rows) {
      const testing::Row row(static_cast<int>(answer), other);
      WindowDesk desk;
      desk.Start();
      SaveAs(desk, "/out/boat.dat");
      desk.Item("mnuFileSave").trigger();
      QVERIFY(desk.prompts.messages.empty());
      const std::string theirs = desk.files.files["/out/boat.dat"] + "[THEIRS]\r\n";
      desk.files.files["/out/boat.dat"] = theirs;
      QEvent activated(QEvent::ActivationChange);
      QCoreApplication::sendEvent(desk.window.get(), &activated);
      QTRY_COMPARE(desk.Find<QLabel>("sbStatusBar_2")->text(),
                   "Another program has changed boat.dat.");
      desk.prompts.answers = {answer};
      desk.dialogs.paths = {other};
      desk.Item("mnuFileSave").trigger();
      QCOMPARE(desk.prompts.messages.size(), 1U);
      QCOMPARE(desk.files.files["/out/boat.dat"] != theirs, overwritten);
      QCOMPARE(desk.files.files.contains("/out/mine.dat"), saved_elsewhere);
      desk.Item("mnuFileSave").trigger();  // asks again as long as the file is theirs
      QCOMPARE(desk.prompts.messages.size() == 1U, overwritten || saved_elsewhere);
    }
  }

  void RecentFilesOpenAgainAndMissingOnesSayWhy() {
    WindowDesk desk;
    desk.Start();
    QVERIFY(desk.Item("mnuFileRecentNone").isVisible());
    for (const char* path : {"/a/one.dat", "/b/two.dat"}) SaveAs(desk, path);
    Channel16(desk).ChTag = "LATER";
    desk.files.files.erase("/a/one.dat");
    emit desk.Find<QMenu>("mnuFileRecent")->aboutToShow();
    QCOMPARE(desk.Item("mnuFileRecent_0").text(), "&1 /b/two.dat");
    QVERIFY(!desk.Item("mnuFileRecent_1").isEnabled());
    QCOMPARE(desk.Item("mnuFileRecent_1").toolTip(), "/a/one.dat is not there any more.");
    QVERIFY(!desk.Item("mnuFileRecent_2").isVisible());
    desk.Item("mnuFileRecent_0").trigger();
    QCOMPARE(Channel16(desk).ChTag, "DISTRESS");
    desk.Item("mnuFileOpen").trigger();
    QCOMPARE(desk.dialogs.requests.back().last_folders, std::vector<std::string>({"/b", "/a"}));
    QCOMPARE(desk.dialogs.requests.back().folder, "/program");
  }

  void FileGivenAtTheStartIsOpened() {
    for (const char* const file : {"/boat.dat", "/BOAT.HEX"}) {
      const testing::Row row(file);
      WindowDesk desk;
      const core::RadioData boat = image::MakeSampleRadio(5, desk.clock.today);
      desk.files.files["/boat.dat"] = files::SettingFileText(boat);
      desk.files.files["/BOAT.HEX"] = files::ImageFileBytes(boat);
      desk.window = std::make_unique<editor::MainWindow>(desk.Services());
      desk.window->OpenAtStart(file);
      desk.window->show();
      QVERIFY(QTest::qWaitFor([&] { return desk.document.FileName() == file; }));
      QCOMPARE(Channel16(desk).ChTag, boat.Marine[0][32].ChTag);
    }
  }

  void WindowStaysWhileACommandWorks() {
    WindowDesk desk;
    desk.Start();
    desk.state.Busy = true;
    QVERIFY(!desk.window->close());
    desk.state.Busy = false;
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
    // Its frame, which a maximized window lacks, does not count twice.
    QVERIFY(desk.window->geometry().topLeft() != desk.window->pos());
    desk.window->showMaximized();
    QVERIFY(desk.window->close());
    QCOMPARE(kept.MainWindow()->left, 150);
    QCOMPARE(kept.MainWindow()->top, 300);
    QCOMPARE(kept.MainWindow()->width, 10500);
    desk.window->showNormal();
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
