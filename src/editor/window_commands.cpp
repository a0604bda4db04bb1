#include "editor/window_commands.h"

#include <optional>
#include <string>

#include "core/messages.h"
#include "editor/about_box.h"
#include "editor/report_window.h"
#include "editor/transfer_dialog.h"
#include "editor/working.h"
#include "files/image_file.h"
#include "platform/printed_report.h"

namespace orvane::editor {
namespace {

constexpr const char* kHexFilter = "hex files(*.hex)|*.hex|All files(*.*)|*.*";
constexpr const char* kPdfFilter = "PDF files(*.pdf)|*.pdf|All files(*.*)|*.*";

}  // namespace

WindowCommands::WindowCommands(const WindowServices& services, const Devices& devices)
    : services_(services), devices_(devices), data_(services.data) {}

bool WindowCommands::Transfer(CommandHost& host, link::SessionKind kind) {
  TransferDialog dialog(
      {.data = data_,
       .prompts = services_.prompts,
       .clock = services_.clock,
       .pump = services_.pump,
       .log = services_.log,
       .make_port = [&] { return devices_.make_port(host.PortNumber()); },
       .port_label = [&] { return link::LabelOfPort(services_.ports, host.PortNumber()); },
       .interrupts = devices_.interrupts,
       .help = devices_.help,
       .radio_partly_written = radio_partly_written_},
      kind, &host.Widget());
  dialog.exec();
  // A message box and the dialog under it go at one stroke; some window managers then leave no
  // window active.
  host.Widget().activateWindow();
  return dialog.TransferDone();
}

void WindowCommands::Read(CommandHost& host) {
  if (!host.CheckPage() || !Transfer(host, link::SessionKind::kRead)) return;
  data_.CurrentFileName.clear();
  host.ShowGeneralPage();
  host.DataReplaced();
  data_.Flags.DataChanged = false;
}

void WindowCommands::Program(CommandHost& host) {
  if (!host.CheckPage()) return;
  Transfer(host, link::SessionKind::kProgram);
  // Encoding adjusts the records to what the radio can hold, whether the radio took them or not.
  host.RefreshAfterLoad();
}

void WindowCommands::PrintToFile(CommandHost& host) {
  if (host.CheckPage()) ReportWindow(services_, host).exec();
}

void WindowCommands::Print(CommandHost& host) {
  if (!host.CheckPage()) return;
  if (!devices_.printer.HasPrinter()) {
    PrintAsPdf(host);
    return;
  }
  if (!devices_.printer.Ask(host.Widget())) return;
  std::optional<core::SystemError> failure;
  {
    const Working working(host.Widget());
    failure = devices_.printer.Print(data_, services_.clock.Today());
  }
  if (failure) ReportPrintFailure(*failure);
}

void WindowCommands::PrintAsPdf(CommandHost& host) {
  const core::Message offer = core::MakeMessage(core::MessageId::kNoPrinter, data_.ProgramTitle);
  if (services_.prompts.Show(offer) != core::Answer::kOk) return;
  const std::string path =
      services_.dialogs.AskSave({.filter = kPdfFilter, .folder = services_.program_folder})
          .value_or(std::string());
  if (path.empty()) return;
  std::optional<core::SystemError> failure;
  {
    const Working working(host.Widget());
    const core::FileBytes pdf = platform::PdfReport(data_, services_.clock.Today());
    failure = pdf.error ? pdf.error : services_.files.WriteFile(path, pdf.bytes);
  }
  if (failure) ReportPrintFailure(*failure);
}

void WindowCommands::ReportPrintFailure(const core::SystemError& failure) {
  services_.prompts.Show(core::MakeMessage(core::MessageId::kPrintFailed, data_.ProgramTitle,
                                           {{"reason", failure.description}}));
}

void WindowCommands::SaveHex(CommandHost& host) {
  if (!data_.Flags.Debug || !host.CheckPage()) return;
  data_.Flags.Cancel = true;
  const std::string path =
      services_.dialogs.AskSave({.filter = kHexFilter, .folder = services_.program_folder})
          .value_or(std::string());
  if (path.empty()) return;
  {
    const Working working(host.Widget());
    data_.Flags.Cancel = false;
    data_.Flags.Busy = true;
    files::PrepareImageForSaving(data_, services_.clock.Today());
    files::SaveHexFileAs(data_, path, services_.files, services_.prompts, services_.log);
    if (!data_.Flags.Cancel) host.Wait(kCommandPause);
    data_.Flags.Busy = false;
  }
  // Encoding adjusts the records to what the radio can hold.
  host.RefreshAfterLoad();
}

void WindowCommands::LoadHex(CommandHost& host) {
  if (!data_.Flags.Debug) return;
  data_.Flags.Cancel = true;
  const std::string path =
      services_.dialogs.AskOpen({.filter = kHexFilter, .folder = services_.program_folder})
          .value_or(std::string());
  if (path.empty()) return;
  const Working working(host.Widget());
  data_.Flags.Cancel = false;
  data_.Flags.Busy = true;
  files::LoadHexFile(data_, path, services_.files, services_.prompts, services_.log);
  if (!data_.Flags.Error) host.Wait(kCommandPause);
  data_.Flags.Busy = false;
  if (data_.Flags.Error) return;
  data_.CurrentFileName = path;
  host.ShowGeneralPage();
  host.DataReplaced();
  host.CheckDestinationOfImage();
  data_.Flags.DataChanged = false;
}

void WindowCommands::Help(CommandHost& host, int context) {
  if (devices_.help == nullptr || !devices_.help->HasHelp()) return;
  if (const std::optional<std::string> failure = devices_.help->Open(host.Widget(), context)) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kHelpFailed, data_.ProgramTitle,
                                             {{"failure", *failure}}));
  }
}

void WindowCommands::HelpContents(CommandHost& host) {
  if (devices_.help != nullptr && devices_.help->HasHelp()) {
    Help(host, help::kProgramContext);
    return;
  }
  services_.prompts.Show(core::MakeMessage(core::MessageId::kNoHelp, data_.ProgramTitle));
}

void WindowCommands::CloseHelp() {
  if (devices_.help != nullptr) devices_.help->Close();
}

void WindowCommands::ReopenHelp() {
  if (devices_.help != nullptr) devices_.help->Reopen();
}

void WindowCommands::About(CommandHost& host) {
  AboutBox(data_, &host.Widget()).exec();
}

}  // namespace orvane::editor
