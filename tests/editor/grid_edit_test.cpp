#include <QAbstractItemModelTester>
#include <QAccessible>
#include <array>

#include "core/extra_channel.h"
#include "document/field_locks.h"
#include "editor/cell_delegate.h"
#include "editor/channel_page.h"
#include "files/sheet.h"
#include "grid_desk.h"
#include "page_desk.h"
#include "support/random_data.h"

using namespace orvane;
using testing::GridDesk;
using testing::kControl;
using testing::PageDesk;
using testing::Row;

class GridEditTest : public QObject {
  Q_OBJECT

 private slots:
  // Rules and page each say what may be changed: they must not part.
  static void CellsAreLockedWhereThePageGreysItsControls() {
    int locked = 0;
    int open = 0;
    for (const int model : {0, 2, 3, 4, 5}) {
      PageDesk<editor::ChannelPage> desk(model);
      testing::RandomData random(static_cast<unsigned>(model) + 1);
      core::RadioData& data = desk.data;
      data.ExpPresent = data.LmrPresent() = true;
      const auto toss = [&](core::ChannelRecord& channel) {
        channel.Enable = random.Below(4) > 0;
        channel.TxEnable = random.Below(2) == 0;
        channel.LowPower = random.Below(2) == 0;
        channel.RxDCS = static_cast<std::int16_t>(random.Below(2) * 7);
      };
      for (core::ChannelRecord& channel : data.Marine[0]) toss(channel);
      for (core::ChannelRecord& channel : data.EXP) {
        toss(channel);
        channel.SetLmr(random.Below(2) == 0);
        channel.Txfreq = 140 + random.Below(30);
      }
      for (const files::Sheet& sheet :
           {files::MarineSheet(data, core::MarineGroup::kUsa, true), files::ExtraSheet(data, true),
            files::ExtraSheet(data, false)}) {
        const char* const key = sheet.IsMarine()                                      ? "PU"
                                : sheet.heading == document::ChannelPlace::Kind::kLmr ? "L"
                                                                                      : "E";
        for (int row = 0; row < sheet.Rows(); ++row) {
          const QString node = key + QString::number(sheet.Place(row).number);
          desk.page->Fill(*editor::NodeOfKey(node));
          for (int column = 0; column < sheet.Columns(); ++column) {
            if (files::KindOf(sheet.Column(column)) == files::CellKind::kFixed) continue;
            const core::FieldRef at = files::FieldOf(sheet, {row, column});
            const QWidget* control = desk.page->ControlOf(at);
            const Row told(model, node, sheet.Column(column).caption.data());
            QVERIFY(control != nullptr);
            const bool greyed =
                !control->isEnabledTo(desk.page.get()) || !control->isVisibleTo(desk.page.get());
            const std::string lock =
                document::LockOf(data, sheet.Place(row), core::FieldOf(at), desk.clock.Today());
            QCOMPARE(!lock.empty(), greyed);
            ++(greyed ? locked : open);
          }
        }
      }
    }
    QVERIFY(locked > 1000 && open > 1000);
  }

  static void TwentyChannelsAreNamedWithTwoKeysBesideTheLetters() {
    GridDesk desk;
    desk.GoTo(0, "CH Name");
    int letters = 0;
    desk.Press(Qt::Key_F2);
    for (int i = 0; i < 20; ++i) {
      const QString name = QStringLiteral("name %1").arg(i);
      letters += static_cast<int>(name.size());
      desk.Type(name);
      QCOMPARE(desk.Hint(), "A maximum of 12 characters");
      desk.Press(Qt::Key_Return);
    }
    QCOMPARE(desk.Focus(), editor::kCellEditorName);
    desk.Press(Qt::Key_Escape);
    QCOMPARE(desk.Focus(), "MSFlexGrid1");
    for (int i = 0; i < 20; ++i) QCOMPARE(desk.Text(i, "CH Name"), QString("NAME %1").arg(i));
    QCOMPARE(desk.keys, letters + 20 + 2);
    QCOMPARE(desk.document.DoneCount(), 20U);
    QVERIFY(desk.LastStep().startsWith("CH") && desk.LastStep().endsWith(" CH Name"));
  }

  static void ACellTakesWhatItsPageWould() {
    struct Case {
      const char* caption;
      const char* typed;
      int key;
      const char* shown;
      const char* focus;  // afterwards
    };
    const Case cases[] = {
        {"CH Name", "pier;7", Qt::Key_Escape, "CREW", "MSFlexGrid1"},
        {"CH Name", "pier;7", Qt::Key_Tab, "PIER7", editor::kCellEditorName},
        {"RX[MHz]", "x151.25", Qt::Key_Return, "151.2500", editor::kCellEditorName},
        {"RX[MHz]", "150.5", Qt::Key_Backtab, "150.5000", editor::kCellEditorName},
        {"DISP", "MbM7", Qt::Key_Tab, "Mb 7", editor::kCellEditorName},
    };
    for (const Case& c : cases) {
      const Row told(c.caption, c.typed);
      GridDesk desk("LMRChannel");
      for (const int n : {3, 4, 5}) {
        desk.data.EXP[n].SetLmr(true);
        desk.data.EXP[n].Enable = true;
        desk.data.EXP[n].ChTag = "CREW";
      }
      desk.Open("LMRChannel");
      desk.GoTo(3, c.caption);
      desk.Press(Qt::Key_F2);
      QCOMPARE(desk.Focus(), editor::kCellEditorName);
      QVERIFY(desk.window->focusWidget()->accessibleName().startsWith("LMR4, "));
      desk.Type(c.typed);
      desk.Press(c.key);
      QCOMPARE(desk.Text(3, c.caption), c.shown);
      QCOMPARE(desk.Focus(), c.focus);
    }
  }

  static void AWrongFrequencyStaysInItsCellAndKeepsThePage() {
    GridDesk desk("LMRChannel");
    desk.data.EXP[1].SetLmr(true);
    desk.data.EXP[1].Enable = true;
    desk.GoTo(0, "TX[MHz]");
    desk.Press(Qt::Key_F2);
    desk.document.ForgetChange();
    desk.Type("99");
    QVERIFY(desk.document.HasChanged());
    desk.Press(Qt::Key_Return);
    QTRY_COMPARE(desk.Messages(), QStringList("Data Error!!"));
    QCOMPARE(desk.Focus(), editor::kCellEditorName);
    desk.window->SelectNode("Common");
    QCOMPARE(desk.Tree().CurrentKey(), "LMRChannel");
    QCOMPARE(desk.Messages().size(), 2);
    desk.Press(Qt::Key_Z, kControl);  // what was typed, not a step
    QCOMPARE(desk.document.DoneCount(), 0U);
    QCOMPARE(desk.Focus(), editor::kCellEditorName);
    desk.Press(Qt::Key_Escape);
    desk.window->SelectNode("Common");
    QCOMPARE(desk.Tree().CurrentKey(), "Common");
  }

  static void WhatIsTypedIsTakenOnLeaving() {
    GridDesk desk;
    desk.GoTo(0, "CH Name");
    desk.Press(Qt::Key_F2);
    desk.Type("LEFT");
    desk.window->SelectNode("PI");
    desk.Open("PU");
    QCOMPARE(desk.Text(0, "CH Name"), "LEFT");
    desk.GoTo(0, "CH Name");
    desk.Press(Qt::Key_F2);
    desk.Type("BEHIND");
    desk.Tree().setFocus();
    QCOMPARE(desk.Text(0, "CH Name"), "BEHIND");
    QCOMPARE(desk.window->focusWidget(), &desk.Tree());
  }

  static void TonesArePickedAndLockedCellsSayWhy() {
    GridDesk desk("LMRChannel");
    core::ChannelRecord& channel = desk.data.EXP[1];
    channel.SetLmr(true);
    channel.Enable = true;
    channel.RxDCS = 0;
    channel.RxCTCSS = 1;
    channel.TxEnable = false;
    desk.GoTo(0, "RxTone");
    desk.Press(Qt::Key_F2);
    desk.Press(Qt::Key_Down);
    desk.Press(Qt::Key_Down);
    desk.Press(Qt::Key_Return);
    desk.Press(Qt::Key_Escape);
    QCOMPARE(channel.RxCTCSS, 3);
    for (const auto& [caption, key, why] :
         {std::tuple("CH", Qt::Key_F2, "It is the number of the channel's place."),
          {"LOW", Qt::Key_F2, "Low Power Only goes with Tx Enable, which is off here."},
          {"LOW", Qt::Key_Space, "LMR1, LOW: Low Power Only goes with"},
          {"MEM", Qt::Key_F2, "[Space] switches this cell."}}) {
      const Row told(caption, why);
      desk.GoTo(0, caption);
      desk.Press(key);
      QVERIFY2(desk.Saved().startsWith(why), qPrintable(desk.Saved()));
    }
    QCOMPARE(desk.document.DoneCount(), 1U);
  }

  static void UnusedChannelsAreListedOnRequest() {
    GridDesk desk;
    const QAbstractItemModelTester tester(&desk.Rows(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    const int in_use = desk.Rows().rowCount();
    desk.GoTo(3, "CH Name");
    const QString label = desk.Text(3, "CH");
    desk.Press(Qt::Key_U, kControl);
    QCOMPARE(desk.Rows().rowCount(), 240);
    QVERIFY(desk.Find<QCheckBox>("chkShowUnused")->isChecked());
    QCOMPARE(desk.Text(desk.Grid().currentIndex().row(), "CH"), label);
    int unused = 0;
    while (desk.data.Marine[0][static_cast<std::size_t>(unused)].Enable) ++unused;
    const auto spoken = [&](int row) {
      return desk.Rows().index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
    };
    QCOMPARE(spoken(unused), "not in use");
    QCOMPARE(spoken(desk.Grid().currentIndex().row()), "");
    desk.GoTo(unused, "CH Name");
    desk.Press(Qt::Key_F2);
    QCOMPARE(desk.Saved(), "The channel is not in use. Switch it on first.");
    desk.Press(Qt::Key_E, kControl);
    QCOMPARE(desk.LastStep(), "Switch on 1 channel in USA");
    QCOMPARE(spoken(unused), "");
    QCOMPARE(desk.Grid().currentIndex().row(), unused);
    desk.Open("PI");
    QCOMPARE(desk.Rows().rowCount(), 240);
    desk.Open("LMRChannel");
    QVERIFY(!desk.Find<QCheckBox>("chkShowUnused")->isEnabled());
    desk.Open("PU");
    desk.Find<QCheckBox>("chkShowUnused")->click();
    QCOMPARE(desk.Rows().rowCount(), in_use + 1);
    // Undone, the channel leaves the table.
    desk.Press(Qt::Key_Z, kControl);
    QCOMPARE(desk.Rows().rowCount(), in_use);
  }

  static void GivenKeysStay() {
    GridDesk desk;
    desk.GoTo(0, "CH");
    const QString wanted = desk.Text(4, "CH");
    desk.Type(wanted);
    QCOMPARE(desk.Text(desk.Grid().currentIndex().row(), "CH"), wanted);
    desk.Press(Qt::Key_Return);
    QVERIFY(desk.Tree().CurrentKey().startsWith("PU") && desk.PageName() == "pictC");
    desk.Open("PU");
    const QPoint label = desk.Grid().visualRect(desk.Rows().index(1, 0)).center();
    QTest::mouseClick(desk.Grid().viewport(), Qt::LeftButton, {}, label);
    QCOMPARE(*desk.Grid().SelectedArea(), (files::Area{1, 0, 1, desk.Rows().columnCount()}));
  }

  static void ABlankBelongsToASearch() {
    GridDesk desk;
    desk.data.Marine[0][static_cast<std::size_t>(files::EnabledMarineRows(desk.data.Marine[0])[5])]
        .ChTag = "Z 1";
    desk.GoTo(0, "CH Name");
    desk.Type("Z 1");
    QCOMPARE(*desk.Grid().SelectedArea(), (files::Area{5, desk.Column("CH Name")}));
    QCOMPARE(desk.document.DoneCount(), 0U);
  }

  static void AnExtraChannelInUseMustBeCompleteBeforeItsTableIsLeft() {
    GridDesk desk("ExpChannel");
    core::ChannelRecord& channel = desk.data.EXP[40];
    channel = {};
    channel.Position = 40;
    desk.GoTo(39, "INTL");
    desk.Press(Qt::Key_Space);
    QVERIFY(channel.Enable && channel.INT_Group);
    desk.window->SelectNode("Common");
    QCOMPARE(desk.Tree().CurrentKey(), "ExpChannel");
    QCOMPARE(desk.Messages(), QStringList("Data Error!!\r\nPlease input correct data."));
    QCOMPARE(desk.Grid().currentIndex(), desk.Rows().index(39, desk.Column("RX[MHz]")));
    desk.Press(Qt::Key_F2);
    desk.Type("156.8");
    desk.Press(Qt::Key_Backtab);
    QCOMPARE(desk.Grid().currentIndex().column(), desk.Column("DISP"));
    desk.Type("E9");
    desk.window->SelectNode("Common");
    QCOMPARE(desk.Tree().CurrentKey(), "Common");
    QCOMPARE(channel.CHDisplayL, "E9");
  }
};

QTEST_MAIN(GridEditTest)
#include "grid_edit_test.moc"
