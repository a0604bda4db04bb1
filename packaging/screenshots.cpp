// screenshots [--dark] [--font PERCENT] [--size WxH] FOLDER: one picture of the first start, of
// each page of the real window, over the contents of a radio in use, of the transfer dialog before,
// while and after a radio is programmed, of a table that is imported, of Find, of the list of
// problems and of a comparison. packaging/screenshots.sh runs it; QT_SCALE_FACTOR scales it.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPalette>
#include <QStyleFactory>
#include <QTextStream>
#include <QTreeView>
#include <array>
#include <functional>
#include <optional>

#include "core/model_profile.h"
#include "editor/command_desk.h"
#include "files/settings_file.h"
#include "image/sample_radio.h"
#include "platform/qt_radio_process.h"

namespace {

using namespace orvane;

struct Shot {
  const char* key;   // node of the navigation tree
  const char* file;  // picture without its extension
};
constexpr std::array kShots = {
    Shot{"Usable", "channel-groups"},
    Shot{"Common", "common-settings"},
    Shot{"PU", "marine-channels"},
    Shot{"PU32", "marine-channel"},
    Shot{"PW", "weather"},
    Shot{"LMRChannel", "lmr-channels"},
    Shot{"L1", "lmr-channel"},
    Shot{"ExpChannel", "exp-channels"},
    Shot{"E9", "exp-channel"},
};

QPalette DarkPalette() {
  constexpr QRgb kGround = qRgb(45, 45, 48);
  constexpr QRgb kBase = qRgb(30, 30, 30);
  constexpr QRgb kText = qRgb(240, 240, 240);
  constexpr QRgb kFaint = qRgb(127, 127, 127);
  QPalette palette(QColor{kGround}, QColor{kGround});
  palette.setColor(QPalette::Base, QColor(kBase));
  palette.setColor(QPalette::AlternateBase, QColor(kGround));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(kText));
    palette.setColor(QPalette::Disabled, role, QColor(kFaint));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(kGround));
  return palette;
}

std::optional<QSize> ToSize(const QString& text) {
  const QStringList parts = text.split('x');
  if (parts.size() != 2) return std::nullopt;
  const QSize size(parts[0].toInt(), parts[1].toInt());
  return size.isEmpty() ? std::nullopt : std::optional(size);
}

using Picture = std::function<void(QWidget&, const char*)>;

/// Programs new data, whose channels cannot transmit: once broken off, once to the end.
void TransferPictures(testing::CommandDesk& desk, const Picture& picture) {
  constexpr const char* kProgram = "mnuTransferProgram";
  constexpr int kInTheMiddle = 100;
  desk.TriggerAndWait("mnuFileNew");
  const auto press_ok = [](QDialog& dialog) { dialog.findChild<QPushButton*>("cmdOK")->click(); };
  const auto count = [&desk] { return desk.Asked(link::ExchangeKind::kWrite); };
  desk.on_exchange = [&](const link::Exchange& exchange) {
    if (exchange.kind != link::ExchangeKind::kWrite || count() != kInTheMiddle) return;
    picture(*QApplication::activeModalWidget(), "program-running");
    desk.state.Cancel = true;
  };
  desk.InWindowOf(kProgram, [&](QDialog& dialog) {
    picture(dialog, "program-before");
    press_ok(dialog);
    picture(dialog, "program-broken-off");
  });
  picture(*desk.window, "partly-written");
  desk.on_exchange = nullptr;
  desk.InWindowOf(kProgram, press_ok);
  picture(*desk.Find<QDialog>("frmReceipt"), "receipt");
}

/// A file with names, a column too many and two lines that are refused.
void TablePictures(testing::CommandDesk& desk, const Picture& picture) {
  desk.files.files["/names.csv"] =
      "Channel,Colour,CH Name\n16,red,HAILING\n22A,blue,COAST GUARD\n6,white,SAR\n161,green,X\n"
      "68,green,THIRTEEN_SIGN\n67,green,BRG/BRG\n";
  desk.dialogs.paths = {"/names.csv"};
  desk.InWindowOf("mnuFileImportTable", [&](QDialog& dialog) { picture(dialog, "import-table"); });
}

/// All differences taken over, but for one that is refused.
void ComparisonPicture(testing::CommandDesk& desk, const Picture& picture) {
  core::RadioData ferry = image::MakeSampleRadio(core::kDefaultModelType, desk.clock.Today());
  desk.data = ferry;
  desk.ShowArranged();
  ferry.Marine[0][32].ChTag = "HARBOUR";
  ferry.Common.SQL = 9;
  ferry.EXP[1].Narrow = false;
  for (const std::size_t channel : {11U, 17U}) {
    ferry.Marine[2][channel].Enable = !ferry.Marine[2][channel].Enable;
  }
  desk.files.files["/boats/ferry.dat"] = files::SettingFileText(ferry);
  desk.dialogs.paths = {"/boats/ferry.dat"};
  desk.Item("mnuEditCompare").trigger();
  auto* window = desk.Find<QDialog>("frmComparison");
  window->findChild<QAction*>("mnuRightFile")->trigger();
  auto* list = window->findChild<QTreeView*>("lstDifferences");
  for (const char* value : {"9", "Off"}) {
    const QModelIndexList found =
        list->model()->match(list->model()->index(0, 2), Qt::DisplayRole, QLatin1String(value), 9,
                             Qt::MatchExactly | Qt::MatchRecursive);
    for (const QModelIndex& index : found) {
      list->selectionModel()->select(index,
                                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
  window->findChild<QPushButton*>("cmdTakeLeft")->click();
  picture(*window, "comparison");
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QCommandLineParser words;
  words.addPositionalArgument("folder", "where the pictures go");
  words.addOption({"dark", "in a dark palette"});
  words.addOption({"size", "of the window", "WxH", "900x600"});
  words.addOption({"font", "size of the letters", "PERCENT", "100"});
  words.process(application);
  const auto size = ToSize(words.value("size"));
  if (words.positionalArguments().size() != 1 || !size) words.showHelp(2);
  if (words.isSet("dark")) {
    QApplication::setStyle(QStyleFactory::create("fusion"));
    QApplication::setPalette(DarkPalette());
  }
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * words.value("font").toDouble() / 100);
  QApplication::setFont(font);
  orvane::testing::CommandDesk desk;
  desk.ports.Add(1, "USB serial adapter");
  editor::WindowServices services = desk.Services();
  services.data_folder = platform::ToUtf8(QApplication::applicationDirPath());  // the logo
  platform::QtRadioProcess simulated(services.data_folder);  // offered, not started
  services.radio = &simulated;
  desk.window = std::make_unique<editor::MainWindow>(services);
  desk.window->show();
  const auto* status = desk.Find<QLabel>("sbStatusBar_2");
  if (!QTest::qWaitFor([&] { return status->text().contains("problems"); })) return 1;
  desk.window->resize(*size);
  QTest::qWait(0);  // a first layout finds which shape the page has room for, the next one has it
  bool saved = true;
  const QDir folder(words.positionalArguments().front());
  const auto picture = [&](QWidget& widget, const char* file) {
    QTest::qWait(0);
    saved = widget.grab().save(folder.filePath(QLatin1String(file) + ".png")) && saved;
  };
  picture(*desk.window, "first-start");
  desk.data = image::MakeSampleRadio(core::kDefaultModelType, desk.clock.Today());
  desk.ShowArranged();
  for (const Shot& shot : kShots) {
    desk.window->SelectNode(QLatin1String(shot.key));
    picture(*desk.window, shot.file);
  }
  TablePictures(desk, picture);
  desk.window->SelectNode("PU32");
  desk.Item("mnuEditFind").trigger();
  QTest::keyClicks(desk.window->focusWidget(), "16");
  picture(*desk.window, "find");
  QTest::keyClick(desk.window->focusWidget(), Qt::Key_Escape);
  TransferPictures(desk, picture);
  desk.Item("mnuEditProblems").trigger();
  desk.window->SelectNode("PU32");
  picture(*desk.window, "problems");
  ComparisonPicture(desk, picture);
  if (!saved) QTextStream(stderr) << "cannot write into " << folder.path() << "\n";
  return saved ? 0 : 1;
}
