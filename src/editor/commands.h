#pragma once

#include <QWidget>

namespace orvane::editor {

/// What a command asks of the window it was chosen in.
class CommandHost {
 public:
  virtual ~CommandHost() = default;
  /// Parent for the command's own windows; disabled while a command works (see Working).
  [[nodiscard]] virtual QWidget& Widget() = 0;
  /// Checks the page on show. False: the message has been shown and the command must not run.
  [[nodiscard]] virtual bool CheckPage() = 0;
  /// Shows the page "General" without checking the one left: for data that is about to be, or has
  /// just been, replaced.
  virtual void ShowGeneralPage() = 0;
  /// Fills the page on show anew, after the data changed underneath it.
  virtual void ShowPageAgain() = 0;
  /// Everything that shows data follows it: tree, page, title, model name.
  virtual void RefreshAfterLoad() = 0;
  /// The same for a data set that a file or a radio has replaced.
  virtual void DataReplaced() = 0;
  /// Resets the data set and refreshes; the commands New and Select destination end in it.
  virtual void ResetData(bool rebuild_destinations) = 0;
  /// Checks the Destination entry that the image's SEL1 bit stands for.
  virtual void CheckDestinationOfImage() = 0;
  virtual void RefreshTitle() = 0;
  /// Pick lists and visible controls follow the model.
  virtual void ModelChanged() = 0;
  /// Lets the window process its messages for that long.
  virtual void Wait(double seconds) = 0;
  /// The serial port chosen in the menu, or kept from the last run; it may be absent just now.
  [[nodiscard]] virtual int PortNumber() const = 0;
};

/// Every file operation and reset shows its hourglass at least that long, in seconds.
inline constexpr double kCommandPause = 0.5;

/// The commands that open windows of their own or talk to devices. Each runs its own page check
/// first where it needs one, and tells the user itself what goes wrong.
class Commands {
 public:
  virtual ~Commands() = default;
  virtual void Print(CommandHost& host) = 0;
  virtual void PrintToFile(CommandHost& host) = 0;
  virtual void Program(CommandHost& host) = 0;
  virtual void Read(CommandHost& host) = 0;
  /// Debug mode only: the window does not call these otherwise.
  virtual void SaveHex(CommandHost& host) = 0;
  virtual void LoadHex(CommandHost& host) = 0;
  /// context is never 0.
  virtual void Help(CommandHost& host, int context) = 0;
  /// The help from its first page.
  virtual void HelpContents(CommandHost& host) = 0;
  virtual void CloseHelp() = 0;
  /// The help as it was before CloseHelp().
  virtual void ReopenHelp() = 0;
  virtual void About(CommandHost& host) = 0;
};

}  // namespace orvane::editor
