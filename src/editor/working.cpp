#include "editor/working.h"

#include <QApplication>

namespace orvane::editor {

Working::Working(QWidget& window)
    : window_(window), was_enabled_(window.isEnabled()), focus_(window.focusWidget()) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  window_.setEnabled(false);
}

Working::~Working() {
  window_.setEnabled(was_enabled_);
  if (was_enabled_ && focus_ && focus_->isVisible() && focus_->isEnabled()) focus_->setFocus();
  QApplication::restoreOverrideCursor();
}

}  // namespace orvane::editor
