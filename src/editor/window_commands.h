#pragma once

#include <functional>

#include "editor/command_host.h"
#include "editor/file_commands.h"
#include "editor/window_services.h"
#include "files/snapshot.h"

namespace orvane::editor {

/// The commands that open windows of their own, or print. Each runs its own page check first where
/// it needs one, and tells the user itself what goes wrong.
class WindowCommands {
 public:
  /// compare: shows how a backup differs from the document.
  WindowCommands(const WindowServices& services, CommandHost& host, FileCommands& files,
                 std::function<void(files::Snapshot backup)> compare);

  void Print();
  void PrintToFile();
  /// Puts a backup in the place of the data, if one is chosen.
  void Backups();
  /// Lists, finds and tests serial ports.
  void FindCable();
  /// context is never 0.
  void Help(int context);
  /// The help from its first page.
  void HelpContents();
  void CloseHelp() const;
  /// The help as it was before CloseHelp().
  void ReopenHelp() const;
  void About();

 private:
  void PrintAsPdf();
  [[nodiscard]] files::Imprint Imprint() const;
  void ReportPrintFailure(const core::SystemError& failure);

  const WindowServices services_;
  document::Document& document_;
  CommandHost& host_;
  FileCommands& file_commands_;
  const std::function<void(files::Snapshot backup)> compare_;
};

}  // namespace orvane::editor
