#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/radio_data.h"
#include "core/services.h"

/// The few values kept between runs, the command-line words, and the destination templates that
/// stand beside the program.
namespace orvane::core {

/// What the arguments of the window's program ask of it. Words count in either letter case, and
/// an argument may hold several of them: a desktop entry may hand them over as one.
struct StartWords {
  bool debug = false;                ///< "/D"
  bool help = false;                 ///< "--help", "-h"
  bool version = false;              ///< "--version"
  bool read = false;                 ///< "--read"
  bool simulated_radio = false;      ///< "--simulated-radio"
  std::string file;                  ///< to open, "" for none
  std::vector<std::string> unknown;  ///< other words, "-x" and "/X", which are ignored
  std::vector<std::string> refused;  ///< further files: the program opens one
};
[[nodiscard]] StartWords ReadStartWords(const std::vector<std::string>& arguments);

struct WindowGeometry {  ///< twips: 1/1440 inch, 15 to a device-independent pixel
  int left = 0, top = 0, width = 0, height = 0;
  bool operator==(const WindowGeometry&) const = default;
};

/// Typed access to the settings store. Missing or unreadable values take their defaults.
class AppSettings {
 public:
  explicit AppSettings(SettingsStore& store) : store_(store) {}

  /// An earlier run has left any of the values below, the destinations aside.
  [[nodiscard]] bool WereKept() const;
  [[nodiscard]] int PortNumber() const;  ///< default 1
  void SetPortNumber(int number);
  [[nodiscard]] std::int16_t ModelType() const;  ///< default 5
  void SetModelType(std::int16_t model_type);
  [[nodiscard]] std::string Destination(std::int16_t model_type) const;  ///< default "KT740-usa"
  void SetDestination(std::int16_t model_type, std::string_view name);
  /// Full paths of the files last opened or saved, the latest first; at most kRecentFiles.
  [[nodiscard]] std::vector<std::string> RecentFiles() const;
  void AddRecentFile(const std::string& path);
  static constexpr std::size_t kRecentFiles = 10;
  /// What a program run does beside writing: on, unless the user has switched it off.
  [[nodiscard]] bool KeepsCopyFirst() const;
  void SetKeepsCopyFirst(bool keeps);
  [[nodiscard]] bool ReadsBack() const;
  void SetReadsBack(bool reads);
  /// What parts the cells of exported tables, by its place in the list offered; nothing at first.
  [[nodiscard]] std::optional<int> TableSeparator() const;
  void SetTableSeparator(int place);
  [[nodiscard]] std::optional<WindowGeometry> MainWindow() const;
  void SetMainWindow(const WindowGeometry& geometry);

 private:
  SettingsStore& store_;
};

/// The destination that needs no template file and stands for a SEL1 bit.
[[nodiscard]] std::string_view BuiltInDestination(bool sel1);

/// Name of the template file of a destination: name, "_", four hexadecimal digits of the model
/// code, ".ini".
[[nodiscard]] std::string DestinationFileName(std::string_view name, std::int16_t model_type);

/// Destinations to offer: the template files found (sorted by name without regard to letter
/// case, at most 10), then the two
/// built-in ones where they are missing and there is room for them.
[[nodiscard]] std::vector<std::string> DestinationNames(const std::vector<std::string>& file_names,
                                                        std::int16_t model_type);

}  // namespace orvane::core
