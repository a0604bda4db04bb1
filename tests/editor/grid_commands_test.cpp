#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "core/extra_channel.h"
#include "files/sheet.h"
#include "grid_desk.h"
#include "support/row.h"

using namespace orvane;
using testing::GridDesk;
using testing::kControl;
using testing::Row;

/// Commands that work on all selected cells of a table.
class GridCommandsTest : public QObject {
  Q_OBJECT

 private slots:
  static void FiveNamesGoIntoAnotherFileInSixKeys() {
    GridDesk desk;
    for (std::size_t i = 0; i < 240; ++i) desk.data.Marine[0][i].ChTag = "M" + std::to_string(i);
    desk.GoTo(3, "CH Name");
    for (int i = 0; i < 4; ++i) desk.Press(Qt::Key_Down, Qt::ShiftModifier);
    desk.Press(Qt::Key_C, kControl);
    QStringList names;
    for (int row = 3; row < 8; ++row) names << desk.Text(row, "CH Name");
    const int keys = std::exchange(desk.keys, 0);
    desk.data = image::MakeSampleRadio(5, desk.clock.Today());  // another file comes
    desk.ShowArranged();
    desk.Open("PU");
    desk.GoTo(3, "CH Name");
    QVERIFY(desk.Text(3, "CH Name") != names[0]);
    desk.Press(Qt::Key_V, kControl);
    for (int row = 3; row < 8; ++row) QCOMPARE(desk.Text(row, "CH Name"), names[row - 3]);
    QCOMPARE(keys + desk.keys, 6);
    QCOMPARE(desk.document.DoneCount(), 1U);
    QCOMPARE(desk.LastStep(), "Paste 5 cells in USA");
  }

  static void SpaceSwitchesTheSelectionAndUndoLeavesItThere() {
    GridDesk desk;
    for (core::ChannelRecord& channel : desk.data.Marine[0]) channel.ScanMemory = false;
    desk.GoTo(2, "MEM");
    desk.Press(Qt::Key_Down, Qt::ShiftModifier);
    desk.Press(Qt::Key_Down, Qt::ShiftModifier);
    const auto shown = [&desk] {
      return desk.Text(1, "MEM") + desk.Text(2, "MEM") + desk.Text(4, "MEM") + desk.Text(5, "MEM");
    };
    desk.Press(Qt::Key_Space);
    QCOMPARE(shown(), "---MEMMEM---");
    QCOMPARE(desk.LastStep(), "Switch MEM of 3 channels");
    desk.Press(Qt::Key_Z, kControl);
    QCOMPARE(shown(), "------------");
    QCOMPARE(desk.Tree().CurrentKey(), "PU");
    QCOMPARE(desk.Focus(), "MSFlexGrid1");
    QCOMPARE(*desk.Grid().SelectedArea(), (files::Area{2, desk.Column("MEM"), 3, 1}));
    desk.Press(Qt::Key_Y, kControl);
    QCOMPARE(shown(), "---MEMMEM---");
    // Of whole rows it is the current column; a column that is none switches nothing.
    desk.Press(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(desk.Grid().SelectedArea()->columns, desk.Rows().columnCount());
    desk.Press(Qt::Key_Space);
    QCOMPARE(shown(), "------------");
    desk.GoTo(0, "CH");
    desk.Press(Qt::Key_Space);
    QCOMPARE(desk.document.DoneCount(), 2U);
    QVERIFY(desk.Saved().startsWith("No selected cell is a switch."));
  }

  static void APasteThatIsRefusedInPlacesAsks() {
    GridDesk desk("LMRChannel");
    int in_use = 1;
    while (!core::MarkedEnabled(desk.data, in_use, true)) ++in_use;
    desk.GoTo(in_use - 1, "VS");
    QGuiApplication::clipboard()->setText("9\tGOOD\n");
    const core::RadioData before = desk.data;
    const QStringList expected = {
        QString("LMR%1, VS|9|It must be a code 0 to 3, or Off.").arg(in_use)};
    QCOMPARE(desk.Refused(Qt::Key_V, kControl, "cmdNothing"), expected);
    QVERIFY(desk.data == before && desk.document.DoneCount() == 0);
    QCOMPARE(desk.Refused(Qt::Key_V, kControl, "cmdRest"), expected);
    QCOMPARE(desk.Text(in_use - 1, "CH Name"), "GOOD");
    QCOMPARE(desk.LastStep(), "Paste 1 cell in LMR");
    QGuiApplication::clipboard()->setText("9");
    QCOMPARE(desk.Refused(Qt::Key_V, kControl, "cmdNothing"), expected);
    QCOMPARE(desk.Focus(), "MSFlexGrid1");
  }

  static void FillCountCutAndEmptyAreOneStepEach() {
    GridDesk desk;
    desk.data.Marine[0][static_cast<std::size_t>(files::EnabledMarineRows(desk.data.Marine[0])[0])]
        .ChTag = "PORT 8";
    desk.GoTo(0, "CH Name");
    desk.Press(Qt::Key_Down, Qt::ShiftModifier);
    desk.Press(Qt::Key_Down, Qt::ShiftModifier);
    const struct {
      int key;
      Qt::KeyboardModifiers modifiers;
      const char* names;
      const char* step;
    } rows[] = {
        {Qt::Key_D, kControl | Qt::ShiftModifier, "PORT 8|PORT 9|PORT 10",
         "Count up 2 cells in USA"},
        {Qt::Key_D, kControl, "PORT 8|PORT 8|PORT 8", "Fill 2 cells in USA"},
        {Qt::Key_X, kControl, "||", "Cut 3 names in USA"},
        {Qt::Key_V, kControl, "PORT 8|PORT 8|PORT 8", "Paste 3 cells in USA"},
        {Qt::Key_Delete, {}, "||", "Empty 3 names in USA"},
    };
    for (const auto& row : rows) {
      const Row told(row.step);
      desk.Press(row.key, row.modifiers);
      QCOMPARE(
          desk.Text(0, "CH Name") + "|" + desk.Text(1, "CH Name") + "|" + desk.Text(2, "CH Name"),
          row.names);
      QCOMPARE(desk.LastStep(), row.step);
    }
    QCOMPARE(desk.document.DoneCount(), 5U);
  }
};

QTEST_MAIN(GridCommandsTest)
#include "grid_commands_test.moc"
