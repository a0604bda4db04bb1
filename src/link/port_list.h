#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orvane::link {

/// A serial device as the system names it.
struct FoundPort {
  std::string name;           ///< port name, "COM" and a number
  std::string friendly_name;  ///< description that ends in "(COM" number ")"; "" when there is none
  std::string device;         ///< what to open
};

/// Enumerates the machine's serial devices.
class PortFinder {
 public:
  virtual ~PortFinder() = default;
  [[nodiscard]] virtual std::vector<FoundPort> FindPorts() = 0;
};

struct PortEntry {
  std::int16_t port_number = 0;  ///< 1..16 for a valid entry
  bool found = false;
  std::string description;  ///< the friendly name up to the text that names the port
  std::string device;

  bool operator==(const PortEntry&) const = default;
};

/// The serial ports to offer: numbers 1..16 with a description, in ascending order.
class CComList {
 public:
  static constexpr int kCapacity = 64;

  explicit CComList(PortFinder& finder) : finder_(finder) {}

  /// Rebuilds the list; returns the new count.
  std::int16_t Create();
  /// "COM", number, blank, description; "" for an index without a valid entry.
  [[nodiscard]] std::string RefComName(int index) const;
  /// An empty entry (number 0) outside the valid ones.
  [[nodiscard]] PortEntry PortItem(int index) const;
  /// Index of the entry with that number, -1 when there is none.
  [[nodiscard]] std::int16_t FindPortIndex(int number) const;

 private:
  PortFinder& finder_;
  std::array<PortEntry, kCapacity> entries_;
  std::int16_t count_ = 0;
};

/// The ports that are offered now, in ascending order.
[[nodiscard]] std::vector<PortEntry> PortsNow(PortFinder& finder);

/// A port as the user knows it.
struct PortLabel {
  std::string name;         ///< "COM" and a number, or the device that was asked for
  std::string description;  ///< "" when the system does not list the port
  std::string device{};     ///< behind that name now; "" when the system does not list the port

  /// Name, blank, description.
  [[nodiscard]] std::string Text() const;
};
[[nodiscard]] PortLabel LabelOf(const PortEntry& port);
/// The number need not be among the ports of the system.
[[nodiscard]] PortLabel LabelOfPort(PortFinder& finder, int number);

/// A number that the user has given to a device.
struct PinnedPort {
  int number = 0;
  std::string device;
  std::string description{};  ///< for a device that the system does not list
};

/// Names for the devices of a system that has no port numbers: pinned ones keep theirs, whether or
/// not they are among the devices; the others take the free numbers 1..16 in the order given. What
/// does not fit is left out. Names of the devices passed in are not looked at; their friendly name
/// is a bare description, and one without any is described by its device.
[[nodiscard]] std::vector<FoundPort> NumberDevices(const std::vector<FoundPort>& devices,
                                                   const std::vector<PinnedPort>& pins);

}  // namespace orvane::link
