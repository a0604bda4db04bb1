#include "editor/nav_tree_text.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <utility>

#include "editor/nav_tree.h"

namespace orvane::editor {
namespace {

bool ShowsChildren(const QTreeView& tree, const QModelIndex& node) {
  return tree.model()->hasChildren(node) && tree.isExpanded(node);
}

int ShownBelow(const QTreeView& tree, const QModelIndex& parent) {
  const int children = tree.model()->rowCount(parent);
  int shown = children;
  for (int row = 0; row < children; ++row) {
    const QModelIndex child = tree.model()->index(row, 0, parent);
    if (ShowsChildren(tree, child)) shown += ShownBelow(tree, child);
  }
  return shown;
}

/// The other way round than ShownRow; rows are counted from the first child of the parent.
QModelIndex NodeAtShownRow(const QTreeView& tree, int shown_row, const QModelIndex& parent = {}) {
  for (int row = 0; row < tree.model()->rowCount(parent) && shown_row >= 0; ++row) {
    const QModelIndex child = tree.model()->index(row, 0, parent);
    if (shown_row == 0) return child;
    --shown_row;
    if (!ShowsChildren(tree, child)) continue;
    const int below = ShownBelow(tree, child);
    if (shown_row < below) return NodeAtShownRow(tree, shown_row, child);
    shown_row -= below;
  }
  return {};
}

class TreeText;

class NodeText : public QAccessibleInterface,
                 public QAccessibleTableCellInterface,
                 public QAccessibleActionInterface {
 public:
  NodeText(const TreeText& owner, NavTree& tree, const QModelIndex& node)
      : owner_(owner), tree_(tree), node_(node) {}

  [[nodiscard]] const QPersistentModelIndex& Node() const { return node_; }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableCellInterface) {
      return static_cast<QAccessibleTableCellInterface*>(this);
    }
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }
  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
    return nullptr;
  }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
    return -1;
  }

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Name) return node_.data(Qt::DisplayRole).toString();
    if (kind != QAccessible::Description) return {};
    return node_.data(Qt::AccessibleDescriptionRole).toString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::TreeItem; }
  [[nodiscard]] QRect rect() const override {
    if (!isValid()) return {};
    const QRect place = tree_.visualRect(node_);
    return place.isNull() ? place : place.translated(tree_.viewport()->mapToGlobal(QPoint(0, 0)));
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) return state;
    const QRect place = rect();
    const QRect all(tree_.mapToGlobal(QPoint(0, 0)), tree_.size());
    state.invisible = !all.intersects(place);
    state.selectable = state.focusable = true;
    state.selected = isSelected();
    state.focused = tree_.currentIndex() == node_;
    state.expandable = tree_.model()->hasChildren(node_);
    state.expanded = ShowsChildren(tree_, node_);
    state.collapsed = state.expandable && !state.expanded;
    return state;
  }

  [[nodiscard]] bool isSelected() const override {
    return isValid() && tree_.selectionModel()->isSelected(node_);
  }
  [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  [[nodiscard]] int columnIndex() const override { return 0; }
  [[nodiscard]] int rowIndex() const override { return isValid() ? ShownRow(tree_, node_) : -1; }
  [[nodiscard]] int columnExtent() const override { return 1; }
  [[nodiscard]] int rowExtent() const override { return 1; }
  [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

  [[nodiscard]] QStringList actionNames() const override {
    QStringList names(pressAction());
    if (isValid() && tree_.model()->hasChildren(node_)) names << toggleAction();
    return names;
  }
  void doAction(const QString& name) override {
    if (!isValid() || !tree_.isEnabled()) return;
    if (name == pressAction()) tree_.Choose(node_);
    if (name == toggleAction()) tree_.setExpanded(node_, !tree_.isExpanded(node_));
  }
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
    return {};
  }

 private:
  const TreeText& owner_;
  NavTree& tree_;
  QPersistentModelIndex node_;
};

class TreeText : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit TreeText(NavTree& tree) : QAccessibleWidget(&tree, QAccessible::Tree), tree_(tree) {}
  ~TreeText() override { Forget(); }
  TreeText(const TreeText&) = delete;
  TreeText& operator=(const TreeText&) = delete;

  static QAccessibleInterface* Make(const QString& /*class_name*/, QObject* object) {
    auto* tree = qobject_cast<NavTree*>(object);
    return tree == nullptr ? nullptr : new TreeText(*tree);
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::TableInterface) return QAccessibleWidget::interface_cast(type);
    return static_cast<QAccessibleTableInterface*>(this);
  }
  [[nodiscard]] int childCount() const override { return ShownBelow(tree_, {}); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    return TextOf(NodeAtShownRow(tree_, index));
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    return TextOf(tree_.indexAt(tree_.viewport()->mapFromGlobal(QPoint(x, y))));
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return TextOf(tree_.currentIndex());
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* node = dynamic_cast<const NodeText*>(child);
    return node == nullptr || node->parent() != this ? -1 : ShownRow(tree_, node->Node());
  }

  [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override {
    return column == 0 ? child(row) : nullptr;
  }
  [[nodiscard]] int rowCount() const override { return childCount(); }
  [[nodiscard]] int columnCount() const override { return 1; }
  [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }
  [[nodiscard]] QString columnDescription(int /*column*/) const override { return {}; }
  [[nodiscard]] QList<int> selectedRows() const override {
    QList<int> rows;
    for (const QModelIndex& node : tree_.selectionModel()->selectedIndexes()) {
      if (const int row = ShownRow(tree_, node); row >= 0) rows << row;
    }
    return rows;
  }
  [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) cells << child(row);
    return cells;
  }
  [[nodiscard]] int selectedRowCount() const override {
    return static_cast<int>(selectedRows().size());
  }
  [[nodiscard]] int selectedCellCount() const override { return selectedRowCount(); }
  [[nodiscard]] bool isRowSelected(int row) const override { return selectedRows().contains(row); }
  bool selectRow(int row) override {
    const QModelIndex node = NodeAtShownRow(tree_, row);
    if (!node.isValid() || !tree_.isEnabled()) return false;
    tree_.Choose(node);
    return isRowSelected(row);
  }
  bool unselectRow(int /*row*/) override { return false; }
  // It has no columns that anybody could tell apart.
  [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
  [[nodiscard]] int selectedColumnCount() const override { return 0; }
  [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
  bool selectColumn(int /*column*/) override { return false; }
  bool unselectColumn(int /*column*/) override { return false; }

  void modelChange(QAccessibleTableModelChangeEvent* event) override {
    if (event->modelChangeType() == QAccessibleTableModelChangeEvent::ModelReset) Forget();
  }

 private:
  /// A fresh one each time: Qt tells nobody that a node was expanded or scrolled into view, and who
  /// listens believes what it once heard of an object.
  [[nodiscard]] QAccessibleInterface* TextOf(const QModelIndex& node) const {
    if (!node.isValid()) return nullptr;
    auto* text = new NodeText(*this, tree_, node);
    given_ << QAccessible::registerAccessibleInterface(text);
    return text;
  }
  void Forget() {
    for (const QAccessible::Id id : std::exchange(given_, {})) {
      QAccessible::deleteAccessibleInterface(id);
    }
  }

  NavTree& tree_;
  mutable QList<QAccessible::Id> given_;
};

bool NodeText::isValid() const {
  return owner_.isValid() && node_.isValid();
}
QAccessibleInterface* NodeText::parent() const {
  return QAccessible::queryAccessibleInterface(&tree_);
}

}  // namespace

void InstallNavTreeText() {
  QAccessible::installFactory(TreeText::Make);
}

int ShownRow(const QTreeView& tree, const QModelIndex& node) {
  if (!node.isValid()) return -1;
  const QModelIndex parent = node.parent();
  if (parent.isValid() && !tree.isExpanded(parent)) return -1;
  const int above = parent.isValid() ? ShownRow(tree, parent) : -1;
  if (parent.isValid() && above < 0) return -1;
  int row = above + 1 + node.row();
  for (int i = 0; i < node.row(); ++i) {
    const QModelIndex sibling = node.siblingAtRow(i);
    if (ShowsChildren(tree, sibling)) row += ShownBelow(tree, sibling);
  }
  return row;
}

}  // namespace orvane::editor
