#pragma once

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

 signals:
  /// The user moved to a node or clicked one, perhaps the current one again.
  void NodeChosen(const QString& key);
  void FocusGained();

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  TreeModel& model_;
  bool quiet_ =
      false;  ///< the current node moves by our own doing, or a click or key is not over yet
};

}  // namespace orvane::editor
