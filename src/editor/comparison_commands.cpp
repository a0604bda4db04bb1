#include "editor/comparison_commands.h"

#include <utility>

namespace orvane::editor {

ComparisonCommands::ComparisonCommands(const WindowServices& services, CommandHost& host,
                                       ComparisonSources::ReadRadio read_radio,
                                       QList<QAction*> in_window_too)
    : services_(services),
      host_(host),
      sources_(services, host, std::move(read_radio)),
      in_window_too_(std::move(in_window_too)) {}

ComparisonCommands::~ComparisonCommands() {
  delete window_;
}

void ComparisonCommands::Compare() {
  if (window_ == nullptr) {
    if (host_.CheckPage()) Show({});
    return;
  }
  window_->raise();
  window_->activateWindow();
}

void ComparisonCommands::CompareWithRadio() {
  ComparedData radio = sources_.AskRadio(services_.document.Data());
  if (radio.data != nullptr) Show(std::move(radio));
}

void ComparisonCommands::CompareWithBackup(files::Snapshot snapshot) {
  Show(ComparisonSources::OfBackup(std::move(snapshot)));
}

void ComparisonCommands::Show(ComparedData right) {
  if (window_ == nullptr) {
    window_ = new ComparisonWindow(services_, host_, sources_, &host_.Widget());
    window_->addActions(in_window_too_);
  }
  window_->ShowSides({.kind = ComparedData::Kind::kOpenData}, std::move(right));
  window_->show();
  window_->raise();
  window_->activateWindow();
}

}  // namespace orvane::editor
