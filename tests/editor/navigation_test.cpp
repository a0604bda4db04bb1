#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include "editor/navigator.h"
#include "image/codec.h"
#include "window_desk.h"

using namespace orvane;
using testing::WindowDesk;

namespace {

/// Counts how often it is filled and checked; refuses to be left when told to.
class StubbornPage : public editor::Page {
 public:
  explicit StubbornPage(editor::PageServices services) : Page(services) {
    (new QVBoxLayout(this))->addWidget(new QLineEdit(this));
  }
  void Fill(const editor::NodeRef& node) override { filled << editor::KeyOf(node); }
  [[nodiscard]] bool Check() override {
    ++checks;
    return passes;
  }
  QStringList filled;
  int checks = 0;
  bool passes = true;
};

class HintHost : public editor::PageHost {
 public:
  void DataChanged() override {}
  void RebuildTree() override {}
  void RefreshMarks() override {}
  void ShowHint(const QString& text) override { hint = text; }
  void SelectNode(const QString& /*key*/) override {}
  QString hint;
};

/// Tree and page area alone, every node shown by the same page.
struct Sides {
  core::RadioData data;
  testing::ScriptedPrompts prompts;
  testing::ManualClock clock;
  HintHost host;
  std::unique_ptr<editor::TreeModel> model;
  std::unique_ptr<editor::NavTree> tree;
  editor::PageArea area;
  StubbornPage* page;
  std::unique_ptr<editor::Navigator> navigator;

  Sides() {
    image::ResetToDefaults(data, clock.today);
    model = std::make_unique<editor::TreeModel>(data);
    tree = std::make_unique<editor::NavTree>(*model);
    page = new StubbornPage({data, prompts, clock, host});
    area.Add(page);
    navigator = std::make_unique<editor::Navigator>(
        *tree, area, editor::Navigator::Pages{page, page, page, page, page, page, page}, host);
    tree->expandAll();
    tree->resize(200, 300);
    tree->show();
    area.show();
    navigator->Select("Common");
  }
  void Click(const QString& key) const {
    const QModelIndex index = model->IndexOfKey(key);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(index).center());
  }
};

}  // namespace

class NavigationTest : public QObject {
  Q_OBJECT

 private slots:
  void ClickAndKeyShowTheNodesPage() {
    Sides sides;
    sides.Click("PU1");
    QTest::keyClick(sides.tree.get(), Qt::Key_Down);
    QCOMPARE(sides.page->filled, QStringList({"Common", "PU1", "PU2"}));
    QCOMPARE(sides.host.hint, QLatin1String(editor::kTreeHint));
  }

  void BadPageKeepsItsNodeWhateverTheWayOut_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"click", "key", "jump"}) QTest::addRow("%s", way) << way;
  }
  void BadPageKeepsItsNodeWhateverTheWayOut() {
    QFETCH(QString, way);
    Sides sides;
    sides.page->passes = false;
    if (way == "click") sides.Click("PU1");
    if (way == "key") QTest::keyClick(sides.tree.get(), Qt::Key_Down);
    if (way == "jump") sides.navigator->Select("PU5");
    QCOMPARE(sides.page->checks, 1);
    QCOMPARE(sides.tree->CurrentKey(), "Common");
    QCOMPARE(sides.tree->selectionModel()->selectedIndexes(),
             QModelIndexList{sides.model->IndexOfKey("Common")});
    QCOMPARE(sides.page->filled, QStringList{"Common"});
  }

  void ClickOnTheNodeOnShowChecksNothing() {
    Sides sides;
    sides.host.hint.clear();
    sides.Click("Common");
    QCOMPARE(sides.page->checks, 0);
    QCOMPARE(sides.host.hint, QLatin1String(editor::kTreeHint));
  }

  void UnknownKeyChangesNothing() {
    Sides sides;
    sides.navigator->Select("L3");  // the group is switched off
    sides.navigator->Select("nonsense");
    QCOMPARE(sides.navigator->CurrentKey(), "Common");
    QCOMPARE(sides.page->checks, 0);
  }

  void RebuildKeepsExpansionSelectionAndScroll() {
    Sides sides;
    sides.tree->collapse(sides.model->IndexOfKey("PI"));
    sides.navigator->Select("PU100");
    sides.tree->verticalScrollBar()->setValue(60);
    const QString top = sides.tree->indexAt({0, 0}).data(editor::TreeModel::kKeyRole).toString();
    sides.data.ExpPresent = true;
    sides.data.Usable[2].Enable = false;
    sides.tree->Rebuild();
    QVERIFY(sides.tree->isExpanded(sides.model->IndexOfKey("PU")));
    QVERIFY(!sides.tree->isExpanded(sides.model->IndexOfKey("PI")));
    QCOMPARE(sides.tree->CurrentKey(), "PU100");
    QCOMPARE(sides.tree->indexAt({0, 0}).data(editor::TreeModel::kKeyRole).toString(), top);
    QCOMPARE(sides.page->filled, QStringList({"Common", "PU100"}));
  }

  void EachKindOfNodeShowsItsPageAndOnlyThatIsEnabled_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("page");
    const std::pair<const char*, const char*> rows[] = {
        {"General", "pictGeneral"}, {"Program", "pictGrey"}, {"Usable", "pictUsable"},
        {"Common", "pictCommon"},   {"PU", "pictB"},         {"PC", "pictB"},
        {"LMRChannel", "pictB"},    {"ExpChannel", "pictB"}, {"PI37", "pictC"},
        {"L40", "pictC"},           {"E1", "pictC"},         {"PW", "pictD"}};
    for (const auto& [key, page] : rows) QTest::addRow("%s", key) << key << page;
  }
  void EachKindOfNodeShowsItsPageAndOnlyThatIsEnabled() {
    WindowDesk desk;
    desk.Start();
    desk.data.LmrPresent() = true;
    desk.data.ExpPresent = true;
    desk.window->RebuildTree();
    QFETCH(QString, key);
    desk.window->SelectNode(key);
    QTEST(desk.PageName(), "page");
    int enabled = 0;
    for (const editor::Page* page : desk.window->findChild<editor::PageArea*>()->Pages()) {
      enabled += page->isEnabled() ? 1 : 0;
    }
    QCOMPARE(enabled, 1);
    QVERIFY(!desk.data.Flags.DataChanged);
  }

  void EnterDoesNothingInTheTree() {
    WindowDesk desk;
    desk.Start();
    QSignalSpy activated(&desk.Tree(), &QAbstractItemView::activated);
    QTest::keyClick(&desk.Tree(), Qt::Key_Return);
    QTest::keyClick(&desk.Tree(), Qt::Key_Enter);
    QCOMPARE(activated.count(), 0);
  }

  void EnterInTheGridJumpsIntoTheChannelsPage() {
    WindowDesk desk;
    desk.Start();
    desk.window->SelectNode("PU");
    auto* grid = desk.Find<QTableView>("MSFlexGrid1");
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Return);
    QCOMPARE(desk.Tree().CurrentKey(), "PU3");  // 01A, the first enabled channel
    QCOMPARE(desk.PageName(), "pictC");
    QCOMPARE(QApplication::focusWidget()->objectName(), "chkCEnable");
    QCOMPARE(desk.Hint(), "[Space]:An effective and invalid change.");
  }

  void F6MovesBetweenTreeAndPage() {
    WindowDesk desk;
    desk.Start();
    desk.window->SelectNode("Common");
    desk.Tree().setFocus();
    QTest::keyClick(&desk.Tree(), Qt::Key_F6);
    QWidget* inside = QApplication::focusWidget();
    QVERIFY(desk.window->findChild<editor::PageArea*>()->isAncestorOf(inside));
    QTest::keyClick(inside, Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), &desk.Tree());
  }

  void TypingFindsANode() {
    WindowDesk desk;
    desk.Start();
    QTest::keyClicks(&desk.Tree(), "av");
    QCOMPARE(desk.Tree().CurrentKey(), "Usable");
    QCOMPARE(desk.PageName(), "pictUsable");
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
