#include <QMenu>

#include "command_desk.h"
#include "core/app_settings.h"
#include "files/settings_file.h"
#include "link/radio_program.h"

using namespace orvane;
using testing::CommandDesk;

namespace {

/// Comes up at the first number it is given, unless the script is against it.
class ScriptedRadio : public link::RadioProcess {
 public:
  explicit ScriptedRadio(testing::ListedPorts& ports) : ports_(ports) {}

  [[nodiscard]] std::string WhyNone() const override { return why_none; }
  void Start(std::int16_t model_type, const std::vector<int>& numbers) override {
    Stop();
    started.push_back(model_type);
    running_ = !fails;
    if (!fails && !silent) Plug(numbers.front());
  }
  [[nodiscard]] std::optional<int> PortNumber() const override { return number_; }
  [[nodiscard]] bool IsRunning() const override { return running_; }
  [[nodiscard]] std::string WhyEnded() const override { return "the battery is empty"; }
  void Stop() override {
    if (number_) ports_.ports.pop_back();
    number_.reset();
    running_ = false;
  }
  void WhenLost(std::function<void()> told) override { told_ = std::move(told); }
  void Lose() {
    Stop();
    told_();
  }

  std::string why_none;
  bool fails = false;
  bool silent = false;
  std::vector<std::int16_t> started;

 private:
  void Plug(int number) {
    ports_.Add(number, std::string(link::kSimulatedRadio));
    number_ = number;
  }

  testing::ListedPorts& ports_;
  std::optional<int> number_;
  bool running_ = false;
  std::function<void()> told_;
};

struct RadioDesk : CommandDesk {
  RadioDesk() { radio_process = &radio_program; }
  ~RadioDesk() { window = nullptr; }  // before the radio that it ends
  ScriptedRadio radio_program{ports};
};

struct StartDesk : RadioDesk {
  StartDesk() {
    ports.Add(2, "USB Serial");
    core::AppSettings(settings).SetPortNumber(2);
  }

  void Try() const { Item("mnuSimulatedRadio").trigger(); }
  [[nodiscard]] bool StripShown() const {
    const auto* strip = Find<QFrame>("stripSimulatedRadio");
    return strip != nullptr && strip->isVisible();
  }
  [[nodiscard]] QString StripText() const { return Find<QLabel>("lblSimulatedRadio")->text(); }
  [[nodiscard]] int KeptPort() { return core::AppSettings(settings).PortNumber(); }
};

[[nodiscard]] bool Shown(const testing::WindowDesk& desk, const char* name) {
  const auto* widget = desk.Find<QWidget>(name);
  return widget != nullptr && widget->isVisible();
}

}  // namespace

class FirstStartTest : public QObject {
  Q_OBJECT

 private slots:
  void StepsAreMenuItemsAndGoWithTheFirstData() {
    RadioDesk desk;
    desk.Start();
    QVERIFY(Shown(desk, "pictLogo") && Shown(desk, "cmdStepRead"));
    QVERIFY(!Shown(desk, "cmdRecent_0"));
    desk.Find<QPushButton>("cmdStepOpen")->click();
    QCOMPARE(desk.dialogs.requests.size(), 1U);
    desk.Find<QPushButton>("cmdStepNew")->click();
    QVERIFY(desk.Find<QMenu>("mnuDestination")->isVisible());
    desk.Find<QMenu>("mnuDestination")->close();
    desk.Find<QPushButton>("cmdStepSimulated")->click();
    QCOMPARE(desk.window->PortNumber(), 16);
    QTimer::singleShot(0, desk.window.get(), [] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      dialog->findChild<QPushButton*>("cmdOK")->click();
    });
    desk.Find<QPushButton>("cmdStepRead")->click();
    QCOMPARE(desk.Messages(), QStringList{"Complete!!"});
    QVERIFY(!Shown(desk, "boxFirstSteps"));
    QVERIFY(Shown(desk, "pictLogo"));
  }

  void StepsAreReachedByKeyboard() {
    CommandDesk desk;
    desk.Start();
    QStringList reached;
    for (int i = 0; i < 8; ++i) {
      QTest::keyClick(desk.window->focusWidget(), Qt::Key_Tab);
      reached << desk.window->focusWidget()->objectName();
    }
    for (const char* name : {"cmdStepRead", "cmdStepOpen", "cmdStepNew"}) {
      QVERIFY2(reached.contains(QLatin1String(name)), qPrintable(reached.join(' ')));
    }
    QVERIFY(reached.indexOf("cmdStepRead") < reached.indexOf("cmdStepOpen"));
    QVERIFY(!desk.Find<QPushButton>("cmdStepSimulated")->isEnabled());
    QVERIFY(desk.Find<QPushButton>("cmdStepSimulated")->toolTip().contains("without a simulated"));
  }

  void LaterStartsOfferTheRecentFilesAlone() {
    CommandDesk desk;
    core::AppSettings settings(desk.settings);
    settings.AddRecentFile("/out/gone.dat");
    settings.AddRecentFile("/out/a & b.dat");
    desk.files.files["/out/a & b.dat"] = files::SettingFileText(desk.sample);
    desk.Start();
    QVERIFY(!Shown(desk, "cmdStepRead") && !Shown(desk, "cmdRecent_2"));
    QVERIFY(!desk.Find<QPushButton>("cmdRecent_1")->isEnabled());
    QCOMPARE(desk.Find<QPushButton>("cmdRecent_1")->toolTip(),
             "/out/gone.dat is not there any more.");
    QCOMPARE(desk.Find<QPushButton>("cmdRecent_0")->text(), "a && b.dat");
    desk.Find<QPushButton>("cmdRecent_0")->click();
    QCOMPARE(desk.document.FileName(), "/out/a & b.dat");
    QVERIFY(!Shown(desk, "boxFirstSteps"));
  }

  void TheSimulatedPortIsLentAndGivenBack() {
    StartDesk desk;
    desk.Start();
    desk.Try();
    QCOMPARE(desk.window->PortNumber(), 16);
    QVERIFY(desk.StripShown());
    QVERIFY(desk.StripText().startsWith("COM16 is the simulated radio, a KT740."));
    QCOMPARE(desk.KeptPort(), 2);
    desk.Try();
    QCOMPARE(desk.Saved(), "The simulated radio runs already, on COM16.");
    QCOMPARE(desk.radio_program.started.size(), 1U);

    desk.window->ChoosePort(2);
    desk.window->ChoosePort(16);
    QCOMPARE(desk.KeptPort(), 2);
    core::AppSettings(desk.settings).SetPortNumber(3);  // another window's
    desk.Item("mnuSimulatedRadioEnd").trigger();
    QVERIFY(!desk.StripShown() && !desk.radio_program.IsRunning());
    QCOMPARE(desk.window->PortNumber(), 2);
    QVERIFY(desk.Item("mnuOptionsSerialPort1_0").isChecked());
    QVERIFY(!desk.Item("mnuSimulatedRadioEnd").isEnabled());
  }

  void AnotherModelGetsAnotherRadio() {
    StartDesk desk;
    desk.Start();
    desk.Try();
    desk.data.MODELTYPE = 4;
    desk.ShowArranged();
    desk.Try();
    QCOMPARE(desk.radio_program.started, (std::vector<std::int16_t>{5, 4}));
    QVERIFY(desk.StripText().contains("a KT520"));
    QCOMPARE(desk.ports.ports.size(), 2U);
  }

  void OneThatIsLostKeepsThePortFromTurningIntoAnother() {
    StartDesk desk;
    desk.Start();
    desk.Try();
    desk.radio_program.Lose();
    QCOMPARE(desk.window->PortNumber(), 16);
    QCOMPARE(desk.StripText(),
             "The simulated radio on COM16 has ended by itself: the battery is empty");
    desk.Find<QPushButton>("cmdEndSimulated")->click();
    QVERIFY(!desk.StripShown());
    QCOMPARE(desk.window->PortNumber(), 2);
  }

  void OneThatDoesNotComeUpLeavesThePort_data() {
    QTest::addColumn<bool>("fails");
    QTest::addColumn<bool>("silent");
    QTest::addColumn<QString>("reason");
    QTest::newRow("ends") << true << false << "the battery is empty";
    QTest::newRow("says nothing") << false << true << "no port after ten seconds";
  }
  void OneThatDoesNotComeUpLeavesThePort() {
    QFETCH(bool, fails);
    QFETCH(bool, silent);
    QFETCH(QString, reason);
    StartDesk desk;
    desk.radio_program.fails = fails;
    desk.radio_program.silent = silent;
    desk.Start();
    desk.Try();
    QCOMPARE(desk.Messages(), QStringList{"The simulated radio could not be started."});
    QVERIFY(QString::fromStdString(desk.prompts.messages[0].details).contains(reason));
    QCOMPARE(desk.window->PortNumber(), 2);
    QVERIFY(!desk.StripShown() && !desk.radio_program.IsRunning());
  }

  void NobodyTakesItForARealRadio() {
    StartDesk desk;
    desk.Start();
    desk.Try();
    const auto facts = [](const QDialog& dialog) {
      return dialog.findChild<QLabel*>("lblSubject")->text() + '|' +
             dialog.findChild<QLabel*>("lblConsequence")->text();
    };
    desk.InWindowOf("mnuTransferProgram", [&](QDialog& dialog) {
      QVERIFY(facts(dialog).startsWith("To the simulated radio: unsaved data"));
      QVERIFY(facts(dialog).endsWith("No real radio is written."));
      auto* list = dialog.findChild<QComboBox*>("lstPort");
      QCOMPARE(list->currentText(), "COM16 Simulated radio");
      list->setCurrentIndex(0);
      emit list->activated(0);
      QVERIFY(facts(dialog).startsWith("To the radio: "));
    });
    desk.window->ChoosePort(16);
    QVERIFY(desk.Transfer("mnuTransferRead"));
    QCOMPARE(desk.Saved(), "Read 14:02 from the simulated radio, not saved");
  }

  // Its memory is gone with it. A real radio's mark keeps its number from being taken.
  void WhatItHeldHalfWrittenIsForgottenWithIt() {
    StartDesk desk;
    files::PartlyWrittenMarks marks(desk.files, desk.user_folder + "/marks");
    QVERIFY(!marks.Begin("COM16", {}, desk.sample, nullptr));
    desk.Start();
    desk.Try();
    QCOMPARE(desk.window->PortNumber(), 15);
    QVERIFY(!marks.Begin("COM15", {}, desk.sample, nullptr));
    desk.Item("mnuSimulatedRadioEnd").trigger();
    QVERIFY(!marks.At("COM15"));
    QVERIFY(marks.At("COM16"));
  }

  void WordsOfTheStartDoAsTheMenuItems() {
    StartDesk desk;
    desk.window = std::make_unique<editor::MainWindow>(desk.Services());
    desk.window->TrySimulatedRadioAtStart();
    desk.window->ReadAtStart();
    QString state;
    QTimer closer;
    connect(&closer, &QTimer::timeout, desk.window.get(), [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      state = dialog->windowTitle() + ", " + dialog->findChild<QLabel*>("lblState")->text();
      dialog->close();
    });
    closer.start(0);
    desk.window->show();
    QVERIFY(QTest::qWaitFor([&] { return !state.isEmpty(); }));
    QCOMPARE(state, "Read from Radio, Port: COM16 Simulated radio");
  }
};

QTEST_MAIN(FirstStartTest)
#include "first_start_test.moc"
