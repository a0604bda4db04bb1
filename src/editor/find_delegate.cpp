#include "editor/find_delegate.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

#include "editor/find_model.h"

namespace orvane::editor {
namespace {

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option) {
  if ((option.state & QStyle::State_Enabled) == 0) return QPalette::Disabled;
  return (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
}

}  // namespace

void FindDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  initStyleOption(&row, index);
  row.text.clear();
  const QStyle* const style = row.widget == nullptr ? QApplication::style() : row.widget->style();
  style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

  const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &row, row.widget) + 1;
  const QRect room = row.rect.adjusted(margin, 0, -margin, 0);
  const QFontMetrics metrics(row.font);
  const QString frequency = index.data(FindModel::kFrequencyRole).toString();
  const int frequency_width = std::min(metrics.horizontalAdvance(frequency), room.width() / 2);
  const int name_width = room.width() - frequency_width - metrics.horizontalAdvance(QChar(' '));
  const QString name = index.data(FindModel::kNameRole).toString();

  const bool selected = (row.state & QStyle::State_Selected) != 0;
  painter->save();
  painter->setFont(row.font);
  painter->setPen(
      row.palette.color(GroupOf(row), selected ? QPalette::HighlightedText : QPalette::Text));
  painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                    metrics.elidedText(name, Qt::ElideRight, name_width));
  painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter,
                    metrics.elidedText(frequency, Qt::ElideRight, frequency_width));
  painter->restore();
}

}  // namespace orvane::editor
