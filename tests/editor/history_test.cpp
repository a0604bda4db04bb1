#include <QAbstractItemModelTester>
#include <QListView>
#include <QSignalSpy>
#include <QToolButton>
#include <tuple>

#include "command_desk.h"
#include "core/app_settings.h"
#include "editor/channel_page.h"
#include "editor/common_page.h"
#include "editor/usable_page.h"
#include "editor/weather_page.h"
#include "files/settings_file.h"
#include "page_desk.h"

using namespace orvane;
using testing::CommandDesk;
using testing::PageDesk;
using testing::Row;
using testing::WindowDesk;

namespace {

constexpr const char* kNameOf16 = "CH16 CH Name";

/// What a control shows of its value.
QString Shown(const QWidget& control) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
    return button->isChecked() ? "on" : "off";
  }
  if (const auto* list = qobject_cast<const QComboBox*>(&control)) return list->currentText();
  return static_cast<const QLineEdit&>(control).text();
}

/// The user sets another value.
void Work(QWidget& control) {
  control.setFocus();
  if (auto* list = qobject_cast<QComboBox*>(&control)) {
    QTest::keyClick(list, list->currentIndex() > 0 ? Qt::Key_Up : Qt::Key_Down);
  } else if (auto* box = qobject_cast<editor::FrequencyBox*>(&control)) {
    QTest::keyClicks(box, "151.250\t");
  } else if (auto* text = qobject_cast<QLineEdit*>(&control)) {
    text->selectAll();
    QTest::keyClicks(text, "35");
  } else {
    QTest::keyClick(&control, Qt::Key_Space);
  }
}

/// Works every control that can be worked, takes the step back and makes it again.
template <class PageType>
void WorkAndUndoAll(int model, const char* key, int controls) {
  PageDesk<PageType> desk(model, key);
  // So that nothing is greyed.
  core::ChannelRecord& channel = desk.data.EXP[1];
  channel.TxEnable = channel.LowPower = true;
  channel.Txfreq = 147;
  channel.RxDCS = 7;
  desk.Open(key);
  const auto fill = [&] { desk.page->Fill(*editor::NodeOfKey(QLatin1String(key))); };
  int steps = 0;
  for (auto* control : desk.page->template findChildren<QWidget*>()) {
    const bool is_input = qobject_cast<QAbstractButton*>(control) != nullptr ||
                          qobject_cast<QComboBox*>(control) != nullptr ||
                          qobject_cast<editor::FieldBox*>(control) != nullptr;
    const auto* box = qobject_cast<editor::FieldBox*>(control);
    if (!is_input || !control->isVisible() || !control->isEnabled()) continue;
    if (box != nullptr && box->IsLocked()) continue;
    // Filled anew, it shows whether the channel belongs to a group, and not the switch.
    if (*key == 'E' && control->objectName() == "chkCEnable") continue;
    const Row row(model, key, control->objectName());
    const core::RadioData before = desk.data;
    const QString shown_before = Shown(*control);
    Work(*control);
    if (desk.document.DoneCount() == 0) continue;  // an option that was chosen, a last channel
    ++steps;
    const core::RadioData after = desk.data;
    const QString shown_after = Shown(*control);
    const QWidget* named = desk.page->ControlOf(*desk.document.Steps().back().at);
    const bool option = qobject_cast<editor::OptionButton*>(control) != nullptr;
    QVERIFY(named == control || (option && named != nullptr));
    desk.document.Undo();
    fill();
    QCOMPARE(Shown(*control), shown_before);
    QVERIFY(desk.data == before);
    desk.document.Redo();
    fill();
    QCOMPARE(Shown(*control), shown_after);
    QVERIFY(desk.data == after);
    desk.document.Undo();
    desk.document.Begin({.data = before});
    fill();
  }
  QCOMPARE(steps, controls);
}

void Rename(WindowDesk& desk, const char* key, const char* name) {
  desk.window->SelectNode(key);
  auto* box = desk.Find<QLineEdit>("txtCTag");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, name);
}

/// With 150.5 MHz.
void ShowLmr1(WindowDesk& desk) {
  desk.data.LmrPresent() = desk.data.EXP[1].Enable = true;
  desk.data.EXP[1].LMR_EXP = -1;
  desk.data.EXP[1].Rxfreq = 150.5;
  desk.ShowArranged();
}

}  // namespace

class HistoryTest : public QObject {
  Q_OBJECT

 private slots:
  void EachControlOfEachPageIsTakenBackAndMadeAgain() {
    WorkAndUndoAll<editor::ChannelPage>(5, "L1", 17);
    WorkAndUndoAll<editor::ChannelPage>(5, "PU32", 6);
    WorkAndUndoAll<editor::ChannelPage>(5, "E9", 16);
    WorkAndUndoAll<editor::UsablePage>(5, "Usable", 17);
    WorkAndUndoAll<editor::CommonPage>(0, "Common", 7);
    WorkAndUndoAll<editor::WeatherPage>(5, "PW", 30);
  }

  void UndoNamesItsStepAndLeadsToWhereItHappened() {
    WindowDesk desk;
    desk.Start();
    QVERIFY(!desk.Item("mnuEditUndo").isEnabled() && !desk.Item("mnuEditRedo").isEnabled());
    Rename(desk, "PU32", "harbor");
    QCOMPARE(desk.Item("mnuEditUndo").text(), QString("&Undo ") + kNameOf16);
    QCOMPARE(desk.Find<QToolButton>("Undo")->toolTip(), QString("Undo %1 (Ctrl+Z)").arg(kNameOf16));
    desk.window->SelectNode("Common");
    desk.Tree().setFocus();
    QTest::keyClick(desk.window.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.data.Marine[0][32].ChTag, "DISTRESS");
    QCOMPARE(desk.Tree().CurrentKey(), "PU32");
    QCOMPARE(desk.window->focusWidget()->objectName(), "txtCTag");
    QCOMPARE(desk.Find<QLineEdit>("txtCTag")->text(), "DISTRESS");
    for (const bool shift : {false, true}) {
      const Row row(shift);
      QTest::keyClick(desk.window->focusWidget(), shift ? Qt::Key_Z : Qt::Key_Y,
                      shift ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
      QCOMPARE(desk.Find<QLineEdit>("txtCTag")->text(), "HARBOR");
      desk.Find<QToolButton>("Undo")->click();
    }
  }

  void TypingNotYetTakenOverIsUndoneFirst() {
    WindowDesk desk;
    desk.Start();
    ShowLmr1(desk);
    Rename(desk, "L1", "one");
    auto* box = desk.Find<editor::FrequencyBox>("txtCRF");
    box->setFocus();
    QTest::keyClicks(box, "151");
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(box->text(), "150.5000");
    QVERIFY(!box->IsEdited());
    QCOMPARE(desk.data.EXP[1].ChTag, "ONE");
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(desk.data.EXP[1].ChTag.empty());
  }

  void TypingNotYetTakenOverIsNotLostByRedo() {
    const std::tuple<const char*, double, bool> rows[] = {{"151", 151, false}, {"15", 150.5, true}};
    for (const auto& [typed, kept, refused] : rows) {
      const Row row(typed);
      WindowDesk desk;
      desk.Start();
      ShowLmr1(desk);
      Rename(desk, "PU32", "one");
      desk.Item("mnuEditUndo").trigger();
      desk.window->SelectNode("L1");
      auto* box = desk.Find<editor::FrequencyBox>("txtCRF");
      box->setFocus();
      QTest::keyClicks(box, typed);
      desk.Item("mnuEditRedo").trigger();
      QCOMPARE(desk.Tree().CurrentKey(), "L1");
      QCOMPARE(desk.data.EXP[1].Rxfreq, kept);
      QCOMPARE(desk.document.CanRedo(), refused);
      QCOMPARE(box->IsEdited(), refused);
      QCOMPARE(desk.prompts.messages.size(), refused ? 1U : 0U);
    }
  }

  void CommandsThatReplaceTheDataAreTakenBackWithFileModelAndMark_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("step");
    QTest::addColumn<QString>("saved");
    QTest::addRow("New") << "mnuFileNew"
                         << "New"
                         << "New";
    QTest::addRow("Open") << "mnuFileOpen"
                          << "Open other.dat"
                          << "Saved";
    QTest::addRow("Read") << "mnuTransferRead"
                          << "Read from Radio"
                          << "Read 13:58, not saved";
    QTest::addRow("Destination") << "mnuDestination_1"
                                 << "Destination KT520-usa"
                                 << "New";
    QTest::addRow("Image") << "F2"
                           << "Load other.hex"
                           << "Saved";
    QTest::addRow("Model") << "mnuEditModel_1"
                           << "Model KT310"
                           << "New";
  }
  void CommandsThatReplaceTheDataAreTakenBackWithFileModelAndMark() {
    QFETCH(QString, item);
    QFETCH(QString, step);
    QFETCH(QString, saved);
    CommandDesk desk;
    const core::RadioData& other = desk.sample;
    static_cast<void>(files::WriteSettingFile(other, "/other.dat", desk.files, desk.pump));
    desk.files.files["/other.hex"] =
        std::string(other.Image.Used().begin(), other.Image.Used().end());
    desk.state.Debug = true;
    desk.Start();
    Rename(desk, "PU32", "mine");
    desk.dialogs.paths = {"/boat.dat", item == "F2" ? "/other.hex" : "/other.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    QCOMPARE(desk.Saved(), "Saved 14:02");
    desk.clock.time_of_day = "13:58";
    const core::RadioData before = desk.data;
    const QString title = desk.window->windowTitle();
    const QSignalSpy filled(desk.window->findChild<editor::Navigator*>(),
                            &editor::Navigator::PageShown);
    if (item == "mnuTransferRead") {
      QVERIFY(desk.Transfer("mnuTransferRead"));
    } else if (item == "F2") {
      QTest::keyClick(desk.window.get(), Qt::Key_F2, Qt::ControlModifier);
    } else {
      desk.Item(qPrintable(item)).setEnabled(true);
      desk.TriggerAndWait(qPrintable(item));
    }
    QCOMPARE(filled.count(), 1);
    const core::RadioData after = desk.data;
    QVERIFY(after != before);
    QCOMPARE(desk.Saved(), saved);
    QVERIFY(!desk.window->windowTitle().contains("boat"));
    QCOMPARE(desk.Item("mnuEditUndo").text(), "&Undo " + step);

    desk.Item("mnuEditUndo").trigger();
    QCOMPARE(filled.count(), 2);
    QVERIFY(desk.data == before);
    QCOMPARE(desk.window->windowTitle(), title);
    QCOMPARE(desk.Saved(), "Saved 14:02");
    QCOMPARE(desk.Model(), "KT740");
    QCOMPARE(core::AppSettings(desk.settings).ModelType(), 5);
    QVERIFY(desk.document.HasChanged());
    desk.Item("mnuEditRedo").trigger();
    QVERIFY(desk.data == after);
    QCOMPARE(desk.Saved(), saved);
    QCOMPARE(core::AppSettings(desk.settings).ModelType(), after.MODELTYPE);
  }

  // Small letters come from a settings file; the radio has none.
  void WhatProgrammingAdjustsIsAStepOfItsOwn() {
    CommandDesk desk;
    desk.Start();
    desk.data = desk.sample;
    desk.data.Marine[0][32].ChTag = "small";
    desk.ShowArranged();
    desk.document.MarkSaved("/boat.dat", "14:02");
    const core::RadioData before = desk.data;
    desk.document.ForgetChange();
    QVERIFY(desk.Transfer("mnuTransferProgram"));
    QCOMPARE(desk.data.Marine[0][32].ChTag, "SMALL");
    QVERIFY(!desk.document.HasChanged());
    QCOMPARE(desk.Saved(), "Changed, not saved");
    QCOMPARE(desk.Item("mnuEditUndo").text(), "&Undo Program to Radio");
    desk.Item("mnuEditUndo").trigger();
    QVERIFY(desk.data == before);
    QCOMPARE(desk.Saved(), "Saved 14:02");
    // What the file would not tell apart keeps its mark.
    desk.data.Marine[0][32].ChTag = "LARGE";
    QVERIFY(desk.Transfer("mnuTransferProgram"));
    QVERIFY(desk.document.CanUndo());
    QCOMPARE(desk.Saved(), "Saved 14:02");
  }

  void HistoryListGoesToAnyStep() {
    WindowDesk desk;
    desk.Start();
    Rename(desk, "PU32", "one");
    Rename(desk, "PI32", "two");
    desk.Item("mnuEditHistory").trigger();
    auto* list = desk.Find<QListView>("lstHistory");
    QAbstractItemModelTester tester(list->model());
    const auto rows = [&] {
      QStringList texts;
      for (int row = 0; row < list->model()->rowCount(); ++row) {
        texts << list->model()->index(row, 0).data().toString();
      }
      return texts;
    };
    QCOMPARE(rows(), QStringList({"(before)", kNameOf16, kNameOf16}));
    QCOMPARE(list->currentIndex().row(), 2);
    list->setFocus();
    list->setCurrentIndex(list->model()->index(0, 0));
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(desk.document.DoneCount(), 0U);
    QCOMPARE(list->currentIndex().row(), 0);
    QCOMPARE(desk.Tree().CurrentKey(), "PU32");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(2, 0)).center());
    QCOMPARE(desk.data.Marine[1][32].ChTag, "TWO");
    QCOMPARE(desk.Tree().CurrentKey(), "PI32");
  }

  void HeadingLeadsToNeighboursInUseAndKeepsTheField() {
    WindowDesk desk;
    desk.Start();
    desk.window->SelectNode("PU32");
    const auto* heading = desk.Find<QLabel>("lblHeading");
    QCOMPARE(heading->text(), "USA > CH 16 DISTRESS 156.800");
    desk.Find<QWidget>("txtCTag")->setFocus();
    const auto press = [&](Qt::Key key) {
      QTest::keyClick(desk.window->focusWidget(), key, Qt::AltModifier);
      return desk.Tree().CurrentKey();
    };
    const QString next = press(Qt::Key_PageDown);
    QVERIFY(next != "PU32" && desk.window->focusWidget()->objectName() == "txtCTag");
    QCOMPARE(press(Qt::Key_PageUp), "PU32");
    QTest::keyClicks(desk.window->focusWidget(), "x");
    QVERIFY(heading->text().contains("DISTRESSX"));
    QCOMPARE(press(Qt::Key_Up), "PU");
    QCOMPARE(desk.window->focusWidget()->objectName(), "MSFlexGrid1");
    QVERIFY(!desk.Find<QAction>("cmdTable")->isEnabled());
  }

  void HeadingTellsWhatThePageWouldLetOneMisunderstand() {
    using Kind = editor::NodeKind;
    core::RadioData data = image::MakeSampleRadio(5, testing::kAfterCutOver);
    core::ChannelRecord& place = data.EXP[1];
    place = {};
    place.Enable = true;
    place.TXPower = 3;
    place.ChTag = "HARBOR";
    place.SetLmr(true);
    const editor::NodeRef lmr{.kind = Kind::kLmrChannel, .number = 1};
    const editor::NodeRef exp{.kind = Kind::kExpChannel, .number = 1};
    QCOMPARE(editor::HeadingText(data, lmr), "LMR > LMR1 HARBOR");
    QCOMPARE(editor::HeadingNote(data, exp),
             "Place 1 is used as LMR1 HARBOR. Switching it on here makes it an EXP channel.");
    QCOMPARE(editor::HeadingNote(data, lmr),
             "The radio does not store Tx Enable for LMR channels: with power code 3 it may "
             "transmit here.");
    const std::tuple<bool, int, bool> silent[] = {
        {true, 3, true}, {false, 0, true}, {false, 3, false}};
    for (const auto& [tx_enable, power, enable] : silent) {
      const Row row(tx_enable, power, enable);
      place.TxEnable = tx_enable;
      place.TXPower = static_cast<std::uint8_t>(power);
      place.Enable = enable;
      QCOMPARE(editor::HeadingNote(data, lmr), "");
    }
    QCOMPARE(editor::HeadingNote(data, exp), "");
    const editor::NodeRef last{.kind = Kind::kMarineChannel, .number = 239};
    QVERIFY(!editor::NextInUse(data, last, 1) && editor::NextInUse(data, last, -1));
  }
};

QTEST_MAIN(HistoryTest)
#include "history_test.moc"
