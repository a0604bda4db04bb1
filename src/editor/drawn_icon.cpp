#include "editor/drawn_icon.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <utility>

// The resources of a static library are there only once this ran; it must be outside any namespace.
static void LoadEditorResources() {
  Q_INIT_RESOURCE(editor);
}

namespace orvane::editor {
namespace {

// The colours the drawings are made in, replaced by the palette's.
constexpr const char* kLineColour = "#000000";
constexpr const char* kAccentColour = "#0000ff";

struct Colours {
  QByteArray line;
  QByteArray accent;
};

Colours ColoursOf(const QPalette& palette, QIcon::Mode mode) {
  const auto name = [&](QPalette::ColorGroup group, QPalette::ColorRole role) {
    return palette.color(group, role).name().toLatin1();
  };
  if (mode == QIcon::Disabled) {
    const QByteArray faint = name(QPalette::Disabled, QPalette::ButtonText);
    return {faint, faint};
  }
  return {name(QPalette::Active, QPalette::ButtonText),
          name(QPalette::Active, QPalette::Highlight)};
}

QByteArray Coloured(QByteArray svg, const Colours& colours) {
  svg.replace(kAccentColour, colours.accent);
  svg.replace(kLineColour, colours.line);
  return svg;
}

QByteArray Load(const char* name) {
  LoadEditorResources();
  QFile file(QStringLiteral(":/editor/%1.svg").arg(QLatin1String(name)));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Draws when asked, at the size asked for.
class DrawingEngine : public QIconEngine {
 public:
  DrawingEngine(QByteArray svg, const QPalette& palette)
      : svg_(std::move(svg)), palette_(palette) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    QSvgRenderer(Coloured(svg_, ColoursOf(palette_, mode))).render(painter, rect);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new DrawingEngine(svg_, palette_); }

 private:
  QByteArray svg_;
  QPalette palette_;
};

}  // namespace

QIcon DrawnIcon(const char* name, const QPalette& palette) {
  return QIcon(new DrawingEngine(Load(name), palette));
}

QByteArray DrawingFor(const char* name, const QPalette& palette) {
  return Coloured(Load(name), ColoursOf(palette, QIcon::Normal));
}

}  // namespace orvane::editor
