#include "platform/printed_report.h"

#include <QBuffer>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>
#include <vector>

#include "core/product.h"
#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

constexpr double kMmPerInch = 25.4;

constexpr const char* kNotPainted = "The pages could not be painted.";
constexpr const char* kNoFont =
    "There is no font with characters of one width, and the report's columns need one. Install "
    "one, for example the package fonts-dejavu-core, and try again.";

// Characters wider than that would run into one another.
bool Fits(const QFont& font) {
  constexpr double kRounding = 0.001;
  const QRawFont raw = QRawFont::fromFont(font);
  if (!QFontInfo(font).fixedPitch() || !raw.isValid() || !raw.supportsCharacter(QChar('W'))) {
    return false;
  }
  const QList<quint32> glyphs = raw.glyphIndexesForString("W");
  const QList<QPointF> advances = raw.advancesForGlyphIndexes(glyphs);
  const double em = raw.pixelSize();
  return !advances.isEmpty() &&
         advances.constFirst().x() <= em * (files::kPrintCharacterEm + kRounding);
}

/// The usual typewriter face, or whatever stands in for it, or else the first that fits.
std::optional<QFont> TypewriterFont() {
  // Without any font at all Qt paints boxes and says nothing.
  const QStringList families = QFontDatabase::families();
  if (families.isEmpty()) return std::nullopt;
  QFont font("Courier New");
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  font.setPointSizeF(files::kPrintFontPoints);
  if (Fits(font)) return font;
  for (const QString& family : families) {
    if (!QFontDatabase::isFixedPitch(family)) continue;
    font.setFamily(family);
    if (Fits(font)) return font;
  }
  return std::nullopt;
}

void PaintFooter(const files::PrintedPage& page, double height_mm, QPainter& painter) {
  const double dots_per_mm = painter.device()->logicalDpiX() / kMmPerInch;
  const QFont page_font = painter.font();
  QFont font = page_font;
  font.setPointSizeF(files::kFooterFontPoints);
  painter.setFont(font);
  const QFontMetricsF metrics(font, painter.device());
  const double y = (height_mm - files::kFooterUpMm) * painter.device()->logicalDpiY() / kMmPerInch +
                   metrics.ascent();
  const QString right = FromUtf8(page.footer_right);
  painter.drawText(QPointF(files::kPrintLeftMm * dots_per_mm, y),
                   metrics.elidedText(FromUtf8(page.footer_left), Qt::ElideMiddle,
                                      files::kFooterNameMm * dots_per_mm));
  painter.drawText(
      QPointF(files::kPrintRightMm * dots_per_mm - metrics.horizontalAdvance(right), y), right);
  painter.setFont(page_font);
}

void PaintPage(const files::PrintedPage& page, QPainter& painter) {
  const QPaintDevice& device = *painter.device();
  const double x_dots_per_mm = device.logicalDpiX() / kMmPerInch;
  const double y_dots_per_mm = device.logicalDpiY() / kMmPerInch;
  const double ascent = QFontMetricsF(painter.font(), &device).ascent();
  for (const files::PlacedText& text : page.texts) {
    const double line_top = files::kPrintTopMm + text.line * files::kPrintLineMm;
    painter.drawText(QPointF(text.x_mm * x_dots_per_mm, line_top * y_dots_per_mm + ascent),
                     FromAnsi(text.text));
  }
}

// Positions count from the paper's edge, the painter's from the printable area's.
QPointF PrintableOrigin(const QPagedPaintDevice& device) {
  const QPageLayout layout = device.pageLayout();
  if (layout.mode() == QPageLayout::FullPageMode) return {};
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  return {margins.left() / kMmPerInch * device.logicalDpiX(),
          margins.top() / kMmPerInch * device.logicalDpiY()};
}

QPageSize::PageSizeId LocalPaper() {
  const bool inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return inches ? QPageSize::Letter : QPageSize::A4;
}

}  // namespace

namespace {

double HeightOf(const QPagedPaintDevice& device) {
  return device.pageLayout().fullRect(QPageLayout::Millimeter).height();
}

std::optional<core::SystemError> PaintPages(const std::vector<files::PrintedPage>& pages,
                                            QPagedPaintDevice& device) {
  const std::optional<QFont> font = TypewriterFont();
  if (!font) return core::SystemError{0, kNoFont};
  const core::SystemError not_painted{0, kNotPainted};
  const double height_mm = HeightOf(device);
  QPainter painter;
  if (!painter.begin(&device)) return not_painted;
  painter.setFont(*font);
  painter.translate(-PrintableOrigin(device));
  for (std::size_t number = 0; number < pages.size(); ++number) {
    if (number > 0 && !device.newPage()) return not_painted;
    PaintPage(pages[number], painter);
    PaintFooter(pages[number], height_mm, painter);
  }
  return painter.end() ? std::nullopt : std::optional(not_painted);
}

}  // namespace

std::optional<core::SystemError> PaintReport(const core::RadioData& data,
                                             const files::Imprint& imprint,
                                             QPagedPaintDevice& device) {
  return PaintPages(files::BuildPrintedPages(data, files::LinesPerPage(HeightOf(device)), imprint),
                    device);
}

std::optional<core::SystemError> PaintText(const std::string& text, const files::Imprint& imprint,
                                           QPagedPaintDevice& device) {
  return PaintPages(files::BuildTextPages(text, files::LinesPerPage(HeightOf(device)), imprint),
                    device);
}

core::FileBytes PdfReport(const core::RadioData& data, const files::Imprint& imprint) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageLayout(QPageLayout(QPageSize(LocalPaper()), QPageLayout::Portrait, QMarginsF()));
  writer.setTitle(FromUtf8(core::kProgramTitle));
  writer.setCreator(FromUtf8(core::kProductName));
  if (const std::optional<core::SystemError> failure = PaintReport(data, imprint, writer)) {
    return {failure, {}};
  }
  return {std::nullopt, buffer.data().toStdString()};
}

}  // namespace orvane::platform
