#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QTreeWidget>

#include "command_desk.h"
#include "core/field_ref.h"
#include "editor/comparison_groups.h"
#include "editor/comparison_model.h"
#include "editor/comparison_view.h"
#include "files/settings_file.h"
#include "support/random_data.h"
#include "support/row.h"

using namespace orvane;
using core::RadioData;
using document::Listed;
using testing::CommandDesk;
using testing::Row;

namespace {

constexpr const char* kBoat = "/boats/boat.dat";
constexpr const char* kFerry = "/boats/ferry.dat";
constexpr std::array<std::size_t, 5> kRenamed = {3, 11, 32, 40, 200};

/// A radio in use, and another one with five other names, another squelch and a narrow channel that
/// may not be wide.
RadioData Boat() {
  return image::MakeSampleRadio(5, testing::kAfterCutOver);
}
RadioData Ferry() {
  RadioData data = Boat();
  for (const std::size_t channel : kRenamed) {
    data.Marine[0][channel].ChTag = "FERRY " + std::to_string(channel);
  }
  data.Common.SQL = 9;
  data.EXP[1].Narrow = false;
  return data;
}

/// The window with the two as files, and the comparison driven by keys, which are counted.
struct ComparisonDesk : CommandDesk {
  ComparisonDesk() {
    files.files[kBoat] = files::SettingFileText(Boat());
    files.files[kFerry] = files::SettingFileText(Ferry());
    clock.today = testing::kAfterCutOver;
  }
  /// With the boat open.
  void Open() {
    Start();
    dialogs.paths = {kBoat};
    Press(Qt::Key_O, Qt::ControlModifier);
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    ++keys;
    QWidget* target = QApplication::activePopupWidget();
    if (target == nullptr) target = QApplication::focusWidget();
    QVERIFY(target != nullptr);
    QTest::keyClick(target, key, modifiers);
  }
  void Compare() {
    Press(Qt::Key_E, Qt::AltModifier);
    Press(Qt::Key_C);
    QVERIFY(Window() != nullptr);
    Activate();
  }
  /// As window managers do by themselves when a menu closes.
  void Activate() const {
    Window()->activateWindow();
    QTRY_VERIFY(Window()->isActiveWindow());
  }
  void ChooseFile(Qt::Key side, const char* path) {
    dialogs.paths = {path};
    Choose(side, Qt::Key_F);
  }
  /// From the menu of that side's button, which waits for its key in a loop of its own.
  void Choose(Qt::Key side, Qt::Key item) {
    QTimer::singleShot(0, window.get(), [this, item] { Press(item); });
    Press(side, Qt::AltModifier);
    QTRY_VERIFY(!Button(side == Qt::Key_L ? "cmdLeft" : "cmdRight").isDown());
    Activate();
  }
  void Filter(const char* words) {
    Press(Qt::Key_F, Qt::AltModifier);
    QTest::keyClicks(Part<QLineEdit>("txtFilter"), QLatin1String(words));
  }

  [[nodiscard]] QDialog* Window() const { return Find<QDialog>("frmComparison"); }
  template <class T>
  [[nodiscard]] T* Part(const char* name) const {
    return Window()->findChild<T*>(QLatin1String(name));
  }
  [[nodiscard]] editor::ComparisonView& View() const {
    return *Part<editor::ComparisonView>("lstDifferences");
  }
  [[nodiscard]] QString Verdict() const { return Part<QLabel>("lblVerdict")->text(); }
  [[nodiscard]] QPushButton& Button(const char* name) const { return *Part<QPushButton>(name); }
  /// Group, channel and field of the current row.
  [[nodiscard]] QString Current() const {
    QStringList names;
    for (QModelIndex node = View().currentIndex().siblingAtColumn(0); node.isValid();
         node = node.parent()) {
      names.prepend(node.data().toString());
    }
    return names.join('|');
  }

  int keys = 0;
};

core::FieldRef SqlOf(const RadioData& data) {
  return core::RefTo<&core::CommonSettings::SQL>(data, data.Common);
}

}  // namespace

class ComparisonTest : public QObject {
  Q_OBJECT

 private slots:
  void FieldsStandInTheGroupsOfTheNavigationTree() {
    const struct {
      const char* path;
      int model;
      const char* place;
    } rows[] = {{"usable_groups/intl/tx_tot", 5, "Available CH Group Setup|INTL"},
                {"usable_groups/extra/enable", 5, "Available CH Group Setup|LMR CH"},
                {"exp_present", 5, "Available CH Group Setup|EXP CH"},
                {"common/sql", 5, "Common Setup|"},
                {"usa/22A/name", 5, "USA|CH22A"},
                {"intl/16/enable", 5, "INTL|CH16"},
                {"canada/09/enable", 5, "CANADA|CH09"},
                {"wx/3/enable", 5, "Weather|WX03"},
                {"extra/1/name", 5, "LMR Channel|LMR1"},
                {"extra/2/name", 5, "EXP Channel|EXP2"},
                {"extra/2/name", 3, "EXP Channel|EXP2"},
                {"dsc/user_mmsi", 5, "DSC|"},
                {"stations/7/name", 5, "Station|Station 7"},
                {"station_groups/4/name", 5, "Station Group|Station Group 4"},
                {"image/0060", 5, "Memory|"}};
    int last = -1;
    for (const auto& [path, model, expected] : rows) {
      const Row row(path, model);
      RadioData data = testing::NewData(model);
      data.EXP[1].LMR_EXP = core::kLmrMark;
      data.EXP[2].LMR_EXP = core::kExpMark;
      const std::optional<core::FieldRef> at = core::RefOf(path);
      QVERIFY(at.has_value());
      const editor::ComparisonPlace place = editor::PlaceInComparison(data, *at);
      QCOMPARE(place.group + '|' + place.entry, expected);
      if (model != 5) continue;
      QVERIFY(place.rank >= last);
      last = place.rank;
    }
  }

  void TheModelListsWhatDiffersOrEverythingAndWhatTheFilterLeaves() {
    editor::ComparisonModel model;
    const QAbstractItemModelTester tester(&model);
    for (const int number : {0, 1, 5}) {
      testing::RandomData random(static_cast<unsigned>(number));
      const auto left = std::make_shared<RadioData>(random.Of(number));
      const auto right = std::make_shared<RadioData>(*left);
      random.Scatter(*right, 60);
      const int expected = static_cast<int>(document::Compare(*left, *right).rows.size());
      for (const Listed listed : {Listed::kDifferences, Listed::kAll}) {
        const Row row(number, static_cast<int>(listed));
        // Thousands of rows are more than the tester looks through in a test's time.
        const QSignalBlocker quiet(listed == Listed::kAll ? &model : nullptr);
        model.SetFilter({});
        model.SetListed(listed);
        model.Compare(left, right);
        QCOMPARE(model.DifferenceCount(), expected);
        QCOMPARE(model.ListedDifferences(), expected);
        QCOMPARE(model.FieldCount() > 100 * expected, listed == Listed::kAll);
        QCOMPARE(static_cast<int>(model.AllRows().size()), model.FieldCount());
        int walked = 0;
        for (QModelIndex at = model.NextDifference({}, true); at.isValid();
             at = model.NextDifference(at, true)) {
          QVERIFY(model.DifferencesBelow({at}) == 1 && model.NodeOf(model.IdOf(at)) == at);
          ++walked;
        }
        QCOMPARE(walked, expected);
      }
      model.SetFilter("uSa cH22a tX eN");
      QCOMPARE(model.FieldCount(), 1);
      QCOMPARE(model.AllRows().front().name, std::string("USA 22A Tx Enable"));
      model.SetListed(Listed::kDifferences);
    }
    model.Compare(nullptr, nullptr);
    QCOMPARE(model.rowCount(), 0);
  }

  void WhatDiffersBetweenTwoFilesTakesSixKeysAndTheirNames() {
    ComparisonDesk desk;
    desk.Start();
    desk.keys = 0;
    desk.Compare();
    QVERIFY(desk.Verdict().startsWith("Choose what to compare"));
    desk.ChooseFile(Qt::Key_L, kBoat);
    desk.ChooseFile(Qt::Key_R, kFerry);
    QCOMPARE(desk.Verdict(), "7 fields differ.");
    QCOMPARE(desk.keys, 6);
    for (const char* current : {"Common Setup: 1 differs|SQL", "USA: 5 differ|CH01A|CH Name"}) {
      desk.Press(Qt::Key_F3);
      QCOMPARE(desk.Current(), current);
    }
    desk.Press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(desk.View().currentIndex().siblingAtColumn(1).data().toString(), "5");
    QCOMPARE(desk.View().currentIndex().siblingAtColumn(2).data().toString(), "9");
    // Neither side is the open data.
    for (const char* button : {"cmdTakeLeft", "cmdTakeRight"}) {
      QVERIFY(!desk.Button(button).isEnabled());
      QVERIFY(desk.Button(button).toolTip().startsWith("Only the open data can be changed"));
    }
    desk.Press(Qt::Key_Escape);
    QTRY_VERIFY(desk.Window() == nullptr);
  }

  void FiveNamesIntoAnotherFileAreOneStepAndElevenKeys() {
    ComparisonDesk desk;
    desk.Open();
    desk.Compare();
    desk.ChooseFile(Qt::Key_R, kFerry);
    desk.Filter("ch name");
    QCOMPARE(desk.Verdict(), "7 fields differ. The filter leaves 5 of them.");
    desk.Press(Qt::Key_Return);
    desk.Press(Qt::Key_A, Qt::ControlModifier);
    const std::size_t steps = desk.document.Steps().size();
    desk.Press(Qt::Key_T, Qt::AltModifier);
    QTRY_COMPARE(desk.document.Steps().size(), steps + 1);
    QCOMPARE(desk.document.Steps().back().name, std::string("Take 5 fields from ferry.dat"));
    for (const std::size_t channel : kRenamed) {
      QCOMPARE(desk.data.Marine[0][channel].ChTag, "FERRY " + std::to_string(channel));
    }
    QCOMPARE(desk.data.Common.SQL, Boat().Common.SQL);
    QCOMPARE(desk.Part<QLabel>("lblTaken")->text(), "5 fields taken over.");
    QVERIFY(!desk.Part<QTreeWidget>("lstRefusals")->isVisible());
    // Undone and made again by the keys of the main window, in this one.
    for (const auto& [key, verdict] :
         {std::pair(Qt::Key_Z, "7 fields differ. The filter leaves 5 of them."),
          std::pair(Qt::Key_Y, "2 fields differ. The filter leaves 0 of them.")}) {
      desk.Press(key, Qt::ControlModifier);
      QTRY_COMPARE(desk.Verdict(), verdict);
    }
    desk.Press(Qt::Key_Escape);
    desk.window->activateWindow();
    QTRY_VERIFY(desk.window->isActiveWindow());
    desk.Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(desk.keys - 2, 11);  // but for the undoing
    RadioData expected = Boat();
    for (const std::size_t channel : kRenamed) {
      expected.Marine[0][channel].ChTag = "FERRY " + std::to_string(channel);
    }
    QVERIFY(desk.files.files[kBoat] == files::SettingFileText(expected));
  }

  void WhatIsRefusedIsNamedWithTheReasonAndTheRestIsTaken() {
    ComparisonDesk desk;
    desk.Open();
    desk.Compare();
    desk.ChooseFile(Qt::Key_R, kFerry);
    desk.View().selectAll();
    desk.Press(Qt::Key_T, Qt::AltModifier);
    QTRY_COMPARE(desk.Part<QLabel>("lblTaken")->text(), "6 of 7 fields taken over.");
    const auto* refusals = desk.Part<QTreeWidget>("lstRefusals");
    QVERIFY(refusals->isVisible());
    QCOMPARE(refusals->topLevelItemCount(), 1);
    QCOMPARE(refusals->topLevelItem(0)->text(0), "EXP/LMR 1 Narrow");
    QVERIFY(refusals->topLevelItem(0)->text(1).endsWith("by rule of the FCC."));
    QCOMPARE(desk.Verdict(), "1 field differs.");
    QCOMPARE(desk.Current(), "LMR Channel: 1 differs|LMR1|Narrow");
    QVERIFY(!desk.Button("cmdTakeRight").isEnabled());
  }

  void TheOpenSideFollowsTheDocumentAndTheSelectionStays() {
    ComparisonDesk desk;
    desk.Open();
    desk.Compare();
    desk.ChooseFile(Qt::Key_R, kFerry);
    desk.Press(Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(!desk.Part<QCheckBox>("chkDifferencesOnly")->isChecked());
    desk.Press(Qt::Key_F3);
    desk.View().setFocus();
    desk.Press(Qt::Key_F3);
    const QString sql = "Common Setup: 1 differs|SQL";
    while (desk.Current() != sql) desk.Press(Qt::Key_F3, Qt::ShiftModifier);
    QVERIFY(desk.Button("cmdTakeLeft").isEnabled());
    desk.document.Edit(SqlOf(desk.data), [](RadioData& data) { data.Common.SQL = 9; });
    QTRY_COMPARE(desk.Verdict(), "6 fields differ.");
    QCOMPARE(desk.Current(), "Common Setup|SQL");
    QCOMPARE(desk.View().Chosen().size(), 1);
    QVERIFY(!desk.Button("cmdTakeLeft").isEnabled());
    QVERIFY(desk.Button("cmdTakeLeft").toolTip().startsWith("Select what differs"));
    // One field makes a step that names it. Here from the left to the right.
    desk.document.Undo();
    desk.Choose(Qt::Key_R, Qt::Key_O);
    QVERIFY(desk.Button("cmdRight").text().endsWith("Open data"));
    QVERIFY(desk.Button("cmdLeft").text().endsWith("ferry.dat"));
    QCOMPARE(desk.View().Chosen().size(), 1);
    desk.Button("cmdTakeRight").click();
    QCOMPARE(desk.data.Common.SQL, 9);
    QCOMPARE(desk.document.Steps().back().name, std::string("SQL"));

    document::Contents other{.data = testing::NewData(0)};
    desk.document.Replace("Other", std::move(other), false);
    QTRY_COMPARE(desk.Verdict(),
                 "ferry.dat is for the model KT740, Open data for the model RB6100S. Only data of "
                 "one model can be compared.");
    QVERIFY(!desk.Button("cmdTakeRight").isEnabled());
    QCOMPARE(desk.Button("cmdTakeRight").toolTip(), "Only data of one model can be taken over");
  }

  void TheListIsSavedCopiedAndPrinted() {
    ComparisonDesk desk;
    desk.Open();
    desk.Compare();
    desk.ChooseFile(Qt::Key_R, kFerry);
    const std::string head = "Field\tOpen data\tferry.dat\r\n";
    const std::string sql = "Common Setup SQL\t5\t9\r\n";
    desk.dialogs.paths = {"/out/list.txt"};
    desk.Button("cmdSaveAs").click();
    const std::string saved = desk.files.files["/out/list.txt"];
    QVERIFY(saved.starts_with(head + sql) && saved.ends_with("\r\n"));
    QCOMPARE(std::count(saved.begin(), saved.end(), '\n'), 1 + 7);
    desk.Button("cmdCopy").click();
    QCOMPARE(QApplication::clipboard()->text().toStdString(), saved);
    desk.Press(Qt::Key_F3);
    desk.Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text().toStdString(), head + sql);
    desk.Button("cmdPrint").click();
    QCOMPARE(desk.printer.printed.size(), 1U);
    QCOMPARE(QString::fromStdString(desk.printer.printed[0]).split("\r\n").size(),
             1 + 7 + 3 * 2 + 1);
    desk.printer.has_printer = false;
    desk.Button("cmdPrint").click();
    QCOMPARE(desk.Messages(), QStringList{"Print Error!!"});
  }

  void EnterShowsTheFieldAndAFileThatCannotBeReadLeavesTheSideAsItWas() {
    ComparisonDesk desk;
    desk.Open();
    desk.Compare();
    desk.ChooseFile(Qt::Key_R, kFerry);
    desk.ChooseFile(Qt::Key_L, "/boats/none.hex");
    QCOMPARE(desk.Messages(), QStringList{"FileRead Error!!"});
    QCOMPARE(desk.Verdict(), "7 fields differ.");
    for (int i = 0; i < 3; ++i) desk.Press(Qt::Key_F3);
    desk.Press(Qt::Key_Return);
    QCOMPARE(desk.Tree().CurrentKey(), "PU11");
    QCOMPARE(desk.window->focusWidget()->objectName(), "txtCTag");
    desk.Item("mnuEditCompare").trigger();
    QCOMPARE(desk.window->findChildren<QDialog*>("frmComparison").size(), 1);
  }
};

QTEST_MAIN(ComparisonTest)
#include "comparison_test.moc"
