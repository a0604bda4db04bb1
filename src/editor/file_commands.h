#pragma once

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <string>

#include "core/messages.h"
#include "editor/command_host.h"
#include "editor/window_services.h"
#include "editor/working.h"
#include "files/previous_version.h"

namespace orvane::editor {

/// The commands of the File menu that concern the settings file, and the two that service keeps
/// for images.
///
/// The cancel flag tells how the last one went: set while it runs, clear only when it completed.
/// The document takes another data set or file name with success only.
class FileCommands : public QObject {
  Q_OBJECT

 public:
  FileCommands(const WindowServices& services, CommandHost& host);

  /// After the page check, resets the data shortly after, when the menu has closed. Asks nothing.
  void New();
  /// New of that model without the page check, for callers that have made it. step: its name in
  /// the history.
  void NewUnchecked(std::int16_t model_type, std::string step);
  void Open();
  /// Opens a file without asking which: a settings file, or a snapshot or an image by its name's
  /// ending. A snapshot does not become the document's file.
  void OpenFile(const std::string& path);
  void Save() { SaveSettings(true); }
  void SaveAs() { SaveSettings(false); }

  /// Debug mode only; nothing happens otherwise.
  void SaveImage();
  void LoadImage();

  /// The window got the focus: says so when another program has changed the file meanwhile.
  void LookAtFile();

  /// Asks about changed data. True when the window may close.
  [[nodiscard]] bool AskBeforeClosing();

 private:
  void Reset();
  void ReadFile(const std::string& path);
  void SaveSettings(bool reuse_name);
  void NoticeNarrowband();
  void SaveFileAs(const std::string& path);
  void Replace(const char* verb, document::Contents contents);
  void LoadImageFile(const std::string& path);
  void OpenSnapshot(const std::string& path);
  void TellFailure(core::MessageId id, const std::string& path, const core::SystemError& failure);
  /// What the file at the path holds, before it is saved over. The notice of a failure, which keeps
  /// nobody from saving.
  [[nodiscard]] QString KeepPrevious(files::PreviousVersion& previous, const std::string& path);
  /// Another program has written the document's file since it was read or written here.
  [[nodiscard]] bool IsOvertaken() const;
  [[nodiscard]] std::size_t PrintOfFile(const std::string& path) const;
  /// The path to save to, "" when the user keeps the file as it is.
  [[nodiscard]] std::string PathToSave(bool reuse_name);
  [[nodiscard]] platform::FileDialogRequest Request(const char* filter) const;

  const WindowServices services_;
  document::Document& document_;
  core::RunState& state_;
  CommandHost& host_;
  QTimer new_timer_;  ///< a child of the window
  std::int16_t new_model_ = 0;
  std::string new_step_;
  /// From the decision to reset until it is done: nothing may touch data that is on its way out.
  std::unique_ptr<Working> resetting_;
  bool overtaking_told_ = false;
};

/// Product name, program title and the file's name without its folder, in lower case.
[[nodiscard]] QString WindowTitle(const std::string& file_name);

}  // namespace orvane::editor
