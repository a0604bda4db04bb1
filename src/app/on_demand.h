#pragma once

#include <QLibrary>
#include <memory>
#include <optional>
#include <string>

#include "help/help_opener.h"
#include "platform/report_printer.h"

/// The help viewer and the printers need large libraries of the system, and few runs need either.
/// They stand in a module of their own, which is loaded when one of them is first asked for; so
/// the window is there sooner.
namespace orvane::app {

class OnDemand {
 public:
  /// The module stands where it is installed, else beside the program.
  OnDemand();
  /// Path in UTF-8.
  explicit OnDemand(const std::string& module);

  /// Null where the module is missing or damaged.
  [[nodiscard]] std::unique_ptr<help::HelpOpener> MakeHelp(const std::string& help_file,
                                                           const std::string& cache_folder);
  [[nodiscard]] std::unique_ptr<platform::ReportPrinter> MakePrinter();
  /// Why there was none, in the system's words.
  [[nodiscard]] std::string Reason() const;

 private:
  QLibrary module_;
};

/// There is none where there is no help file.
class HelpOnDemand final : public help::HelpOpener {
 public:
  /// Paths in UTF-8. The module outlives this.
  HelpOnDemand(OnDemand& module, std::string help_file, std::string cache_folder);
  [[nodiscard]] bool HasHelp() const override;
  [[nodiscard]] std::optional<std::string> Open(QWidget& owner, int context) override;
  void Close() override;
  void Reopen() override;

 private:
  OnDemand& module_;
  std::string help_file_;
  std::string cache_folder_;
  std::unique_ptr<help::HelpOpener> help_;  ///< null before the first request
};

/// There are none where the module is missing; the report then goes into a PDF file.
class PrinterOnDemand final : public platform::ReportPrinter {
 public:
  /// The module outlives this.
  explicit PrinterOnDemand(OnDemand& module) : module_(module) {}
  [[nodiscard]] bool HasPrinter() const override;
  [[nodiscard]] bool Ask(QWidget& parent) override;
  [[nodiscard]] std::optional<core::SystemError> Print(const core::RadioData& data,
                                                       const files::Imprint& imprint) override;
  [[nodiscard]] std::optional<core::SystemError> PrintText(const std::string& text,
                                                           const files::Imprint& imprint) override;

 private:
  [[nodiscard]] platform::ReportPrinter* Printer() const;

  OnDemand& module_;
  mutable std::unique_ptr<platform::ReportPrinter> printer_;
};

}  // namespace orvane::app
