#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "core/radio_data.h"
#include "core/services.h"
#include "files/printed_pages.h"

namespace orvane::platform {

/// The machine's printers, for what the program prints.
class ReportPrinter {
 public:
  virtual ~ReportPrinter() = default;
  [[nodiscard]] virtual bool HasPrinter() const = 0;
  /// Shows the print dialog; false when the user cancelled. The choice holds until the next time.
  [[nodiscard]] virtual bool Ask(QWidget& parent) = 0;
  /// Prints the report as chosen. Pages that a failing printer already took stay printed.
  [[nodiscard]] virtual std::optional<core::SystemError> Print(const core::RadioData& data,
                                                               const files::Imprint& imprint) = 0;
  /// The same for a text.
  [[nodiscard]] virtual std::optional<core::SystemError> PrintText(
      const std::string& text, const files::Imprint& imprint) = 0;
};

}  // namespace orvane::platform
