#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "core/services.h"
#include "link/simulated_cable.h"
#include "link/simulated_radio.h"
#include "sim/host_system.h"

namespace orvane::sim {

struct HostSettings {
  double baud = 9600;
  double replug_seconds = 3;  ///< until a pulled plug is put back
};

/// Plays the radio at a terminal: passes bytes on when their time on the wire is over, puts a
/// pulled plug back, and has the memory saved once the PC has stopped writing to it.
class RadioHost {
 public:
  /// Seconds without a write after which the memory is saved.
  static constexpr double kSaveAfter = 1;

  struct Services {
    Terminal& terminal;
    PortRegistration& registration;
    std::function<void(const std::string& line)> log;  ///< one line about each exchange
    std::ostream& out;                                 ///< where the device is to be found
    std::ostream& err;
    /// Saves the memory; nothing when it is not kept.
    std::function<std::optional<core::SystemError>(std::span<const std::uint8_t>)> save;
  };

  RadioHost(link::SimulatedRadio& radio, const HostSettings& settings, Services services);
  RadioHost(const RadioHost&) = delete;
  RadioHost& operator=(const RadioHost&) = delete;

  /// Runs until the user wants to stop. The program's exit status: 0, or 1 when the port could
  /// not be had or the memory not be saved.
  [[nodiscard]] int Run();

 private:
  [[nodiscard]] bool PutPlugIn();
  void TakeFromPc();
  void DeliverToPc();
  void PullPlug();
  void Save();
  [[nodiscard]] std::optional<double> NextTime() const;

  link::SimulatedRadio& radio_;
  HostSettings settings_;
  Services services_;
  link::SimulatedCable cable_;
  std::optional<double> replug_at_;
  std::optional<double> save_at_;  ///< set: something was written that is not saved
  bool save_failed_ = false;
};

}  // namespace orvane::sim
