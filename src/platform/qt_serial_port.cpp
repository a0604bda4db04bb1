#include "platform/qt_serial_port.h"

#include <QByteArray>
#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/ansi_text.h"
#include "platform/serial_open_failure.h"

namespace orvane::platform {
namespace {

bool IsHarmless(QSerialPort::SerialPortError error) {
  return error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
         error == QSerialPort::UnsupportedOperationError;
}

// A device that vanishes ends as a read of nothing, for which the system gives no reason; Qt then
// shows that of some earlier call.
core::SystemError DeviceGone() {
  return {EIO, std::generic_category().message(EIO) +
                   "\r\nThe port no longer answers. Check that the cable is plugged in."};
}

}  // namespace

QtSerialPort::QtSerialPort(std::string device) : device_(std::move(device)) {
  QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { TakeReceived(); });
  QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                   [this](QSerialPort::SerialPortError error) { DeviceFailed(error); });
  // A hung-up device reports itself as readable for ever. It is let go, but only from the event
  // loop: the port is still at work when it reports its failure.
  release_.setSingleShot(true);
  release_.setInterval(0);
  QObject::connect(&release_, &QTimer::timeout, &port_, [this] {
    if (failure_ && port_.isOpen()) port_.close();
  });
}

std::optional<core::SystemError> QtSerialPort::Open() {
  Close();
  port_.setPortName(FromUtf8(device_));
  port_.setBaudRate(QSerialPort::Baud9600);
  port_.setDataBits(QSerialPort::Data8);
  port_.setParity(QSerialPort::NoParity);
  port_.setStopBits(QSerialPort::OneStop);
  port_.setFlowControl(QSerialPort::NoFlowControl);
  if (!port_.open(QIODevice::ReadWrite)) {
    return ExplainOpenFailure(ToUtf8(port_.portName()),
                              {port_.error(), ToUtf8(port_.errorString())});
  }
  received_.clear();
  taken_ = 0;
  failure_.reset();
  open_ = true;
  errors_count_ = true;
  return std::nullopt;
}

void QtSerialPort::Close() {
  errors_count_ = false;
  open_ = false;
  if (port_.isOpen()) port_.close();
  received_.clear();
  taken_ = 0;
}

std::optional<std::uint8_t> QtSerialPort::ReadByte() {
  if (Waiting() == 0) return std::nullopt;
  const auto byte = static_cast<std::uint8_t>(received_[taken_++]);
  if (taken_ == received_.size()) {
    received_.clear();
    taken_ = 0;
  }
  return byte;
}

void QtSerialPort::DiscardInput() {
  received_.clear();
  taken_ = 0;
  if (!port_.isOpen()) return;
  // Also what the system holds and the event loop has not brought here yet.
  const bool counted = std::exchange(errors_count_, false);
  port_.clear(QSerialPort::Input);
  errors_count_ = counted;
}

std::optional<core::SystemError> QtSerialPort::Write(std::span<const std::uint8_t> bytes) {
  if (failure_) return failure_;
  const auto size = static_cast<qint64>(bytes.size());
  const bool queued =
      port_.isOpen() && port_.write(reinterpret_cast<const char*>(bytes.data()), size) == size;
  if (!queued) return core::SystemError{port_.error(), ToUtf8(port_.errorString())};
  port_.flush();
  return failure_;
}

// Qt writes a line of its own to standard error when a line is set on a port it could not keep.
void QtSerialPort::SetDtr(bool on) {
  if (failure_ || !port_.isOpen()) return;
  const bool counted = std::exchange(errors_count_, false);
  port_.setDataTerminalReady(on);
  errors_count_ = counted;
}

void QtSerialPort::SetRts(bool on) {
  if (failure_ || !port_.isOpen()) return;
  const bool counted = std::exchange(errors_count_, false);
  port_.setRequestToSend(on);
  errors_count_ = counted;
}

void QtSerialPort::TakeReceived() {
  const QByteArray bytes = port_.readAll();
  received_.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void QtSerialPort::DeviceFailed(QSerialPort::SerialPortError error) {
  if (!errors_count_ || failure_ || IsHarmless(error)) return;
  failure_ = DeviceGone();
  release_.start();
}

}  // namespace orvane::platform
