#include "link/radio_program.h"

#include <algorithm>

#include "link/port_links.h"
#include "link/port_name.h"

namespace orvane::link {
namespace {

constexpr std::string_view kIs = " is ";

}  // namespace

bool IsSimulatedRadio(const PortLabel& port) {
  return port.description == kSimulatedRadio;
}

std::vector<std::string> RadioProgramWords(std::int16_t model_type,
                                           const std::vector<int>& numbers) {
  std::string ports;
  for (const int number : numbers) {
    if (!ports.empty()) ports += kBetweenPorts;
    ports += std::to_string(number);
  }
  return {std::string(kModelOption), std::to_string(model_type),
          std::string(kPortOption),  ports,
          std::string(kQuietOption), std::string(kUntilInputEndsOption)};
}

std::string RadioReadyLine(int number, std::string_view device) {
  return PortName(number).append(kIs).append(device);
}

std::optional<int> NumberOfReadyLine(std::string_view line) {
  const std::size_t at = line.find(kIs);
  if (at == std::string_view::npos || at + kIs.size() == line.size()) return std::nullopt;
  return ParsePortLinkName(line.substr(0, at));
}

std::vector<int> NumbersForSimulatedRadio(const std::vector<PortEntry>& ports,
                                          const std::function<bool(int number)>& is_spoken_for) {
  std::vector<int> numbers;
  for (int number = kLastPortNumber; number >= kFirstPortNumber; --number) {
    const bool there = std::any_of(ports.begin(), ports.end(), [number](const PortEntry& port) {
      return port.port_number == number;
    });
    if (!there && !is_spoken_for(number)) numbers.push_back(number);
  }
  return numbers;
}

}  // namespace orvane::link
