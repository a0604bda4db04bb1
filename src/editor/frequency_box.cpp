#include "editor/frequency_box.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenuBar>

namespace orvane::editor {
namespace {

bool IsLeaving(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

}  // namespace

FrequencyBox::FrequencyBox(const FieldRule& rule, QWidget* parent) : FieldBox(rule, parent) {
  connect(this, &FieldBox::Edited, this, [this] { edited_ = isEnabled() && !IsLocked(); });
}

bool FrequencyBox::focusNextPrevChild(bool next) {
  if (MayLeave()) return FieldBox::focusNextPrevChild(next);
  emit Refused();
  return true;
}

bool FrequencyBox::UndoTyping() {
  if (!edited_) return false;
  undo();
  // The first text is what was put in from the data.
  if (!isUndoAvailable()) edited_ = false;
  return true;
}

void FrequencyBox::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Undo) && UndoTyping()) return;
  if (event->key() != Qt::Key_Escape || !edited_) return FieldBox::keyPressEvent(event);
  ShowText(ShownText());
  edited_ = false;
  selectAll();
}

void FrequencyBox::focusInEvent(QFocusEvent* event) {
  FieldBox::focusInEvent(event);
  qApp->installEventFilter(this);
  // What an assistive technology wrote before is still to be taken over.
  if (IsLocked() || returning_ || !IsLeaving(event->reason())) return;
  selectAll();
}

void FrequencyBox::focusOutEvent(QFocusEvent* event) {
  FieldBox::focusOutEvent(event);
  if (!IsLeaving(event->reason())) return;
  if (!isEnabled()) {
    qApp->removeEventFilter(this);
    if (edited_) emit Abandoned();
    return;
  }
  if (MayLeave()) {
    qApp->removeEventFilter(this);
    return;
  }
  returning_ = true;
  setFocus(Qt::OtherFocusReason);
  returning_ = false;
  swallow_press_ = event->reason() == Qt::MouseFocusReason;
  RefuseLater();
}

bool FrequencyBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == this || !watched->isWidgetType()) return false;
  if (event->type() == QEvent::MouseButtonPress && swallow_press_) {
    swallow_press_ = false;
    return true;
  }
  // An access key would work its control without waiting for the focus. Those of menus and of
  // other windows do not leave the box.
  const auto& target = static_cast<const QWidget&>(*watched);
  const bool leaves =
      target.window() == window() && qobject_cast<const QMenuBar*>(&target) == nullptr;
  if (event->type() == QEvent::Shortcut && leaves && !MayLeave()) {
    RefuseLater();
    return true;
  }
  return false;
}

// The message waits until the change of focus is over.
void FrequencyBox::RefuseLater() {
  QMetaObject::invokeMethod(
      this,
      [this] {
        swallow_press_ = false;
        if (isEnabled()) emit Refused();
      },
      Qt::QueuedConnection);
}

}  // namespace orvane::editor
