#include "editor/working.h"

#include <QApplication>

namespace orvane::editor {

namespace {

bool TakesFocus(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isVisible() && widget.isEnabled();
}

}  // namespace

Working::Working(QWidget& window)
    : window_(window), was_enabled_(window.isEnabled()), focus_(window.focusWidget()) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  window_.setEnabled(false);
}

Working::~Working() {
  window_.setEnabled(was_enabled_);
  if (was_enabled_) GiveFocusBack();
  QApplication::restoreOverrideCursor();
}

void Working::GiveFocusBack() {
  QWidget* target = focus_;
  if (target == nullptr || !target->isVisible() || !target->isEnabled()) {
    target = window_.nextInFocusChain();
    while (target != &window_ && !TakesFocus(*target)) target = target->nextInFocusChain();
  }
  if (target != &window_) target->setFocus();
}

}  // namespace orvane::editor
