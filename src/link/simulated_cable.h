#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>

#include "link/simulated_radio.h"

namespace orvane::link {

/// The cable to a simulated radio and the time on it: one half-duplex wire, 10 bits to a byte.
/// An echo arrives when the PC's byte has been transmitted, an answer behind it byte by byte.
/// Knows no clock: its host says what time it is (seconds, never going back).
class SimulatedCable {
 public:
  /// Baud 0: bytes take no time.
  SimulatedCable(SimulatedRadio& radio, double baud);

  /// The PC starts to transmit, or queues the bytes behind those still on the wire.
  void Transmit(std::span<const std::uint8_t> bytes, double now);

  /// A byte at the PC's end; no byte: the cable is unplugged.
  struct Arrival {
    double at = 0;
    std::optional<std::uint8_t> byte{};
  };
  /// The time of the next arrival, if anything is on its way.
  [[nodiscard]] std::optional<double> NextArrival() const;
  /// The oldest arrival that is not later than now.
  [[nodiscard]] std::optional<Arrival> Take(double now);

  /// When the plug was last pulled, which may be still to come.
  [[nodiscard]] std::optional<double> UnplugTime() const { return unplug_at_; }

 private:
  void Queue(const Arrival& arrival);

  SimulatedRadio& radio_;
  double seconds_per_byte_;
  double wire_free_at_ = 0;
  std::optional<double> unplug_at_;
  std::deque<Arrival> arrivals_;  ///< by time
};

}  // namespace orvane::link
