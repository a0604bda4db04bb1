#include <QDesktopServices>
#include <QLineEdit>
#include <QTreeView>

#include "command_desk.h"
#include "files/backup_library.h"
#include "files/previous_version.h"
#include "files/settings_file.h"
#include "support/row.h"

using namespace orvane;
using core::Answer;
using testing::Row;
using testing::WindowDesk;

namespace {

/// The radio's data with a name of its own, kept as a backup.
core::RadioData Keep(WindowDesk& desk, std::int16_t model, const char* name, const char* made,
                     const char* origin) {
  core::RadioData data = image::MakeSampleRadio(model, desk.clock.today);
  data.Marine[0][32].Enable = true;
  data.Marine[0][32].ChTag = name;
  const auto kept = files::BackupLibrary(desk.files, "/backups")
                        .Keep(data, {.made = made,
                                     .origin = origin,
                                     .port = "COM3",
                                     .file = "/boats/" + std::string(name) + ".dat"});
  Q_ASSERT(kept.anew);
  return data;
}

/// The rows on show, their columns from `first` on joined.
QStringList Rows(const QDialog& dialog) {
  const auto* view = dialog.findChild<QTreeView*>("lstBackups");
  const QAbstractItemModel& model = *view->model();
  QStringList rows;
  for (int row = 0; row < model.rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < 5; ++column) cells << model.index(row, column).data().toString();
    rows << cells.join('|');
  }
  return rows;
}

QString Names(const QDialog& dialog, int row) {
  return dialog.findChild<QTreeView*>("lstBackups")->model()->index(row, 5).data().toString();
}

void Click(const QDialog& dialog, const char* button) {
  dialog.findChild<QPushButton*>(button)->click();
}

}  // namespace

class BackupsTest : public QObject {
  Q_OBJECT

 private slots:
  void TheListTellsWhatThereIsAndTheFilterFindsIt() {
    WindowDesk desk;
    desk.Start();
    Keep(desk, 5, "HARBOUR", "2026-11-23 08:09:10", "read");
    Keep(desk, 1, "FERRY", "2026-11-24 11:12:13", "programmed");
    desk.files.files["/backups/20261122-010203-read-2-0000ABCD.orvsnap"] = "ORVANE SNAPSHOT 9\n";
    desk.InWindowOf("mnuFileBackups", [](QDialog& dialog) {
      const QStringList all = {"2026-11-24 11:12:13|KT310|programmed|COM3|FERRY.dat",
                               "2026-11-23 08:09:10|KT740|read|COM3|HARBOUR.dat",
                               "2026-11-22 01:02:03|KT510|read||"};
      QCOMPARE(Rows(dialog), all);
      QVERIFY(QTest::qWaitFor([&] { return Names(dialog, 1).contains("HARBOUR"); }));
      QVERIFY(Names(dialog, 2).startsWith("(damaged: line 1, column 17"));
      const std::tuple<const char*, QStringList> searches[] = {
          {"harbour", {all[1]}}, {"KT740 com3", {all[1]}}, {"2026-11-2", all}, {"com3 kt51", {}}};
      for (const auto& [words, found] : searches) {
        const Row row(words);
        dialog.findChild<QLineEdit*>("txtFilter")->setText(words);
        QCOMPARE(Rows(dialog), found);
        QCOMPARE(dialog.findChild<QPushButton*>("cmdOpen")->isEnabled(), !found.isEmpty());
      }
    });
  }

  void OpeningOneIsAStepAndNoFileOfItsOwn() {
    WindowDesk desk;
    desk.Start();
    const core::RadioData kept = Keep(desk, 1, "FERRY", "2026-11-24 11:12:13", "read");
    const core::RadioData before = desk.document.Data();
    desk.InWindowOf("mnuFileBackups", [](QDialog& dialog) { Click(dialog, "cmdOpen"); });
    QVERIFY(desk.document.Data() == kept);
    QCOMPARE(desk.Model(), "KT310");
    QCOMPARE(desk.document.FileName(), "");
    QCOMPARE(desk.Saved(), "Backup of 2026-11-24 11:12, not saved");
    desk.Item("mnuFileSave").trigger();
    QCOMPARE(desk.dialogs.requests.size(), 1U);  // asks where
    desk.Item("mnuEditUndo").trigger();
    QVERIFY(desk.document.Data() == before);
  }

  void OneIsSavedByTheEndingOfTheName() {
    WindowDesk desk;
    desk.Start();
    const core::RadioData kept = Keep(desk, 5, "HARBOUR", "2026-11-24 11:12:13", "read");
    desk.dialogs.paths = {"/out/a.dat", "/out/A.HEX", "/out/a.orvsnap", "/full/a.dat"};
    desk.files.failing["/full/a.dat"] = {28, "No space left on device"};
    desk.InWindowOf("mnuFileBackups", [](QDialog& dialog) {
      for (int i = 0; i < 4; ++i) Click(dialog, "cmdSaveAs");
    });
    QCOMPARE(desk.files.files["/out/a.dat"], files::SettingFileText(kept));
    QCOMPARE(desk.files.files["/out/A.HEX"].size(), 16384U);
    const files::Snapshot copy = files::ParseSnapshot(desk.files.files["/out/a.orvsnap"]);
    QVERIFY(copy.data != nullptr && *copy.data == kept);
    QCOMPARE(copy.heading.made, "2026-11-24 11:12:13");
    QCOMPARE(desk.prompts.messages.size(), 1U);
    QVERIFY(desk.prompts.messages[0].details.find("No space left") != std::string::npos ||
            desk.prompts.messages[0].text.find("No space left") != std::string::npos);
  }

  void OneIsComparedWithTheDataOnTheScreen() {
    WindowDesk desk;
    desk.Start();
    desk.data = Keep(desk, 5, "HARBOUR", "2026-11-24 11:12:13", "read");
    Keep(desk, 5, "FERRY", "2026-11-24 12:13:14", "programmed");
    desk.data.Marine[0][32].ChTag = "MINE";
    const auto sides = [&desk] {
      const auto* header = desk.Find<QDialog>("frmComparison")->findChild<QTreeView*>();
      const QAbstractItemModel& model = *header->model();
      return model.headerData(1, Qt::Horizontal).toString() + '|' +
             model.headerData(2, Qt::Horizontal).toString();
    };
    desk.InWindowOf("mnuFileBackups", [](QDialog& dialog) { Click(dialog, "cmdCompare"); });
    auto* comparison = desk.Find<QDialog>("frmComparison");
    QVERIFY(comparison != nullptr);
    QCOMPARE(comparison->findChild<QLabel*>("lblVerdict")->text(), "1 field differs.");
    QCOMPARE(sides(), "Open data|Backup of 2026-11-24 12:13:14");
    // The comparison itself asks for another one.
    QTimer::singleShot(0, comparison, [] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr && dialog->findChild<QPushButton*>("cmdOpen") == nullptr);
      dialog->findChild<QLineEdit*>("txtFilter")->setText("harbour");
      Click(*dialog, "cmdCompare");
    });
    comparison->findChild<QAction*>("mnuLeftBackup")->trigger();
    QCOMPARE(sides(), "Backup of 2026-11-24 11:12:13|Backup of 2026-11-24 12:13:14");
  }

  void OneIsDeletedOnlyAfterYes() {
    WindowDesk desk;
    desk.Start();
    Keep(desk, 5, "HARBOUR", "2026-11-23 08:09:10", "read");
    Keep(desk, 1, "FERRY", "2026-11-24 11:12:13", "read");
    desk.prompts.answers = {Answer::kNo, Answer::kYes};
    desk.InWindowOf("mnuFileBackups", [](QDialog& dialog) {
      Click(dialog, "cmdDelete");
      QCOMPARE(Rows(dialog).size(), 2);
      Click(dialog, "cmdDelete");
      QCOMPARE(Rows(dialog).size(), 1);
      QVERIFY(Rows(dialog)[0].contains("HARBOUR"));
    });
    QVERIFY(desk.prompts.messages[0].default_answer == Answer::kNo);
    QCOMPARE(files::BackupLibrary(desk.files, "/backups").Entries().size(), 1U);
  }

  void ADamagedOneIsRefusedAndNothingChanges() {
    WindowDesk desk;
    desk.Start();
    Keep(desk, 5, "HARBOUR", "2026-11-23 08:09:10", "read");
    std::string& text = desk.files.files.begin()->second;
    text.back() = 'x';
    const core::RadioData before = desk.document.Data();
    for (const char* name : {"cmdOpen", "cmdSaveAs"}) {
      desk.InWindowOf("mnuFileBackups", [name](QDialog& dialog) { Click(dialog, name); });
    }
    QCOMPARE(desk.prompts.messages.size(), 2U);
    QVERIFY(desk.dialogs.requests.empty() && desk.document.Data() == before);
    // As a file to open it is refused in the same words.
    QVERIFY(!desk.document.CanUndo());
  }

  void TheVersionBeforeASaveIsKeptOnce() {
    WindowDesk desk;
    desk.Start();
    const std::string previous = files::PreviousVersionPath("/previous", "/out/boat.dat");
    desk.files.files["/out/boat.dat"] = "what was there";
    desk.dialogs.paths = {"/out/boat.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    QCOMPARE(desk.files.files[previous], "what was there");
    const std::string saved = desk.files.files["/out/boat.dat"];
    desk.Item("mnuFileSave").trigger();  // nothing changed since
    QCOMPARE(desk.files.files[previous], "what was there");
    const auto at =
        core::RefTo<&core::ChannelRecord::ChTag>(desk.document.Data(), desk.document.Data().WX[3]);
    desk.document.Edit(at, [&](core::RadioData& data) { core::Set(data, at, std::string("NEW")); });
    desk.files.failing[previous] = {30, "Read-only file system"};
    desk.Item("mnuFileSave").trigger();
    QVERIFY(desk.files.files["/out/boat.dat"] != saved);  // saved all the same
    QVERIFY(desk.prompts.messages.empty());
    QVERIFY(desk.Find<QLabel>("sbStatusBar_2")->text().contains("Read-only file system"));
  }

  void TheFolderIsShown() {
    WindowDesk desk;
    desk.Start();
    QDesktopServices::setUrlHandler("file", this, "TakeUrl");
    desk.InWindowOf("mnuFileBackups", [](QDialog& dialog) { Click(dialog, "cmdFolder"); });
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(shown_, QUrl("file:///backups"));
  }

 public slots:
  void TakeUrl(const QUrl& url) { shown_ = url; }

 private:
  QUrl shown_;
};

QTEST_MAIN(BackupsTest)
#include "backups_test.moc"
