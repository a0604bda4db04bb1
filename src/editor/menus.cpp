#include "editor/menus.h"

#include <QKeySequence>

#include "core/explanations.h"
#include "core/product.h"
#include "editor/tool_tips.h"

namespace orvane::editor {
namespace {

QMenu* AddMenu(QMenuBar& bar, const char* name, const QString& caption) {
  QMenu* menu = bar.addMenu(caption);
  menu->setObjectName(QLatin1String(name));
  return menu;
}

QMenu* AddSubMenu(QMenu& parent, const char* name, const QString& caption) {
  QMenu* menu = parent.addMenu(caption);
  menu->setObjectName(QLatin1String(name));
  return menu;
}

QAction* AddItem(QMenu& menu, const QString& name, const QString& caption,
                 const QKeySequence& shortcut = {}) {
  QAction* item = menu.addAction(caption);
  item->setObjectName(name);
  item->setShortcut(shortcut);
  item->setMenuRole(QAction::NoRole);
  return item;
}

template <std::size_t N>
void AddItems(QMenu& menu, const char* name, std::array<QAction*, N>& items) {
  for (std::size_t i = 0; i < N; ++i) {
    items[i] = AddItem(menu, QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(i), {});
  }
}

void AddFileMenu(QMenuBar& bar, Menus& menus) {
  QMenu& file = *AddMenu(bar, "mnuFile", QStringLiteral("&File"));
  menus.file_new =
      AddItem(file, QStringLiteral("mnuFileNew"), QStringLiteral("&New"), Qt::CTRL | Qt::Key_N);
  menus.file_open =
      AddItem(file, QStringLiteral("mnuFileOpen"), QStringLiteral("&Open"), Qt::CTRL | Qt::Key_O);
  file.addSeparator();
  menus.file_save =
      AddItem(file, QStringLiteral("mnuFileSave"), QStringLiteral("&Save"), Qt::CTRL | Qt::Key_S);
  menus.file_save_as = AddItem(file, QStringLiteral("mnuFileSaveAs"), QStringLiteral("Save &As..."),
                               Qt::CTRL | Qt::SHIFT | Qt::Key_S);
  file.addSeparator();
  menus.file_print =
      AddItem(file, QStringLiteral("mnuFilePrint"), QStringLiteral("&Print"), Qt::CTRL | Qt::Key_P);
  menus.file_print_to_file =
      AddItem(file, QStringLiteral("mnuFilePrintFile"), QStringLiteral("P&rint to File"),
              Qt::CTRL | Qt::SHIFT | Qt::Key_P);
  file.addSeparator();
  menus.recent = AddSubMenu(file, "mnuFileRecent", QStringLiteral("Recent &Files"));
  menus.no_recent =
      AddItem(*menus.recent, QStringLiteral("mnuFileRecentNone"), QStringLiteral("(no file yet)"));
  menus.no_recent->setEnabled(false);
  AddItems(*menus.recent, "mnuFileRecent", menus.recent_files);
  menus.recent->setToolTipsVisible(true);
  menus.backups = AddItem(file, QStringLiteral("mnuFileBackups"), QStringLiteral("&Backups..."));
  file.addSeparator();
  menus.export_table =
      AddItem(file, QStringLiteral("mnuFileExportTable"), QStringLiteral("&Export Table..."));
  menus.export_table->setToolTip(
      QStringLiteral("Writes one table with all its fields as CSV, for a spreadsheet"));
  menus.import_table =
      AddItem(file, QStringLiteral("mnuFileImportTable"), QStringLiteral("&Import Table..."));
  menus.import_table->setToolTip(
      QStringLiteral("Shows what a table in a file would change, and takes it over as one step"));
  file.setToolTipsVisible(true);
  file.addSeparator();
  menus.file_exit =
      AddItem(file, QStringLiteral("mnuFileExit"), QStringLiteral("E&xit"), Qt::CTRL | Qt::Key_Q);
}

void AddFindItems(QMenu& edit, Menus& menus) {
  menus.find = AddItem(edit, QStringLiteral("mnuEditFind"), QStringLiteral("&Find..."),
                       Qt::CTRL | Qt::Key_F);
  menus.find->setToolTip(QStringLiteral(
      "Finds channels of all groups by number, name or frequency, and by their properties"));
  menus.find_next =
      AddItem(edit, QStringLiteral("mnuEditFindNext"), QStringLiteral("Find &Next"), Qt::Key_F3);
  menus.find_next->setToolTip(QStringLiteral("Goes to the next channel that Find has found"));
  menus.find_previous = AddItem(edit, QStringLiteral("mnuEditFindPrevious"),
                                QStringLiteral("Find Pre&vious"), Qt::SHIFT | Qt::Key_F3);
  menus.find_previous->setToolTip(QStringLiteral("Goes back to the channel found before this one"));
}

void AddEditMenu(QMenuBar& bar, Menus& menus) {
  QMenu& edit = *AddMenu(bar, "mnuEdit", QStringLiteral("&Edit"));
  QMenu& model = *AddSubMenu(edit, "mnuEditModel", QStringLiteral("&Model"));
  AddItems(model, "mnuEditModel", menus.models);
  constexpr std::array<const char*, Menus::kModels> kCaptions = {"&KT740 Series", "&RB1100S",
                                                                 "&RB6100S", "&QM9000"};
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    menus.models[i]->setText(QLatin1String(kCaptions[i]));
  }
  edit.addSeparator();
  menus.undo = AddItem(edit, QStringLiteral("mnuEditUndo"), QStringLiteral("&Undo"),
                       QKeySequence(Qt::CTRL | Qt::Key_Z));
  menus.redo = AddItem(edit, QStringLiteral("mnuEditRedo"), QStringLiteral("&Redo"));
  menus.redo->setShortcuts({Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z});
  edit.addSeparator();
  AddFindItems(edit, menus);
  edit.addSeparator();
  menus.problems = AddItem(edit, QStringLiteral("mnuEditProblems"), QStringLiteral("&Problems"));
  menus.problems->setCheckable(true);
  menus.problems->setToolTip(
      QStringLiteral("The list of what is wrong with the data, with the remedies"));
  menus.history = AddItem(edit, QStringLiteral("mnuEditHistory"), QStringLiteral("&History"));
  menus.history->setCheckable(true);
  menus.history->setToolTip(QStringLiteral("The list of the steps, to go to any of them"));
  menus.compare = AddItem(edit, QStringLiteral("mnuEditCompare"), QStringLiteral("&Compare..."));
  menus.compare->setToolTip(QStringLiteral(
      "Two of the open data, files, backups and radios side by side; what differs can be taken "
      "over"));
  edit.setToolTipsVisible(true);
}

void AddTransferMenu(QMenuBar& bar, Menus& menus) {
  QMenu& transfer = *AddMenu(bar, "mnuTransfer", QStringLiteral("&Transfer"));
  menus.program =
      AddItem(transfer, QStringLiteral("mnuTransferProgram"),
              QLatin1Char('&') + QLatin1String(core::kProgramToRadio.data()), Qt::CTRL | Qt::Key_T);
  menus.read =
      AddItem(transfer, QStringLiteral("mnuTransferRead"),
              QLatin1Char('&') + QLatin1String(core::kReadFromRadio.data()), Qt::CTRL | Qt::Key_R);
  transfer.addSeparator();
  menus.compare_radio = AddItem(transfer, QStringLiteral("mnuTransferCompare"),
                                QStringLiteral("&Compare with Radio..."));
  menus.compare_radio->setToolTip(
      QStringLiteral("Reads the radio and tells how it differs; nothing is changed"));
  transfer.setToolTipsVisible(true);
}

void AddOptionsMenu(QMenuBar& bar, Menus& menus) {
  QMenu& options = *AddMenu(bar, "mnuOptions", QStringLiteral("&Options"));
  menus.serial_port = AddSubMenu(options, "mnuOptionsSerialPort", QStringLiteral("&SerialPort"));
  menus.no_port = AddItem(*menus.serial_port, QStringLiteral("mnuOptionsSerialPortNone"),
                          QStringLiteral("(not exist)"));
  menus.no_port->setEnabled(false);
  menus.gone_port = AddItem(*menus.serial_port, QStringLiteral("mnuOptionsSerialPortGone"), {});
  menus.gone_port->setEnabled(false);
  menus.gone_port->setVisible(false);
  menus.serial_port->addSeparator();
  menus.find_cable = AddItem(*menus.serial_port, QStringLiteral("mnuFindCable"),
                             QStringLiteral("&Find my Cable..."));
  menus.serial_port->addSeparator();
  menus.simulated_radio = AddItem(*menus.serial_port, QStringLiteral("mnuSimulatedRadio"),
                                  QStringLiteral("&Try the Simulated Radio"));
  menus.simulated_radio->setToolTip(
      QStringLiteral("To read and program without a radio: another program plays one"));
  menus.end_simulated = AddItem(*menus.serial_port, QStringLiteral("mnuSimulatedRadioEnd"),
                                QStringLiteral("&End the Simulated Radio"));
  menus.end_simulated->setEnabled(false);
  menus.end_simulated->setToolTip(QStringLiteral("No simulated radio runs"));
  menus.serial_port->setToolTipsVisible(true);
}

}  // namespace

Menus BuildMenus(QMenuBar& bar) {
  Menus menus{};
  AddFileMenu(bar, menus);
  AddEditMenu(bar, menus);
  AddTransferMenu(bar, menus);
  menus.destination = AddMenu(bar, "mnuDestination", QStringLiteral("&Destination"));
  AddItems(*menus.destination, "mnuDestination", menus.destinations);
  menus.destination->setToolTipsVisible(true);
  const QString destination = ToolTipText(core::ExplainWord("Destination"));
  for (QAction* item : menus.destinations) item->setToolTip(destination);
  AddOptionsMenu(bar, menus);
  QMenu& help = *AddMenu(bar, "mnuHelp", QStringLiteral("&Help"));
  menus.help_contents =
      AddItem(help, QStringLiteral("mnuHelpContents"), QStringLiteral("&Contents"));
  menus.about = AddItem(help, QStringLiteral("mnuHelpAbout"), QStringLiteral("&About KIV Version"));
  help.addSeparator();
  help.addAction(menus.find_cable);
  return menus;
}

QString PlainCaption(QString text) {
  return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace orvane::editor
