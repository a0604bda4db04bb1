#include "link/port_links.h"

#include "core/app_settings.h"

namespace orvane::link {
namespace {

constexpr std::string_view kLinkWord = "COM";

}  // namespace

std::string ConfigRoot(std::string_view xdg_config_home, std::string_view home) {
  if (xdg_config_home.starts_with('/')) return std::string(xdg_config_home);
  if (home.empty()) return {};
  return std::string(home) + "/.config";
}

std::string PortsFolder(std::string_view config_root) {
  return std::string(config_root) + "/" + std::string(core::kProductName) + "/ports";
}

std::string PortLinkName(int number) {
  return std::string(kLinkWord) + std::to_string(number);
}

std::optional<int> ParsePortLinkName(std::string_view file_name) {
  for (int number = 1; number <= kLastPortNumber; ++number) {
    if (file_name == PortLinkName(number)) return number;
  }
  return std::nullopt;
}

}  // namespace orvane::link
