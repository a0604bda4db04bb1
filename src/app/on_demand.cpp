#include "app/on_demand.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <utility>

#include "app/on_demand_module.h"
#include "platform/ansi_text.h"

namespace orvane::app {
namespace {

QString PathOfModule() {
  const QString program = QCoreApplication::applicationDirPath();
  const QString name = QLatin1Char('/') + QLatin1String(ORVANE_MODULE);
  const QString installed =
      QDir::cleanPath(program + QLatin1Char('/') + QLatin1String(ORVANE_MODULE_FOLDER) + name);
  return QFileInfo(installed).isFile() ? installed : program + name;
}

}  // namespace

OnDemand::OnDemand() : module_(PathOfModule()) {}

OnDemand::OnDemand(const std::string& module) : module_(platform::FromUtf8(module)) {}

std::unique_ptr<help::HelpOpener> OnDemand::MakeHelp(const std::string& help_file,
                                                     const std::string& cache_folder) {
  const auto make = reinterpret_cast<MakeHelpFunction>(module_.resolve(kMakeHelp));
  return std::unique_ptr<help::HelpOpener>(make == nullptr ? nullptr
                                                           : make(help_file, cache_folder));
}

std::unique_ptr<platform::ReportPrinter> OnDemand::MakePrinter() {
  const auto make = reinterpret_cast<MakePrinterFunction>(module_.resolve(kMakePrinter));
  return std::unique_ptr<platform::ReportPrinter>(make == nullptr ? nullptr : make());
}

std::string OnDemand::Reason() const {
  return platform::ToUtf8(module_.errorString());
}

HelpOnDemand::HelpOnDemand(OnDemand& module, std::string help_file, std::string cache_folder)
    : module_(module), help_file_(std::move(help_file)), cache_folder_(std::move(cache_folder)) {}

bool HelpOnDemand::HasHelp() const {
  return QFileInfo(platform::FromUtf8(help_file_)).isFile();
}

std::optional<std::string> HelpOnDemand::Open(QWidget& owner, int context) {
  if (help_ == nullptr) help_ = module_.MakeHelp(help_file_, cache_folder_);
  return help_ == nullptr ? module_.Reason() : help_->Open(owner, context);
}

void HelpOnDemand::Close() {
  if (help_ != nullptr) help_->Close();
}

void HelpOnDemand::Reopen() {
  if (help_ != nullptr) help_->Reopen();
}

platform::ReportPrinter* PrinterOnDemand::Printer() const {
  if (printer_ == nullptr) printer_ = module_.MakePrinter();
  return printer_.get();
}

bool PrinterOnDemand::HasPrinter() const {
  return Printer() != nullptr && printer_->HasPrinter();
}

bool PrinterOnDemand::Ask(QWidget& parent) {
  return Printer() != nullptr && printer_->Ask(parent);
}

std::optional<core::SystemError> PrinterOnDemand::Print(const core::RadioData& data,
                                                        const files::Imprint& imprint) {
  return Printer() != nullptr ? printer_->Print(data, imprint)
                              : core::SystemError{0, module_.Reason()};
}

std::optional<core::SystemError> PrinterOnDemand::PrintText(const std::string& text,
                                                            const files::Imprint& imprint) {
  return Printer() != nullptr ? printer_->PrintText(text, imprint)
                              : core::SystemError{0, module_.Reason()};
}

}  // namespace orvane::app
