#pragma once

#include <QPagedPaintDevice>
#include <string>

#include "core/radio_data.h"

/// The printed report on paper or in a PDF file. Needs a QGuiApplication, for its fonts.
namespace orvane::platform {

/// Paints the whole report. False when the device cannot be painted on.
[[nodiscard]] bool PaintReport(const core::RadioData& data, QPagedPaintDevice& device);

/// The report as the bytes of a PDF file; the paper is Letter where that is the locale's, else A4.
[[nodiscard]] std::string PdfReport(const core::RadioData& data);

}  // namespace orvane::platform
