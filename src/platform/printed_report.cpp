#include "platform/printed_report.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <vector>

#include "files/printed_pages.h"
#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

constexpr double kMmPerInch = 25.4;

QFont TypewriterFont() {
  QFont font("Courier New");
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  font.setPointSizeF(files::kPrintFontPoints);
  return font;
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

bool PaintReport(const core::RadioData& data, QPagedPaintDevice& device) {
  const double height_mm = device.pageLayout().fullRect(QPageLayout::Millimeter).height();
  const std::vector<files::PrintedPage> pages =
      files::BuildPrintedPages(data, files::LinesPerPage(height_mm));
  QPainter painter;
  if (!painter.begin(&device)) return false;
  painter.setFont(TypewriterFont());
  painter.translate(-PrintableOrigin(device));
  for (std::size_t number = 0; number < pages.size(); ++number) {
    if (number > 0 && !device.newPage()) return false;
    PaintPage(pages[number], painter);
  }
  return painter.end();
}

std::string PdfReport(const core::RadioData& data) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageLayout(QPageLayout(QPageSize(LocalPaper()), QPageLayout::Portrait, QMarginsF()));
  writer.setTitle(FromUtf8(data.ProgramTitle));
  writer.setCreator(FromUtf8(data.ProductName));
  if (!PaintReport(data, writer)) return {};
  return buffer.data().toStdString();
}

}  // namespace orvane::platform
