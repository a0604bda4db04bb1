#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Where port numbers are pinned to devices: links named COM1 .. COM16 in the folder `ports` of
/// the user's configuration folder. A simulated radio adds one while it runs.
namespace orvane::link {

/// The folder of the user's configuration files: XDG_CONFIG_HOME when it is an absolute path, else
/// `.config` in the home folder; "" when neither is known.
[[nodiscard]] std::string ConfigRoot(std::string_view xdg_config_home, std::string_view home);
/// The folder of the links below a configuration folder.
[[nodiscard]] std::string PortsFolder(std::string_view config_root);
/// The number 1..16 of a link, nothing for any other file name.
[[nodiscard]] std::optional<int> ParsePortLinkName(std::string_view file_name);

/// Whether a character device is a serial or a pseudo-terminal, told by its numbers and the text
/// of /proc/tty/drivers: a line for each driver with its name, path, major number, minor number or
/// numbers ("64" or "0-255") and type.
[[nodiscard]] bool HasTerminalDriver(std::string_view drivers, unsigned major, unsigned minor);

}  // namespace orvane::link
