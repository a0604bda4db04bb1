#include "editor/program_style.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>

namespace orvane::editor {
namespace {

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

}  // namespace orvane::editor
