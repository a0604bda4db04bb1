#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "link/doctor.h"

namespace orvane::testing {

/// Names the same programs as holders of every device.
class ScriptedDevices : public link::DeviceFacts {
 public:
  std::vector<std::vector<link::PortHolder>> HoldersOf(
      const std::vector<std::string>& devices) override {
    return {devices.size(), holders};
  }
  std::vector<link::PortHolder> Running(std::string_view /*program*/) override { return {}; }
  link::DeviceGroup GroupOf(const std::string& /*device*/) override { return {}; }

  std::vector<link::PortHolder> holders;
};

}  // namespace orvane::testing
