#pragma once

#include <string>
#include <vector>

#include "link/port_list.h"

namespace orvane::platform {

/// The machine's serial devices. Links COM1 .. COM16 in the links folder pin a number to a device,
/// whether the system lists that device or not; a link that leads nowhere is ignored. The others
/// take the free numbers: built-in ports that really exist first, then USB adapters by the socket
/// they are plugged into, so that an adapter keeps its number.
class QtPortFinder : public link::PortFinder {
 public:
  explicit QtPortFinder(std::string links_folder) : links_folder_(std::move(links_folder)) {}
  [[nodiscard]] std::vector<link::FoundPort> FindPorts() override;

 private:
  std::string links_folder_;
};

/// What to open for a port number. A number that is not in the list gives "COM" and the number, so
/// that opening it fails with the system's words.
[[nodiscard]] std::string DeviceOfPort(link::PortFinder& finder, int number);

}  // namespace orvane::platform
