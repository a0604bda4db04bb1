#include "editor/transfer_commands.h"

#include <utility>

#include "core/messages.h"
#include "core/product.h"
#include "core/text.h"
#include "editor/receipt_window.h"
#include "files/image_file.h"
#include "files/receipt_text.h"
#include "files/settings_file.h"
#include "link/radio_program.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

/// "boat.dat", "boat.dat with unsaved changes", "unsaved data".
std::string WhatOf(const document::Document& document) {
  if (document.FileName().empty()) return "unsaved data";
  const std::string name = core::WithoutFolder(document.FileName());
  return document.IsSaved() ? name : name + " with unsaved changes";
}

/// A settings file, whatever its name, has no place for everything that some radios hold. Of
/// recovered data only the name is known.
bool CameFromSettingsFile(const document::Document& document) {
  const document::Origin origin = document.ComesFrom();
  if (origin == document::Origin::kOpened) return true;
  return origin == document::Origin::kRecovered && !document.FileName().empty() &&
         core::Extension(document.FileName()) != files::kImageEnding;
}

}  // namespace

TransferCommands::TransferCommands(const WindowServices& services, CommandHost& host,
                                   std::function<void()> find_cable)
    : services_(services),
      document_(services.document),
      host_(host),
      find_cable_(std::move(find_cable)),
      marks_(services.files, services.marks_folder) {}

TransferDialog TransferCommands::MakeDialog(TransferJob job) {
  return TransferDialog(services_, host_, marks_, find_cable_, std::move(job));
}

void TransferCommands::Exec(TransferDialog& dialog) {
  dialog.exec();
  // A message box and the dialog under it go at one stroke; some window managers then leave no
  // window active.
  host_.Widget().activateWindow();
  host_.ShowPartlyWritten();
  if (dialog.Receipt()) {
    const link::Receipt& receipt = *dialog.Receipt();
    host_.KeepReceipt(receipt.began, files::ReceiptText(receipt, files::DifferingFields(receipt)));
    delete receipt_;
    receipt_ = new ReceiptWindow(services_, receipt, &host_.Widget());
    receipt_->show();
  }
  if (dialog.FieldToShow()) host_.ShowField(*dialog.FieldToShow());
}

void TransferCommands::Read() {
  if (!host_.CheckPage()) return;
  TransferDialog dialog = MakeDialog({.data = document_.Data()});
  Exec(dialog);
  if (dialog.Job().Programs()) return;  // the radio was put right instead
  if (!dialog.DataMoved()) return;
  // Nobody shall take what a simulated radio held for his own.
  const bool simulated =
      link::IsSimulatedRadio(link::LabelOfPort(services_.ports, host_.PortNumber()));
  const std::string from = simulated ? " from the simulated radio" : "";
  document_.Replace(std::string(core::kReadFromRadio),
                    {.data = std::move(dialog.Job().data),
                     .origin = document::Origin::kRead,
                     .time = services_.clock.TimeOfDay() + from},
                    false);
  host_.KeepBackup(document_.Data(), files::kOriginRead, {});
  document_.ForgetChange();
}

TransferJob TransferCommands::JobOfDocument() {
  return {.kind = link::SessionKind::kProgram,
          .data = document_.Data(),
          .what = WhatOf(document_),
          .file = document_.FileName(),
          .fill_from_radio = CameFromSettingsFile(document_),
          .edited = document_.EditedFields(),
          .mend = [this](document::ProblemKind kind) {
            const core::Date today = services_.clock.Today();
            document_.Edit(std::string("Mend before programming"),
                           [&](core::RadioData& data) { document::MendAll(data, kind, today); });
            return document_.Data();
          }};
}

void TransferCommands::Program() {
  if (!host_.CheckPage()) return;
  TransferDialog dialog = MakeDialog(JobOfDocument());
  Exec(dialog);
  if (dialog.Job().mend) TakeAdjustments(dialog.Job().data);
}

// Encoding adjusts the records to what the radio can hold, whether the radio took them or not.
void TransferCommands::TakeAdjustments(const core::RadioData& sent) {
  const bool still_saved = document_.IsSaved() &&
                           files::SettingFileText(sent) == files::SettingFileText(document_.Data());
  document_.Adjust(
      std::string(core::kProgramToRadio), [&](core::RadioData& data) { data = sent; }, still_saved);
}

std::unique_ptr<core::RadioData> TransferCommands::ReadCopy(const core::RadioData& like) {
  TransferDialog dialog = MakeDialog({.data = like, .only_looks = true});
  Exec(dialog);
  if (dialog.Job().Programs() || !dialog.DataMoved()) return nullptr;
  return std::make_unique<core::RadioData>(std::move(dialog.Job().data));
}

// A mark has the name of a port, or of a device that had no number then.
bool TransferCommands::ChoosePortOfMark(const std::string& port) {
  for (const link::PortEntry& entry : link::PortsNow(services_.ports)) {
    if (link::LabelOf(entry).name == port || entry.device == port) {
      host_.ChoosePort(entry.port_number);
    }
  }
  const link::PortLabel chosen = link::LabelOfPort(services_.ports, host_.PortNumber());
  if (chosen.name == port || chosen.device == port) return true;
  const core::Message question =
      core::MakeMessage(core::MessageId::kOtherPort, core::kProgramToRadio,
                        {{"port", port}, {"chosen", chosen.Text()}});
  return services_.prompts.Show(question) == core::Answer::kYes;
}

void TransferCommands::ProgramFromMark(const std::string& port, Take take) {
  const std::optional<files::PartlyWritten> mark = marks_.At(port);
  if (!mark || !host_.CheckPage() || !ChoosePortOfMark(port)) return;
  TransferDialog dialog = MakeDialog({.data = document_.Data()});
  if ((dialog.*take)(*mark)) Exec(dialog);
}

void TransferCommands::ProgramAgain(const std::string& port) {
  ProgramFromMark(port, &TransferDialog::TakeSent);
}

void TransferCommands::PutBack(const std::string& port) {
  ProgramFromMark(port, &TransferDialog::TakeBefore);
}

void TransferCommands::Settle(const std::string& port) {
  const core::Message question = core::MakeMessage(core::MessageId::kSettle, core::kProgramTitle);
  if (services_.prompts.Show(question) == core::Answer::kYes) marks_.Settle(port);
  host_.ShowPartlyWritten();
}

}  // namespace orvane::editor
