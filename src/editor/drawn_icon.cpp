#include "editor/drawn_icon.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <utility>
#include <vector>

#include "editor/contrast.h"

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
  if (mode == QIcon::Disabled) {
    const QByteArray faint =
        palette.color(QPalette::Disabled, QPalette::ButtonText).name().toLatin1();
    return {faint, faint};
  }
  const auto active = [&](QPalette::ColorRole role) {
    return palette.color(QPalette::Active, role);
  };
  // A drawing stands on the window, or on a button while the mouse is over it.
  const auto grounds = {active(QPalette::Window), active(QPalette::Button)};
  const QColor line =
      StandingOut(active(QPalette::ButtonText), active(QPalette::WindowText), grounds);
  const QColor accent = StandingOut(active(QPalette::Highlight), line, grounds);
  return {line.name().toLatin1(), accent.name().toLatin1()};
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

/// Draws when asked, at the size asked for, and keeps what it drew: a toolbar asks at each paint.
class DrawingEngine : public QIconEngine {
 public:
  DrawingEngine(QByteArray svg, const QPalette& palette)
      : svg_(std::move(svg)), palette_(palette) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    QSvgRenderer(Coloured(svg_, ColoursOf(palette_, mode))).render(painter, rect);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    for (const Kept& kept : kept_) {
      if (kept.mode == mode && kept.pixmap.size() == size) return kept.pixmap;
    }
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    painter.end();
    kept_.push_back({mode, pixmap});
    return pixmap;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new DrawingEngine(svg_, palette_); }

 private:
  struct Kept {
    QIcon::Mode mode;
    QPixmap pixmap;
  };

  QByteArray svg_;
  QPalette palette_;
  std::vector<Kept> kept_;  // few: one size, two or three modes
};

}  // namespace

QIcon DrawnIcon(const char* name, const QPalette& palette) {
  return QIcon(new DrawingEngine(Load(name), palette));
}

QByteArray DrawingFor(const char* name, const QPalette& palette) {
  return Coloured(Load(name), ColoursOf(palette, QIcon::Normal));
}

}  // namespace orvane::editor
