#pragma once

#include <string>

/// Where the program finds its files. All paths are UTF-8 and absolute; a QCoreApplication must
/// exist.
namespace orvane::platform {

/// The executable's folder.
[[nodiscard]] std::string ProgramFolder();
/// Data files that come with the program (templates, help, logo): the share folder of an
/// installed program, else the program's folder.
[[nodiscard]] std::string DataFolder();
/// The user's configuration folder of the program. Not created.
[[nodiscard]] std::string ConfigFolder();
[[nodiscard]] std::string SettingsPath();
/// Links in it pin port numbers to devices.
[[nodiscard]] std::string PortLinksFolder();
/// The user's folder for what can be made again. Not created.
[[nodiscard]] std::string CacheFolder();
/// Snapshots of data sets that were replaced, read or programmed. Not created.
[[nodiscard]] std::string BackupsFolder();
/// Previous versions of saved files. Not created.
[[nodiscard]] std::string PreviousFolder();
/// Copies of files that could only be overwritten in place. Not created.
[[nodiscard]] std::string CopiesFolder();
/// Marks of radios that were left partly written. Not created.
[[nodiscard]] std::string MarksFolder();
/// Unsaved work, while the program runs and after it was killed. Not created.
[[nodiscard]] std::string RecoveryFolder();
/// err.log in the program's folder when it may be written there and the program is not installed,
/// else in the user's state folder.
[[nodiscard]] std::string ErrorLogPath();

}  // namespace orvane::platform
