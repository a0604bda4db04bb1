#include "editor/program_style.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

namespace orvane::editor {
namespace {

constexpr int kUnsharedSpans = 64;  // pixels of a line

/// An arrow of the style, in the colours of the moment.
class ArrowEngine : public QIconEngine {
 public:
  ArrowEngine(const QStyle& style, QStyle::PrimitiveElement arrow) : style_(style), arrow_(arrow) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    QStyleOption option;
    option.rect = rect;
    option.palette = QGuiApplication::palette();
    if (mode != QIcon::Disabled) option.state = QStyle::State_Enabled;
    style_.drawPrimitive(arrow_, &option, painter);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new ArrowEngine(style_, arrow_); }

 private:
  const QStyle& style_;  ///< the application's, which outlives its widgets
  QStyle::PrimitiveElement arrow_;
};

}  // namespace

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
  switch (icon) {
    case SP_ToolBarHorizontalExtensionButton:
      return QIcon(new ArrowEngine(*this, PE_IndicatorArrowRight));
    case SP_ToolBarVerticalExtensionButton:
      return QIcon(new ArrowEngine(*this, PE_IndicatorArrowDown));
    default:
      return QProxyStyle::standardIcon(icon, option, widget);
  }
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionToolBar*>(option);
  const bool in_pieces = element == CE_ToolBar && bar != nullptr &&
                         baseStyle()->name() == QLatin1String("fusion") &&
                         (bar->state & State_Horizontal) != 0;
  if (!in_pieces) return QProxyStyle::drawControl(element, option, painter, widget);
  QStyleOptionToolBar piece = *bar;
  for (int left = bar->rect.left(); left <= bar->rect.right(); left += kUnsharedSpans) {
    piece.rect.setLeft(left);
    piece.rect.setRight(std::min(left + kUnsharedSpans - 1, bar->rect.right()));
    QProxyStyle::drawControl(element, &piece, painter, widget);
  }
}

}  // namespace orvane::editor
