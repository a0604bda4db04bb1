#pragma once

#include <functional>
#include <memory>

#include "editor/commands.h"
#include "editor/window_services.h"
#include "help/help_opener.h"
#include "link/serial_port.h"
#include "link/transfer_session.h"
#include "platform/interrupts.h"
#include "platform/report_printer.h"

namespace orvane::editor {

/// The commands of the real program. What the services name outlives this object.
class WindowCommands : public Commands {
 public:
  struct Devices {
    /// Called for each run of a transfer with the port number chosen then.
    std::function<std::unique_ptr<link::SerialPort>(int port_number)> make_port;
    platform::ReportPrinter& printer;
    help::HelpOpener* help;              ///< null: the program has no help
    platform::Interrupts* interrupts{};  ///< null: a transfer ends by itself or by Cancel only
  };
  WindowCommands(const WindowServices& services, const Devices& devices);

  void Print(CommandHost& host) override;
  void PrintToFile(CommandHost& host) override;
  void Program(CommandHost& host) override;
  void Read(CommandHost& host) override;
  void SaveHex(CommandHost& host) override;
  void LoadHex(CommandHost& host) override;
  void Help(CommandHost& host, int context) override;
  void HelpContents(CommandHost& host) override;
  void CloseHelp() override;
  void ReopenHelp() override;
  void About(CommandHost& host) override;

 private:
  /// Runs the transfer dialog; true when a transfer completed.
  bool Transfer(CommandHost& host, link::SessionKind kind);
  void PrintAsPdf(CommandHost& host);
  void ReportPrintFailure(const core::SystemError& failure);

  const WindowServices services_;
  const Devices devices_;
  core::RadioData& data_;
  bool radio_partly_written_ = false;
};

}  // namespace orvane::editor
