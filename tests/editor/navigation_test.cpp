#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QSplitter>
#include <QTableView>

#include "core/app_settings.h"
#include "editor/navigator.h"
#include "support/row.h"
#include "window_desk.h"

using namespace orvane;
using testing::WindowDesk;

namespace {

const editor::TreeModel& Model(const WindowDesk& desk) {
  return *qobject_cast<editor::TreeModel*>(desk.Tree().model());
}

void Click(const WindowDesk& desk, const QString& key) {
  const QModelIndex index = Model(desk).IndexOfKey(key);
  desk.Tree().scrollTo(index);
  QTest::mouseClick(desk.Tree().viewport(), Qt::LeftButton, {},
                    desk.Tree().visualRect(index).center());
}

/// Shows a channel in use without a frequency: each page check shows a message and fails.
void ShowIncompleteChannel(WindowDesk& desk) {
  desk.data.LmrPresent() = true;
  desk.data.EXP[1].Enable = true;
  desk.data.EXP[1].LMR_EXP = -1;
  desk.window->RebuildTree();
  desk.window->SelectNode("L1");
}

void ShowAllGroups(WindowDesk& desk) {
  desk.data.LmrPresent() = true;
  desk.data.ExpPresent = true;
  desk.window->RebuildTree();
}

/// Those of the menu bar and of the page on show.
QStringList AccessKeys(const QMainWindow& window) {
  QStringList keys;
  const auto add = [&keys](const QKeySequence& key) {
    if (!key.isEmpty()) keys << key.toString();
  };
  for (const QAction* menu : window.menuBar()->actions()) add(QKeySequence::mnemonic(menu->text()));
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) add(button->shortcut());
  }
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy()) add(QKeySequence::mnemonic(label->text()));
  }
  return keys;
}

const QLayout* LayoutOf(const QWidget& control) {
  for (const auto* layout : control.parentWidget()->findChildren<QLayout*>()) {
    if (layout->indexOf(&control) >= 0) return layout;
  }
  return nullptr;
}

/// Further down, or to the right. Above only in a column of its own.
bool ReadsAfter(const QWidget& before, const QWidget& after) {
  const auto place = [](const QWidget& control) {
    return QRect(control.mapTo(control.window(), QPoint()), control.size());
  };
  if (place(after).top() > place(before).bottom()) return true;
  if (place(after).left() <= place(before).right()) return false;
  return place(after).bottom() >= place(before).top() || LayoutOf(before) != LayoutOf(after);
}

}  // namespace

class NavigationTest : public QObject {
  Q_OBJECT

 private slots:
  void ClickAndKeyShowTheNodesPage() {
    WindowDesk desk;
    desk.Start();
    Click(desk, "Common");
    QCOMPARE(desk.PageName(), "pictCommon");
    QTest::keyClick(&desk.Tree(), Qt::Key_Down);
    QCOMPARE(desk.PageName(), "pictGrey");
    QCOMPARE(desk.Hint(), QLatin1String(editor::kTreeHint));
  }

  void BadPageKeepsItsNodeWhateverTheWayOut() {
    for (const QString way : {"click", "key", "jump"}) {
      const testing::Row row(way);
      WindowDesk desk;
      desk.Start();
      ShowIncompleteChannel(desk);
      if (way == "click") Click(desk, "General");
      if (way == "key") QTest::keyClick(&desk.Tree(), Qt::Key_Down);
      if (way == "jump") desk.window->SelectNode("PU5");
      QCOMPARE(desk.Messages().size(), 1);
      QCOMPARE(desk.Tree().CurrentKey(), "L1");
      QCOMPARE(desk.Tree().selectionModel()->selectedIndexes(),
               QModelIndexList{Model(desk).IndexOfKey("L1")});
      QCOMPARE(desk.PageName(), "pictC");
      QCOMPARE(desk.Find<QLineEdit>("txtCRF")->text(), "---.----");
    }
  }

  void NodeOnShowAndUnknownNodesCheckNothing() {
    WindowDesk desk;
    desk.Start();
    ShowIncompleteChannel(desk);
    desk.window->ShowHint({});
    Click(desk, "L1");
    QCOMPARE(desk.Hint(), QLatin1String(editor::kTreeHint));
    for (const char* key : {"E3", "nonsense"}) desk.window->SelectNode(key);
    QVERIFY(desk.prompts.messages.empty());
    QCOMPARE(desk.Tree().CurrentKey(), "L1");
  }

  void RebuildKeepsExpansionSelectionAndScroll() {
    WindowDesk desk;
    desk.Start();
    editor::NavTree& tree = desk.Tree();
    tree.expandAll();
    tree.collapse(Model(desk).IndexOfKey("PI"));
    desk.window->SelectNode("PU100");
    tree.verticalScrollBar()->setValue(60);
    const QString top = tree.indexAt({0, 0}).data(editor::TreeModel::kKeyRole).toString();
    desk.data.ExpPresent = true;
    desk.data.Usable[2].Enable = false;
    tree.Rebuild();
    QVERIFY(tree.isExpanded(Model(desk).IndexOfKey("PU")));
    QVERIFY(!tree.isExpanded(Model(desk).IndexOfKey("PI")));
    QCOMPARE(tree.CurrentKey(), "PU100");
    QCOMPARE(tree.indexAt({0, 0}).data(editor::TreeModel::kKeyRole).toString(), top);
  }

  void EachKindOfNodeShowsItsPageAndOnlyThatIsEnabled() {
    WindowDesk desk;
    desk.Start();
    ShowAllGroups(desk);
    const std::pair<const char*, const char*> rows[] = {
        {"General", "pictGeneral"}, {"Program", "pictGrey"}, {"Usable", "pictUsable"},
        {"Common", "pictCommon"},   {"PU", "pictB"},         {"PC", "pictB"},
        {"LMRChannel", "pictB"},    {"ExpChannel", "pictB"}, {"PI37", "pictC"},
        {"L40", "pictC"},           {"PW", "pictD"}};
    for (const auto& [key, page] : rows) {
      const testing::Row row(key);
      desk.window->SelectNode(key);
      QCOMPARE(desk.PageName(), page);
      int enabled = 0;
      for (const editor::Page* other : desk.window->findChild<editor::PageArea*>()->Pages()) {
        enabled += other->isEnabled() ? 1 : 0;
      }
      QCOMPARE(enabled, 1);
    }
    QVERIFY(!desk.document.HasChanged());
  }

  void EveryPageCanBeWorkedByKeyboardAndIsNamed() {
    for (const std::int16_t model_type : {std::int16_t{1}, std::int16_t{5}}) {
      WindowDesk desk;
      core::AppSettings(desk.settings).SetModelType(model_type);
      desk.Start();
      ShowAllGroups(desk);
      for (const char* key : {"Usable", "Common", "PU", "PU32", "L1", "PW", "E1"}) {
        const testing::Row row(model_type, key);
        desk.window->SelectNode(key);
        QCOMPARE(desk.Tree().CurrentKey(), key);
        QCoreApplication::processEvents();  // the layout is done
        const QWidget* before = nullptr;
        QSet<QString> names;
        for (const QWidget* control = desk.window->nextInFocusChain(); control != desk.window.get();
             control = control->nextInFocusChain()) {
          if ((control->focusPolicy() & Qt::TabFocus) == 0 || !control->isVisible()) continue;
          const testing::Row at(control->objectName(), before);
          QVERIFY(!control->objectName().isEmpty() && !control->accessibleName().isEmpty());
          if (!desk.window->findChild<editor::PageArea*>()->isAncestorOf(control)) continue;
          const QString name = control->accessibleName() + control->accessibleDescription();
          QVERIFY(!names.contains(name));
          names.insert(name);
          QVERIFY(before == nullptr || ReadsAfter(*before, *control));
          before = control;
        }
        QVERIFY(before != nullptr);
        const QStringList keys = AccessKeys(*desk.window);
        QVERIFY2(QSet<QString>(keys.begin(), keys.end()).size() == keys.size(),
                 qPrintable(keys.join(' ')));
      }
    }
  }

  void RootsOfOneNameAreToldApart() {
    WindowDesk desk;
    core::AppSettings(desk.settings).SetModelType(0);
    desk.Start();
    ShowAllGroups(desk);
    const auto text = [&](const char* key, int role) {
      return Model(desk).IndexOfKey(key).data(role).toString();
    };
    QCOMPARE(text("LMRChannel", Qt::DisplayRole), text("ExpChannel", Qt::DisplayRole));
    for (const int role : {Qt::ToolTipRole, Qt::AccessibleDescriptionRole}) {
      QVERIFY(!text("LMRChannel", role).isEmpty() && !text("ExpChannel", role).isEmpty());
      QVERIFY(text("LMRChannel", role) != text("ExpChannel", role));
    }
    QCOMPARE(text("PU", Qt::ToolTipRole), "");
  }

  void EnterActsInTheGridOnly() {
    WindowDesk desk;
    desk.Start();
    QSignalSpy activated(&desk.Tree(), &QAbstractItemView::activated);
    QTest::keyClick(&desk.Tree(), Qt::Key_Return);
    QTest::keyClick(&desk.Tree(), Qt::Key_Enter);
    QCOMPARE(activated.count(), 0);
    desk.window->SelectNode("PU");
    auto* grid = desk.Find<QTableView>("MSFlexGrid1");
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Return);
    QCOMPARE(desk.Tree().CurrentKey(), "PU3");  // 01A, the first enabled channel
    QCOMPARE(QApplication::focusWidget()->objectName(), "chkCEnable");
    QCOMPARE(desk.Hint(), "[Space]:An effective and invalid change.");
  }

  void TypingFindsANodeAndF6MovesIntoItsPageAndBack() {
    WindowDesk desk;
    desk.Start();
    QTest::keyClicks(&desk.Tree(), "av");
    QCOMPARE(desk.Tree().CurrentKey(), "Usable");
    QCOMPARE(desk.PageName(), "pictUsable");
    QTest::keyClick(&desk.Tree(), Qt::Key_F6);
    QWidget* inside = QApplication::focusWidget();
    QVERIFY(desk.window->findChild<editor::PageArea*>()->isAncestorOf(inside));
    QTest::keyClick(inside, Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), &desk.Tree());
  }

  void TreeTakesThirtyPercentAndTheSplitterStopsAtItsEnds() {
    WindowDesk desk;
    desk.Start();
    desk.window->resize(1000, 600);
    QVERIFY(qAbs(desk.Tree().width() - 300) <= 2);
    auto* splitter = desk.Find<QSplitter>("imgSplitter");
    splitter->setSizes({10, 990});
    QCOMPARE(desk.Tree().width(), 166);
    splitter->setSizes({990, 10});
    QCOMPARE(splitter->sizes().at(1), 166);
    desk.window->resize(300, 200);
    QCOMPARE(desk.window->size(), QSize(607, 444));
  }
};

QTEST_MAIN(NavigationTest)
#include "navigation_test.moc"
