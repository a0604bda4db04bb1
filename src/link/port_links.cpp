#include "link/port_links.h"

#include "core/product.h"
#include "link/port_name.h"

namespace orvane::link {

std::string ConfigRoot(std::string_view xdg_config_home, std::string_view home) {
  if (xdg_config_home.starts_with('/')) return std::string(xdg_config_home);
  if (home.empty()) return {};
  return std::string(home) + "/.config";
}

std::string PortsFolder(std::string_view config_root) {
  return std::string(config_root) + "/" + std::string(core::kProductName) + "/ports";
}

std::optional<int> ParsePortLinkName(std::string_view file_name) {
  for (int number = kFirstPortNumber; number <= kLastPortNumber; ++number) {
    if (file_name == PortName(number)) return number;
  }
  return std::nullopt;
}

}  // namespace orvane::link
