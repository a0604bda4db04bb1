#include "editor/tool_tips.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QStringList>
#include <QToolTip>

#include "core/explanations.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr qsizetype kLineLength = 60;

std::string_view ExplanationOf(const QWidget& widget) {
  if (const auto* caption = qobject_cast<const QLabel*>(&widget)) {
    return core::ExplainWord(platform::ToUtf8(QString(caption->text()).remove(QLatin1Char('&'))));
  }
  return core::ExplainControl(platform::ToUtf8(widget.objectName()));
}

void ExplainItems(QComboBox& list) {
  for (int item = 0; item < list.count(); ++item) {
    const std::string_view text = core::ExplainWord(platform::ToUtf8(list.itemText(item)));
    if (!text.empty()) list.setItemData(item, ToolTipText(text), Qt::ToolTipRole);
  }
}

// What of an item its text takes, in the view's coordinates.
QRect TextRect(const QAbstractItemView& view, const QModelIndex& index) {
  QRect rect = view.visualRect(index);
  const int needed = view.sizeHintForIndex(index).width();
  const int alignment = index.data(Qt::TextAlignmentRole).toInt();
  if ((alignment & Qt::AlignHCenter) == 0 || needed > rect.width()) rect.setWidth(needed);
  return rect;
}

}  // namespace

QString ToolTipText(std::string_view explanation) {
  QStringList lines = {QString()};
  for (const QString& word : platform::FromUtf8(std::string(explanation)).split(QLatin1Char(' '))) {
    if (lines.last().size() + word.size() >= kLineLength) lines << QString();
    if (!lines.last().isEmpty()) lines.last() += QLatin1Char(' ');
    lines.last() += word;
  }
  return lines.join(QLatin1Char('\n'));
}

void ExplainControls(QWidget& page) {
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    const std::string_view text = ExplanationOf(*widget);
    if (!text.empty() && widget->toolTip().isEmpty()) widget->setToolTip(ToolTipText(text));
    if (auto* list = qobject_cast<QComboBox*>(widget)) ExplainItems(*list);
  }
}

void ShowItemToolTip(const QAbstractItemView& view, const QHelpEvent& event) {
  const QModelIndex index = view.indexAt(event.pos());
  QStringList texts;
  if (index.isValid()) {
    const QRect text = TextRect(view, index);
    const QRect shown = view.visualRect(index) & view.viewport()->rect();
    const bool cut = text.left() < shown.left() || text.right() > shown.right();
    if (cut) texts << index.data().toString();
    texts << index.data(Qt::ToolTipRole).toString();
    texts.removeAll(QString());
  }
  QToolTip::showText(event.globalPos(), texts.join(QLatin1Char('\n')), view.viewport());
}

bool CutLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const bool cut = sizeHint().width() > width();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? text() : QString(), this);
  return true;
}

}  // namespace orvane::editor
