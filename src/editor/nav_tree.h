#pragma once

#include <QAccessible>
#include <QTreeView>

#include "editor/tree_model.h"

namespace orvane::editor {

/// The navigation tree `tvTreeView`. The user's choice of a node is announced once the view has
/// settled, so that the choice may be taken back at once.
class NavTree : public QTreeView {
  Q_OBJECT

 public:
  explicit NavTree(TreeModel& model, QWidget* parent = nullptr);

  /// Rebuilds the model. Expanded nodes, the current node and the scroll position stay as far as
  /// their nodes still exist; nothing is announced.
  void Rebuild();

  [[nodiscard]] QString CurrentKey() const;
  [[nodiscard]] bool Contains(const QString& key) const { return model_.IndexOfKey(key).isValid(); }
  /// Makes the node current without announcing it. Nothing happens when there is no such node.
  void SetCurrentKey(const QString& key);
  /// As the user's click on the node.
  void Choose(const QModelIndex& node);

 signals:
  /// The user moved to a node or clicked one, perhaps the current one again.
  void NodeChosen(const QString& key);
  void FocusGained();
  /// Assistive technologies, if any listen, are told of a node: its place among those shown.
  void Told(QAccessible::Event event, int row);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  /// Tells assistive technologies of a node, unless it is not shown.
  void Tell(QAccessible::Event event, const QModelIndex& node);
  /// Tells that the current node has the focus, if the tree has.
  void TellFocus();

  TreeModel& model_;
  bool quiet_ =
      false;  ///< the current node moves by our own doing, or a click or key is not over yet
};

}  // namespace orvane::editor
