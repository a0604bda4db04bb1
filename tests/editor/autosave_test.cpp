#include <tuple>

#include "command_desk.h"
#include "files/backup_library.h"
#include "files/settings_file.h"
#include "files/snapshot.h"
#include "support/row.h"

using namespace orvane;
using core::Answer;
using testing::CommandDesk;
using testing::Row;
using testing::WindowDesk;

namespace {

QTimer& Timer(const WindowDesk& desk) {
  // It belongs to no widget.
  return *desk.window->AutosaveTimer();
}

void Rename(WindowDesk& desk, const char* name) {
  const core::RadioData& data = desk.document.Data();
  const auto at = core::RefTo<&core::ChannelRecord::ChTag>(data, data.Marine[0][32]);
  desk.document.Edit(at,
                     [&](core::RadioData& edited) { core::Set(edited, at, std::string(name)); });
}

void Settle(WindowDesk& desk) {
  desk.Start();
  QVERIFY(QTest::qWaitFor([&] { return desk.window->AutosaveTimer() != nullptr; }));
}

}  // namespace

class AutosaveTest : public QObject {
  Q_OBJECT

 private slots:
  void UnsavedDataAreKeptUntilTheyAreSaved() {
    WindowDesk desk;
    Settle(desk);
    QVERIFY(!Timer(desk).isActive() && desk.recovery.kept.empty());
    Rename(desk, "MINE");
    QVERIFY(Timer(desk).isActive());
    QCOMPARE(Timer(desk).interval(), 30'000);
    Timer(desk).setInterval(0);
    QVERIFY(QTest::qWaitFor([&] { return !desk.recovery.kept.empty(); }));
    const files::Snapshot kept = files::ParseSnapshot(desk.recovery.kept);
    QVERIFY(kept.data != nullptr && *kept.data == desk.document.Data());
    QCOMPARE(kept.heading.made, "2026-11-24 14:02:12");
    desk.dialogs.paths = {"/out/boat.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    QVERIFY(desk.recovery.kept.empty() && !Timer(desk).isActive());
    Rename(desk, "LATER");
    Timer(desk).setInterval(0);
    QVERIFY(QTest::qWaitFor([&] { return !desk.recovery.kept.empty(); }));
    desk.prompts.answers = {Answer::kNo};
    QVERIFY(desk.window->close());
    QVERIFY(desk.recovery.kept.empty());
  }

  void WhatWasReadIsKeptAtOnce() {
    CommandDesk desk;
    Settle(desk);
    QVERIFY(desk.Transfer("mnuTransferRead"));
    const files::Snapshot kept = files::ParseSnapshot(desk.recovery.kept);
    QVERIFY(kept.data != nullptr && *kept.data == desk.document.Data());
  }

  void RadiosAndReplacedWorkGoIntoTheBackups() {
    CommandDesk desk;
    Settle(desk);
    const auto origins = [&desk] {
      QStringList texts;
      for (const auto& backup : files::BackupLibrary(desk.files, "/backups").Entries()) {
        texts << QString::fromStdString(backup.heading.origin);
      }
      texts.sort();
      return texts;
    };
    QVERIFY(desk.Transfer("mnuTransferRead"));
    QCOMPARE(origins(), QStringList{"read"});
    desk.TriggerAndWait("mnuFileNew");  // what was read is kept already
    QCOMPARE(origins(), QStringList{"read"});
    Rename(desk, "MINE");
    const core::RadioData mine = desk.document.Data();
    desk.TriggerAndWait("mnuFileNew");
    QCOMPARE(origins(), QStringList({"read", "replaced"}));
    desk.Item("mnuEditUndo").trigger();
    QVERIFY(desk.document.Data() == mine);
    // A radio that took only a part holds these data too; the whole of them is kept but once.
    desk.on_exchange = [&desk](const link::Exchange& exchange) {
      if (exchange.kind == link::ExchangeKind::kWrite) desk.state.Cancel = true;
    };
    desk.Transfer("mnuTransferProgram");
    QCOMPARE(origins(), QStringList({"programmed", "read", "replaced"}));
    desk.on_exchange = nullptr;
    QVERIFY(desk.Transfer("mnuTransferProgram"));
    QCOMPARE(origins(), QStringList({"programmed", "read", "replaced"}));
  }

  void FailureIsSaidQuietlyUntilItIsOver() {
    WindowDesk desk;
    Settle(desk);
    Rename(desk, "MINE");
    desk.recovery.failure = core::SystemError{28, "No space left on device"};
    Timer(desk).setInterval(0);
    QVERIFY(QTest::qWaitFor([&] { return desk.Saved().contains("No space left"); }));
    QCOMPARE(desk.Saved(), "Changed, not saved; no copies are being kept: No space left on device");
    QVERIFY(desk.prompts.messages.empty());
    desk.recovery.failure.reset();
    QVERIFY(QTest::qWaitFor([&] { return desk.Saved() == "Changed, not saved"; }));
  }

  // What was replaced without a backup is left behind, and no later copy takes its place.
  void WhatNobodyElseKeepsIsLeftBehind() {
    for (const bool lost : {true, false}) {
      const Row row(lost);
      WindowDesk desk;
      Settle(desk);
      Rename(desk, "MINE");
      if (lost) desk.files.failing["/backups"] = {28, "No space left on device"};
      desk.TriggerAndWait("mnuFileNew");
      QVERIFY(desk.recovery.kept.empty());
      QCOMPARE(desk.recovery.left.size(), lost ? 1U : 0U);
      if (!lost) continue;
      const files::Snapshot left = files::ParseSnapshot(desk.recovery.left[0].text);
      QCOMPARE(left.data->Marine[0][32].ChTag, "MINE");
    }
  }

  void RecoveredDataKnowTheirFileAndWhatTheUserSet() {
    WindowDesk first;
    Settle(first);
    first.dialogs.paths = {"/out/boat.dat"};
    first.Item("mnuFileSaveAs").trigger();
    Rename(first, "MINE");
    first.window->AutosaveTimer()->setInterval(0);
    QVERIFY(QTest::qWaitFor([&] { return !first.recovery.kept.empty(); }));

    for (const bool overtaken : {true, false}) {
      const Row row(overtaken);
      WindowDesk desk;
      desk.files.files["/out/boat.dat"] = first.files.files["/out/boat.dat"];
      if (overtaken) desk.files.files["/out/boat.dat"] += "[THEIRS]\r\n";
      desk.recovery.left = {{"/r/1", first.recovery.kept}};
      desk.prompts.answers = {Answer::kRestore, Answer::kCancel};
      Settle(desk);
      QVERIFY(QTest::qWaitFor([&] { return desk.document.CanUndo(); }));
      const std::vector<core::FieldRef> edited = desk.document.EditedFields();
      QCOMPARE(edited.size(), 1U);
      QCOMPARE(core::PathOf(edited[0]), "usa/16/name");
      const files::BackupLibrary library(desk.files, "/backups");
      QCOMPARE(library.Entries().size(), 1U);  // Undo loses nothing either
      QCOMPARE(library.Entries()[0].heading.origin, "recovered");
      desk.Item("mnuFileSave").trigger();
      QCOMPARE(desk.prompts.messages.size(), overtaken ? 2U : 1U);
      QCOMPARE(desk.document.IsSaved(), !overtaken);
    }
  }

  void WhatWasLeftBehindIsOffered() {
    using Paths = std::vector<std::string>;
    const std::tuple<Answer, bool, Paths> rows[] = {{Answer::kRestore, true, {"/r/1"}},
                                                    {Answer::kKeep, false, {}},
                                                    {Answer::kDiscard, false, {"/r/1"}}};
    for (const auto& [answer, restored, discarded] : rows) {
      const Row row(static_cast<int>(answer));
      WindowDesk desk;
      core::RadioData boat = image::MakeSampleRadio(5, desk.clock.today);
      static_cast<void>(files::WriteSettingFile(boat, "/out/boat.dat", desk.files, desk.pump));
      boat.Marine[0][32].ChTag = "UNSAVED";
      boat.Marine[0][33].ScanMemory = !boat.Marine[0][33].ScanMemory;
      desk.recovery.left = {{"/r/0", "damaged"},
                            {"/r/1", files::SnapshotText(boat, {.made = "2026-11-23 08:09:10",
                                                                .origin = "autosave",
                                                                .file = "/out/boat.dat"})}};
      desk.prompts.answers = {answer};
      Settle(desk);
      QVERIFY(QTest::qWaitFor([&] { return !desk.prompts.messages.empty(); }));
      const std::string& details = desk.prompts.messages[0].details;
      QVERIFY(
          details.starts_with("They were kept at 2026-11-23 08:09:10: 2 changes since boat.dat "
                              "was saved. Its file is /out/boat.dat."));
      QCOMPARE(desk.document.Data() == boat, restored);
      QCOMPARE(desk.recovery.discarded, discarded);
      QCOMPARE(desk.document.CanUndo(), restored);
      QCOMPARE(!desk.recovery.kept.empty(), restored);
      if (restored) QCOMPARE(desk.Saved(), "Recovered, not saved");
    }
  }
};

QTEST_MAIN(AutosaveTest)
#include "autosave_test.moc"
