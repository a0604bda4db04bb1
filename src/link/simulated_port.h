#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>

#include "core/services.h"
#include "link/serial_port.h"
#include "link/simulated_cable.h"

namespace orvane::link {

/// A serial port in memory with a simulated radio at its end. Time is the given clock's; nothing
/// ever waits. Deterministic.
class SimulatedPort : public SerialPort {
 public:
  /// Baud 0: bytes take no time.
  SimulatedPort(SimulatedRadio& radio, const core::Clock& clock, double baud = 0);

  /// Fails while the cable is unplugged.
  [[nodiscard]] std::optional<core::SystemError> Open() override;
  void Close() override { open_ = false; }
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] std::size_t Waiting() override;
  [[nodiscard]] std::optional<std::uint8_t> ReadByte() override;
  void DiscardInput() override;
  [[nodiscard]] std::optional<core::SystemError> Write(
      std::span<const std::uint8_t> bytes) override;
  void SetDtr(bool /*on*/) override {}
  void SetRts(bool /*on*/) override {}
  [[nodiscard]] std::optional<core::SystemError> Failure() const override;

  /// For the pump of a virtual clock: the time at which something arrives that was not there when
  /// the port was last looked at, if that is before the deadline. Bytes that were there and were
  /// left unread wake nobody, as with a real port.
  [[nodiscard]] std::optional<double> NextWake(double deadline);

 private:
  /// Takes what has arrived by now; true when there was anything.
  bool Collect();

  SimulatedRadio& radio_;
  const core::Clock& clock_;
  SimulatedCable cable_;
  std::deque<std::uint8_t> received_;
  bool open_ = false;
};

}  // namespace orvane::link
