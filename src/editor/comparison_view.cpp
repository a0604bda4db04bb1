#include "editor/comparison_view.h"

#include <QHelpEvent>
#include <algorithm>

#include "editor/tool_tips.h"

namespace orvane::editor {
namespace {

constexpr int kLookedThrough = 2000;  // fields

}  // namespace

ComparisonView::ComparisonView(ComparisonModel& model, QWidget* parent)
    : QTreeView(parent), model_(model) {
  setModel(&model);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
}

ComparisonView::Place ComparisonView::Keep() const {
  Place place;
  place.nodes = model_.Ids();
  if (currentIndex().isValid()) place.current = model_.IdOf(currentIndex());
  for (const QModelIndex& node : Chosen()) place.selected.push_back(model_.IdOf(node));
  for (const quint64 id : place.nodes) {
    const QModelIndex node = model_.NodeOf(id);
    if (model_.hasChildren(node)) (isExpanded(node) ? place.unfolded : place.folded).push_back(id);
  }
  return place;
}

void ComparisonView::Restore(const Place& place) {
  if (model_.Ids() == place.nodes) return;
  Unfold();
  for (const quint64 id : place.unfolded) setExpanded(model_.NodeOf(id), true);
  for (const quint64 id : place.folded) setExpanded(model_.NodeOf(id), false);
  QItemSelection selection;
  for (const quint64 id : place.selected) {
    const QModelIndex node = model_.NodeOf(id);
    if (node.isValid()) selection.select(node, node);
  }
  selectionModel()->select(selection,
                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  const QModelIndex current = SuccessorOf(place);
  if (!current.isValid()) return;
  selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  scrollTo(current);
}

QModelIndex ComparisonView::SuccessorOf(const Place& place) const {
  const QModelIndex same = model_.NodeOf(place.current);
  if (same.isValid()) return same;
  // A group in its stead would be taken over whole by whoever presses the key once more.
  auto next = std::find(place.nodes.begin(), place.nodes.end(), place.current);
  for (; next != place.nodes.end(); ++next) {
    const QModelIndex node = model_.NodeOf(*next);
    if (node.isValid() && !model_.hasChildren(node)) return node;
  }
  return {};
}

void ComparisonView::Unfold() {
  if (model_.FieldCount() <= kLookedThrough) return expandAll();
  for (const quint64 id : model_.Ids()) {
    const QModelIndex node = model_.NodeOf(id);
    const bool differs = node.data(ComparisonModel::kDifferingRole).toInt() > 0;
    if (differs && model_.hasChildren(node)) expand(node);
  }
}

bool ComparisonView::GoToDifference(bool forward) {
  const QModelIndex next = model_.NextDifference(currentIndex(), forward);
  if (!next.isValid()) return false;
  setCurrentIndex(next);
  scrollTo(next);
  return true;
}

void ComparisonView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  if (hasFocus()) return QTreeView::currentChanged(current, previous);
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
}

void ComparisonView::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  emit SelectionChanged();
}

bool ComparisonView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
  ShowItemToolTip(*this, static_cast<const QHelpEvent&>(*event));
  return true;
}

}  // namespace orvane::editor
