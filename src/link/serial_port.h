#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/services.h"

namespace orvane::link {

/// One serial port at 9600 baud, 8 data bits, no parity, 1 stop bit. Nothing here blocks; waiting
/// is the business of EventPump, which wakes when a byte arrives at an open port.
class SerialPort {
 public:
  virtual ~SerialPort() = default;
  /// Opens the port; the details of the failure hold number and the system's words, with the
  /// remedy on the next line where one is known.
  [[nodiscard]] virtual std::optional<core::SystemError> Open() = 0;
  virtual void Close() = 0;
  [[nodiscard]] virtual bool IsOpen() const = 0;
  /// Bytes received and not yet read.
  [[nodiscard]] virtual std::size_t Waiting() = 0;
  /// The oldest received byte; nothing when none waits.
  [[nodiscard]] virtual std::optional<std::uint8_t> ReadByte() = 0;
  virtual void DiscardInput() = 0;
  /// Queues the bytes for transmission in order.
  [[nodiscard]] virtual std::optional<core::SystemError> Write(
      std::span<const std::uint8_t> bytes) = 0;
  /// Modem lines; a device that has none is no failure.
  virtual void SetDtr(bool on) = 0;
  virtual void SetRts(bool on) = 0;
  /// The device's failure since it was opened (unplugged, I/O error), if any.
  [[nodiscard]] virtual std::optional<core::SystemError> Failure() const = 0;
};

}  // namespace orvane::link
