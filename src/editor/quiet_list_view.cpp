#include "editor/quiet_list_view.h"

#include <QHelpEvent>
#include <QKeyEvent>

#include "editor/tool_tips.h"

namespace orvane::editor {

void QuietListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  if (hasFocus()) return QListView::currentChanged(current, previous);
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
}

bool QuietListView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
  ShowItemToolTip(*this, static_cast<const QHelpEvent&>(*event));
  return true;
}

// Enter chooses a row; with Alt it is a command's, and nothing where the command is greyed.
void QuietListView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && (event->modifiers() & Qt::AltModifier) != 0) return;
  QListView::keyPressEvent(event);
}

void QuietListView::focusInEvent(QFocusEvent* event) {
  QListView::focusInEvent(event);
  emit FocusGained();
}

}  // namespace orvane::editor
