#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <algorithm>
#include <optional>

#include "editor/main_window.h"
#include "editor/recovery.h"
#include "editor/working.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr QSize kFirstSize(607, 480);

// True when some screen shows all of the window.
bool FitsAScreen(const QRect& window) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
    return screen->availableGeometry().contains(window);
  });
}

std::optional<QRect> KeptGeometry(const core::AppSettings& settings) {
  const auto kept = settings.MainWindow();
  if (!kept || kept->width <= 0 || kept->height <= 0) return std::nullopt;
  return QRect(kept->left / kTwipsPerPixel, kept->top / kTwipsPerPixel,
               kept->width / kTwipsPerPixel, kept->height / kTwipsPerPixel);
}

// The icon of the windows where the system does not take it from the menu entry. It is installed
// beside the data; there is none beside a build.
QIcon ProgramIcon(const std::string& data_folder) {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 128}) {
    icon.addFile(platform::FromUtf8(data_folder) +
                 QStringLiteral("/../icons/hicolor/%1x%1/apps/orvane.png").arg(size));
  }
  return icon;
}

}  // namespace

void MainWindow::Load() {
  model_commands_.CaptionModels();
  PlaceWindow();
  RebuildDestinations();
  ShowGeneralPage();
  ShowHint({});
  follower_->Begin();  // the start's offer with it
  tree_->setExpanded(tree_model_.IndexOf({.kind = NodeKind::kGeneral}), true);
  tree_->setExpanded(tree_model_.IndexOf({.kind = NodeKind::kProgram}), true);
  tree_->setFocus();

  start_timer_->setObjectName(QStringLiteral("Timer1"));
  start_timer_->setSingleShot(true);
  connect(start_timer_, &QTimer::timeout, this, &MainWindow::FinishStart);
  start_timer_->start(0);
}

void MainWindow::PlaceWindow() {
  const std::optional<QRect> kept = KeptGeometry(settings_);
  if (kept && FitsAScreen(*kept)) {
    move(kept->topLeft());
    resize(kept->size());
    return;
  }
  resize(kFirstSize);
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    move(screen->availableGeometry().center() - rect().center());
  }
}

void MainWindow::FinishStart() {
  const Working working(*this);
  SelectNode(KeyOf({}));
  Wait(kCommandPause);
  if (!IsSpread()) frame_ = geometry().topLeft() - pos();
  // What takes long enough to be seen, and nobody needs before the window is painted.
  navigator_->MakePages();
  port_menu_.UpdateComList();
  port_menu_.SelectStoredPort();
  document_.ForgetChange();
  QTimer::singleShot(0, this, &MainWindow::BeginWork);
}

void MainWindow::BeginWork() {
  QApplication::setWindowIcon(ProgramIcon(services_.data_folder));
  if (!file_at_start_.empty()) file_commands_.OpenFile(file_at_start_);
  side_lists_->BeginWork();
  if (!services_.backups_folder.empty()) {
    backups_ = std::make_unique<BackupKeeper>(document_, services_.files, services_.clock,
                                              services_.backups_folder);
    connect(backups_.get(), &BackupKeeper::FailureChanged, follower_, &Follower::ShowBackupFailure);
    connect(backups_.get(), &BackupKeeper::Trimmed, follower_, &Follower::ShowNotice);
  }
  ShowPartlyWritten();
  if (services_.recovery != nullptr) BeginKeepingCopies();
  if (simulated_at_start_) menus_.simulated_radio->trigger();
  if (reads_at_start_) menus_.read->trigger();
}

void MainWindow::BeginKeepingCopies() {
  autosave_ = std::make_unique<Autosave>(document_, *services_.recovery, services_.clock, [this] {
    return backups_ != nullptr && backups_->HasLostReplaced();
  });
  connect(autosave_.get(), &Autosave::FailureChanged, follower_, &Follower::ShowCopyFailure);
  OfferRecovery(services_, *services_.recovery, *autosave_);
  // Undo takes them off the screen, and the copy with them.
  if (backups_ != nullptr && document_.ComesFrom() == document::Origin::kRecovered) {
    backups_->Keep(document_.Data(),
                   {.origin = files::kOriginRecovered, .file = document_.FileName()});
  }
}

void MainWindow::ShowStartOffer() {
  const document::StartOffer offer = document::OfferFor(document_, earlier_settings_);
  const bool shown =
      offer == document::StartOffer::kFirstSteps ||
      (offer == document::StartOffer::kRecentFiles && !settings_.RecentFiles().empty());
  if (first_steps_ == nullptr) {
    if (!shown) return;
    first_steps_ = new FirstSteps(menus_, general_);
    general_->PutBeside(first_steps_);
  }
  recent_menu_.Update();
  first_steps_->Show(offer);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // A command that works may hold the data half replaced.
  if (!isEnabled() || state_.Busy) {
    event->ignore();
    return;
  }
  window_commands_.CloseHelp();
  if (!file_commands_.AskBeforeClosing()) {
    window_commands_.ReopenHelp();
    // The user was at work here, whatever the window manager thinks of a window that comes back.
    raise();
    activateWindow();
    event->ignore();
    return;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window != this && window->isVisible()) window->close();
  }
  StoreGeometry();
  if (autosave_ != nullptr) autosave_->Stop();
  event->accept();
}

bool MainWindow::IsSpread() const {
  return isMaximized() || isFullScreen();
}

// What is kept is the place of the window with its frame, and its size without.
void MainWindow::StoreGeometry() {
  if (isMinimized()) return;
  const QRect place = IsSpread() ? normalGeometry().translated(-frame_) : QRect(pos(), size());
  settings_.SetMainWindow({.left = place.left() * kTwipsPerPixel,
                           .top = place.top() * kTwipsPerPixel,
                           .width = place.width() * kTwipsPerPixel,
                           .height = place.height() * kTwipsPerPixel});
}

}  // namespace orvane::editor
