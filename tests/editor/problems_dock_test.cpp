#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>
#include <random>

#include "image/sample_radio.h"
#include "support/row.h"
#include "window_desk.h"

using namespace orvane;
using core::ChannelRecord;
using document::Problem;
using testing::Row;
using testing::WindowDesk;

namespace {

/// A radio in use with one note, one error that has no remedy and three channels of power code 0.
void Spoil(core::RadioData& data) {
  for (const std::size_t channel : {3U, 11U, 13U}) {
    ChannelRecord& record = data.Marine[0][channel];
    record.Enable = record.TxEnable = true;
    record.TXPower = 0;
  }
  data.Marine[1][32].ChTag = "hailing";
  data.Common.SQL = 16;
}

struct ProblemDesk : WindowDesk {
  explicit ProblemDesk(bool spoilt = true) {
    Start();
    data = image::MakeSampleRadio(5, clock.today);
    if (spoilt) Spoil(data);
    ShowArranged();
    const QString expected = spoilt ? "New; 4 problems" : "New";
    QTRY_COMPARE(Status(), expected);
  }
  [[nodiscard]] QString Status() const { return Find<QLabel>("sbStatusBar_2")->text(); }
  void Open() {
    Item("mnuEditProblems").trigger();
    list = Find<QListView>("lstProblems");
    tester = std::make_unique<QAbstractItemModelTester>(list->model());
  }
  [[nodiscard]] QStringList Rows() const {
    QStringList rows;
    for (int row = 0; row < list->model()->rowCount(); ++row) {
      const QModelIndex index = list->model()->index(row, 0);
      const QString remedy = index.data(Qt::AccessibleDescriptionRole).toString();
      rows << index.data().toString().section(": ", 0, 1) + '|' + remedy;
    }
    return rows;
  }
  void Choose(int row) const {
    list->setFocus();
    list->setCurrentIndex(list->model()->index(row, 0));
  }
  [[nodiscard]] QToolButton& Button(const char* command) const {
    auto* dock = Find<QDockWidget>("dockProblems");
    for (auto* button : dock->findChildren<QToolButton*>()) {
      const QAction* action = button->defaultAction();
      if (action != nullptr && action->objectName() == QLatin1String(command)) return *button;
    }
    qFatal("%s has no button", command);
  }
  [[nodiscard]] QString Focus() const { return window->focusWidget()->objectName(); }

  QListView* list = nullptr;
  std::unique_ptr<QAbstractItemModelTester> tester;
};

constexpr const char* kTransmit = "|Remedy: Let it transmit";

}  // namespace

class ProblemsDockTest : public QObject {
  Q_OBJECT

 private slots:
  void StepsInARowCostOnePassAndAreCountedWhileTheListIsHidden() {
    ProblemDesk desk(false);
    const QSignalSpy announced(desk.Find<editor::LiveLabel>("sbStatusBar_2"),
                               &editor::LiveLabel::Announced);
    int passes = 0;
    editor::ProblemWatch watch(desk.document, desk.clock);
    watch.Begin();
    watch.CatchUp();
    connect(&watch, &editor::ProblemWatch::Found, this, [&] { ++passes; });
    for (const std::size_t channel : {3U, 11U}) {
      desk.document.Edit("spoil", [channel](core::RadioData& data) {
        data.Marine[0][channel].Enable = data.Marine[0][channel].TxEnable = true;
        data.Marine[0][channel].TXPower = 0;
      });
    }
    QTRY_COMPARE(desk.Status(), "Changed, not saved; 2 problems");
    QCOMPARE(passes, 1);
    desk.document.Undo();
    QTRY_COMPARE(desk.Status(), "Changed, not saved; 1 problem");
    QVERIFY(desk.Find<QDockWidget>("dockProblems") == nullptr);
    QCOMPARE(announced.count(), 0);
    // Nothing is said of data that were not looked at yet.
    desk.ShowArranged();
    QCOMPARE(desk.Status(), "Changed, not saved");
    QTRY_COMPARE(desk.Status(), "Changed, not saved; 1 problem");
  }

  void RowsTellAndLeadToTheirFields() {
    ProblemDesk desk;
    desk.window->SelectNode("PU32");
    desk.Find<QWidget>("txtCTag")->setFocus();
    desk.Open();
    QCOMPARE(desk.Focus(), "txtCTag");
    QCOMPARE(desk.Find<QDockWidget>("dockProblems")->windowTitle(), "Problems 4");
    const QStringList rows = {
        "Error: Common Setup SQL|", QString("Warning: USA 01A Tx Enable") + kTransmit,
        QString("Warning: USA 05A Tx Enable") + kTransmit,
        QString("Warning: USA 06A Tx Enable") + kTransmit, "Note: INTL 16 CH Name|"};
    QCOMPARE(desk.Rows(), rows);
    const auto drawing = [&](int row) {
      const QVariant icon = desk.list->model()->index(row, 0).data(Qt::DecorationRole);
      return icon.value<QIcon>().pixmap(16).toImage();
    };
    QVERIFY(drawing(0) != drawing(1) && drawing(1) != drawing(4) && drawing(0) != drawing(4));
    QVERIFY(drawing(1) == drawing(3));
    desk.Choose(4);
    QTest::keyClick(desk.list, Qt::Key_Return);
    QCOMPARE(desk.Tree().CurrentKey(), "PI32");
    QCOMPARE(desk.Focus(), "txtCTag");
    // No remedy: the command of it is greyed, and its key does nothing else.
    desk.Choose(0);
    QVERIFY(desk.Button("cmdShowProblem").isEnabled() && !desk.Button("cmdMend").isEnabled());
    QTest::keyClick(desk.list, Qt::Key_Return, Qt::AltModifier);
    QCOMPARE(desk.Focus(), "lstProblems");
    QVERIFY(!desk.document.CanUndo());
    QTest::keyClick(desk.list, Qt::Key_F1);
    QCOMPARE(desk.help.opened, QStringList{"frmMain 3001"});
  }

  void RemediesAreStepsAndTheNearestRowIsTheNext() {
    ProblemDesk desk;
    desk.Open();
    const core::RadioData before = desk.data;
    desk.Choose(2);
    QTest::keyClick(desk.list, Qt::Key_Return, Qt::AltModifier);
    QCOMPARE(desk.data.Marine[0][11].TXPower, 3);
    QCOMPARE(desk.document.Steps().back().name, "CH05A Tx Enable");
    QVERIFY(desk.Rows().size() == 4 && desk.Rows().value(2).contains("06A"));
    QCOMPARE(desk.list->currentIndex().row(), 2);
    QCOMPARE(desk.Focus(), "lstProblems");
    QCOMPARE(desk.Button("cmdMendAll").text(), "Mend All 2 Like This");
    desk.Button("cmdMendAll").setFocus();
    QTest::keyClick(&desk.Button("cmdMendAll"), Qt::Key_Space);
    QCOMPARE(desk.document.Steps().back().name, "Let it transmit (2)");
    QCOMPARE(desk.Rows(), QStringList({"Error: Common Setup SQL|", "Note: INTL 16 CH Name|"}));
    QCOMPARE(desk.list->currentIndex().row(), 1);
    QCOMPARE(desk.Focus(), "lstProblems");
    for (int i = 0; i < 2; ++i) desk.Item("mnuEditUndo").trigger();
    QVERIFY(desk.data == before);
    QTRY_COMPARE(desk.Rows().size(), 5);
    // The row that was chosen, wherever it is now.
    QCOMPARE(desk.list->currentIndex().row(), 4);
  }

  void RowsThatStayKeepTheirPlaces() {
    const core::RadioData data = [] {
      core::RadioData spoilt = image::MakeSampleRadio(5, testing::kAfterCutOver);
      for (ChannelRecord& channel : spoilt.Marine[0]) channel.TXPower = 0;
      return spoilt;
    }();
    std::vector<Problem> all = document::FindProblems(data, testing::kAfterCutOver);
    QVERIFY(all.size() > 12);
    all.resize(12);
    std::mt19937 random(7);
    // All but the last read alike: told by one row, by none, and one by one.
    for (Problem& problem : all) problem.text = problem.remedy = "alike";
    all.back().text = "other";
    editor::ProblemModel model;
    const QAbstractItemModelTester tester(&model);
    for (int round = 0; round < 60; ++round) {
      const Row row(round);
      std::vector<Problem> some;
      for (const Problem& problem : all) {
        if (random() % 4 != 0) some.push_back(problem);
        if (!some.empty() && random() % 8 == 0) some.back().text += "!";
      }
      const std::vector<document::ProblemRow> rows = document::GatherProblems(
          some, round % 2 == 0 ? std::vector<Problem>() : std::vector<Problem>{all[0]});
      const QPersistentModelIndex first = model.index(0);
      const std::optional<document::ProblemRow> was =
          first.isValid() ? std::optional(*model.At(0)) : std::nullopt;
      model.Take(rows);
      QCOMPARE(model.rowCount(), static_cast<int>(rows.size()));
      for (std::size_t i = 0; i < rows.size(); ++i) {
        const document::ProblemRow& now = *model.At(static_cast<int>(i));
        QVERIFY(now.problem.at == rows[i].problem.at && now.problem.text == rows[i].problem.text);
        QVERIFY(now.count == rows[i].count && now.unfolded == rows[i].unfolded);
      }
      if (first.isValid()) {
        QVERIFY(document::IsSameRow(*was, *model.At(first.row())));
      }
      if (was && document::IsSameRow(*was, rows.front())) QVERIFY(first.isValid());
    }
    model.Take({});
    QCOMPARE(model.rowCount(), 0);
  }

  void RowsThatReadAlikeStandInOneThatUnfolds() {
    ProblemDesk desk;
    desk.document.Edit("spoil more", [](core::RadioData& data) {
      for (const std::size_t channel : {14U, 15U}) {
        data.Marine[0][channel].Enable = data.Marine[0][channel].TxEnable = true;
        data.Marine[0][channel].TXPower = 0;
      }
    });
    desk.Open();
    const QStringList gathered = {"Error: Common Setup SQL|",
                                  "Warning: 5 fields, USA 01A Tx Enable and others|Gathered; "
                                  "Right lists them",
                                  "Note: INTL 16 CH Name|"};
    QTRY_COMPARE(desk.Rows(), gathered);
    QCOMPARE(desk.Find<QDockWidget>("dockProblems")->windowTitle(), "Problems 6");
    desk.Choose(1);
    QCOMPARE(desk.Button("cmdShowProblem").text(), "List All 5");
    QVERIFY(!desk.Button("cmdMend").isEnabled());
    QCOMPARE(desk.Button("cmdMendAll").text(), "Mend All 5 Like This");
    QTest::keyClick(desk.list, Qt::Key_Right);
    QCOMPARE(desk.Rows().size(), 8);
    QCOMPARE(desk.Rows().value(3).trimmed(), QString("USA 05A Tx Enable") + kTransmit);
    desk.Choose(3);
    QTest::keyClick(desk.list, Qt::Key_Return);
    QCOMPARE(desk.Tree().CurrentKey(), "PU11");
    desk.Choose(3);
    QTest::keyClick(desk.list, Qt::Key_Return, Qt::AltModifier);
    QTRY_COMPARE(desk.Rows().size(), 7);
    QCOMPARE(desk.list->currentIndex().row(), 3);
    // To the head, then together again.
    QTest::keyClick(desk.list, Qt::Key_Left);
    QCOMPARE(desk.list->currentIndex().row(), 1);
    QTest::keyClick(desk.list, Qt::Key_Left);
    QVERIFY(desk.Rows().size() == 3 && desk.Rows().value(1).contains("4 fields"));
    desk.Button("cmdMendAll").click();
    QTRY_COMPARE(desk.Rows(), QStringList({gathered.front(), gathered.back()}));
    desk.Item("mnuEditUndo").trigger();
    desk.Item("mnuEditUndo").trigger();
    QTRY_COMPARE(desk.Rows(), gathered);
  }

  void APageThatMustNotBeLeftStays() {
    ProblemDesk desk;
    desk.Open();
    desk.document.Edit("spoil", [](core::RadioData& data) { data.EXP[7].Rxfreq = 0; });
    QTRY_COMPARE(desk.Rows().value(5),
                 "Error: EXP/LMR 7 Rx Frequency|Remedy: Switch the channel off");
    desk.window->SelectNode("L7");
    desk.Choose(5);
    QTest::keyClick(desk.list, Qt::Key_Return);
    QCOMPARE(desk.Focus(), "txtCRF");
    QVERIFY(desk.prompts.messages.empty());
    desk.Choose(0);
    QTest::keyClick(desk.list, Qt::Key_Return);
    QCOMPARE(desk.prompts.messages.size(), 1U);
    QCOMPARE(desk.Tree().CurrentKey(), "L7");
  }

  void TheMenuBringsTheListBehindToTheFront() {
    ProblemDesk desk;
    desk.Open();
    QAction& problems = desk.Item("mnuEditProblems");
    QAction& history = desk.Item("mnuEditHistory");
    history.trigger();
    QTRY_VERIFY(history.isChecked() && !problems.isChecked());
    problems.trigger();
    QTRY_VERIFY(problems.isChecked() && !history.isChecked());
    problems.trigger();
    QTRY_VERIFY(!problems.isChecked() && history.isChecked());
  }
};

QTEST_MAIN(ProblemsDockTest)
#include "problems_dock_test.moc"
