#include "editor/picture.h"

#include <QPainter>
#include <QSvgRenderer>

#include "editor/drawn_icon.h"

namespace orvane::editor {

Picture::Picture(const char* name, int text_lines, QWidget* parent)
    : QWidget(parent), name_(name), text_lines_(text_lines) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Picture::SetMirrored(bool mirrored) {
  mirrored_ = mirrored;
  update();
}

QSize Picture::sizeHint() const {
  const QSizeF shape = QSvgRenderer(DrawingFor(name_, palette())).viewBoxF().size();
  const int height = text_lines_ * fontMetrics().lineSpacing();
  return {qRound(height * shape.width() / shape.height()), height};
}

void Picture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (mirrored_) {
    painter.translate(width(), 0);
    painter.scale(-1, 1);
  }
  QSvgRenderer(DrawingFor(name_, palette())).render(&painter, QRectF(rect()));
}

}  // namespace orvane::editor
