#include "editor/print_text.h"

#include <optional>

#include "core/messages.h"
#include "core/product.h"

namespace orvane::editor {
namespace {

void TellFailure(const WindowServices& services, const std::string& reason) {
  services.prompts.Show(
      core::MakeMessage(core::MessageId::kPrintFailed, core::kProgramTitle, {{"reason", reason}}));
}

}  // namespace

void PrintText(const WindowServices& services, QWidget& parent, const std::string& text,
               const std::string& file) {
  if (!services.printer.HasPrinter()) {
    TellFailure(services, "There is no printer. Save it instead.");
    return;
  }
  if (!services.printer.Ask(parent)) return;
  const std::optional<core::SystemError> failure =
      services.printer.PrintText(text, {file, services.clock.Today()});
  if (failure) TellFailure(services, failure->description);
}

}  // namespace orvane::editor
