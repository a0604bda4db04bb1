#pragma once

#include <QPrinter>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/report_printer.h"

namespace orvane::platform {

/// The printers the system knows, through its own dialog.
class QtReportPrinter : public ReportPrinter {
 public:
  [[nodiscard]] bool HasPrinter() const override;
  [[nodiscard]] bool Ask(QWidget& parent) override;
  [[nodiscard]] std::optional<core::SystemError> Print(const core::RadioData& data,
                                                       const files::Imprint& imprint) override;
  [[nodiscard]] std::optional<core::SystemError> PrintText(const std::string& text,
                                                           const files::Imprint& imprint) override;

 private:
  using Painting = std::function<std::optional<core::SystemError>(QPrinter&)>;
  [[nodiscard]] std::optional<core::SystemError> PrintPages(const Painting& paint);

  std::unique_ptr<QPrinter> printer_;
};

}  // namespace orvane::platform
