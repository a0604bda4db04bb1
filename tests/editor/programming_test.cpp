#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTreeWidget>

#include "files/backup_library.h"
#include "files/settings_file.h"
#include "image/codec.h"
#include "support/row.h"
#include "transfer_steps.h"

using namespace orvane;
using core::Answer;
using link::ExchangeKind;
using namespace orvane::testing;

namespace {

QStringList Origins(WindowDesk& desk) {
  QStringList origins;
  for (const auto& backup : files::BackupLibrary(desk.files, "/backups").Entries()) {
    origins << QString::fromStdString(backup.heading.origin);
  }
  origins.sort();
  return origins;
}

}  // namespace

class ProgrammingTest : public QObject {
  Q_OBJECT

 private slots:
  void TheDialogTellsTheFacts() {
    CommandDesk desk;
    desk.ports.Add(1, "Adapter");
    desk.ports.Add(4, "Other");
    desk.Start();
    const std::tuple<const char*, QString, QString> rows[] = {
        {kProgram, "To the radio: unsaved data, model KT740, destination KT740-usa",
         "This replaces what the radio holds."},
        {kRead, "", "This replaces what is on the screen; Undo brings it back."},
        {kCompare, "", "Nothing is changed, neither here nor in the radio."}};
    for (const auto& [item, subject, consequence] : rows) {
      const Row row(item);
      desk.InWindowOf(item, [&, subject = subject, consequence = consequence](QDialog&) {
        QCOMPARE(Child<QLabel>("lblSubject")->text(), subject);
        const auto* bold = Child<QLabel>("lblConsequence");
        QCOMPARE(bold->text(), consequence);
        QVERIFY(bold->font().bold());
        QCOMPARE(Child<QCheckBox>("chkReadBack")->isVisible(), !subject.isEmpty());
      });
    }
    desk.dialogs.paths = {"/out/boat.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    desk.InWindowOf(kProgram, [](QDialog&) {
      QVERIFY(Child<QLabel>("lblSubject")->text().startsWith("To the radio: boat.dat, model"));
      auto* ports = Child<QComboBox>("lstPort");
      QCOMPARE(ports->currentText(), "COM1 Adapter");
      ports->setCurrentIndex(1);
      emit ports->activated(1);
      QCOMPARE(Child<QLabel>("lblState")->text(), "Port: COM4 Other");
    });
    QVERIFY(desk.Transfer(kRead));
    QCOMPARE(desk.opened_ports, std::vector<int>({4}));
  }

  // New's power code 0 keeps every channel from transmitting.
  void WhatSpeaksAgainstSendingIsShownAndMended() {
    CommandDesk desk;
    desk.Start();
    core::FieldRef first{};
    desk.InWindowOf(kProgram, [&](QDialog&) {
      const auto found = document::ProblemsForSending(desk.document.Data(), desk.clock.today);
      QVERIFY(!found.empty() && found[0].kind == document::ProblemKind::kPowerCodeZero);
      first = found[0].at.front();
      QVERIFY(Child<QLabel>("lblProblem")->text().contains("carry power code 0"));
      QVERIFY(Child<QPushButton>("cmdOK")->isEnabled());
      const QString remedy = Child<QPushButton>("cmdMend")->text();
      QVERIFY(remedy.startsWith("Let ") && remedy.endsWith(" channels transmit"));
      Click("cmdMend");
      QVERIFY(QTest::qWaitFor([] {
        const auto* text = Child<QLabel>("lblProblem");
        return text == nullptr || !text->text().contains("power code 0");
      }));
    });
    QVERIFY(Channel16(desk.data).TXPower != 0);
    QCOMPARE(desk.document.Steps().size(), 1U);
    desk.Item("mnuEditUndo").trigger();
    QCOMPARE(Channel16(desk.data).TXPower, 0);
    desk.InWindowOf(kProgram, [](QDialog&) { Click("cmdShow"); });
    QCOMPARE(desk.PageName(), "pictC");
    QCOMPARE(desk.Asked(ExchangeKind::kHandshake), 0);
  }

  void ACopyIsKeptFirstUnlessOneWasKeptWithinTheHour() {
    CommandDesk desk;
    desk.Start();
    Settled(desk);
    const auto held = std::as_const(desk.sample.Image).Used();
    const std::vector<std::uint8_t> before(held.begin(), held.end());
    desk.InWindowOf(kProgram, [&](QDialog&) {
      QVERIFY(Child<QCheckBox>("chkKeepCopy")->isChecked());
      QVERIFY(Child<QCheckBox>("chkKeepCopy")->text().contains("(1:3"));
      Click("cmdOK");
    });
    QCOMPARE(Origins(desk), QStringList({"before programming", "programmed"}));
    for (const auto& backup : files::BackupLibrary(desk.files, "/backups").Entries()) {
      if (backup.heading.origin != "before programming") continue;
      const auto kept = files::BackupLibrary(desk.files, "/backups").Load(backup);
      QVERIFY(kept.data->Image[100] == before[100] && kept.data->EXP == desk.sample.EXP);
    }
    desk.InWindowOf(kProgram, [](QDialog&) {
      auto* copy = Child<QCheckBox>("chkKeepCopy");
      QVERIFY(!copy->isChecked());
      QVERIFY(copy->text().endsWith(": it was read and kept at 14:02"));
      copy->click();
      emit Child<QComboBox>("lstPort")->activated(0);
      QVERIFY(copy->isChecked());  // what the user chose stays
      auto* back = Child<QCheckBox>("chkReadBack");
      QVERIFY(back->isChecked());
      back->click();
    });
    desk.clock.time_of_day = "13:50";  // set back: nobody knows how old the copy is
    desk.InWindowOf(kProgram, [](QDialog&) {
      QVERIFY(!Child<QCheckBox>("chkKeepCopy")->text().contains("was read and kept"));
    });
    desk.clock.time_of_day = "15:03";
    desk.InWindowOf(kProgram, [](QDialog&) {
      QVERIFY(Child<QCheckBox>("chkKeepCopy")->isChecked());
      QVERIFY(!Child<QCheckBox>("chkReadBack")->isChecked());  // remembered
    });
  }

  void ACopyThatCannotBeKeptStopsTheRunBeforeItWrites() {
    CommandDesk desk;
    desk.Start();
    Settled(desk);
    desk.files.failing["/backups"] = {28, "No space left on device"};
    desk.Transfer(kProgram);
    QCOMPARE(desk.Asked(ExchangeKind::kWrite), 0);
    QVERIFY(desk.Messages().last().contains("could not be kept"));
    QVERIFY(!desk.Find<QWidget>("stripPartlyWritten")->isVisible());
  }

  void ARadioThatLiesIsCaughtAndItsFieldsNamed() {
    CommandDesk desk;
    desk.Start();
    Settled(desk);
    QVERIFY(desk.Transfer(kRead));
    for (core::ChannelRecord& channel : desk.data.Table(core::MarineGroup::kUsa)) {
      if (channel.Enable) channel.ChTag = "CHANGED";
    }
    desk.prompts.messages.clear();
    desk.radio.SetFaults(Fault("other-stored@write:60"));
    desk.prompts.answers = {Answer::kSaveReceipt, Answer::kProgramAgain};
    desk.dialogs.paths = {"/out/receipt.txt"};
    QVERIFY(desk.Transfer(kProgram));
    QCOMPARE(desk.Messages(),
             QStringList({"The radio does not hold what was sent.",
                          "The radio does not hold what was sent.", "Complete!!"}));
    const std::string& details = desk.prompts.messages[0].details;
    QVERIFY(details.find(": sent ") != std::string::npos);
    QVERIFY(details.find(", the radio holds ") != std::string::npos);
    const std::string& receipt = desk.files.files["/out/receipt.txt"];
    QVERIFY(receipt.find(", the radio holds ") != std::string::npos);
    QVERIFY(!desk.Find<QWidget>("stripPartlyWritten")->isVisible());

    // Closed instead, it is one that does not hold what it was given.
    Channel16(desk.data).ChTag = "ONCE MORE";
    desk.radio.SetFaults(link::FaultPlan({link::MakeFault(link::FaultKind::kForgottenBlock, 0)}));
    desk.prompts.answers = {Answer::kClose};
    QVERIFY(!desk.Transfer(kProgram));
    QVERIFY(desk.Find<QWidget>("stripPartlyWritten")->isVisible());
  }

  void EachCompletedRunHasAReceipt() {
    CommandDesk desk;
    desk.Start();
    Settled(desk);
    QVERIFY(desk.Transfer(kProgram));
    auto* window = desk.Find<QDialog>("frmReceipt");
    QVERIFY(window != nullptr && window->isVisible() && !window->isModal());
    const std::string text =
        window->findChild<QPlainTextEdit*>("txtReceipt")->toPlainText().toStdString();
    QVERIFY(text.find("KT740") != std::string::npos && text.find("none") != std::string::npos);
    const std::string& kept = desk.files.files["/backups/2026-11-24-140212-receipt.txt"];
    QVERIFY(!kept.empty());
    desk.dialogs.paths = {"/out/receipt.txt"};
    window->findChild<QPushButton*>("cmdSaveAs")->click();
    QCOMPARE(desk.files.files["/out/receipt.txt"], kept);
    window->findChild<QPushButton*>("cmdPrint")->click();
    QCOMPARE(desk.printer.printed, std::vector<std::string>{kept});
    desk.printer.has_printer = false;
    window->findChild<QPushButton*>("cmdPrint")->click();
    QVERIFY(desk.prompts.messages.back().details.starts_with("There is no printer."));
  }

  void ComparingReadsIntoACopyAndNamesTheFields() {
    CommandDesk desk;
    desk.Start();
    QVERIFY(desk.Transfer(kRead));
    Channel16(desk.data).ChTag = "MINE";
    const core::RadioData mine = desk.data;
    const std::size_t steps = desk.document.Steps().size();
    desk.prompts.messages.clear();
    for (const bool differs : {true, false}) {
      const Row row(differs);
      if (!differs) Channel16(desk.data).ChTag = Channel16(desk.sample).ChTag;
      QVERIFY(desk.Transfer(kCompare));
      const auto* comparison = desk.Find<QDialog>("frmComparison");
      QVERIFY(comparison != nullptr && comparison->isVisible());
      const QString verdict = comparison->findChild<QLabel*>("lblVerdict")->text();
      const QString radio = "Radio, read at " + QString::fromStdString(desk.clock.TimeOfDay());
      QCOMPARE(verdict,
               differs ? QString("1 field differs.")
                       : "No difference: Open data, as programmed and " + radio + " are the same.");
      comparison->findChild<QPushButton*>("cmdCopy")->click();
      QCOMPARE(QApplication::clipboard()->text().contains("CH Name\tMINE\t"), differs);
      QCOMPARE(desk.Messages().join('|'), QString());
      QCOMPARE(desk.document.Steps().size(), steps);
    }
    Channel16(desk.data).ChTag = "MINE";
    QVERIFY(desk.data == mine);
  }

  // A settings file has no place for a radio's MMSI: programming it leaves the radio its own.
  void ASettingsFileProgramsOnlyWhatItHolds() {
    const std::tuple<const char*, bool> rows[] = {
        {"/out/boat.dat", true}, {"/out/boat", true}, {"/out/bark.dat", false}};
    for (const auto& [file, from_file] : rows) {
      const Row row(file);
      CommandDesk desk;
      core::AppSettings(desk.settings).SetModelType(0);
      desk.PutRadio(image::MakeSampleRadio(0, desk.clock.today));
      desk.Start();
      desk.data = desk.sample;
      desk.data.Dsc.UserMmsi.clear();
      image::EncodeAll(desk.data, desk.clock.today);
      desk.dialogs.paths = {file, file};
      desk.Item("mnuFileSaveAs").trigger();
      if (from_file) desk.Item("mnuFileOpen").trigger();
      const core::RadioData& held = desk.document.Data();
      const auto at = core::RefTo<&core::ChannelRecord::ChTag>(held, held.EXP[1]);
      desk.document.Edit(
          at, [&](core::RadioData& data) { core::Set(data, at, std::string("EDITED")); });
      QVERIFY(desk.Transfer(kProgram));
      // What came from this radio must not go into the next one.
      core::RadioData next = image::MakeSampleRadio(0, desk.clock.today);
      next.Dsc.UserMmsi = "366123456";
      image::EncodeAll(next, desk.clock.today);
      desk.PutRadio(std::move(next));
      QVERIFY(desk.Transfer(kProgram));
      QVERIFY(desk.Transfer(kRead));
      QCOMPARE(desk.data.Dsc.UserMmsi == "366123456", from_file);
      QCOMPARE(desk.data.EXP[1].ChTag, "EDITED");
    }
  }
};

QTEST_MAIN(ProgrammingTest)
#include "programming_test.moc"
