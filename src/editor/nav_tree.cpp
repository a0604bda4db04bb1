#include "editor/nav_tree.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "editor/nav_tree_text.h"
#include "editor/tool_tips.h"

namespace orvane::editor {
namespace {

// Less than usual, so that every node can be read at the window's smallest width.
constexpr int kIndentation = 8;

void ExpandedKeys(const QTreeView& view, const QModelIndex& parent, QStringList& keys) {
  const QAbstractItemModel& model = *view.model();
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex index = model.index(row, 0, parent);
    if (!model.hasChildren(index)) continue;
    if (view.isExpanded(index)) keys << index.data(TreeModel::kKeyRole).toString();
    ExpandedKeys(view, index, keys);
  }
}

}  // namespace

NavTree::NavTree(TreeModel& model, QWidget* parent) : QTreeView(parent), model_(model) {
  setModel(&model_);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setIndentation(kIndentation);
  // Otherwise the font says it, and the start would wait here for the search for fonts.
  header()->setMinimumSectionSize(0);
  // A node wider than the tree is scrolled to, never cut.
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setResizeContentsPrecision(0);

  InstallNavTreeText();
  for (const auto changed : {&QTreeView::expanded, &QTreeView::collapsed}) {
    connect(this, changed, this, [this](const QModelIndex& node) {
      if (node == currentIndex()) TellFocus();
    });
  }
}

void NavTree::Rebuild() {
  QStringList expanded;
  ExpandedKeys(*this, {}, expanded);
  const QString current = CurrentKey();
  // Before the tree is shown there is no place to keep, and asking for it would lay it out.
  const QString top =
      isVisible() ? indexAt(QPoint(0, 0)).data(TreeModel::kKeyRole).toString() : QString();
  const int sideways = horizontalScrollBar()->value();

  const QScopedValueRollback<bool> quiet(quiet_, true);
  if (!model_.Rebuild()) return;
  for (const QString& key : expanded) setExpanded(model_.IndexOfKey(key), true);
  if (const QModelIndex index = model_.IndexOfKey(current); index.isValid()) {
    setCurrentIndex(index);
  }
  if (top.isEmpty()) return;
  executeDelayedItemsLayout();
  if (const QModelIndex index = model_.IndexOfKey(top); index.isValid()) {
    scrollTo(index, PositionAtTop);
  }
  horizontalScrollBar()->setValue(sideways);
}

QString NavTree::CurrentKey() const {
  return currentIndex().data(TreeModel::kKeyRole).toString();
}

void NavTree::SetCurrentKey(const QString& key) {
  const QModelIndex index = model_.IndexOfKey(key);
  if (!index.isValid()) return;
  const QScopedValueRollback<bool> quiet(quiet_, true);
  setCurrentIndex(index);
  scrollTo(index);
}

void NavTree::Choose(const QModelIndex& node) {
  {
    const QScopedValueRollback<bool> quiet(quiet_, true);
    setCurrentIndex(node);
  }
  emit NodeChosen(CurrentKey());
}

void NavTree::TellFocus() {
  if (hasFocus()) Tell(QAccessible::Focus, currentIndex());
}

void NavTree::Tell(QAccessible::Event event, const QModelIndex& node) {
  const int row = ShownRow(*this, node);
  if (row < 0) return;
  emit Told(event, row);
  if (!QAccessible::isActive()) return;
  QAccessibleEvent told(this, event);
  told.setChild(row);
  QAccessible::updateAccessibility(&told);
}

// What QTreeView adds to the two below is to tell of the node at a place that counts the header.
void NavTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
  TellFocus();
  if (!quiet_ && current.isValid()) emit NodeChosen(CurrentKey());
}

void NavTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  QAbstractItemView::selectionChanged(selected, deselected);
  Tell(QAccessible::SelectionAdd, selected.indexes().value(0));
  Tell(QAccessible::SelectionRemove, deselected.indexes().value(0));
}

bool NavTree::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
  ShowItemToolTip(*this, static_cast<const QHelpEvent&>(*event));
  return true;
}

void NavTree::mousePressEvent(QMouseEvent* event) {
  {
    const QScopedValueRollback<bool> quiet(quiet_, true);
    QTreeView::mousePressEvent(event);
  }
  if (indexAt(event->position().toPoint()).isValid()) emit NodeChosen(CurrentKey());
}

void NavTree::keyPressEvent(QKeyEvent* event) {
  const QString before = CurrentKey();
  {
    const QScopedValueRollback<bool> quiet(quiet_, true);
    QTreeView::keyPressEvent(event);
  }
  if (CurrentKey() != before) emit NodeChosen(CurrentKey());
}

void NavTree::resizeEvent(QResizeEvent* event) {
  // The highlight of a short node reaches across the whole view.
  header()->setMinimumSectionSize(viewport()->width());
  QTreeView::resizeEvent(event);
}

void NavTree::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  emit FocusGained();
}

}  // namespace orvane::editor
