#pragma once

#include <QDialog>
#include <QPushButton>
#include <functional>
#include <memory>

#include "core/radio_data.h"
#include "core/run_state.h"
#include "core/services.h"
#include "editor/live_label.h"
#include "editor/picture.h"
#include "editor/progress_box.h"
#include "help/help_opener.h"
#include "link/monitor.h"
#include "link/port_list.h"
#include "link/serial_port.h"
#include "link/transfer_pace.h"
#include "link/transfer_session.h"
#include "platform/interrupts.h"

namespace orvane::editor {

/// What a transfer needs of the world. Everything outlives the dialog.
struct TransferServices {
  core::RadioData& data;  ///< what is read replaces it; what is programmed is adjusted to the radio
  core::RunState& state;
  core::Prompts& prompts;
  core::Clock& clock;
  core::EventPump& pump;
  core::ErrorLog& log;
  /// Called for each run, so that a cable plugged in between is found.
  std::function<std::unique_ptr<link::SerialPort>()> make_port;
  std::function<link::PortLabel()> port_label;  ///< likewise
  platform::Interrupts* interrupts;             ///< null: nothing but Cancel ends a run
  help::HelpOpener* help;                       ///< null: the program has no help
  /// A program run has ended before its time, and none has completed since.
  bool& radio_partly_written;
};

/// `frmRadio_102`: tells how to put the radio into clone mode and runs a transfer when the user
/// presses OK. It closes after a run that did its job or was declined, stays after any other, and
/// cannot be closed while one runs; Cancel, or an interrupt, then ends the run at its next wait.
/// That the radio is partly written is shown until it has been programmed, but for the run at it.
class TransferDialog : public QDialog, private link::TransferView {
  Q_OBJECT

 public:
  TransferDialog(const TransferServices& services, link::SessionKind kind, QWidget* parent);

  /// A run has read a radio whole, or has written into one, be it in part.
  [[nodiscard]] bool DataMoved() const { return data_moved_; }

  /// Cancel, and the Escape key.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // link::TransferView
  void Monitor(std::string_view text) override;
  void ShowProgress(int percent) override { progress_->ShowPercent(percent); }
  void BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) override;
  void NothingComesBack() override;

  LiveLabel* AddLabel(const char* name, const char* description);
  void AddPictures();
  void AddButtons();
  void ShowState(const QString& text);
  void ShowNote();
  void SetRunning(bool running);

  void Run();
  void TakeOutcome();
  void OpenHelp();

  const TransferServices services_;
  core::RunState& run_state_;
  const link::SessionKind kind_;
  link::TransferPace pace_;
  link::PortLabel port_;
  link::TransferOutcome outcome_;  ///< of the last run
  bool data_moved_ = false;

  Picture* handheld_;
  Picture* arrow_;
  Picture* computer_;
  ProgressBox* progress_ = nullptr;
  LiveLabel* state_ = nullptr;
  LiveLabel* note_ = nullptr;
  LiveLabel* monitor_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* help_ = nullptr;
};

}  // namespace orvane::editor
