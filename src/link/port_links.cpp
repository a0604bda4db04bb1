#include "link/port_links.h"

#include <charconv>
#include <cstddef>
#include <vector>

#include "core/product.h"
#include "core/text.h"
#include "link/port_name.h"

namespace orvane::link {
namespace {

std::optional<unsigned> Number(std::string_view text) {
  unsigned number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

/// The words of a line, between blanks.
std::vector<std::string_view> Words(std::string_view line) {
  std::vector<std::string_view> words = core::Split(line, ' ');
  std::erase(words, std::string_view());
  return words;
}

bool IsAmong(std::string_view minors, unsigned minor) {
  const std::vector<std::string_view> ends = core::Split(minors, '-');
  const std::optional<unsigned> first = Number(ends.front());
  const std::optional<unsigned> last = Number(ends.back());
  return first && last && minor >= *first && minor <= *last;
}

}  // namespace

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

bool HasTerminalDriver(std::string_view drivers, unsigned major, unsigned minor) {
  constexpr std::size_t kWords = 5;
  for (const std::string_view line : core::Split(drivers, '\n')) {
    const std::vector<std::string_view> words = Words(line);
    if (words.size() != kWords || Number(words[2]) != major) continue;
    const bool terminal = words[4] == "serial" || words[4] == "pty:slave";
    if (terminal && IsAmong(words[3], minor)) return true;
  }
  return false;
}

}  // namespace orvane::link
