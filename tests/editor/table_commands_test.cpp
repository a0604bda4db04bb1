#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QComboBox>
#include <QTreeView>
#include <tuple>

#include "command_desk.h"
#include "editor/import_list.h"
#include "files/table_file.h"
#include "support/row.h"

using namespace orvane;
using testing::Row;
using testing::WindowDesk;

namespace {

constexpr const char* kNames = "Channel,Colour,CH Name\n16,red,HAILING\n161,x,X\n67,y,BRG/BRG\n";

QStringList Rows(const QDialog& dialog) {
  const QAbstractItemModel& model = *dialog.findChild<QTreeView*>("lstLines")->model();
  QStringList rows;
  for (int row = 0; row < model.rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      cells << model.index(row, column).data().toString();
    }
    rows << cells.join('|');
  }
  return rows;
}

QString TextOf(const QDialog& dialog, const char* label) {
  return dialog.findChild<QLabel*>(label)->text();
}

void Click(const QDialog& dialog, const char* button) {
  dialog.findChild<QAbstractButton*>(button)->click();
}

QComboBox& Tables(const QDialog& dialog) {
  return *dialog.findChild<QComboBox*>("cboTable");
}

/// The main window over a radio in use, and files to import.
struct TableDesk : WindowDesk {
  TableDesk() {
    files.files["/in/names.csv"] = kNames;
    Start();
    data = image::MakeSampleRadio(5, clock.today);
    ShowArranged();
  }
  void Import(const char* path, const std::function<void(QDialog&)>& work) {
    dialogs.paths = {path};
    InWindowOf("mnuFileImportTable", work);
  }
};

}  // namespace

class TableCommandsTest : public QObject {
  Q_OBJECT

 private slots:
  void ExportOffersTheTableOfThePageOnShow() {
    TableDesk desk;
    const std::tuple<const char*, QString> pages[] = {
        {"PI32", "INTL"},           {"General", "USA"},
        {"PC", "CANADA"},           {"ExpChannel", "EXP/LMR"},
        {"L3", "EXP/LMR"},          {"PW", "Weather"},
        {"Common", "Common Setup"}, {"Usable", "Available CH Group"}};
    for (const auto& [key, table] : pages) {
      const Row row(key);
      desk.window->SelectNode(key);
      desk.InWindowOf("mnuFileExportTable", [&expected = table](QDialog& dialog) {
        QCOMPARE(Tables(dialog).currentText(), expected);
      });
    }
    QVERIFY(desk.dialogs.requests.empty());
  }

  void ExportWritesTheTableAndKeepsTheSeparatorInMind() {
    TableDesk desk;
    desk.window->SelectNode("PI");
    desk.dialogs.paths = {"/out/intl.csv"};
    desk.InWindowOf("mnuFileExportTable", [](QDialog& dialog) {
      dialog.findChild<QComboBox*>("cboSeparator")->setCurrentIndex(2);
      Click(dialog, "cmdExport");
    });
    QVERIFY(desk.dialogs.requests.at(0).filter.starts_with("CSV tables(*.csv)"));
    QCOMPARE(desk.files.files["/out/intl.csv"],
             files::TableText(desk.document.Data(), *files::FindTextTable("intl"),
                              files::TableSeparator::kTab));
    desk.InWindowOf("mnuFileExportTable", [](QDialog& dialog) {
      QCOMPARE(dialog.findChild<QComboBox*>("cboSeparator")->currentIndex(), 2);
    });
    QVERIFY(desk.document.Steps().empty());
  }

  void ImportTellsLineByLineThenTakesTheRestAsOneStep() {
    TableDesk desk;
    const core::RadioData before = desk.document.Data();
    desk.Import("/in/names.csv", [&](QDialog& dialog) {
      QCOMPARE(TextOf(dialog, "lblSummary"), "1 line changes, 1 is refused, 1 stays as it is.");
      QCOMPARE(TextOf(dialog, "lblUnused"),
               "Column \"Colour\" is not taken over. No field of USA has that name.");
      const QStringList rows = {"2|16|changes|CH Name|DISTRESS|HAILING|",
                                "3|161|refused||||There is no such entry in USA."};
      QCOMPARE(Rows(dialog), rows);
      Click(dialog, "chkOnlyMatters");
      QCOMPARE(Rows(dialog), rows + QStringList{"4|67|same||||"});
      QVERIFY(desk.document.Data() == before);
      QCOMPARE(dialog.findChild<QPushButton*>("cmdImport")->text(), "&Import the Rest");
      Click(dialog, "cmdImport");
    });
    QCOMPARE(desk.document.Data().Marine[0][32].ChTag, "HAILING");
    QCOMPARE(desk.document.Steps().size(), 1U);
    QCOMPARE(desk.document.Steps()[0].name, "Import USA from names.csv");
    desk.Item("mnuEditUndo").trigger();
    QVERIFY(desk.document.Data() == before);
  }

  void ImportFollowsTheTableThatIsChosen() {
    TableDesk desk;
    desk.window->SelectNode("PI16");
    desk.Import("/in/names.csv", [](QDialog& dialog) {
      QAbstractItemModelTester shown(dialog.findChild<QTreeView*>("lstLines")->model(),
                                     QAbstractItemModelTester::FailureReportingMode::QtTest);
      QAbstractItemModelTester list(dialog.findChild<editor::ImportList*>(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
      QCOMPARE(Tables(dialog).currentText(), "INTL");  // of those that fit, the one on show
      Tables(dialog).setCurrentText("Common Setup");
      QCOMPARE(TextOf(dialog, "lblSummary"), "3 lines are refused.");
      const auto* import_button = dialog.findChild<QPushButton*>("cmdImport");
      QVERIFY(!import_button->isEnabled() && !import_button->toolTip().isEmpty());
      Tables(dialog).setCurrentText("CANADA");
      Click(dialog, "chkOnlyMatters");
      QCOMPARE(Rows(dialog).size(), 3);
      Click(dialog, "cmdImport");
    });
    QCOMPARE(desk.document.Data().Marine[2][32].ChTag, "HAILING");
    QCOMPARE(desk.document.Steps()[0].name, "Import CANADA from names.csv");
  }

  void WhatCannotBeImportedIsToldAndNothingChanges() {
    TableDesk desk;
    desk.files.files["/in/open.csv"] = "n,CH Name\n16,\"HAILING\n";
    desk.files.failing["/in/locked.csv"] = {13, "Permission denied"};
    desk.dialogs.paths = {"/in/open.csv", "/in/locked.csv"};
    for (int i = 0; i < 3; ++i) desk.Item("mnuFileImportTable").trigger();  // the last is cancelled
    QCOMPARE(
        desk.Messages(),
        (QStringList{"The table cannot be read.\r\nline 2: A cell that begins with a quotation "
                     "mark has no end.",
                     "FileRead Error!!"}));
    desk.Import("/in/names.csv", [](QDialog& dialog) { Click(dialog, "cmdCancel"); });
    QVERIFY(desk.document.Steps().empty());
  }

  void BothDialogsOpenTheirHelp() {
    TableDesk desk;
    for (const char* item : {"mnuFileExportTable", "mnuFileImportTable"}) {
      desk.dialogs.paths = {"/in/names.csv"};
      desk.InWindowOf(item, [](QDialog& dialog) { Click(dialog, "cmdHelp"); });
    }
    QCOMPARE(desk.help.opened.filter("3010").size(), 2);
  }
};

QTEST_MAIN(TableCommandsTest)
#include "table_commands_test.moc"
