#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/services.h"

/// What the simulated radio needs of the operating system.
namespace orvane::sim {

/// A device that looks like a serial port to the PC's program, and its far end. Also the clock
/// and the place to sleep.
class Terminal {
 public:
  virtual ~Terminal() = default;
  /// Makes a new device that passes every byte unchanged.
  [[nodiscard]] virtual std::optional<core::SystemError> Open() = 0;
  /// The device vanishes under the hands of whoever has it open.
  virtual void HangUp() = 0;
  [[nodiscard]] virtual std::string Device() const = 0;

  /// Everything the PC has sent and that was not read yet. Does not wait.
  [[nodiscard]] virtual std::vector<std::uint8_t> Read() = 0;
  /// What the PC's end has no room for is lost. Does not wait.
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;

  /// Seconds, never going back.
  [[nodiscard]] virtual double Now() const = 0;
  /// Sleeps until the PC sends something or the time has come. False: the user wants to stop.
  [[nodiscard]] virtual bool Wait(std::optional<double> until) = 0;
};

/// The number under which the PC's programs find the device.
class PortRegistration {
 public:
  virtual ~PortRegistration() = default;
  /// Names the device COMn; "" or a sentence why it cannot. A name that a dead radio has left
  /// behind is taken over; one that something else owns is not touched.
  [[nodiscard]] virtual std::string Register(const std::string& device) = 0;
  /// The number n, once the device has been named.
  [[nodiscard]] virtual int Number() const = 0;
  /// The device is gone; the number stays reserved while this object lives.
  virtual void Withdraw() = 0;
};

/// What the terminal takes for the wish to stop, beside the system's signals.
enum class StopsAt { kSignals, kEndOfInput };
[[nodiscard]] std::unique_ptr<Terminal> MakeTerminal(StopsAt stop);
/// Under the first of the numbers that is free. One of several counts as free only when nothing is
/// pinned to it, be it a device that is not plugged in; one that is given alone also when what it
/// is pinned to is not there. Withdraws when it is destroyed.
[[nodiscard]] std::unique_ptr<PortRegistration> MakePortRegistration(std::string folder,
                                                                     std::vector<int> numbers);

/// The whole file. An error with number kNoSuchFile when there is none.
inline constexpr int kNoSuchFile = 2;
[[nodiscard]] core::FileBytes ReadWholeFile(const std::string& path);
/// Atomic: afterwards the file is the new one, whole, or the old one, whole.
[[nodiscard]] std::optional<core::SystemError> ReplaceFile(const std::string& path,
                                                           std::string_view bytes);
[[nodiscard]] core::Date Today();

}  // namespace orvane::sim
