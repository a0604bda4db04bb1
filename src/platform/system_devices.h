#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "link/doctor.h"

namespace orvane::platform {

/// Whether a device is a terminal, as every serial port is. It is not opened.
[[nodiscard]] bool IsTerminal(const std::string& device);

/// What Linux tells under /proc and by the device file. A program of another user shows its name
/// there but not what it has open. Other systems tell nothing.
class SystemDevices : public link::DeviceFacts {
 public:
  [[nodiscard]] std::vector<std::vector<link::PortHolder>> HoldersOf(
      const std::vector<std::string>& devices) override;
  [[nodiscard]] std::vector<link::PortHolder> Running(std::string_view program) override;
  [[nodiscard]] link::DeviceGroup GroupOf(const std::string& device) override;
};

}  // namespace orvane::platform
