#include "editor/main_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

#include "core/app_settings.h"
#include "core/model_profile.h"
#include "editor/tool_bar.h"
#include "editor/tool_tips.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

// All in device-independent pixels; the window's own measures are multiples of 1/1440 inch.
constexpr int kMinimumWidth = 9105 / 15;
constexpr int kMinimumHeight = 6660 / 15;
constexpr int kSplitterMinimum = 2500 / 15;
constexpr double kTreeShare = 0.3;

constexpr const char* kBorderHint = "[Left]/[Right]:Move the border.  [Esc]:Back.";

}  // namespace

MainWindow::MainWindow(const WindowServices& services)
    : services_(services),
      data_(services.data),
      settings_(services.settings),
      tree_model_(services.data),
      menus_(BuildMenus(*menuBar())),
      splitter_(new Splitter(this)),
      tree_(new NavTree(tree_model_, splitter_)),
      area_(new PageArea(splitter_)),
      start_timer_(new QTimer(this)),
      port_menu_(menus_, services.ports, services.settings),
      destination_menu_(menus_, services.files, services.settings, services.data_folder),
      file_commands_(services_, *this),
      model_commands_(services_, *this, menus_, destination_menu_, file_commands_) {
  setObjectName(QStringLiteral("frmMain"));
  setContextMenuPolicy(Qt::PreventContextMenu);
  setAcceptDrops(true);
  setMinimumSize(kMinimumWidth, kMinimumHeight);
  addToolBar(new ToolBar(menus_, this));

  splitter_->setObjectName(QStringLiteral("imgSplitter"));
  splitter_->setAccessibleName(tr("Navigation and page"));
  splitter_->setChildrenCollapsible(false);
  tree_->setObjectName(QStringLiteral("tvTreeView"));
  tree_->setAccessibleName(tr("Navigation"));
  tree_->setMinimumWidth(kSplitterMinimum);
  area_->setMinimumWidth(kSplitterMinimum);
  setCentralWidget(splitter_);

  BuildStatusBar();
  connect(splitter_, &Splitter::BorderFocused, this,
          [this] { ShowHint(QLatin1String(kBorderHint)); });
  BuildPages();
  ConnectMenus();
  ConnectCommands();
  qApp->installEventFilter(this);
  Load();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildStatusBar() {
  statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
  statusBar()->setSizeGripEnabled(false);
  const auto add_panel = [this](const char* name, const QString& description, int stretch) {
    auto* panel = new LiveLabel(this);
    panel->setObjectName(QLatin1String(name));
    panel->setMargin(2);
    panel->setAccessibleDescription(description);
    statusBar()->addPermanentWidget(panel, stretch);
    return panel;
  };
  hint_ = add_panel("sbStatusBar_1", tr("Hint"), 1);
  // A long hint must not keep the window wide.
  hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  notice_ = add_panel("sbStatusBar_2", tr("Status"), 0);
  model_name_ = add_panel("sbStatusBar_3", tr("Model"), 0);
}

void MainWindow::ConnectMenus() {
  const auto connect_item = [this](QAction* item, void (FileCommands::*command)()) {
    connect(item, &QAction::triggered, &file_commands_, command);
  };
  connect_item(menus_.file_new, &FileCommands::New);
  connect_item(menus_.file_open, &FileCommands::Open);
  connect_item(menus_.file_save, &FileCommands::Save);
  connect_item(menus_.file_save_as, &FileCommands::SaveAs);
  connect(menus_.file_exit, &QAction::triggered, this, [this] {
    if (CheckPage()) close();
  });
}

void MainWindow::ConnectCommands() {
  const auto connect_item = [this](QAction* item, void (Commands::*command)(CommandHost&)) {
    Commands* commands = services_.commands;
    if (commands == nullptr) {
      item->setEnabled(false);
      return;
    }
    connect(item, &QAction::triggered, this,
            [this, commands, command] { (commands->*command)(*this); });
  };
  connect_item(menus_.file_print, &Commands::Print);
  connect_item(menus_.file_print_to_file, &Commands::PrintToFile);
  connect_item(menus_.program, &Commands::Program);
  connect_item(menus_.read, &Commands::Read);
  connect_item(menus_.help_contents, &Commands::HelpContents);
  connect_item(menus_.about, &Commands::About);
}

void MainWindow::DataChanged() {
  data_.Flags.DataChanged = true;
}

void MainWindow::RebuildTree() {
  tree_->Rebuild();
}

void MainWindow::RefreshMarks() {
  tree_->Rebuild();
}

void MainWindow::ShowHint(const QString& hint) {
  notice_->clear();
  hint_->Tell(hint);
}

void MainWindow::ShowNotice(const QString& notice) {
  notice_->clear();  // told again when it is the same
  notice_->Tell(notice);
}

void MainWindow::SelectNode(const QString& key) {
  navigator_->Select(key);
}

bool MainWindow::CheckPage() {
  return navigator_->CheckPage();
}

void MainWindow::ShowGeneralPage() {
  navigator_->SelectUnchecked(KeyOf({}));
}

void MainWindow::ShowPageAgain() {
  navigator_->ShowAgain();
}

void MainWindow::RefreshAfterLoad() {
  tree_->Rebuild();
  // The node on show may have gone with the old data.
  if (!tree_->Contains(navigator_->CurrentKey()))
    ShowGeneralPage();
  else
    ShowPageAgain();
  RefreshTitle();
  RefreshModelName();
}

void MainWindow::DataReplaced() {
  destination_menu_.ForgetSource();
  RefreshAfterLoad();
}

void MainWindow::ResetData(bool rebuild_destinations) {
  data_.Flags.Busy = true;
  image::ResetToDefaults(data_, services_.clock.Today());
  if (rebuild_destinations) destination_menu_.Rebuild(data_.MODELTYPE);
  data_.CurrentFileName.clear();
  DataReplaced();
  ShowGeneralPage();
  ShowHint({});
  data_.Flags.Busy = false;
}

void MainWindow::CheckDestinationOfImage() {
  destination_menu_.Check(core::BuiltInDestination(image::Sel1(data_.Image)));
}

void MainWindow::RefreshTitle() {
  setWindowTitle(WindowTitle(data_));
}

void MainWindow::RefreshModelName() {
  data_.ModelName = core::ModelDisplayName(data_.MODELTYPE, image::Sel1(data_.Image));
  model_name_->setText(platform::FromAnsi(data_.ModelName));
}

void MainWindow::ModelChanged() {
  for (Page* page : area_->Pages()) page->ModelChanged();
}

void MainWindow::Wait(double seconds) {
  const double deadline = services_.clock.Now() + seconds;
  while (services_.clock.Now() < deadline) services_.pump.WaitForEvents(deadline);
}

int MainWindow::PortNumber() const {
  return port_menu_.PortNumber();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (isMinimized()) return;
  const int tree_width = static_cast<int>(kTreeShare * width());
  splitter_->setSizes({tree_width, width() - tree_width});
  if (general_ != nullptr && !general_->LogoShown()) {
    general_->ShowLogo(platform::FromUtf8(services_.data_folder) + QLatin1String("/Keldrin.gif"));
  }
}

bool MainWindow::TakeDrop(QDropEvent& event) const {
  const QList<QUrl> urls = event.mimeData()->urls();
  if (urls.size() != 1 || !urls.constFirst().isLocalFile()) return false;
  if (!isEnabled() || data_.Flags.Busy || QApplication::activeModalWidget() != nullptr)
    return false;
  // Never what is proposed: told that it was moved, a file manager removes the file.
  event.setDropAction(Qt::CopyAction);
  event.accept();
  return true;
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  TakeDrop(*event);
}

void MainWindow::dragMoveEvent(QDragMoveEvent* event) {
  TakeDrop(*event);
}

void MainWindow::dropEvent(QDropEvent* event) {
  if (!TakeDrop(*event)) return;
  const std::string path = platform::ToUtf8(event->mimeData()->urls().constFirst().toLocalFile());
  // Whoever the file was dragged from waits until this returns.
  QTimer::singleShot(0, &file_commands_, [this, path] {
    if (isEnabled()) file_commands_.OpenFile(path);
  });
}

}  // namespace orvane::editor
