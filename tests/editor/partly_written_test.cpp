#include <QComboBox>

#include "core/app_settings.h"
#include "files/partly_written.h"
#include "files/settings_file.h"
#include "image/codec.h"
#include "support/row.h"
#include "transfer_steps.h"

using namespace orvane;
using namespace orvane::testing;
using core::Answer;

/// Radios that a run has left partly written.
class PartlyWrittenTest : public QObject {
  Q_OBJECT

 private slots:
  // Whatever a broken-off run has left: the new contents after one way, the old after the other.
  void ABrokenRunIsRememberedOverARestartAndCanBeMadeGood() {
    const std::tuple<const char*, bool, bool> rows[] = {
        {"cmdProgramAgain", false, false}, {"cmdPutBack", true, false}, {"cmdPutBack", true, true}};
    for (const auto& [way, old, in_dialog] : rows) {
      const Row row(QLatin1String(way) + QLatin1String(in_dialog ? " in the dialog" : ""));
      CommandDesk desk;
      desk.Start();
      Settled(desk);
      const std::vector<std::uint8_t> before = Written(desk);
      QVERIFY(desk.Transfer(kProgram));
      const std::vector<std::uint8_t> fresh = Written(desk);  // what a whole run leaves
      QVERIFY(fresh != before);
      desk.PutRadio(image::MakeSampleRadio(5, desk.clock.today));
      core::AppSettings(desk.settings).SetKeepsCopyFirst(true);
      desk.clock.time_of_day = "16:00";
      BreakAt(desk, 60);
      QVERIFY(!desk.Transfer(kProgram));
      desk.on_exchange = nullptr;
      desk.TriggerAndWait("mnuFileNew");
      // Another start finds it.
      desk.window = nullptr;
      desk.Start();
      Settled(desk);
      auto* strip = desk.Find<QWidget>("stripPartlyWritten");
      QVERIFY(strip->isVisible());
      QCOMPARE(strip->findChild<QLabel*>("lblPartlyWritten")->text(),
               "The radio on COM1 was left partly written on 24 November at 16:00.");
      const core::RadioData untouched = desk.document.Data();
      if (in_dialog) {
        desk.InWindowOf(kRead, [&, way = way](QDialog& dialog) {
          QVERIFY(Child<QLabel>("lblConsequence")->text().contains("mixed"));
          Click(way);
          QVERIFY(!dialog.isVisible());
        });
      } else {
        QTimer::singleShot(0, desk.window.get(), [] {
          QVERIFY(Child<QLabel>("lblSubject")->text().startsWith("To the radio: what "));
          Click("cmdOK");
        });
        strip->findChild<QPushButton*>(way)->click();
      }
      QVERIFY(Written(desk) == (old ? before : fresh));
      QVERIFY(!strip->isVisible());
      QVERIFY(desk.document.Data() == untouched);
      QVERIFY(desk.files.ListFolder("/marks").empty());
    }
  }

  void ARadioIsSettledOnlyAfterYes() {
    CommandDesk desk;
    desk.Start();
    Settled(desk);
    BreakAt(desk, 30);
    desk.Transfer(kProgram);
    auto* strip = desk.Find<QWidget>("stripPartlyWritten");
    desk.prompts.answers = {Answer::kNo, Answer::kYes};
    for (const bool stays : {true, false}) {
      QVERIFY(strip->isVisible());
      strip->findChild<QPushButton*>("cmdSettled")->click();
      QCOMPARE(strip->isVisible(), stays);
    }
  }

  void WhatAnotherProgramSettledIsNotToldAnyMore() {
    CommandDesk desk;
    desk.Start();
    Settled(desk);
    BreakAt(desk, 30);
    desk.Transfer(kProgram);
    const auto* strip = desk.Find<QWidget>("stripPartlyWritten");
    files::PartlyWrittenMarks marks(desk.files, "/marks");
    for (const bool settled : {false, true}) {
      if (settled) marks.Settle("COM1");
      QEvent activated(QEvent::ActivationChange);
      QCoreApplication::sendEvent(desk.window.get(), &activated);
      QCoreApplication::processEvents();
      QCOMPARE(strip->isVisible(), !settled);
    }
  }

  // The same radio may be at another port by now, or another radio.
  void AnotherPortIsWrittenToOnlyAfterYes() {
    for (const bool goes : {false, true}) {
      const Row row(goes);
      CommandDesk desk;
      desk.ports.Add(1, "Adapter");
      desk.ports.Add(4, "Other");
      desk.Start();
      Settled(desk);
      BreakAt(desk, 30);
      desk.Transfer(kProgram);
      desk.on_exchange = nullptr;
      desk.ports.ports.erase(desk.ports.ports.begin());
      desk.window->ChoosePort(4);
      desk.opened_ports.clear();
      desk.prompts.answers = {goes ? Answer::kYes : Answer::kNo};
      QTimer::singleShot(0, desk.window.get(), [&] {
        QCOMPARE(QApplication::activeModalWidget() != nullptr, goes);
        if (!goes) return;
        QVERIFY(Child<QLabel>("lblConsequence")->text().endsWith("partly written was on COM1."));
        Click("cmdOK");
      });
      desk.Find<QPushButton>("cmdProgramAgain")->click();
      QCoreApplication::processEvents();
      QCOMPARE(desk.opened_ports, goes ? std::vector<int>{4} : std::vector<int>{});
      QVERIFY(desk.Find<QWidget>("stripPartlyWritten")->isVisible());
      QCOMPARE(desk.files.ListFolder("/marks").size(),
               2U);  // of COM1, as long as nobody settles it
    }
  }

  void ThatAnotherDeviceHasTheNumberIsToldFirst() {
    CommandDesk desk;
    desk.ports.Add(1, "Adapter");
    desk.Start();
    desk.InWindowOf(kProgram, [&](QDialog& dialog) {
      desk.ports.ports[0].device = "/dev/other";
      Click("cmdOK");
      QVERIFY(dialog.isVisible() && desk.opened_ports.empty());
      QVERIFY(Child<QLabel>("lblState")->text().startsWith("COM1 Adapter is another device"));
      Click("cmdOK");
      QVERIFY(!dialog.isVisible());
      QCOMPARE(desk.opened_ports, std::vector<int>{1});
    });
  }

  // Once more after a difference, or later: the radio's slip must not pass for its own settings.
  void WhatARadioStoredWronglyIsNotTakenForItsOwn() {
    for (const bool again : {true, false}) {
      const Row row(again);
      CommandDesk desk;
      core::AppSettings(desk.settings).SetModelType(0);
      core::RadioData held = image::MakeSampleRadio(0, desk.clock.today);
      desk.files.files["/boat.dat"] = files::SettingFileText(held);
      held.Dsc.UserMmsi = "123456789";
      image::EncodeAll(held, desk.clock.today);
      desk.PutRadio(std::move(held));
      desk.Start();
      Settled(desk);
      desk.dialogs.paths = {"/boat.dat"};
      desk.Item("mnuFileOpen").trigger();
      desk.radio.SetFaults(Fault("other-stored@write:58"));  // in the MMSI
      desk.prompts.answers = {again ? Answer::kProgramAgain : Answer::kClose};
      QCOMPARE(desk.Transfer(kProgram), again);
      QVERIFY(desk.prompts.messages[0].details.find("User MMSI") != std::string::npos);
      if (!again) {
        QVERIFY(!desk.Transfer(kProgram));
        QVERIFY(desk.Messages().last().contains("an earlier run was writing"));
        QTimer::singleShot(0, desk.window.get(), [] { Click("cmdOK"); });
        desk.Find<QPushButton>("cmdProgramAgain")->click();
      }
      QVERIFY(desk.files.ListFolder("/marks").empty());
      QCOMPARE(desk.data.Dsc.UserMmsi, "123456789");
      QVERIFY(desk.Transfer(kRead));
      QCOMPARE(desk.data.Dsc.UserMmsi, "123456789");
    }
  }
};

QTEST_MAIN(PartlyWrittenTest)
#include "partly_written_test.moc"
