#pragma once

#include <QSerialPort>
#include <QTimer>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/services.h"
#include "link/serial_port.h"

namespace orvane::platform {

/// A serial device of the machine, or anything that behaves like one (a pseudo-terminal). Bytes
/// arrive and leave while the event loop runs; a Write goes to the device at once as far as the
/// device takes it.
///
/// After a failure (unplugged) the port still counts as open until Close, the bytes received
/// before it can be read, and Write reports it.
class QtSerialPort : public link::SerialPort {
 public:
  /// A device path, or the system's name of a port.
  explicit QtSerialPort(std::string device);

  [[nodiscard]] std::optional<core::SystemError> Open() override;
  void Close() override;
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] std::size_t Waiting() override { return received_.size() - taken_; }
  [[nodiscard]] std::optional<std::uint8_t> ReadByte() override;
  void DiscardInput() override;
  [[nodiscard]] std::optional<core::SystemError> Write(
      std::span<const std::uint8_t> bytes) override;
  void SetDtr(bool on) override;
  void SetRts(bool on) override;
  [[nodiscard]] std::optional<core::SystemError> Failure() const override { return failure_; }

 private:
  void TakeReceived();
  void DeviceFailed(QSerialPort::SerialPortError error);

  std::string device_;
  QSerialPort port_;
  QTimer release_;  ///< closes a port whose device failed
  bool open_ = false;
  bool errors_count_ = false;  ///< false while calls run whose failure means nothing
  std::optional<core::SystemError> failure_;
  std::string received_;
  std::size_t taken_ = 0;  ///< how many of the received bytes have been read
};

}  // namespace orvane::platform
