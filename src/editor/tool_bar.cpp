#include "editor/tool_bar.h"

#include <QEvent>
#include <QToolButton>

#include "core/product.h"
#include "editor/drawn_icon.h"

namespace orvane::editor {

ToolBar::ToolBar(const Menus& menus, QWidget* parent) : QToolBar(parent) {
  setObjectName(QStringLiteral("tbToolBar"));
  setWindowTitle(tr("Toolbar"));
  setAccessibleName(tr("Toolbar"));
  setMovable(false);
  AddButton("New", "New", "new", menus.file_new);
  AddButton("Open", "Open...", "open", menus.file_open);
  AddButton("Save", "Save", "save", menus.file_save);
  addSeparator();
  AddButton("Print", "Print", "print", menus.file_print);
  addSeparator();
  AddButton("Program", core::kProgramToRadio.data(), "program", menus.program);
  AddButton("Read", core::kReadFromRadio.data(), "read", menus.read);
  AddButton("Program2", core::kProgramToRadio.data(), "program", menus.program);
  AddButton("Read2", core::kReadFromRadio.data(), "read", menus.read);
  addSeparator();
  AddNamingButton("Undo", "undo", menus.undo);
  AddNamingButton("Redo", "redo", menus.redo);
  for (const Button& button : buttons_) {
    // The second pair is there for automation only.
    if (button.action->objectName().endsWith(QLatin1Char('2'))) button.action->setVisible(false);
  }
  PaintIcons();
  DrawAhead();
}

void ToolBar::AddButton(const char* key, const char* tool_tip, const char* icon, QAction* item) {
  QAction* action = addAction(QLatin1String(tool_tip));
  action->setObjectName(QLatin1String(key));
  action->setToolTip(QLatin1String(tool_tip));
  action->setEnabled(item->isEnabled());
  connect(item, &QAction::changed, action,
          [action, item] { action->setEnabled(item->isEnabled()); });
  connect(action, &QAction::triggered, item, &QAction::trigger);
  QWidget* button = widgetForAction(action);
  button->setObjectName(QLatin1String(key));
  button->setAccessibleName(QLatin1String(tool_tip));
  button->setFocusPolicy(Qt::NoFocus);
  buttons_.push_back({action, icon});
}

void ToolBar::AddNamingButton(const char* key, const char* icon, QAction* item) {
  AddButton(key, key, icon, item);
  QAction* const action = buttons_.back().action;
  QWidget* const button = widgetForAction(action);
  connect(item, &QAction::changed, button, [action, button, item] {
    action->setToolTip(item->toolTip());
    button->setAccessibleName(item->toolTip());
  });
}

void ToolBar::PaintIcons() {
  for (const Button& button : buttons_) button.action->setIcon(DrawnIcon(button.icon, palette()));
}

void ToolBar::DrawAhead() {
  for (const Button& button : buttons_) {
    if (!button.action->isVisible()) continue;
    static_cast<void>(
        button.action->icon().pixmap(iconSize(), devicePixelRatioF(), QIcon::Disabled));
  }
}

void ToolBar::changeEvent(QEvent* event) {
  QToolBar::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) PaintIcons();
}

}  // namespace orvane::editor
