#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "editor/command_host.h"
#include "editor/transfer_dialog.h"
#include "editor/window_services.h"
#include "files/partly_written.h"

namespace orvane::editor {

/// The commands that talk to a radio. Each runs its own page check first where it needs one, and
/// tells the user itself what goes wrong.
class TransferCommands {
 public:
  /// find_cable: opens the search for the cable.
  TransferCommands(const WindowServices& services, CommandHost& host,
                   std::function<void()> find_cable);

  void Program();
  void Read();
  /// What a radio of the given data's model holds, read into a copy: nothing is changed, here or in
  /// the radio. Null when the user gave up or it failed. The page is not checked.
  [[nodiscard]] std::unique_ptr<core::RadioData> ReadCopy(const core::RadioData& like);

  /// The ways on from a radio that was left partly written.
  void ProgramAgain(const std::string& port);
  void PutBack(const std::string& port);
  void Settle(const std::string& port);
  [[nodiscard]] const files::PartlyWrittenMarks& Marks() const { return marks_; }

 private:
  [[nodiscard]] TransferDialog MakeDialog(TransferJob job);
  /// Runs the dialog and keeps the receipt of what it did.
  void Exec(TransferDialog& dialog);
  using Take = bool (TransferDialog::*)(const files::PartlyWritten&);
  void ProgramFromMark(const std::string& port, Take take);
  /// Chooses the port of a mark. Where it is not there the user is asked for the chosen one; false:
  /// not to be written to.
  [[nodiscard]] bool ChoosePortOfMark(const std::string& port);
  [[nodiscard]] TransferJob JobOfDocument();
  void TakeAdjustments(const core::RadioData& sent);

  const WindowServices services_;
  document::Document& document_;
  CommandHost& host_;
  const std::function<void()> find_cable_;
  files::PartlyWrittenMarks marks_;
  QPointer<QWidget> receipt_;  ///< of the last run, while it is on show
};

}  // namespace orvane::editor
