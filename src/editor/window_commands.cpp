#include "editor/window_commands.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "core/messages.h"
#include "core/product.h"
#include "editor/about_box.h"
#include "editor/backups_dialog.h"
#include "editor/find_cable_dialog.h"
#include "editor/report_window.h"
#include "editor/working.h"
#include "platform/printed_report.h"

namespace orvane::editor {
namespace {

constexpr const char* kPdfFilter = "PDF files(*.pdf)|*.pdf|All files(*.*)|*.*";

}  // namespace

WindowCommands::WindowCommands(const WindowServices& services, CommandHost& host,
                               FileCommands& files,
                               std::function<void(files::Snapshot backup)> compare)
    : services_(services),
      document_(services.document),
      host_(host),
      file_commands_(files),
      compare_(std::move(compare)) {}

void WindowCommands::Backups() {
  if (!host_.CheckPage()) return;
  BackupsDialog dialog(services_, BackupsDialog::Purpose::kManage, &host_.Widget());
  if (dialog.exec() != QDialog::Accepted) return;
  files::Snapshot compared = dialog.TakeCompared();
  if (compared.data != nullptr) {
    compare_(std::move(compared));
  } else {
    file_commands_.OpenFile(dialog.PathToOpen());
  }
}

void WindowCommands::FindCable() {
  FindCableDialog({.model = core::ProfileOf(document_.Data()),
                   .state = services_.state,
                   .prompts = services_.prompts,
                   .clock = services_.clock,
                   .pump = services_.pump,
                   .log = services_.log,
                   .ports = services_.ports,
                   .devices = services_.devices,
                   .make_port = services_.make_port,
                   .chosen = [&] { return host_.PortNumber(); },
                   .choose = [&](int number) { host_.ChoosePort(number); },
                   .interrupts = services_.interrupts,
                   .help = services_.help},
                  &host_.Widget())
      .exec();
}

void WindowCommands::PrintToFile() {
  if (host_.CheckPage()) ReportWindow(services_, host_).exec();
}

files::Imprint WindowCommands::Imprint() const {
  return {document_.FileName(), services_.clock.Today()};
}

void WindowCommands::Print() {
  if (!host_.CheckPage()) return;
  if (!services_.printer.HasPrinter()) {
    PrintAsPdf();
    return;
  }
  if (!services_.printer.Ask(host_.Widget())) return;
  std::optional<core::SystemError> failure;
  {
    const Working working(host_.Widget());
    failure = services_.printer.Print(document_.Data(), Imprint());
  }
  if (failure) ReportPrintFailure(*failure);
}

void WindowCommands::PrintAsPdf() {
  const core::Message offer = core::MakeMessage(core::MessageId::kNoPrinter, core::kProgramTitle);
  if (services_.prompts.Show(offer) != core::Answer::kOk) return;
  const std::string path =
      services_.dialogs.AskSave({.filter = kPdfFilter, .folder = services_.program_folder})
          .value_or(std::string());
  if (path.empty()) return;
  std::optional<core::SystemError> failure;
  {
    const Working working(host_.Widget());
    const core::FileBytes pdf = platform::PdfReport(document_.Data(), Imprint());
    failure = pdf.error ? pdf.error : services_.files.WriteFile(path, pdf.bytes);
  }
  if (failure) ReportPrintFailure(*failure);
}

void WindowCommands::ReportPrintFailure(const core::SystemError& failure) {
  services_.prompts.Show(core::MakeMessage(core::MessageId::kPrintFailed, core::kProgramTitle,
                                           {{"reason", failure.description}}));
}

void WindowCommands::Help(int context) {
  if (services_.help == nullptr || !services_.help->HasHelp()) return;
  if (const std::optional<std::string> failure = services_.help->Open(host_.Widget(), context)) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kHelpFailed, core::kProgramTitle,
                                             {{"failure", *failure}}));
  }
}

void WindowCommands::HelpContents() {
  if (services_.help != nullptr && services_.help->HasHelp()) {
    Help(help::kProgramContext);
    return;
  }
  services_.prompts.Show(core::MakeMessage(core::MessageId::kNoHelp, core::kProgramTitle));
}

void WindowCommands::CloseHelp() const {
  if (services_.help != nullptr) services_.help->Close();
}

void WindowCommands::ReopenHelp() const {
  if (services_.help != nullptr) services_.help->Reopen();
}

void WindowCommands::About() {
  AboutBox(&host_.Widget()).exec();
}

}  // namespace orvane::editor
