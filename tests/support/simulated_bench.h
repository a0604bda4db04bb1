#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "link/simulated_port.h"
#include "link/simulated_radio.h"
#include "support/fakes.h"

namespace orvane::testing {

/// A simulated radio at the end of an in-memory port, with a clock that moves to whatever arrives
/// next while somebody waits. Baud 0: bytes take no time.
struct SimulatedBench {
  explicit SimulatedBench(std::span<const std::uint8_t> memory, double baud = 0,
                          link::FaultPlan faults = {})
      : radio(memory, std::move(faults)), port(radio, clock, baud) {
    pump.on_wait = [this](double deadline) { return port.NextWake(deadline); };
    radio.SetObserver([this](const link::Exchange& exchange) { asked.push_back(exchange); });
  }
  SimulatedBench(const SimulatedBench&) = delete;
  SimulatedBench& operator=(const SimulatedBench&) = delete;

  ManualClock clock;
  ManualPump pump{clock};
  link::SimulatedRadio radio;
  link::SimulatedPort port;
  std::vector<link::Exchange> asked;  ///< what the radio was asked, in order
};

}  // namespace orvane::testing
