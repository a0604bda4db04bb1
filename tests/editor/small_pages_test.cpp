#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QtTest>

#include "editor/common_page.h"
#include "editor/grid_page.h"
#include "editor/usable_page.h"
#include "editor/weather_page.h"
#include "page_desk.h"

using namespace orvane;
using orvane::testing::PageDesk;

class SmallPagesTest : public QObject {
  Q_OBJECT

 private slots:
  void CommonListsWriteTheirSettings_data();
  void CommonListsWriteTheirSettings();
  void WeatherAlertIsOnOnlyWithBothBits();
  void ScanTimesFollowScan();
  void CommonPageFollowsTheModel_data();
  void CommonPageFollowsTheModel();

  void GroupListsWriteTheirSettings();
  void GroupSwitchRebuildsTheTree();
  void EmptyGroupGetsAChannel();
  void ExpSwitchEnablesChannelsByGroup();
  void PriorityListNamesTheChannelsInUse();

  void WeatherRowFollowsItsEnableBox();
  void WeatherNamesAreFiltered();
  void HintsFollowTheFocus();

  void GridColumns_data();
  void GridColumns();
  void GridCells();
  void GridJumpsToTheRowsChannel_data();
  void GridJumpsToTheRowsChannel();
  void WheelScrollsOneRowANotch();
  void FillingChangesNothing();
};

void SmallPagesTest::CommonListsWriteTheirSettings_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<int>("item");
  QTest::addColumn<int>("stored");
  QTest::newRow("tx") << QByteArray("cmbCommonTXPo") << 1 << 1;
  QTest::newRow("scan") << QByteArray("cmbCommonScan") << 1 << -1;
  QTest::newRow("resume") << QByteArray("cmbCommonResume") << 3 << 3;
  QTest::newRow("ptt") << QByteArray("cmbCommonPTTSCAN") << 0 << 0;
  QTest::newRow("dual") << QByteArray("cmbCommonDual") << 1 << -1;
  QTest::newRow("rotary") << QByteArray("cmbCommonRotary") << 1 << -1;
  QTest::newRow("alert") << QByteArray("cmbCommonWeater") << 1 << 3;
}

void SmallPagesTest::CommonListsWriteTheirSettings() {
  QFETCH(const QByteArray, name);
  QFETCH(const int, item);
  PageDesk<editor::CommonPage> desk(0);
  desk.data.Common = {};
  desk.data.Common.PTT_SCAN_Clear = true;
  desk.data.Common.SCAN = name != "cmbCommonScan";
  desk.Open("Common");
  desk.Pick(name, item);
  const core::CommonSettings& common = desk.data.Common;
  const QMap<QByteArray, int> values = {{"cmbCommonTXPo", common.TX_Po_Display},
                                        {"cmbCommonScan", common.SCAN.Wire()},
                                        {"cmbCommonResume", common.Resume_Time},
                                        {"cmbCommonPTTSCAN", common.PTT_SCAN_Clear.Wire()},
                                        {"cmbCommonDual", common.Dual_Watch.Wire()},
                                        {"cmbCommonRotary", common.RotaryBeep.Wire()},
                                        {"cmbCommonWeater", common.Weater}};
  QTEST(values[name], "stored");
  QCOMPARE(desk.host.changes, 1);
}

void SmallPagesTest::WeatherAlertIsOnOnlyWithBothBits() {
  PageDesk<editor::CommonPage> desk(5);
  for (int value = 0; value <= 3; ++value) {
    desk.data.Common.Weater = static_cast<std::int16_t>(value);
    desk.Open("Common");
    QCOMPARE(desk.Find<QComboBox>("cmbCommonWeater")->currentText(), value == 3 ? "On" : "Off");
    QCOMPARE(desk.data.Common.Weater, value);
  }
}

void SmallPagesTest::ScanTimesFollowScan() {
  PageDesk<editor::CommonPage> desk(5);
  desk.data.Common.SCAN = true;
  desk.data.Common.Resume_Time = 2;
  desk.Open("Common");
  QVERIFY(desk["cmbCommonResume"]->isEnabled() && desk["cmbCommonPTTSCAN"]->isEnabled());
  desk.Pick("cmbCommonScan", 0);
  QVERIFY(!desk["cmbCommonResume"]->isEnabled() && !desk["cmbCommonPTTSCAN"]->isEnabled());
  QCOMPARE(desk.data.Common.Resume_Time, 2);
}

void SmallPagesTest::CommonPageFollowsTheModel_data() {
  QTest::addColumn<bool>("settings");
  QTest::addColumn<bool>("rotary");
  const auto row = [](const char* model) -> QTestData& { return QTest::newRow(model); };
  for (const char* model : {"0", "1", "2"}) row(model) << true << true;
  row("3") << false << false;
  for (const char* model : {"4", "5", "6"}) row(model) << true << false;
}

void SmallPagesTest::CommonPageFollowsTheModel() {
  PageDesk<editor::CommonPage> desk(QByteArray(QTest::currentDataTag()).toInt(), "Common");
  for (const char* name : {"cmbCommonTXPo", "cmbCommonScan", "cmbCommonDual"}) {
    QTEST(desk[name]->isVisible(), "settings");
  }
  QTEST(desk["cmbCommonRotary"]->isVisible(), "rotary");
  QVERIFY(desk["cmbCommonWeater"]->isVisible());
}

void SmallPagesTest::GroupListsWriteTheirSettings() {
  PageDesk<editor::UsablePage> desk(5, "Usable");
  for (std::size_t i = 0; i < 4; ++i) {
    const QByteArray member = "_" + QByteArray::number(static_cast<int>(i));
    const core::UsableGroup& group = desk.data.Usable[i];
    desk.Pick("cmbUsableTot" + member, 1);
    desk.Pick("cmbUsableSts" + member, 1);
    desk.Pick("cmbUsablePri" + member, 2);
    QVERIFY(group.TX_TOT && group.Status_Icon);
    QCOMPARE(group.Priority_CH, desk.Find<QComboBox>("cmbUsablePri" + member)->itemData(2).toInt());
    desk.Pick("cmbUsablePri" + member, 0);
    QCOMPARE(group.Priority_CH, -1);
  }
  QCOMPARE(desk.host.changes, 16);
}

void SmallPagesTest::GroupSwitchRebuildsTheTree() {
  PageDesk<editor::UsablePage> desk(5, "Usable");
  desk.Press("chkUsable_0");
  QVERIFY(!desk.data.Usable[0].Enable);
  QCOMPARE(desk.host.rebuilds, 1);
  QVERIFY(!desk["cmbUsableTot_0"]->isEnabled() && !desk["cmbUsablePri_0"]->isEnabled());
  // The lists of the fourth group serve either kind of its channels.
  desk.Press("chkUsable_3");
  QVERIFY(desk["cmbUsableTot_3"]->isEnabled());
  desk.Press("chkUsableEXP");
  QVERIFY(!desk["cmbUsableTot_3"]->isEnabled());
  QVERIFY(!desk.data.ExpPresent && !desk.data.LmrPresent());
  QCOMPARE(desk.host.rebuilds, 3);
  desk.page->setEnabled(false);
  desk.Find<QCheckBox>("chkUsable_1")->click();
  QVERIFY(desk.data.Usable[1].Enable);
}

void SmallPagesTest::EmptyGroupGetsAChannel() {
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

void SmallPagesTest::ExpSwitchEnablesChannelsByGroup() {
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

void SmallPagesTest::PriorityListNamesTheChannelsInUse() {
  PageDesk<editor::UsablePage> desk(5);
  for (core::ChannelRecord& channel : desk.data.Marine[0]) channel.Enable = channel.Position == 45;
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

void SmallPagesTest::WeatherRowFollowsItsEnableBox() {
  PageDesk<editor::WeatherPage> desk(5, "PW");
  desk.Press("chkDScan_2");
  QVERIFY(desk.data.WX[2].ScanMemory);
  desk.Press("chkDEnable_2");
  QCOMPARE(desk.Find<QCheckBox>("chkDEnable_2")->text(), ">");
  QVERIFY(!desk.data.WX[2].Enable);
  QVERIFY(!desk["chkDScan_2"]->isEnabled() && !desk["txtDTagName_2"]->isEnabled());
  desk.Open("PW");
  QVERIFY(!desk["txtDTagName_2"]->isEnabled() && desk["txtDTagName_3"]->isEnabled());
  desk.Press("chkDEnable_3");
  QCOMPARE(desk.Find<QCheckBox>("chkDEnable_2")->text(), " ");
  QCOMPARE(desk.host.changes, 1);
}

void SmallPagesTest::WeatherNamesAreFiltered() {
  PageDesk<editor::WeatherPage> desk(5, "PW");
  desk.Type("txtDTagName_9", "aB#-/,_. 9cdefgh");
  QCOMPARE(desk.data.WX[9].ChTag, "AB-/,_. 9CDE");
}

void SmallPagesTest::HintsFollowTheFocus() {
  PageDesk<editor::WeatherPage> desk(5, "PW");
  desk.Focused("chkDScan_0");
  QCOMPARE(desk.host.hint, "[Space]:An effective and invalid change.");
  desk.Focused("chkDEnable_1");
  QCOMPARE(desk.host.hint, "Select[x]Enable/[]Disable.");
}

void SmallPagesTest::GridColumns_data() {
  QTest::addColumn<int>("model");
  QTest::addColumn<QByteArray>("key");
  QTest::addColumn<QString>("captions");
  const QString full = "LOW UP MEM VS CH Name W/N RxTone Comp TxTone";
  for (const int model : {0, 4, 5}) {
    QTest::addRow("%d marine", model)
        << model << QByteArray("PI") << "CH RX[MHz] TX[MHz] TX LOW UP DUP MEM VS CH Name";
    QTest::addRow("%d LMR", model)
        << model << QByteArray("LMRChannel") << "CH ENABLE DISP RX[MHz] TX[MHz] " + full;
    QTest::addRow("%d EXP", model)
        << model << QByteArray("ExpChannel") << "CH USA INTL CAN DISP RX[MHz] TX[MHz] " + full;
  }
  QTest::newRow("1 marine") << 1 << QByteArray("PU") << "CH RX[MHz] TX[MHz] TX LOW UP DUP MEM";
  for (const char* key : {"LMRChannel", "ExpChannel"}) {
    QTest::addRow("1 %s", key) << 1 << QByteArray(key)
                               << "CH ENABLE DISP RX[MHz] TX[MHz] LOW UP MEM";
  }
}

void SmallPagesTest::GridColumns() {
  QFETCH(const int, model);
  QFETCH(const QByteArray, key);
  const PageDesk<editor::GridPage> desk(model, key);
  QAbstractItemModel* rows = desk.Find<QTableView>("MSFlexGrid1")->model();
  const QAbstractItemModelTester tester(rows,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
  QStringList captions;
  for (int i = 0; i < rows->columnCount(); ++i) {
    captions << rows->headerData(i, Qt::Horizontal).toString();
  }
  QTEST(captions.join(' '), "captions");
  desk.page->Fill(*editor::NodeOfKey("PC"));
  desk.page->Fill(*editor::NodeOfKey("LMRChannel"));
  QCOMPARE(rows->rowCount(), 40);
}

void SmallPagesTest::GridCells() {
  PageDesk<editor::GridPage> desk(5);
  desk.data.EXP[9].INT_Group = false;
  desk.Open("ExpChannel");
  const QAbstractItemModel* rows = desk.Find<QTableView>("MSFlexGrid1")->model();
  const auto state = [rows](int column) { return rows->index(8, column).data(Qt::CheckStateRole); };
  QCOMPARE(rows->index(8, 0).data().toString(), "EXP9[Enable]");
  QCOMPARE(state(1).toInt(), static_cast<int>(Qt::Checked));
  QCOMPARE(state(2).toInt(), static_cast<int>(Qt::Unchecked));
  QVERIFY(!state(0).isValid());
  for (core::ChannelRecord& channel : desk.data.Marine[0]) channel.Enable = channel.Position > 237;
  desk.Open("PU");
  QCOMPARE(rows->rowCount(), 2);
  QCOMPARE(rows->index(1, 0).data().toString(), "119A");
}

void SmallPagesTest::GridJumpsToTheRowsChannel_data() {
  QTest::addColumn<QByteArray>("key");
  QTest::addColumn<QString>("channel");
  QTest::newRow("marine") << QByteArray("PU") << "PU11";  // 01A, 03A, 05A
  QTest::newRow("lmr") << QByteArray("LMRChannel") << "L3";
  QTest::newRow("exp") << QByteArray("ExpChannel") << "E3";
}

void SmallPagesTest::GridJumpsToTheRowsChannel() {
  QFETCH(const QByteArray, key);
  PageDesk<editor::GridPage> desk(5, key);
  auto* grid = desk.Find<QTableView>("MSFlexGrid1");
  grid->clearFocus();
  desk.Focused("MSFlexGrid1");
  QCOMPARE(desk.host.hint, "[Double click],[Enter]:Jump the Setting screen.");
  grid->setCurrentIndex(grid->model()->index(2, 0));
  QTest::keyClick(grid, Qt::Key_Return);
  const QString by_key = desk.host.selected;
  desk.host.selected.clear();
  const QPoint cell = grid->visualRect(grid->model()->index(2, 1)).center();
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
  QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
  QTEST(desk.host.selected, "channel");
  QCOMPARE(by_key, desk.host.selected);
}

void SmallPagesTest::WheelScrollsOneRowANotch() {
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

void SmallPagesTest::FillingChangesNothing() {
  for (int model = 0; model <= 6; ++model) {
    QVERIFY(PageDesk<editor::CommonPage>(model).FillsWithoutTrace({"Common"}));
    QVERIFY(PageDesk<editor::UsablePage>(model).FillsWithoutTrace({"Usable"}));
    QVERIFY(PageDesk<editor::WeatherPage>(model).FillsWithoutTrace({"PW"}));
    QVERIFY(PageDesk<editor::GridPage>(model).FillsWithoutTrace(
        {"PU", "PI", "PC", "LMRChannel", "ExpChannel"}));
  }
}

QTEST_MAIN(SmallPagesTest)
#include "small_pages_test.moc"
