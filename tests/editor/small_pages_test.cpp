#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QScrollBar>
#include <QTableView>
#include <tuple>

#include "editor/common_page.h"
#include "editor/grid_page.h"
#include "editor/usable_page.h"
#include "editor/weather_page.h"
#include "page_desk.h"

using namespace orvane;
using testing::PageDesk;
using testing::Row;

namespace {

/// The common settings as stored, in the order of their lists on the page.
QList<int> Stored(const core::CommonSettings& common) {
  return {common.TX_Po_Display,
          common.SCAN.Wire(),
          common.Resume_Time,
          common.PTT_SCAN_Clear.Wire(),
          common.Dual_Watch.Wire(),
          common.RotaryBeep.Wire(),
          common.Weater};
}

}  // namespace

class SmallPagesTest : public QObject {
  Q_OBJECT

 private slots:
  void CommonListsShowAndWriteTheirSettings() {
    const std::pair<const char*, QList<int>> rows[] = {
        {"cmbCommonTXPo", {0, 1, 2}},      {"cmbCommonScan", {0, -1}},
        {"cmbCommonResume", {0, 1, 2, 3}}, {"cmbCommonPTTSCAN", {0, -1}},
        {"cmbCommonDual", {0, -1}},        {"cmbCommonRotary", {0, -1}},
        {"cmbCommonWeater", {0, 3}}};
    for (int i = 0; i < 7; ++i) {
      const auto& [name, values] = rows[i];
      PageDesk<editor::CommonPage> desk(0);
      desk.data.Common.SCAN = true;
      QList<int> expected = Stored(desk.data.Common);
      for (int item = 0; item < values.size(); ++item) {
        const Row row(name, item);
        desk.Open("Common");
        desk.Pick(name, item);
        expected[i] = values[item];
        QCOMPARE(Stored(desk.data.Common), expected);
        QCOMPARE(desk.host.changes, 1);
        desk.Open("Common");
        QCOMPARE(desk.Find<QComboBox>(name)->currentIndex(), item);
      }
    }
  }

  void WeatherAlertIsOnOnlyWithBothBits() {
    PageDesk<editor::CommonPage> desk(5);
    for (std::int16_t value = 0; value <= 3; ++value) {
      desk.data.Common.Weater = value;
      desk.Open("Common");
      QCOMPARE(desk.Item("cmbCommonWeater"), value == 3 ? "On" : "Off");
      QCOMPARE(desk.data.Common.Weater, value);
    }
  }

  void ScanTimesFollowScan() {
    PageDesk<editor::CommonPage> desk(5);
    desk.data.Common.SCAN = true;
    desk.data.Common.Resume_Time = 2;
    desk.Open("Common");
    QVERIFY(desk.On("cmbCommonResume") && desk.On("cmbCommonPTTSCAN"));
    desk.Pick("cmbCommonScan", 0);
    QVERIFY(!desk.On("cmbCommonResume") && !desk.On("cmbCommonPTTSCAN"));
    QCOMPARE(desk.data.Common.Resume_Time, 2);
  }

  void CommonPageFollowsTheModel() {
    for (int model = 0; model <= 6; ++model) {
      const Row row(model);
      PageDesk<editor::CommonPage> desk(model, "Common");
      for (const char* name : {"cmbCommonTXPo", "cmbCommonScan", "cmbCommonDual"}) {
        QCOMPARE(desk[name]->isVisible(), model != 3);
      }
      QCOMPARE(desk["cmbCommonRotary"]->isVisible(), model <= 2);
      QVERIFY(desk["cmbCommonWeater"]->isVisible());
    }
  }

  void GroupListsShowAndWriteTheirSettings() {
    PageDesk<editor::UsablePage> desk(5, "Usable");
    for (std::size_t i = 0; i < 4; ++i) {
      const QByteArray member = "_" + QByteArray::number(static_cast<int>(i));
      const core::UsableGroup& group = desk.data.Usable[i];
      const QByteArray names[] = {"cmbUsableTot" + member, "cmbUsableSts" + member,
                                  "cmbUsablePri" + member};
      for (const auto& items : {std::array{1, 0, 2}, {0, 1, 0}}) {
        const Row row(member, items[0]);
        for (std::size_t list = 0; list < 3; ++list) desk.Pick(names[list], items[list]);
        QCOMPARE(desk.host.changes, 3);
        QCOMPARE(static_cast<bool>(group.TX_TOT), items[0] == 1);
        QCOMPARE(static_cast<bool>(group.Status_Icon), items[1] == 1);
        QCOMPARE(group.Priority_CH, desk.Find<QComboBox>(names[2])->itemData(items[2]).toInt());
        QCOMPARE(group.Priority_CH == -1, items[2] == 0);
        desk.Open("Usable");
        for (std::size_t list = 0; list < 3; ++list) {
          QCOMPARE(desk.Find<QComboBox>(names[list])->currentIndex(), items[list]);
        }
      }
    }
  }

  void GroupSwitchRebuildsTheTree() {
    PageDesk<editor::UsablePage> desk(5, "Usable");
    desk.Press("chkUsable_0");
    QVERIFY(!desk.data.Usable[0].Enable);
    QCOMPARE(desk.host.rebuilds, 1);
    QVERIFY(!desk.On("cmbUsableTot_0") && !desk.On("cmbUsablePri_0"));
    // The lists of the fourth group serve either kind of its channels.
    desk.Press("chkUsable_3");
    QVERIFY(desk.On("cmbUsableTot_3"));
    desk.Press("chkUsableEXP");
    QVERIFY(!desk.On("cmbUsableTot_3"));
    QVERIFY(!desk.data.ExpPresent && !desk.data.LmrPresent());
    QCOMPARE(desk.host.rebuilds, 3);
    desk.Open("Usable");
    QVERIFY(!desk.Checked("chkUsable_0") && !desk.Checked("chkUsableEXP"));
    desk.page->setEnabled(false);
    desk.Find<QCheckBox>("chkUsable_1")->click();
    QVERIFY(desk.data.Usable[1].Enable);
  }

  void EmptyGroupGetsAChannel() {
    constexpr int kIntlEnableArea = 320;
    PageDesk<editor::UsablePage> desk(5, "Usable");
    core::MarineTable& table = desk.data.Marine[1];
    for (core::ChannelRecord& channel : table) channel.Enable = false;
    desk.Press("chkUsable_1");
    desk.Press("chkUsable_1");
    QVERIFY(!table[1].Enable);  // the image still has channels
    desk.Press("chkUsable_1");
    for (int i = 0; i < 30; ++i) desk.data.Image[kIntlEnableArea + i] = 0;
    desk.Press("chkUsable_1");
    QVERIFY(table[1].Enable);
    QCOMPARE(desk.data.Image[kIntlEnableArea], 0x80);
  }

  void ExpSwitchEnablesChannelsByGroup() {
    PageDesk<editor::UsablePage> desk(5, "Usable");
    desk.Press("chkUsableEXP");
    core::ExtraTable& table = desk.data.EXP;
    table[9].Enable = false;
    table[10].USA_Group = table[10].INT_Group = table[10].CAN_Group = false;
    table[1].Enable = false;
    desk.Press("chkUsableEXP");
    QVERIFY(table[9].Enable);
    QVERIFY(!table[10].Enable);
    QVERIFY(!table[1].Enable && table[2].Enable);  // LMR channels
  }

  void PriorityListNamesTheChannelsInUse() {
    PageDesk<editor::UsablePage> desk(5);
    for (core::ChannelRecord& channel : desk.data.Marine[0])
      channel.Enable = channel.Position == 45;
    for (core::ChannelRecord& channel : desk.data.EXP) channel.Enable = false;
    desk.data.EXP[3].Enable = true;
    desk.data.EXP[3].CHDisplayL = "BD";
    desk.data.Usable[0].Priority_CH = 45;
    desk.Open("Usable");
    const auto* marine = desk.Find<QComboBox>("cmbUsablePri_0");
    QCOMPARE(marine->count(), 2);
    QCOMPARE(marine->currentText(), "22A");
    const auto* extra = desk.Find<QComboBox>("cmbUsablePri_3");
    QCOMPARE(extra->count(), 2);
    QCOMPARE(extra->itemText(1).left(2), "bd");
    QCOMPARE(extra->itemData(1).toInt(), 242);
    QCOMPARE(desk.Find<QCheckBox>("chkUsable_3")->accessibleName(), "LMR CH");
    desk.data.MODELTYPE = 0;
    desk.page->ModelChanged();
    QCOMPARE(desk.Find<QCheckBox>("chkUsable_3")->accessibleName(), "EXP CH");
  }

  void WeatherRowsShowAndWriteTheirChannels() {
    PageDesk<editor::WeatherPage> desk(5, "PW");
    desk.Press("chkDScan_2");
    QVERIFY(desk.data.WX[2].ScanMemory);
    desk.Type("txtDTagName_2", "aB#-/,_. 9cdefgh");
    QCOMPARE(desk.data.WX[2].ChTag, "AB-/,_. 9CDE");
    desk.Paste("txtDTagName_9", "-q#r!s");
    QCOMPARE(desk.data.WX[9].ChTag, "-QRS");
    desk.Open("PW");
    QVERIFY(desk.Checked("chkDScan_2") && !desk.Checked("chkDScan_3"));
    QCOMPARE(desk.Text("txtDTagName_2"), "AB-/,_. 9CDE");
    QCOMPARE(desk.Text("txtDTagName_9"), "-QRS");
    const core::RadioData before = desk.data;
    desk.state.Busy = true;
    desk.WorkAll();
    QVERIFY(desk.data == before && desk.host.changes == 0);
  }

  void WeatherRowFollowsItsEnableBox() {
    PageDesk<editor::WeatherPage> desk(5, "PW");
    desk.Press("chkDEnable_2");
    QCOMPARE(desk.Find<QCheckBox>("chkDEnable_2")->text(), ">");
    QVERIFY(!desk.data.WX[2].Enable);
    QVERIFY(!desk.On("chkDScan_2") && !desk.On("txtDTagName_2"));
    desk.Open("PW");
    QVERIFY(!desk.On("txtDTagName_2") && desk.On("txtDTagName_3"));
    desk.Press("chkDEnable_3");
    QCOMPARE(desk.Find<QCheckBox>("chkDEnable_2")->text(), " ");
    QCOMPARE(desk.host.changes, 1);
  }

  void HintsFollowTheFocus() {
    PageDesk<editor::WeatherPage> weather(5, "PW");
    QCOMPARE(weather.HintOf("chkDScan_0"), "[Space]:An effective and invalid change.");
    QCOMPARE(weather.HintOf("chkDEnable_1"), "Select[x]Enable/[]Disable.");
    QCOMPARE(weather.HintOf("txtDTagName_2"), "A maximum of 12 characters");
    PageDesk<editor::UsablePage> usable(5, "Usable");
    QCOMPARE(usable.HintOf("chkUsable_0"), "[Space]:An effective and invalid change.");
    QCOMPARE(usable.HintOf("cmbUsablePri_3"), "[Up]/[Down]:Change of a Selection item.");
  }

  void GridShowsTheFormOfItsNode() {
    PageDesk<editor::GridPage> desk(5);
    desk.data.EXP[9].INT_Group = false;
    QAbstractItemModel* rows = desk.Find<QTableView>("MSFlexGrid1")->model();
    const QAbstractItemModelTester tester(rows,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    const std::tuple<const char*, const char*, int> forms[] = {
        {"PI", "RX[MHz]", 10}, {"LMRChannel", "ENABLE", 14}, {"ExpChannel", "USA", 16}};
    for (const auto& [key, second, columns] : forms) {
      const Row row(key);
      desk.Open(key);
      QCOMPARE(rows->columnCount(), columns);
      QCOMPARE(rows->headerData(1, Qt::Horizontal).toString(), second);
      if (*key != 'P') QCOMPARE(rows->rowCount(), 40);
    }
    const auto state = [rows](int column) {
      return rows->index(8, column).data(Qt::CheckStateRole);
    };
    QCOMPARE(rows->index(8, 0).data().toString(), "EXP9[Enable]");
    QCOMPARE(state(1).toInt(), static_cast<int>(Qt::Checked));
    QCOMPARE(state(2).toInt(), static_cast<int>(Qt::Unchecked));
    QVERIFY(!state(0).isValid());
    for (core::ChannelRecord& channel : desk.data.Marine[0])
      channel.Enable = channel.Position > 237;
    desk.Open("PU");
    QCOMPARE(rows->rowCount(), 2);
    QCOMPARE(rows->index(1, 0).data().toString(), "119A");
  }

  void GridJumpsToTheRowsChannel() {
    for (const auto& [key, channel] :
         {std::pair("PU", "PU11"), {"LMRChannel", "L3"}, {"ExpChannel", "E3"}}) {  // 01A, 03A, 05A
      const Row row(key);
      PageDesk<editor::GridPage> desk(5, key);
      auto* grid = desk.Find<QTableView>("MSFlexGrid1");
      QCOMPARE(desk.HintOf("MSFlexGrid1"), "[Double click],[Enter]:Jump the Setting screen.");
      grid->setCurrentIndex(grid->model()->index(2, 0));
      QTest::keyClick(grid, Qt::Key_Return);
      QCOMPARE(desk.host.selected, channel);
      desk.host.selected.clear();
      const QPoint cell = grid->visualRect(grid->model()->index(2, 1)).center();
      QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
      QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
      QCOMPARE(desk.host.selected, channel);
    }
  }

  void WheelScrollsOneRowANotch() {
    PageDesk<editor::GridPage> desk(5, "PU");
    auto* grid = desk.Find<QTableView>("MSFlexGrid1");
    desk.page->resize(400, 200);
    QCoreApplication::processEvents();
    const auto turn = [grid](int eighths) {
      QWheelEvent event(QPointF(9, 9), QPointF(9, 9), {}, QPoint(0, eighths), Qt::NoButton, {},
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(grid->viewport(), &event);
      return grid->verticalScrollBar()->value();
    };
    QCOMPARE(turn(-120), 1);
    QCOMPARE(turn(-360), 2);
    QCOMPARE(turn(-60), 2);
    QCOMPARE(turn(-60), 3);
    QCOMPARE(turn(120), 2);
  }

  void FillingChangesNothing() {
    for (int model = 0; model <= 6; ++model) {
      QVERIFY(PageDesk<editor::CommonPage>(model).FillsWithoutTrace({"Common"}));
      QVERIFY(PageDesk<editor::UsablePage>(model).FillsWithoutTrace({"Usable"}));
      QVERIFY(PageDesk<editor::WeatherPage>(model).FillsWithoutTrace({"PW"}));
      QVERIFY(PageDesk<editor::GridPage>(model).FillsWithoutTrace(
          {"PU", "PI", "PC", "LMRChannel", "ExpChannel"}));
    }
  }
};

QTEST_MAIN(SmallPagesTest)
#include "small_pages_test.moc"
