#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

#include "image/sample_radio.h"
#include "support/row.h"
#include "window_desk.h"

using namespace orvane;
using testing::Row;
using testing::WindowDesk;

namespace {

struct FindDesk : WindowDesk {
  FindDesk() {
    Start();
    data = image::MakeSampleRadio(5, clock.today);
    ShowArranged();
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    ++pressed;
    QTest::keyClick(window->focusWidget(), key, modifiers);
  }
  void Type(const QString& text) {
    pressed += static_cast<int>(text.size());
    QTest::keyClicks(window->focusWidget(), text);
  }
  void Look(const QString& text) {
    Press(Qt::Key_F, Qt::ControlModifier);
    Type(text);
  }
  [[nodiscard]] QString Focus() const { return window->focusWidget()->objectName(); }
  [[nodiscard]] QString Key() const { return Tree().CurrentKey(); }
  [[nodiscard]] QListView& List() const { return *Find<QListView>("lstFind"); }
  [[nodiscard]] QString Chosen() const { return List().currentIndex().data().toString(); }
  [[nodiscard]] bool IsOpen() const {
    const auto* box = Find<QWidget>("findBox");
    return box != nullptr && box->isVisible();
  }
  /// Label of the box, and what a screen reader says for it.
  [[nodiscard]] QString Told() const { return Find<QLabel>("lblFind")->text(); }
  [[nodiscard]] QString Spoken() const {
    return QAccessible::queryAccessibleInterface(Find<QLabel>("lblFind"))->text(QAccessible::Name);
  }
  [[nodiscard]] QString Notice() const { return Find<QLabel>("sbStatusBar_2")->text(); }
  /// The channel of the page on show, and the control that has the focus.
  [[nodiscard]] QString Place() const { return Key() + ' ' + Focus(); }

  int pressed = 0;
};

/// An EXP/LMR channel in use without a frequency: each page check fails.
void ShowIncompleteChannel(FindDesk& desk) {
  desk.data.EXP[7].Rxfreq = 0;
  desk.window->SelectNode("L7");
}

}  // namespace

class FindTest : public QObject {
  Q_OBJECT

 private slots:
  void Usa16IsFourKeysFromAnywhere() {
    for (const char* from : {"General", "PC3", "E9", "PW"}) {
      const Row row(from);
      FindDesk desk;
      desk.window->SelectNode(from);
      desk.Press(Qt::Key_F, Qt::ControlModifier);
      desk.Type("16");
      desk.Press(Qt::Key_Return);
      QCOMPARE(desk.Place(), "PU32 chkCEnable");
      QCOMPARE(desk.pressed, 4);
      QVERIFY(!desk.IsOpen());
      QVERIFY(!desk.document.CanUndo() && !desk.document.HasChanged());
    }
  }

  void CtrlFWorksFromEveryControlOfEveryPage() {
    FindDesk desk;
    desk.data.Common.SCAN = true;
    int controls = 0;
    for (const char* key : {"General", "Usable", "Common", "PU", "PU32", "PW", "L1", "E9"}) {
      desk.window->SelectNode(key);
      for (auto* control : desk.window->findChildren<QWidget*>()) {
        if ((control->focusPolicy() & Qt::TabFocus) == 0 || !control->isVisible()) continue;
        if (!control->isEnabled() || control->objectName().isEmpty()) continue;
        control->setFocus();
        const QString before = desk.Focus();
        const Row row(key, before);
        desk.Press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(desk.Focus(), "txtFind");
        desk.Press(Qt::Key_Escape);
        QCOMPARE(desk.Focus(), before);
        QVERIFY(!desk.IsOpen());
        ++controls;
      }
      QCOMPARE(desk.Key(), key);
    }
    QVERIFY(controls > 80);
  }

  void ResultsComeAsOneTypesAndAreSpoken() {
    FindDesk desk;
    desk.Look("1");
    const QAbstractItemModelTester tester(desk.List().model());
    const QSignalSpy announced(desk.Find<editor::LiveLabel>("lblFind"),
                               &editor::LiveLabel::Announced);
    const struct {
      const char* what;
      std::function<void()> work;
      const char* told;
      const char* chosen;
    } steps[] = {
        {"6", [&] { desk.Type("6"); }, "7 channels, 4 of them not in use",
         "USA 16 DISTRESS 156.800"},
        {"Down", [&] { desk.Press(Qt::Key_Down); }, "2 of 7", "INTL 16 DISTRESS 156.800"},
        {"Up", [&] { desk.Press(Qt::Key_Up); }, "1 of 7", "USA 16 DISTRESS 156.800"},
        {"a blank", [&] { desk.Type(" sc"); }, "No channel found", ""},
        {"a word without its value", [&] { desk.Type("an:"); },
         "\"scan\" takes yes or no: scan:yes.", "USA 16 DISTRESS 156.800"},
        {"its value", [&] { desk.Type("y"); }, "3 channels", "USA 16 DISTRESS 156.800"},
        {"no value", [&] { desk.Type("x"); }, "\"scan\" takes yes or no, not \"yx\".", ""},
    };
    int told = 0;
    for (const auto& step : steps) {
      const Row row(step.what);
      step.work();
      QCOMPARE(desk.Told(), step.told);
      QCOMPARE(desk.Chosen(), step.chosen);
      const QString spoken = desk.Told() + (*step.chosen != 0 ? ". " : "") + step.chosen;
      QCOMPARE(desk.Spoken(), spoken);
      QVERIFY(announced.count() > told);
      told = static_cast<int>(announced.count());
      QCOMPARE(desk.Focus(), "txtFind");
      QCOMPARE(desk.List().isVisible(), *step.chosen != 0);
      const QModelIndex row_chosen = desk.List().currentIndex();
      const QStringList parts = {row_chosen.data(editor::FindModel::kNameRole).toString(),
                                 row_chosen.data(editor::FindModel::kFrequencyRole).toString()};
      QCOMPARE(parts.join(' ').trimmed(), step.chosen);
    }
    desk.Press(Qt::Key_Return);  // nothing to go to
    QCOMPARE(desk.Focus(), "txtFind");
    QCOMPARE(announced.count(), told + 1);
    QTest::keyClick(desk.window->focusWidget(), Qt::Key_F1);
    QCOMPARE(desk.help.opened, QStringList{"frmMain 3011"});
  }

  void EnterGoesToTheFieldAskedForAndF3GoesOn() {
    FindDesk desk;
    desk.Look("tx:no used:yes usa");
    desk.Press(Qt::Key_Down);
    desk.Press(Qt::Key_Enter, Qt::KeypadModifier);
    // Channel 70 only receives: its Tx Enable cannot be set.
    QCOMPARE(desk.Place(), "PU140 chkCEnable");
    desk.Press(Qt::Key_F3);
    QCOMPARE(desk.Key(), "PU30");
    QCOMPARE(desk.Notice(), "Find: 1 of 2, from the first one again");
    desk.Press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(desk.Key(), "PU140");
    QCOMPARE(desk.Notice(), "Find: 2 of 2, from the last one again");
    desk.Look("scan:yes lmr");
    desk.Press(Qt::Key_F3);
    QCOMPARE(desk.Place(), "L1 txtFind");
    desk.Press(Qt::Key_Return);
    QCOMPARE(desk.Place(), "L1 chkCScan");
    // The channel answers no more: what took its place is the next.
    desk.Press(Qt::Key_Space);
    QCOMPARE(desk.document.Steps().size(), 1U);
    desk.Press(Qt::Key_F3);
    QCOMPARE(desk.Place(), "L2 chkCScan");
    QCOMPARE(desk.Notice(), "Find: 1 of 1");
    desk.Press(Qt::Key_Space);
    desk.Press(Qt::Key_F3);
    QCOMPARE(desk.Focus(), "txtFind");
    QCOMPARE(desk.Told(), "No channel found");
  }

  void EscReturnsToWhereOneWas() {
    FindDesk desk;
    desk.window->SelectNode("PW");
    desk.Find<QWidget>("txtDTagName_4")->setFocus();
    desk.Look("16");
    for (const char* key : {"PU32", "PI32"}) {
      desk.Press(Qt::Key_F3);
      QCOMPARE(desk.Place(), QString(key) + " txtFind");
    }
    desk.Press(Qt::Key_Escape);
    QCOMPARE(desk.Place(), "PW txtDTagName_4");
    QVERIFY(!desk.IsOpen());
    // What was typed stays, to go on from or to type over.
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(desk.Find<QLineEdit>("txtFind")->selectedText(), "16");
    desk.Find<QToolButton>("cmdFindClose")->click();
    QCOMPARE(desk.Place(), "PW txtDTagName_4");
  }

  void AClickGoesThereAndLeavesTheListOpen() {
    FindDesk desk;
    desk.Look("16");
    const QModelIndex second = desk.List().model()->index(1, 0);
    QTest::mouseClick(desk.List().viewport(), Qt::LeftButton, {},
                      desk.List().visualRect(second).center());
    QCOMPARE(desk.Place(), "PI32 chkCEnable");
    QVERIFY(desk.IsOpen());
    // An edit elsewhere shows in the list, and leaves its row alone.
    desk.Find<QWidget>("txtCTag")->setFocus();
    QTest::keyClicks(desk.Find<QWidget>("txtCTag"), "X");
    QTRY_COMPARE(desk.Chosen(), "INTL 16 DISTRESSX 156.800");
    QCOMPARE(desk.Focus(), "txtCTag");
    desk.Find<QToolButton>("cmdFindClose")->click();
    QVERIFY(!desk.IsOpen());
    QCOMPARE(desk.Place(), "PI32 txtCTag");
  }

  void AGroupThatIsOffLeadsToItsSwitch() {
    FindDesk desk;
    desk.data.Usable[1].Enable = desk.data.ExpPresent = false;
    desk.ShowArranged();
    for (const auto& [typed, place, notice] :
         {std::tuple("distress group:intl", "Usable chkUsable_1", "INTL"),
          {"marina", "Usable chkUsableEXP", "EXP"}}) {
      const Row row(typed);
      desk.window->SelectNode("PU32");
      desk.Look(typed);
      desk.Press(Qt::Key_Return);
      QCOMPARE(desk.Place(), place);
      QCOMPARE(desk.Notice(), QString(notice) + " is not in use: this box puts it in use");
    }
  }

  void APageThatMustNotBeLeftStays() {
    FindDesk desk;
    ShowIncompleteChannel(desk);
    desk.Look("16");
    QVERIFY(desk.prompts.messages.empty());
    int refused = 0;
    for (const Qt::Key key : {Qt::Key_F3, Qt::Key_Return}) {
      desk.Press(key);
      QCOMPARE(desk.prompts.messages.size(), std::size_t(++refused));
      QCOMPARE(desk.Key(), "L7");
      QVERIFY(desk.IsOpen());
    }
    // Its own page can be looked at.
    desk.Look("lmr7");
    desk.Press(Qt::Key_Return);
    QCOMPARE(desk.prompts.messages.size(), std::size_t(refused));
    QCOMPARE(desk.Place(), "L7 chkCEnable");
  }

  void AFieldThatMustNotBeLeftKeepsTheFocus() {
    FindDesk desk;
    desk.window->SelectNode("L7");
    desk.Find<QWidget>("txtCRF")->setFocus();
    desk.Type("12");
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(desk.Place(), "L7 txtCRF");
    QVERIFY(!desk.IsOpen());
    QTRY_COMPARE(desk.prompts.messages.size(), 1U);
  }

  void GoingToThePageOnShowLosesNothingTyped() {
    const std::tuple<const char*, double, const char*, std::size_t> rows[] = {
        {"152.5", 152.5, "L7 chkCEnable", 0}, {"12", 150.25, "L7 txtCRF", 1}};
    for (const auto& [typed, kept, place, messages] : rows) {
      const Row row(typed);
      FindDesk desk;
      desk.data.EXP[7].Rxfreq = 150.25;
      desk.Look("lmr7");
      desk.Press(Qt::Key_Return);
      desk.Find<QWidget>("txtCRF")->setFocus();
      desk.Type(typed);
      desk.Press(Qt::Key_F3);
      QCOMPARE(desk.Place(), place);
      QCOMPARE(desk.data.EXP[7].Rxfreq, kept);
      QCOMPARE(desk.prompts.messages.size(), messages);
    }
  }

  void AnotherModelIsFoundInAtOnce() {
    FindDesk desk;
    desk.Look("dock");
    QCOMPARE(desk.Told(), "1 channel");
    desk.document.Replace("another", {.data = image::MakeSampleRadio(1, desk.clock.today)}, false);
    desk.Press(Qt::Key_F3);
    QCOMPARE(desk.Told(), "No channel found");
    QCOMPARE(desk.Focus(), "txtFind");
  }

  void MenuAndShortcutsNameTheCommands() {
    FindDesk desk;
    const std::pair<const char*, const char*> rows[] = {
        {"mnuEditFind", "&Find... Ctrl+F"},
        {"mnuEditFindNext", "Find &Next F3"},
        {"mnuEditFindPrevious", "Find Pre&vious Shift+F3"}};
    for (const auto& [name, text] : rows) {
      const QAction& item = desk.Item(name);
      QCOMPARE(item.text() + ' ' + item.shortcut().toString(), text);
      QVERIFY(item.isEnabled() && item.toolTip().size() > item.text().size());
    }
    // Without anything typed, going on begins with that.
    desk.Press(Qt::Key_F3);
    QCOMPARE(desk.Focus(), "txtFind");
    for (const document::FindWord& word : document::FindWords()) {
      QVERIFY(desk.window->focusWidget()->toolTip().contains(word.example.data()));
    }
  }
};

QTEST_MAIN(FindTest)
#include "find_test.moc"
