#include "platform/qt_report_printer.h"

#include <QPrintDialog>
#include <QPrinterInfo>
#include <string>

#include "core/product.h"
#include "platform/ansi_text.h"
#include "platform/printed_report.h"

namespace orvane::platform {
namespace {

std::string StateText(QPrinter::PrinterState state) {
  switch (state) {
    case QPrinter::Aborted:
      return "Printing was aborted.";
    case QPrinter::Error:
      return "The printer reports an error.";
    default:
      return "The printer does not take the pages.";
  }
}

}  // namespace

bool QtReportPrinter::HasPrinter() const {
  return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool QtReportPrinter::Ask(QWidget& parent) {
  if (!printer_) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setFullPage(true);
    printer_->setPageOrientation(QPageLayout::Portrait);
  }
  QPrintDialog dialog(printer_.get(), &parent);
  dialog.setObjectName("printDialog");
  // The report is always printed whole, and saving it is a command of its own.
  for (const auto option : {QAbstractPrintDialog::PrintToFile, QAbstractPrintDialog::PrintSelection,
                            QAbstractPrintDialog::PrintPageRange}) {
    dialog.setOption(option, false);
  }
  return dialog.exec() == QDialog::Accepted;
}

std::optional<core::SystemError> QtReportPrinter::Print(const core::RadioData& data,
                                                        const files::Imprint& imprint) {
  return PrintPages([&](QPrinter& printer) { return PaintReport(data, imprint, printer); });
}

std::optional<core::SystemError> QtReportPrinter::PrintText(const std::string& text,
                                                            const files::Imprint& imprint) {
  return PrintPages([&](QPrinter& printer) { return PaintText(text, imprint, printer); });
}

std::optional<core::SystemError> QtReportPrinter::PrintPages(const Painting& paint) {
  if (!printer_) return core::SystemError{0, "No printer was chosen."};
  printer_->setDocName(FromUtf8(core::kProgramTitle));
  const std::optional<core::SystemError> failure = paint(*printer_);
  const QPrinter::PrinterState state = printer_->printerState();
  if (!failure && state != QPrinter::Error && state != QPrinter::Aborted) return std::nullopt;
  const std::string reason =
      failure && state == QPrinter::Idle ? failure->description : StateText(state);
  return core::SystemError{0, ToUtf8(printer_->printerName()) + ": " + reason};
}

}  // namespace orvane::platform
