#include "help/help_viewer.h"

#include <QFileInfo>
#include <QWindow>
#include <memory>
#include <utility>

#include "help/help_library.h"
#include "platform/ansi_text.h"

namespace orvane::help {

HelpViewer::HelpViewer(const std::string& help_file, const std::string& cache_folder)
    : help_file_(platform::FromUtf8(help_file)), cache_folder_(platform::FromUtf8(cache_folder)) {}

HelpViewer::~HelpViewer() {
  delete window_.data();
}

bool HelpViewer::HasHelp() const {
  return QFileInfo(help_file_).isFile();
}

std::optional<std::string> HelpViewer::Open(QWidget& owner, int context) {
  if (context == 0) return std::nullopt;
  if (window_ == nullptr) {
    if (std::optional<std::string> failure = MakeWindow()) return failure;
  }
  if (!window_->ShowTopic(context)) {
    return "The help has no topic " + std::to_string(context) + ".";
  }
  // Only a window that belongs to the modal one takes input beside it.
  QWidget* const parent = owner.window()->isModal() ? owner.window() : nullptr;
  if (window_->parentWidget() != parent) window_->setParent(parent, Qt::Window);
  window_->ComeToFront();
  return std::nullopt;
}

std::optional<std::string> HelpViewer::MakeWindow() {
  auto library = std::make_unique<HelpLibrary>(cache_folder_);
  if (std::optional<std::string> failure = library->Load(help_file_)) return failure;
  window_ = new HelpWindow(std::move(library));
  return std::nullopt;
}

void HelpViewer::Close() {
  closed_open_ = window_ != nullptr && window_->isVisible();
  if (!closed_open_) return;
  place_ = window_->pos();
  window_->hide();
}

void HelpViewer::Reopen() {
  if (!closed_open_ || window_ == nullptr) return;
  // A window manager places a window anew that does not ask for its place, and QWidget::move does
  // not ask for one that has not changed.
  if (QWindow* const handle = window_->windowHandle()) handle->setFramePosition(place_);
  window_->setAttribute(Qt::WA_ShowWithoutActivating);
  window_->show();
  window_->setAttribute(Qt::WA_ShowWithoutActivating, false);
}

}  // namespace orvane::help
