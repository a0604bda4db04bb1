#pragma once

#include <QStyledItemDelegate>

namespace orvane::editor {

/// Draws a channel that was found: who it is on the left, its frequency on the right. Where there
/// is not room for both, either is cut at its end, so that the number and the first frequency stay.
class FindDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace orvane::editor
