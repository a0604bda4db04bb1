#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/radio_data.h"
#include "document/problems.h"
#include "editor/command_host.h"
#include "editor/live_label.h"
#include "editor/partly_written_strip.h"
#include "editor/picture.h"
#include "editor/program_keeper.h"
#include "editor/progress_box.h"
#include "editor/transfer_facts.h"
#include "editor/window_services.h"
#include "files/partly_written.h"
#include "link/monitor.h"
#include "link/transfer_pace.h"
#include "link/transfer_session.h"

namespace orvane::editor {

/// What a transfer dialog is to do.
struct TransferJob {
  link::SessionKind kind = link::SessionKind::kRead;
  /// What is read replaces it; what is programmed is adjusted to the radio.
  core::RadioData data{};
  bool only_looks = false;  ///< reads to compare, and tells nothing of it
  std::string what{};       ///< "boat.dat", "unsaved data"
  std::string file{};       ///< full path, "" for none
  bool fill_from_radio = false;
  std::vector<core::FieldRef> edited{};  ///< by the user: not to be filled from the radio
  bool put_back = false;
  std::string settles{};  ///< port of the mark that this makes good
  /// Applies a remedy to the document and returns its data. Null: the data are not the document's.
  std::function<core::RadioData(document::ProblemKind)> mend{};

  [[nodiscard]] bool Programs() const { return kind == link::SessionKind::kProgram; }
};

/// `frmRadio_102`: tells how to put the radio into clone mode and what the run will do, and runs a
/// transfer when the user presses OK. It closes after a run that did its job or was declined, stays
/// after any other, and cannot be closed while one runs; Cancel, or an interrupt, then ends the run
/// at its next wait. That the radio is partly written is shown until it has been programmed, but
/// for the run at it.
class TransferDialog : public QDialog, private link::TransferView {
  Q_OBJECT

 public:
  /// Services, host and marks outlive the dialog. find_cable: opens the search for the cable.
  TransferDialog(const WindowServices& services, CommandHost& host,
                 files::PartlyWrittenMarks& marks, std::function<void()> find_cable,
                 TransferJob job);

  /// A run has read a radio whole, or has written into one, be it in part.
  [[nodiscard]] bool DataMoved() const { return data_moved_; }
  /// As the last run left it. Without `mend` its data are no longer those of the document.
  [[nodiscard]] TransferJob& Job() { return job_; }
  /// Of the last run that wrote everything.
  [[nodiscard]] const std::optional<link::Receipt>& Receipt() const { return receipt_; }
  /// The user would rather look at that field.
  [[nodiscard]] const std::optional<core::FieldRef>& FieldToShow() const { return field_to_show_; }

  /// The ways on from a radio that was left partly written. False, and told, when what is needed
  /// cannot be read.
  bool TakeSent(const files::PartlyWritten& mark);
  bool TakeBefore(const files::PartlyWritten& mark);

  /// Cancel, and the Escape key.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // link::TransferView
  void Monitor(std::string_view text) override;
  void Phase(std::string_view name) override;
  void ShowProgress(int percent) override { progress_->ShowPercent(percent); }
  void BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) override;
  void NothingComesBack() override;

  QVBoxLayout& Column() { return *static_cast<QVBoxLayout*>(layout()); }
  LiveLabel* AddLabel(const char* name, const char* description);
  void AddFacts();
  void AddPictures();
  void TurnPictures();
  void AddNote();
  void AddButtons();

  void FollowPort();
  void ShowFacts();
  void ShowSubject();
  void ShowOptions();
  /// Texts that have grown over several lines push nothing out of sight.
  void FitHeight();
  void ShowState(const QString& text);
  void ShowNote();
  void SetRunning(bool running);

  bool Take(const files::PartlyWritten& mark, files::Snapshot snapshot, const char* what,
            bool put_back);
  /// The port at which the radio was that this run is to make good.
  [[nodiscard]] bool IsPortOfMark() const;
  void Mend(document::ProblemKind kind);
  void Settle();

  void Run();
  /// Still the device that the dialog shows. Else it shows the other one now.
  [[nodiscard]] bool IsPortAsShown();
  void RunOnce();
  void TakeOutcome();
  /// Names the fields that the radio does not hold as sent. True: once more.
  [[nodiscard]] bool TellDifferences();

  const WindowServices services_;
  CommandHost& host_;
  files::PartlyWrittenMarks& marks_;
  const std::function<void()> find_cable_;
  TransferJob job_;
  core::RunState& run_state_;
  link::TransferPace pace_;
  link::PortLabel port_;
  QString phase_;                  ///< of the run under way
  link::TransferOutcome outcome_;  ///< of the last run
  std::optional<link::Receipt> receipt_;
  std::optional<core::FieldRef> field_to_show_;
  std::optional<bool> keeps_copy_;  ///< as the user chose in this dialog
  std::string mark_failure_;        ///< why a broken run would not be remembered
  bool data_moved_ = false;

  TransferFacts* facts_ = nullptr;
  QHBoxLayout* pictures_ = nullptr;
  Picture* handheld_;
  Picture* arrow_;
  Picture* computer_;
  ProgressBox* progress_ = nullptr;
  LiveLabel* state_ = nullptr;
  LiveLabel* note_ = nullptr;
  PartlyWrittenStrip* strip_ = nullptr;
  LiveLabel* monitor_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* help_ = nullptr;
};

}  // namespace orvane::editor
