#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvane::link {

/// The program that plays a radio (see radio_program.h), run beside this one: at most one at a
/// time. It ends with this object, and with this process, whatever ends that.
class RadioProcess {
 public:
  virtual ~RadioProcess() = default;

  /// Why this computer cannot have one: a sentence; "" where it can.
  [[nodiscard]] virtual std::string WhyNone() const = 0;
  /// Ends the one before and returns at once; events tell how it went on. numbers: of the ports
  /// to try, not empty.
  virtual void Start(std::int16_t model_type, const std::vector<int>& numbers) = 0;
  /// Set while it runs and its port can be opened.
  [[nodiscard]] virtual std::optional<int> PortNumber() const = 0;
  /// It was started, and has not ended since.
  [[nodiscard]] virtual bool IsRunning() const = 0;
  /// Why it did not start or has ended by itself: its own last words or the system's.
  [[nodiscard]] virtual std::string WhyEnded() const = 0;
  /// Returns when it is gone, and its port with it. Nothing happens when none runs.
  virtual void Stop() = 0;
  /// Told when one that had a port has ended by itself.
  virtual void WhenLost(std::function<void()> told) = 0;
};

}  // namespace orvane::link
