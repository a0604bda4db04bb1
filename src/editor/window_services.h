#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/recovery_store.h"
#include "core/run_state.h"
#include "core/services.h"
#include "document/document.h"
#include "help/help_opener.h"
#include "link/doctor.h"
#include "link/port_list.h"
#include "link/radio_process.h"
#include "link/serial_port.h"
#include "platform/file_dialogs.h"
#include "platform/interrupts.h"
#include "platform/report_printer.h"

namespace orvane::editor {

/// What the main window is built from. Everything outlives the window.
struct WindowServices {
  document::Document& document;
  core::RunState& state;
  core::Prompts& prompts;
  core::Clock& clock;
  core::EventPump& pump;
  core::SettingsStore& settings;
  core::FileStore& files;
  core::ErrorLog& log;
  link::PortFinder& ports;
  platform::FileDialogs& dialogs;
  /// Called for each run of a transfer with the port number chosen then.
  std::function<std::unique_ptr<link::SerialPort>(int port_number)> make_port;
  platform::ReportPrinter& printer;
  help::HelpOpener* help;            ///< null: the program has no help
  core::RecoveryStore* recovery;     ///< null: unsaved work is not kept
  platform::Interrupts* interrupts;  ///< null: a transfer ends by itself or by Cancel only
  std::string program_folder;        ///< where file dialogs start
  std::string backups_folder;        ///< "": no backups are kept
  std::string previous_folder;       ///< of files saved over; "": none are kept
  std::string marks_folder;          ///< of partly written radios
  std::string data_folder;           ///< destination templates and logo
  /// Null: the system tells nothing about serial ports beside their list.
  link::DeviceFacts* devices = nullptr;
  /// Null: there is no simulated radio to try.
  link::RadioProcess* radio = nullptr;
};

}  // namespace orvane::editor
