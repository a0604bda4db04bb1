#include <QAccessible>
#include <QListView>
#include <QRadioButton>
#include <QSignalSpy>
#include <functional>
#include <string_view>
#include <tuple>

#include "command_desk.h"
#include "editor/channel_page.h"
#include "editor/common_page.h"
#include "editor/nav_tree_text.h"
#include "editor/progress_box.h"
#include "editor/usable_page.h"
#include "editor/weather_page.h"
#include "page_desk.h"

using namespace orvane;
using testing::PageDesk;
using testing::Row;

namespace {

QAccessibleInterface& Assistive(QObject& object) {
  return *QAccessible::queryAccessibleInterface(&object);
}

void WorkByAction(QWidget& control) {
  if (auto* list = qobject_cast<QComboBox*>(&control)) {
    return list->setCurrentIndex(list->currentIndex() > 0 ? list->currentIndex() - 1
                                                          : list->currentIndex() + 1);
  }
  Assistive(control).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

void WorkByKey(QWidget& control) {
  control.setFocus();
  const auto* list = qobject_cast<QComboBox*>(&control);
  const Qt::Key step = list != nullptr && list->currentIndex() <= 0 ? Qt::Key_Down : Qt::Key_Up;
  QTest::keyClick(&control, list == nullptr ? Qt::Key_Space : step);
}

/// The children are the nodes that the tree shows, from top to bottom.
void CompareWithTree(const QTreeView& tree, QAccessibleInterface& text) {
  int row = 0;
  for (QModelIndex node = tree.model()->index(0, 0); node.isValid(); node = tree.indexBelow(node)) {
    const QString name = node.data().toString();
    const Row at(row, name);
    QAccessibleInterface* child = text.child(row);
    QVERIFY(child != nullptr);
    QCOMPARE(child->role(), QAccessible::TreeItem);
    QCOMPARE(child->text(QAccessible::Name), name);
    QCOMPARE(child->text(QAccessible::Description), node.data(Qt::ToolTipRole).toString());
    QCOMPARE(text.indexOfChild(child), row);
    QCOMPARE(child->tableCellInterface()->rowIndex(), row++);
    const QAccessible::State state = child->state();
    QCOMPARE(bool(state.expandable), tree.model()->hasChildren(node));
    QCOMPARE(bool(state.expanded), tree.isExpanded(node));
    QCOMPARE(bool(state.collapsed), state.expandable && !state.expanded);
    QCOMPARE(bool(state.selected), node == tree.currentIndex());
    const QPoint middle = child->rect().center();
    if (!state.invisible)
      QCOMPARE(text.childAt(middle.x(), middle.y())->text(QAccessible::Name), name);
  }
  QCOMPARE(text.childCount(), row);
  QCOMPARE(text.child(row), nullptr);
}

/// The boxes, option buttons and lists that would change by being worked.
template <class PageType>
QStringList Switches(const PageDesk<PageType>& desk) {
  QStringList names;
  for (const QWidget* control : desk.page->template findChildren<QWidget*>()) {
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    const bool chosen = qobject_cast<const QRadioButton*>(control) && button->isChecked();
    const bool other = button == nullptr && qobject_cast<const QComboBox*>(control) == nullptr;
    if (!chosen && !other && control->isVisibleTo(desk.page.get())) names << control->objectName();
  }
  return names;
}

/// Everything that the page shows and allows.
template <class PageType>
QStringList Look(const PageDesk<PageType>& desk) {
  QStringList look;
  for (const QWidget* control : desk.page->template findChildren<QWidget*>()) {
    if (!control->isVisibleTo(desk.page.get())) continue;
    QString state = control->objectName() + (control->isEnabled() ? " on " : " off ");
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
      state += button->isChecked() ? "checked" : "";
    }
    if (const auto* list = qobject_cast<const QComboBox*>(control)) state += list->currentText();
    look << state;
  }
  return look;
}

template <class PageType>
void CompareActionsWithKeys(const char* key, int at_least) {
  PageDesk<PageType> desk(5, key);
  desk.data.Common.SCAN = true;  // its times can be set
  const core::RadioData before = desk.data;
  desk.Open(key);
  const QStringList names = Switches(desk);
  QVERIFY(names.size() >= at_least);
  for (const QString& name : names) {
    const Row row(key, name);
    const auto work = [&](void (*way)(QWidget&)) {
      desk.data = before;
      desk.Open(key);
      QWidget& control = *desk[qPrintable(name)];
      control.setEnabled(true);
      way(control);
    };
    work(WorkByKey);
    const core::RadioData expected = desk.data;
    const QStringList look = Look(desk);
    const int rebuilds = desk.host.rebuilds;
    QVERIFY(expected != before && desk.host.changes > 0);
    work(WorkByAction);
    QVERIFY(desk.data == expected && desk.host.changes > 0);
    QCOMPARE(Look(desk), look);
    QCOMPARE(desk.host.rebuilds, rebuilds);
  }
}

}  // namespace

class AssistiveTest : public QObject {
  Q_OBJECT

 private slots:
  void EverySwitchDoesByActionWhatItDoesByKey() {
    CompareActionsWithKeys<editor::ChannelPage>("PU48", 7);
    CompareActionsWithKeys<editor::ChannelPage>("L7", 12);
    CompareActionsWithKeys<editor::ChannelPage>("E9", 15);
    CompareActionsWithKeys<editor::UsablePage>("Usable", 17);
    CompareActionsWithKeys<editor::CommonPage>("Common", 6);
    CompareActionsWithKeys<editor::WeatherPage>("PW", 20);
  }

  void ItemOnShowCanBeChosenForAValueThatItDoesNotStandFor() {
    PageDesk<editor::CommonPage> desk(5, "Common");
    desk.data.Common.Weater = 2;  // shown as "Off"
    desk.Open("Common");
    auto* list = desk.Find<QComboBox>("cmbCommonWeater");
    emit list->activated(list->currentIndex());
    QCOMPARE(desk.data.Common.Weater, 0);
    QCOMPARE(desk.host.changes, 1);
  }

  void TextsAreWrittenWhereTheUserMayWriteOnly() {
    const std::tuple<const char*, const char*, bool, const char*> rows[] = {
        {"PU32", "txtCRF", true, "156.800"},
        {"PU32", "txtCN_0", true, "16"},
        {"L1", "txtCTag", false, "LMR CH 1"},
        {"L1", "txtCRF", true, "155.5000"},
        {"L1", "txtCTag", true, "AB"}};
    for (const auto& [key, name, enabled, expected] : rows) {
      const Row row(key, name, enabled);
      PageDesk<editor::ChannelPage> desk(5);
      desk.data.EXP[1].ChTag = "LMR CH 1";
      desk.Open(key);
      desk[name]->setEnabled(enabled);
      const bool frequency = name == std::string_view("txtCRF");
      Assistive(*desk[name]).setText(QAccessible::Value, frequency ? "155.5" : "Ab");
      if (frequency) desk.Focused(name);
      QVERIFY(desk.page->Check());
      QCOMPARE(desk.Text(name), expected);
      if (*key == 'L') QCOMPARE(desk.data.EXP[1].Rxfreq, frequency ? 155.5 : 151.6);
    }
  }

  void TreeIsReadAsItIsShownWithoutItsHiddenHeader() {
    testing::WindowDesk desk;
    desk.Start();
    editor::NavTree& tree = desk.Tree();
    QAccessibleInterface& text = Assistive(tree);
    QCOMPARE(text.role(), QAccessible::Tree);
    QVERIFY(text.tableInterface() != nullptr);
    tree.setFocus();
    QStringList told;
    connect(&tree, &editor::NavTree::Told, &tree, [&](QAccessible::Event event, int row) {
      const char* what = event == QAccessible::Focus          ? "focus "
                         : event == QAccessible::SelectionAdd ? "+ "
                                                              : "- ";
      told << what + text.child(row)->text(QAccessible::Name);
    });
    const auto press = [&](Qt::Key key) { return [&, key] { QTest::keyClick(&tree, key); }; };
    const auto act = [&](const char* key, const QString& action) {
      return [&, key, action] {
        const auto& model = static_cast<const editor::TreeModel&>(*tree.model());
        const int row = editor::ShownRow(tree, model.IndexOfKey(key));
        text.child(row)->actionInterface()->doAction(action);
      };
    };
    const QString choose = QAccessibleActionInterface::pressAction();
    const QString toggle = QAccessibleActionInterface::toggleAction();
    const struct {
      const char* what;
      std::function<void()> work;
      const char* current;
      QStringList told;
    } steps[] = {
        {"start", [] {}, "General", {}},
        {"Down",
         press(Qt::Key_Down),
         "Usable",
         {"+ Available CH Group Setup", "- General", "focus Available CH Group Setup"}},
        {"choose", act("PU", choose), "PU", {"+ USA", "- Available CH Group Setup", "focus USA"}},
        {"expand", press(Qt::Key_Right), "PU", {"focus USA"}},
        {"expand another", act("PC", toggle), "PU", {}},
        {"choose below",
         act("PC2", choose),
         "PC2",
         {"+ CH01[Enable]", "- USA", "focus CH01[Enable]"}},
        {"collapse above", act("PU", toggle), "PC2", {}},
        {"nodes go",
         [&] {
           desk.data.Usable[0].Enable = false;
           tree.Rebuild();
         },
         "PC2",
         {"+ CH01[Enable]", "focus CH01[Enable]"}},
        {"row",
         [&] { QVERIFY(text.tableInterface()->selectRow(1)); },
         "Usable",
         {"+ Available CH Group Setup", "- CH01[Enable]", "focus Available CH Group Setup"}},
        {"away from the tree",
         [&] {
           desk.window->setFocus();
           tree.SetCurrentKey("PW");
         },
         "PW",
         {"+ Weather", "- Available CH Group Setup"}},
    };
    for (const auto& step : steps) {
      const Row at(step.what);
      told.clear();
      step.work();
      CompareWithTree(tree, text);
      QCOMPARE(tree.CurrentKey(), step.current);
      QCOMPARE(told, step.told);
    }
  }

  void HistoryIsReadWithWhatWasTakenBack() {
    testing::WindowDesk desk;
    desk.Start();
    desk.window->SelectNode("PU32");
    for (const char* box : {"chkCScan", "chkCTXOnly"}) {
      QTest::keyClick(desk.Find<QWidget>(box), Qt::Key_Space);
    }
    desk.Item("mnuEditHistory").trigger();
    desk.Item("mnuEditUndo").trigger();
    QStringList read;
    QAccessibleInterface& list = Assistive(*desk.Find<QListView>("lstHistory"));
    for (int row = 0; row < list.childCount(); ++row) {
      const QAccessibleInterface& step = *list.child(row);
      read << step.text(QAccessible::Name) + '|' + step.text(QAccessible::Description);
    }
    QCOMPARE(read,
             QStringList({"(before)|", "CH16 Scan Memory|", "CH16 Low Power Only|taken back"}));
  }

  void StatusBarIsReadAndSpoken() {
    testing::WindowDesk desk;
    desk.Start();
    auto* hint = desk.Find<editor::LiveLabel>("sbStatusBar_1");
    auto* notice = desk.Find<editor::LiveLabel>("sbStatusBar_2");
    const auto name = [](QObject* object) { return Assistive(*object).text(QAccessible::Name); };
    QCOMPARE(name(desk.Find<QLabel>("sbStatusBar_3")), desk.Model());
    const QSignalSpy hints(hint, &editor::LiveLabel::Announced);
    const QSignalSpy notices(notice, &editor::LiveLabel::Announced);
    for (const char* text : {"one", "one", "two"}) desk.window->ShowHint(text);
    QCOMPARE(name(hint), "two");
    QCOMPARE(hints.count(), 2);
    for (int i = 0; i < 2; ++i) desk.window->ShowNotice("no");
    QCOMPARE(name(notice), "no");
    QCOMPARE(notices.count(), 2);
    desk.window->ShowHint("two");
    QCOMPARE(desk.Saved(), "New");
    QCOMPARE(hints.count(), 2);
  }

  void TransferIsReadAndSpokenButNotEachBlock() {
    testing::CommandDesk desk;
    desk.Start();
    desk.InWindowOf("mnuTransferRead", [](QDialog& dialog) {
      auto* instructions = dialog.findChild<QLabel*>("lblmess");
      QCOMPARE(Assistive(*instructions).text(QAccessible::Name), instructions->text());
      auto* state = dialog.findChild<editor::LiveLabel*>("lblState");
      QStringList spoken;
      connect(state, &editor::LiveLabel::Announced, &dialog,
              [&] { spoken << Assistive(*state).text(QAccessible::Name); });
      dialog.findChild<QPushButton*>("cmdOK")->click();
      QVERIFY(state->text().contains("Block "));
      QVERIFY(spoken.value(0).startsWith("Connecting"));
      QCOMPARE(spoken.filter("Block ").size(), 0);
      auto* box = dialog.findChild<editor::ProgressBox*>("pictProgress");
      QAccessibleInterface& progress = Assistive(*box);
      box->ShowPercent(37);
      QCOMPARE(progress.role(), QAccessible::ProgressBar);
      QCOMPARE(progress.valueInterface()->currentValue().toInt(), 37);
    });
  }

  void ProgramLeavesTheFocusWhereItWas() {
    testing::CommandDesk desk;
    desk.Start();
    desk.window->SelectNode("PU48");
    for (const char* name : {"chkCScan", "txtCTag"}) {
      desk.Find<QWidget>(name)->setFocus();
      desk.InWindowOf("mnuTransferProgram", [](QDialog&) {});
      QCOMPARE(desk.window->focusWidget(), desk.Find<QWidget>(name));
    }
  }

  void BorderOfTreeAndPageIsMovedByKeyAndByValue() {
    testing::WindowDesk desk;
    desk.Start();
    desk.window->resize(1000, 600);
    desk.Tree().setFocus();
    const int width = desk.Tree().width();
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    press(Qt::Key_F8);
    QWidget* border = QApplication::focusWidget();
    QCOMPARE(border->accessibleName(), "Border of navigation and page");
    press(Qt::Key_Right);
    QCOMPARE(desk.Tree().width(), width + 16);
    QAccessibleValueInterface& value = *Assistive(*border).valueInterface();
    QCOMPARE(value.currentValue().toInt(), desk.Tree().width());
    press(Qt::Key_Home);
    QCOMPARE(desk.Tree().width(), 166);
    QCOMPARE(value.minimumValue().toInt(), 166);
    value.setCurrentValue(400);
    QCOMPARE(desk.Tree().width(), 400);
    press(Qt::Key_End);
    QCOMPARE(value.currentValue(), value.maximumValue());
    QVERIFY(desk.Tree().width() > 800);
    press(Qt::Key_Escape);
    QCOMPARE(desk.Tree().width(), width);
    QVERIFY(desk.Tree().hasFocus());
    for (int i = 0; i < 2; ++i) press(Qt::Key_F8);
    QVERIFY(desk.Tree().hasFocus());
  }
};

QTEST_MAIN(AssistiveTest)
#include "assistive_test.moc"
