#include "link/port_list.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string_view>

#include "core/text.h"
#include "link/port_name.h"

namespace orvane::link {
namespace {

constexpr std::size_t kMostNames = CComList::kCapacity - 1;
// Sorts behind every port that is offered.
constexpr std::int16_t kNotOffered = 32767;

// The text in a friendly name that says which port it is.
std::string NameInParentheses(int number) {
  return "(" + PortName(number) + ")";
}

// The number behind "COM"; 0 when there is none.
int ParsePortNumber(std::string_view name) {
  const std::string upper = core::UpperCase(name);
  const std::size_t at = upper.find(kPortWord);
  if (at == std::string::npos) return 0;
  const char* digits = upper.data() + at + kPortWord.size();
  int number = 0;
  const auto result = std::from_chars(digits, upper.data() + upper.size(), number);
  return result.ec == std::errc() ? number : 0;
}

}  // namespace

std::int16_t CComList::Create() {
  count_ = 0;
  entries_.fill({});
  std::vector<FoundPort> found = finder_.FindPorts();
  if (found.size() > kMostNames) found.resize(kMostNames);

  std::size_t parsed = 0;
  for (const FoundPort& port : found) {
    const int number = ParsePortNumber(port.name);
    if (!IsPortNumber(number)) continue;
    PortEntry& entry = entries_[parsed++];
    entry.port_number = static_cast<std::int16_t>(number);
    entry.device = port.device;
  }

  const auto begin = entries_.begin();
  const auto end = begin + static_cast<std::ptrdiff_t>(parsed);
  for (const FoundPort& port : found) {
    const auto place = [&](const PortEntry& entry) {
      return port.friendly_name.find(NameInParentheses(entry.port_number));
    };
    const auto match = std::find_if(
        begin, end, [&](const PortEntry& entry) { return place(entry) != std::string::npos; });
    if (match == end) continue;
    match->found = true;
    match->description = port.friendly_name.substr(0, place(*match));
  }

  count_ = static_cast<std::int16_t>(
      std::count_if(begin, end, [](const PortEntry& entry) { return entry.found; }));
  std::for_each(begin, end, [](PortEntry& entry) {
    if (!entry.found) entry.port_number = kNotOffered;
  });
  std::stable_sort(begin, end, [](const PortEntry& a, const PortEntry& b) {
    return a.port_number < b.port_number;
  });
  return count_;
}

std::string CComList::RefComName(int index) const {
  const PortEntry entry = PortItem(index);
  if (!IsPortNumber(entry.port_number)) return {};
  return PortName(entry.port_number) + " " + entry.description;
}

PortEntry CComList::PortItem(int index) const {
  return index >= 0 && index < count_ ? entries_[static_cast<std::size_t>(index)] : PortEntry{};
}

std::int16_t CComList::FindPortIndex(int number) const {
  for (std::int16_t index = 0; index < count_; ++index) {
    if (entries_[static_cast<std::size_t>(index)].port_number == number) return index;
  }
  return -1;
}

std::vector<PortEntry> PortsNow(PortFinder& finder) {
  CComList list(finder);
  std::vector<PortEntry> ports;
  for (int index = 0, count = list.Create(); index < count; ++index) {
    ports.push_back(list.PortItem(index));
  }
  return ports;
}

std::string PortLabel::Text() const {
  return description.empty() ? name : name + " " + description;
}

PortLabel LabelOf(const PortEntry& port) {
  return {PortName(port.port_number), std::string(core::Trim(port.description)), port.device};
}

PortLabel LabelOfPort(PortFinder& finder, int number) {
  CComList ports(finder);
  ports.Create();
  const int index = ports.FindPortIndex(static_cast<std::int16_t>(number));
  const PortEntry port = ports.PortItem(index);
  return {PortName(number), std::string(core::Trim(port.description)), port.device};
}

std::vector<FoundPort> NumberDevices(const std::vector<FoundPort>& devices,
                                     const std::vector<PinnedPort>& pins) {
  std::array<bool, kLastPortNumber + 1> taken{};
  std::vector<FoundPort> numbered;
  const auto add = [&](int number, const std::string& device, const std::string& description) {
    taken[static_cast<std::size_t>(number)] = true;
    const std::string& words = description.empty() ? device : description;
    numbered.push_back({PortName(number), words + " " + NameInParentheses(number), device});
  };

  for (const PinnedPort& pin : pins) {
    if (!IsPortNumber(pin.number) || taken[static_cast<std::size_t>(pin.number)]) continue;
    const auto device = std::find_if(devices.begin(), devices.end(), [&](const FoundPort& found) {
      return found.device == pin.device;
    });
    const bool known = device != devices.end() && !device->friendly_name.empty();
    add(pin.number, pin.device, known ? device->friendly_name : pin.description);
  }

  const auto is_pinned = [&](const FoundPort& device) {
    return std::any_of(numbered.begin(), numbered.end(),
                       [&](const FoundPort& port) { return port.device == device.device; });
  };
  std::vector<FoundPort> free;
  std::copy_if(devices.begin(), devices.end(), std::back_inserter(free),
               [&](const FoundPort& device) { return !is_pinned(device); });
  int number = kFirstPortNumber;
  for (const FoundPort& device : free) {
    while (number <= kLastPortNumber && taken[static_cast<std::size_t>(number)]) ++number;
    if (number > kLastPortNumber) break;
    add(number, device.device, device.friendly_name);
  }
  return numbered;
}

}  // namespace orvane::link
