#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"

/// What touches the world outside the process. The composition root makes one of each and hands
/// them to constructors; tests hand in scripted ones.
namespace orvane::core {

enum class Icon { kNone, kInformation, kQuestion, kExclamation, kCritical };
enum class Buttons {
  kOk,
  kOkCancel,
  kYesNo,
  kYesNoCancel,
  kRetryCancel,
  kOverwriteSaveAsCancel,
  kRestoreKeepDiscard,
  kAgainReceiptClose
};
enum class Answer {
  kOk,
  kCancel,
  kYes,
  kNo,
  kRetry,
  kOverwrite,
  kSaveAs,
  kRestore,
  kKeep,
  kDiscard,
  kProgramAgain,
  kSaveReceipt,
  kClose
};

/// One modal message box.
struct Message {
  std::string title;
  std::string text;  ///< line breaks are CR LF
  Icon icon = Icon::kNone;
  Buttons buttons = Buttons::kOk;
  std::optional<Answer> default_answer{};  ///< the button Enter presses; the first when unset
  std::string details{};  ///< reason and remedy, shown below the text or behind "Details"
};

/// Tells and asks the user. Returns only when the user has answered.
class Prompts {
 public:
  virtual ~Prompts() = default;
  virtual Answer Show(const Message& message) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  /// Seconds from an arbitrary start; never goes back, whatever happens to the wall clock.
  [[nodiscard]] virtual double Now() const = 0;
  /// Today's local date.
  [[nodiscard]] virtual Date Today() const = 0;
  /// The local time, "2026-11-24 23:40:12".
  [[nodiscard]] virtual std::string Timestamp() const = 0;
  /// The local time of day, as the user sees it: "23:40".
  [[nodiscard]] std::string TimeOfDay() const { return Timestamp().substr(11, 5); }
  /// Blocks for that long.
  virtual void Pause(double seconds) = 0;
};

/// Lets the user interface process its pending messages.
class EventPump {
 public:
  virtual ~EventPump() = default;
  /// Processes pending events once. When there are none, sleeps until an event comes (a byte at
  /// an open serial port is one) or Clock::Now() passes the deadline.
  virtual void WaitForEvents(double deadline) = 0;
  /// Processes pending events once and returns at once.
  virtual void ProcessEvents() = 0;
};

/// For work that is done at one go: nothing else happens meanwhile.
class NoEvents : public EventPump {
 public:
  void WaitForEvents(double /*deadline*/) override {}
  void ProcessEvents() override {}
};

/// A failure of the system: its number and the system's own words.
struct SystemError {
  int number = 0;
  std::string description;
};

struct SettingsEntry {
  std::string section;
  std::string key;
  std::string value;
};

/// Per-user values addressed by section and key. A missing value is not an error.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  [[nodiscard]] virtual std::optional<std::string> Read(std::string_view section,
                                                        std::string_view key) const = 0;
  /// Values that belong together are kept together: a program that ends meanwhile, by a kill or a
  /// loss of power, leaves all of them as they were or all of them new.
  virtual void WriteAll(const std::vector<SettingsEntry>& entries) = 0;

  void Write(std::string_view section, std::string_view key, std::string_view value) {
    WriteAll({{std::string(section), std::string(key), std::string(value)}});
  }
};

struct FileBytes {
  std::optional<SystemError> error;  ///< set: nothing was read
  std::string bytes;
};

/// Whole files. Paths are UTF-8.
class FileStore {
 public:
  virtual ~FileStore() = default;
  [[nodiscard]] virtual FileBytes ReadFile(const std::string& path) = 0;
  /// The same for the first bytes alone, at most that many.
  [[nodiscard]] virtual FileBytes ReadStart(const std::string& path, std::size_t most) = 0;
  /// Length in bytes, nothing when there is no such file.
  [[nodiscard]] virtual std::optional<std::uint64_t> FileSize(const std::string& path) = 0;
  /// Atomic: afterwards the file is the new one, whole, or the old one, whole. Returns the
  /// failure, or nothing on success.
  [[nodiscard]] virtual std::optional<SystemError> WriteFile(const std::string& path,
                                                             std::string_view bytes) = 0;
  /// Tells before any long work whether WriteFile could succeed; changes nothing.
  [[nodiscard]] virtual std::optional<SystemError> CheckWritable(const std::string& path) = 0;
  /// Names (without folder) of the files in a folder, in directory order; empty when unreadable.
  [[nodiscard]] virtual std::vector<std::string> ListFolder(const std::string& folder) = 0;
  /// With those above it; one that is there already is no failure.
  [[nodiscard]] virtual std::optional<SystemError> MakeFolder(const std::string& folder) = 0;
  /// A file that is gone already is no failure.
  [[nodiscard]] virtual std::optional<SystemError> RemoveFile(const std::string& path) = 0;
};

/// The file err.log. The composition hands in one that writes only in debug mode.
class ErrorLog {
 public:
  virtual ~ErrorLog() = default;
  /// Appends date "," time ":" routine " -> " message CR LF.
  virtual void Write(std::string_view routine, std::string_view message) = 0;
};

}  // namespace orvane::core
