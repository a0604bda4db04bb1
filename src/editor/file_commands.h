#pragma once

#include <QObject>
#include <QTimer>
#include <memory>
#include <string>

#include "editor/commands.h"
#include "editor/window_services.h"
#include "editor/working.h"

namespace orvane::editor {

/// The commands of the File menu that concern the settings file.
///
/// The cancel flag tells how the last one went: set while it runs, clear only when it completed.
/// The current file name and the title change with success only. Neither opening nor saving
/// touches the data-changed flag.
class FileCommands : public QObject {
  Q_OBJECT

 public:
  FileCommands(const WindowServices& services, CommandHost& host);

  /// After the page check, resets the data shortly after, when the menu has closed. Asks nothing.
  void New();
  /// New without the page check, for callers that have made it.
  void NewUnchecked();
  void Open();
  /// Opens a file without asking which.
  void OpenFile(const std::string& path);
  void Save() { SaveSettings(true); }
  void SaveAs() { SaveSettings(false); }

  /// Asks about changed data. True when the window may close.
  [[nodiscard]] bool AskBeforeClosing();

 private:
  void Reset();
  void ReadFile(const std::string& path);
  void SaveSettings(bool reuse_name);
  void NoticeNarrowband();
  void SaveFileAs(const std::string& path);

  const WindowServices services_;
  core::RadioData& data_;
  CommandHost& host_;
  QTimer new_timer_;  ///< a child of the window
  /// From the decision to reset until it is done: nothing may touch data that is on its way out.
  std::unique_ptr<Working> resetting_;
};

/// Product name, program title and the current file's name without its folder, in lower case.
[[nodiscard]] QString WindowTitle(const core::RadioData& data);

}  // namespace orvane::editor
