#pragma once

#include <QToolBar>
#include <vector>

#include "editor/menus.h"

namespace orvane::editor {

/// `tbToolBar`: each button stands for a menu item and is enabled exactly while the item is. The
/// object name of a button and of its action is its key ("New", "Program2").
class ToolBar : public QToolBar {
  Q_OBJECT

 public:
  explicit ToolBar(const Menus& menus, QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void AddButton(const char* key, const char* tool_tip, const char* icon, QAction* item);
  /// A button whose tool tip is the item's, which tells what it is about to do.
  void AddNamingButton(const char* key, const char* icon, QAction* item);
  void PaintIcons();
  /// For the first paint, when the window takes no input, while fonts are still searched for.
  void DrawAhead();

  struct Button {
    QAction* action;
    const char* icon;
  };
  std::vector<Button> buttons_;
};

}  // namespace orvane::editor
