#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "editor/cell_delegate.h"
#include "editor/main_window.h"

namespace orvane::editor {
namespace {

// The controls that act on Enter: the grid and what was found jump to a channel, a cell is taken,
// the history goes to a step, a problem to its field, the menu bar opens a menu.
bool UsesEnter(const QWidget& target) {
  static constexpr std::array kNames = {"MSFlexGrid1", kCellEditorName, "lstHistory",
                                        "lstProblems", "txtFind",       "lstFind"};
  return std::any_of(kNames.begin(), kNames.end(),
                     [name = target.objectName()](const char* one) {
                       return name == QLatin1String(one);
                     }) ||
         qobject_cast<const QMenuBar*>(&target) != nullptr;
}

}  // namespace

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && watched->isWidgetType()) {
    auto& target = static_cast<QWidget&>(*watched);
    if (target.window() == this && isEnabled()) {
      return TakeKey(target, static_cast<const QKeyEvent&>(*event));
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

bool MainWindow::TakeKey(QWidget& target, const QKeyEvent& event) {
  const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  const bool debug_key = event.modifiers() == Qt::ControlModifier && state_.Debug;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return !UsesEnter(target);
    case Qt::Key_F1:
      if (plain) OpenHelp(&target);
      return plain;
    case Qt::Key_F6:
      if (plain) SwitchSide();
      return plain;
    case Qt::Key_F8:
      if (plain) splitter_->SwitchFocus();
      return plain;
    case Qt::Key_F2:
      if (debug_key) file_commands_.LoadImage();
      return debug_key;
    case Qt::Key_F3:
      if (debug_key) file_commands_.SaveImage();
      return debug_key;
    default:
      return false;
  }
}

void MainWindow::OpenHelp(const QWidget* focus) {
  // A control without a number of its own takes that of what it stands in; 0 opens nothing.
  for (const QWidget* widget = focus; widget != nullptr; widget = widget->parentWidget()) {
    const QVariant number = widget->property(kHelpContextProperty);
    if (!number.isValid()) continue;
    if (number.toInt() != 0) window_commands_.Help(number.toInt());
    return;
  }
}

void MainWindow::SwitchSide() {
  if (area_->HasFocusInside() || !area_->FocusFirstControl()) tree_->setFocus(Qt::TabFocusReason);
}

}  // namespace orvane::editor
