#include "editor/drawn_icon.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// The resources of a static library are there only once this ran; it must be outside any namespace.
static void LoadEditorResources() {
  Q_INIT_RESOURCE(editor);
}

namespace orvane::editor {
namespace {

constexpr int kIconSize = 24;       // device-independent pixels
constexpr int kLargestPixels = 72;  // 300 % scaling
// The colours the drawings are made in, replaced by the palette's.
constexpr const char* kLineColour = "#000000";
constexpr const char* kAccentColour = "#0000ff";

QPixmap Drawing(const QByteArray& svg, const QColor& line, const QColor& accent, int pixels) {
  QByteArray coloured = svg;
  coloured.replace(kAccentColour, accent.name().toLatin1());
  coloured.replace(kLineColour, line.name().toLatin1());
  QPixmap pixmap(pixels, pixels);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  QSvgRenderer(coloured).render(&painter);
  return pixmap;
}

}  // namespace

QIcon DrawnIcon(const char* name, const QPalette& palette) {
  LoadEditorResources();
  QFile file(QStringLiteral(":/editor/%1.svg").arg(QLatin1String(name)));
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray svg = file.readAll();
  const QColor line = palette.color(QPalette::Active, QPalette::ButtonText);
  const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
  const QColor faint = palette.color(QPalette::Disabled, QPalette::ButtonText);
  QIcon icon;
  for (int pixels = kIconSize; pixels <= kLargestPixels; pixels += kIconSize) {
    icon.addPixmap(Drawing(svg, line, accent, pixels));
    icon.addPixmap(Drawing(svg, faint, faint, pixels), QIcon::Disabled);
  }
  return icon;
}

}  // namespace orvane::editor
