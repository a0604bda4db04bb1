#pragma once

#include <QModelIndexList>
#include <QTreeView>
#include <vector>

#include "editor/comparison_model.h"

namespace orvane::editor {

/// The tree of a comparison. It follows the document while the user works elsewhere, and keeps what
/// is selected and unfolded when the tree is made anew.
class ComparisonView : public QTreeView {
  Q_OBJECT

 public:
  /// The model outlives the view.
  ComparisonView(ComparisonModel& model, QWidget* parent);

  /// What the user sees and has selected, by the IDs of the nodes.
  struct Place {
    std::vector<quint64> nodes;  ///< all, from top to bottom
    quint64 current = 0;         ///< 0: none
    std::vector<quint64> selected;
    std::vector<quint64> folded;
    std::vector<quint64> unfolded;
  };
  [[nodiscard]] Place Keep() const;
  /// A current node that has gone gives its place to the next field.
  void Restore(const Place& place);
  /// Everything while that can be looked through, otherwise what differs.
  void Unfold();

  /// Selects the next field that differs. False when there is none.
  bool GoToDifference(bool forward);
  [[nodiscard]] QModelIndexList Chosen() const { return selectionModel()->selectedRows(); }

 signals:
  void SelectionChanged();

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  bool viewportEvent(QEvent* event) override;

 private:
  [[nodiscard]] QModelIndex SuccessorOf(const Place& place) const;

  ComparisonModel& model_;
};

}  // namespace orvane::editor
