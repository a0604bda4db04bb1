#include "link/simulated_port.h"

namespace orvane::link {
namespace {

core::SystemError Unplugged() {
  return {5, "Input/output error"};
}
core::SystemError NoDevice() {
  return {2, "No such file or directory"};
}
core::SystemError NotOpen() {
  return {9, "Bad file descriptor"};
}

}  // namespace

SimulatedPort::SimulatedPort(SimulatedRadio& radio, const core::Clock& clock, double baud)
    : radio_(radio), clock_(clock), cable_(radio, baud) {}

std::optional<core::SystemError> SimulatedPort::Open() {
  if (!radio_.Plugged()) return NoDevice();
  Collect();  // what came while the port was closed is lost
  received_.clear();
  open_ = true;
  return std::nullopt;
}

std::size_t SimulatedPort::Waiting() {
  Collect();
  return open_ ? received_.size() : 0;
}

std::optional<std::uint8_t> SimulatedPort::ReadByte() {
  if (Waiting() == 0) return std::nullopt;
  const std::uint8_t byte = received_.front();
  received_.pop_front();
  return byte;
}

void SimulatedPort::DiscardInput() {
  Collect();
  received_.clear();
}

std::optional<core::SystemError> SimulatedPort::Write(std::span<const std::uint8_t> bytes) {
  if (!open_) return NotOpen();
  if (std::optional<core::SystemError> failure = Failure()) return failure;
  cable_.Transmit(bytes, clock_.Now());
  return std::nullopt;
}

std::optional<core::SystemError> SimulatedPort::Failure() const {
  const bool gone = !radio_.Plugged() && cable_.UnplugTime() <= clock_.Now();
  if (!open_ || !gone) return std::nullopt;
  return Unplugged();
}

std::optional<double> SimulatedPort::NextWake(double deadline) {
  if (Collect()) return clock_.Now();
  const std::optional<double> next = cable_.NextArrival();
  return next && *next <= deadline ? next : std::nullopt;
}

bool SimulatedPort::Collect() {
  bool any = false;
  while (const std::optional<SimulatedCable::Arrival> arrival = cable_.Take(clock_.Now())) {
    any = true;
    if (arrival->byte) received_.push_back(*arrival->byte);
  }
  return any;
}

}  // namespace orvane::link
