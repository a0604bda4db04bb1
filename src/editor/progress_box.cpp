#include "editor/progress_box.h"

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

}  // namespace

ProgressBox::ProgressBox(QWidget* parent) : QFrame(parent), bar_(new Bar(this)) {
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
  setAccessibleDescription(bar_->text());
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
