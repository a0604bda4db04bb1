#include "editor/progress_box.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <algorithm>

namespace orvane::editor {
namespace {

constexpr int kFull = 100;
constexpr int kWidthInCharacters = 30;

// The bar shows the part of the box's text that it covers, in its own colours.
class Bar : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().highlight());
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(parentWidget()->rect().translated(-pos()), Qt::AlignCenter, text());
  }
};

class ProgressText : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit ProgressText(ProgressBox& box)
      : QAccessibleWidget(&box, QAccessible::ProgressBar), box_(box) {}

  static QAccessibleInterface* Make(const QString& /*class_name*/, QObject* object) {
    auto* box = qobject_cast<ProgressBox*>(object);
    return box == nullptr ? nullptr : new ProgressText(*box);
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::ValueInterface) return QAccessibleWidget::interface_cast(type);
    return static_cast<QAccessibleValueInterface*>(this);
  }
  [[nodiscard]] QVariant currentValue() const override { return box_.Percent(); }
  void setCurrentValue(const QVariant& /*value*/) override {}
  [[nodiscard]] QVariant maximumValue() const override { return kFull; }
  [[nodiscard]] QVariant minimumValue() const override { return 0; }
  [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

 private:
  const ProgressBox& box_;
};

}  // namespace

ProgressBox::ProgressBox(QWidget* parent) : QFrame(parent), bar_(new Bar(this)) {
  QAccessible::installFactory(ProgressText::Make);
  setObjectName(QStringLiteral("pictProgress"));
  setAccessibleName(tr("Progress"));
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  bar_->setObjectName(QStringLiteral("lblPercent"));
}

QSize ProgressBox::sizeHint() const {
  return {kWidthInCharacters * fontMetrics().averageCharWidth(),
          fontMetrics().height() + fontMetrics().height() / 2};
}

void ProgressBox::ShowPercent(int percent) {
  percent = std::clamp(percent, 0, kFull);
  if (percent == percent_) return;  // most blocks move the bar by less than one percent
  percent_ = percent;
  bar_->setText(QStringLiteral("%1 %").arg(percent_));
  QAccessibleValueChangeEvent event(this, percent_);
  QAccessible::updateAccessibility(&event);
  PlaceBar();
  update();
}

void ProgressBox::PlaceBar() {
  bar_->setGeometry(width() * percent_ / kFull - width(), 0, width(), height());
}

void ProgressBox::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Text));
  if (percent_ > 0) painter.drawText(rect(), Qt::AlignCenter, bar_->text());
}

void ProgressBox::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  PlaceBar();
}

}  // namespace orvane::editor
