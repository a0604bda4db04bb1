#include "editor/main_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFontDatabase>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "core/app_settings.h"
#include "editor/tool_bar.h"
#include "editor/tool_tips.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

// All in device-independent pixels; the window's own measures are multiples of 1/1440 inch.
constexpr int kMinimumWidth = 9105 / 15;
constexpr int kMinimumHeight = 6660 / 15;
constexpr int kSplitterMinimum = 2500 / 15;
constexpr double kTreeShare = 0.3;

constexpr const char* kBorderHint = "[Left]/[Right]:Move the border.  [Esc]:Back.";

/// The document with its first data set.
document::Document& Begun(const WindowServices& services) {
  services.document.Begin(document::NewContents(core::AppSettings(services.settings).ModelType(),
                                                services.clock.Today()));
  return services.document;
}

/// Reads the logo, once the system's fonts are found: that is done once for all threads and takes a
/// third of the start, while data, menus and toolbar are made, which need none yet.
QImage ReadFontsAndLogo(const std::string& folder) {
  static_cast<void>(QFontDatabase::families());
  return QImage(platform::FromUtf8(folder) + QLatin1String("/Keldrin.gif"))
      .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

MainWindow::MainWindow(const WindowServices& services)
    : services_(services),
      logo_([folder = services.data_folder] { return ReadFontsAndLogo(folder); }),
      document_(Begun(services)),
      state_(services.state),
      settings_(services.settings),
      tree_model_(document_.Data()),
      menus_(BuildMenus(*menuBar())),
      strip_(new PartlyWrittenStrip(this)),
      splitter_(new Splitter(this)),
      // These come into the splitter with their columns.
      tree_(new NavTree(tree_model_, this)),
      heading_(new PageHeading(document_.Data(), this)),
      area_(new PageArea(this)),
      start_timer_(new QTimer(this)),
      earlier_settings_(settings_.WereKept()),
      port_menu_(menus_, services.ports, services.settings),
      destination_menu_(menus_, services.files, services.settings, services.data_folder),
      recent_menu_(menus_, services.files, services.settings),
      file_commands_(services_, *this),
      model_commands_(services_, *this, menus_, destination_menu_, file_commands_),
      window_commands_(services_, *this, file_commands_,
                       [this](files::Snapshot backup) {
                         comparison_commands_.CompareWithBackup(std::move(backup));
                       }),
      table_commands_(services_, *this),
      transfer_commands_(services_, *this, [this] { window_commands_.FindCable(); }),
      comparison_commands_(
          services_, *this,
          [this](const core::RadioData& like) { return transfer_commands_.ReadCopy(like); },
          {menus_.undo, menus_.redo}) {
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
  QVBoxLayout& navigation = BuildNavigation();
  BuildHeading();
  setCentralWidget(BuildCentre());

  MakePanels();
  connect(splitter_, &Splitter::BorderFocused, this,
          [this] { ShowHint(QLatin1String(kBorderHint)); });
  BuildPages();
  follower_ = new Follower(document_, services_.settings,
                           {*this, *tree_, *navigator_, *area_, *heading_, destination_menu_,
                            *notice_, *model_name_, menus_});
  follower_->setParent(this);
  side_lists_ = std::make_unique<SideLists>(document_, services_.clock,
                                            SideLists::Place{*this, *this, *follower_, menus_});
  finder_ = std::make_unique<Finder>(
      document_, Finder::Place{navigation, *this, *follower_, *navigator_, *tree_, *area_, menus_});
  ConnectCommands();
  qApp->installEventFilter(this);
  // What is above needs no font: they are searched for meanwhile.
  BuildStatusBar();
  Load();
}

// Focus and visibility still change while the widgets are taken down.
MainWindow::~MainWindow() {
  disconnect(qApp, nullptr, this, nullptr);
}

void MainWindow::MakePanels() {
  const auto make = [this](const char* name, const QString& description) {
    auto* panel = new LiveLabel(this);
    panel->setObjectName(QLatin1String(name));
    panel->setMargin(2);
    panel->setAccessibleDescription(description);
    return panel;
  };
  hint_ = make("sbStatusBar_1", tr("Hint"));
  // A long hint must not keep the window wide.
  hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  notice_ = make("sbStatusBar_2", tr("Status"));
  model_name_ = make("sbStatusBar_3", tr("Model"));
}

void MainWindow::BuildStatusBar() {
  statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
  statusBar()->setSizeGripEnabled(false);
  statusBar()->addPermanentWidget(hint_, 1);
  for (LiveLabel* panel : {notice_, model_name_}) statusBar()->addPermanentWidget(panel);
}

QVBoxLayout& MainWindow::BuildNavigation() {
  auto* side = new QWidget;
  side->setMinimumWidth(kSplitterMinimum);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(tree_, 1);
  splitter_->insertWidget(0, side);
  return *column;
}

void MainWindow::BuildHeading() {
  auto* side = new QWidget(splitter_);
  side->setMinimumWidth(kSplitterMinimum);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(heading_);
  column->addWidget(area_, 1);
  connect(heading_, &PageHeading::NodeAsked, this, &MainWindow::SelectNode);
}

QWidget* MainWindow::BuildCentre() {
  auto* centre = new QWidget(this);
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(strip_);
  column->addWidget(splitter_, 1);
  const auto run = [this](auto signal, auto command) {
    connect(strip_, signal, this,
            [this, command] { (transfer_commands_.*command)(strip_->Port()); });
  };
  simulated_radio_ =
      std::make_unique<SimulatedRadio>(services_, *this, menus_, port_menu_, *column);
  run(&PartlyWrittenStrip::ProgramAgainAsked, &TransferCommands::ProgramAgain);
  run(&PartlyWrittenStrip::PutBackAsked, &TransferCommands::PutBack);
  run(&PartlyWrittenStrip::SettledAsked, &TransferCommands::Settle);
  return centre;
}

void MainWindow::ShowPartlyWritten() {
  const std::vector<files::PartlyWritten> marks = transfer_commands_.Marks().All();
  if (marks.empty()) {
    strip_->HideMark();
  } else {
    strip_->ShowMark(marks.front());
  }
}

void MainWindow::ConnectCommands() {
  const auto run = [](QAction* item, auto& commands, auto command) {
    connect(item, &QAction::triggered, item, [&commands, command] { (commands.*command)(); });
  };
  run(menus_.file_new, file_commands_, &FileCommands::New);
  run(menus_.file_open, file_commands_, &FileCommands::Open);
  run(menus_.file_save, file_commands_, &FileCommands::Save);
  run(menus_.file_save_as, file_commands_, &FileCommands::SaveAs);
  run(menus_.backups, window_commands_, &WindowCommands::Backups);
  run(menus_.export_table, table_commands_, &TableCommands::ExportTable);
  run(menus_.import_table, table_commands_, &TableCommands::ImportTable);
  run(menus_.file_print, window_commands_, &WindowCommands::Print);
  run(menus_.file_print_to_file, window_commands_, &WindowCommands::PrintToFile);
  run(menus_.program, transfer_commands_, &TransferCommands::Program);
  run(menus_.read, transfer_commands_, &TransferCommands::Read);
  run(menus_.compare, comparison_commands_, &ComparisonCommands::Compare);
  run(menus_.compare_radio, comparison_commands_, &ComparisonCommands::CompareWithRadio);
  run(menus_.find_cable, window_commands_, &WindowCommands::FindCable);
  run(menus_.help_contents, window_commands_, &WindowCommands::HelpContents);
  run(menus_.about, window_commands_, &WindowCommands::About);
  run(menus_.undo, *follower_, &Follower::Undo);
  run(menus_.redo, *follower_, &Follower::Redo);
  connect(&recent_menu_, &RecentMenu::Picked, &file_commands_, &FileCommands::OpenFile);
  connect(menus_.file_exit, &QAction::triggered, this, [this] {
    if (CheckPage()) close();
  });
  connect(follower_, &Follower::HistoryChanged, this, &MainWindow::ShowStartOffer);
  // What is typed into a box after a while elsewhere is another step.
  connect(qApp, &QApplication::focusChanged, this, [this] { document_.EndTyping(); });
}

void MainWindow::Edit(core::FieldRef at, const document::Document::Body& edit,
                      document::Document::Manner manner) {
  follower_->EditByPage(at, edit, manner);
}

void MainWindow::EditMany(const std::string& name, const document::Document::Body& edit) {
  follower_->EditByPage(name, edit);
}

void MainWindow::DataChanged() {
  document_.NoteChange();
}

void MainWindow::RebuildTree() {
  tree_->Rebuild();
}

void MainWindow::RefreshMarks() {
  tree_->Rebuild();
}

void MainWindow::ShowHint(const QString& hint) {
  if (follower_ != nullptr) follower_->EndNotice();
  hint_->Tell(hint);
}

void MainWindow::ShowNotice(const QString& notice) {
  follower_->ShowNotice(notice);
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

void MainWindow::RebuildDestinations() {
  destination_menu_.Rebuild(document_.Data().MODELTYPE);
}

void MainWindow::CheckDestinationOfImage() {
  destination_menu_.CheckFor(document_.Data().Image);
}

std::optional<core::SystemError> MainWindow::KeepBackup(const core::RadioData& radio,
                                                        const std::string& origin,
                                                        const std::string& file) {
  if (backups_ == nullptr) return std::nullopt;
  return backups_
      ->Keep(radio, {.origin = origin,
                     .port = link::LabelOfPort(services_.ports, PortNumber()).Text(),
                     .file = file})
      .error;
}

std::string MainWindow::CopyWithinTheHour(std::int16_t model_type) const {
  if (backups_ == nullptr) return {};
  return backups_->CopyWithinTheHour(link::LabelOfPort(services_.ports, PortNumber()).Text(),
                                     model_type);
}

void MainWindow::KeepReceipt(const std::string& began, const std::string& text) {
  if (backups_ != nullptr) backups_->KeepReceipt(began, text);
}

NodeRef MainWindow::ShownNode() const {
  return NodeOfKey(navigator_->CurrentKey()).value_or(NodeRef{});
}

void MainWindow::ShowField(core::FieldRef at) {
  follower_->ShowField(at);
}

void MainWindow::Wait(double seconds) {
  const double deadline = services_.clock.Now() + seconds;
  while (services_.clock.Now() < deadline) services_.pump.WaitForEvents(deadline);
}

int MainWindow::PortNumber() const {
  return port_menu_.PortNumber();
}

void MainWindow::ChoosePort(int number) {
  port_menu_.Choose(number);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (isMinimized()) return;
  const int tree_width = static_cast<int>(kTreeShare * width());
  splitter_->setSizes({tree_width, width() - tree_width});
  if (general_ != nullptr && !general_->LogoShown()) {
    general_->ShowLogo(logo_.Take());
  }
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && isEnabled()) {
    // After the hint of the control that gets the focus with the window.
    QTimer::singleShot(0, this, &MainWindow::LookAtWhatOthersDid);
  }
}

// Other programs may have saved the open file, or programmed the radio whole that is told of. A
// mark that came meanwhile may be that of a run which goes on: each dialog tells its port's.
void MainWindow::LookAtWhatOthersDid() {
  file_commands_.LookAtFile();
  if (strip_->isVisible()) ShowPartlyWritten();
}

bool MainWindow::TakeDrop(QDropEvent& event) const {
  const QList<QUrl> urls = event.mimeData()->urls();
  if (urls.size() != 1 || !urls.constFirst().isLocalFile()) return false;
  if (!isEnabled() || state_.Busy || QApplication::activeModalWidget() != nullptr) return false;
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
