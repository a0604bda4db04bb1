#pragma once

#include <QHelpEvent>
#include <QLabel>
#include <QString>
#include <string_view>

class QAbstractItemView;

/// Tooltips of controls, headings and texts that are cut.
namespace orvane::editor {

/// An explanation in lines short enough for a tooltip.
[[nodiscard]] QString ToolTipText(std::string_view explanation);

/// Gives each control on a page, its caption and the items of its list the explanation of their
/// words. A tooltip that a control already has stays.
void ExplainControls(QWidget& page);

/// Answers QEvent::ToolTip of a view: the whole text of an item that is not shown whole, then the
/// item's own tooltip.
void ShowItemToolTip(const QAbstractItemView& view, const QHelpEvent& event);

/// A line of text that is told as a whole by its tooltip while the label is too narrow for it.
class CutLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

 protected:
  bool event(QEvent* event) override;
};

}  // namespace orvane::editor
