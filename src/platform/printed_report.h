#pragma once

#include <QPagedPaintDevice>
#include <optional>

#include "core/radio_data.h"
#include "core/services.h"
#include "files/printed_pages.h"

/// The printed report on paper or in a PDF file. Needs a QGuiApplication, for its fonts.
namespace orvane::platform {

/// Paints the whole report; the imprint stands in its footers. Returns the failure: the device
/// cannot be painted on, or there is no font whose characters are all of one width, without which
/// the columns would be a mess.
[[nodiscard]] std::optional<core::SystemError> PaintReport(const core::RadioData& data,
                                                           const files::Imprint& imprint,
                                                           QPagedPaintDevice& device);

/// The same for a text.
[[nodiscard]] std::optional<core::SystemError> PaintText(const std::string& text,
                                                         const files::Imprint& imprint,
                                                         QPagedPaintDevice& device);

/// The report as the bytes of a PDF file; the paper is Letter where that is the locale's, else A4.
[[nodiscard]] core::FileBytes PdfReport(const core::RadioData& data, const files::Imprint& imprint);

}  // namespace orvane::platform
