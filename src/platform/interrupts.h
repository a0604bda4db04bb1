#pragma once

#include <QSocketNotifier>
#include <array>
#include <functional>
#include <memory>

namespace orvane::platform {

/// The user's wish to stop a program that runs in a terminal: Ctrl-C, or the system's request to
/// end. Outside Start..Stop it ends the process, as usual.
class Interrupts {
 public:
  virtual ~Interrupts() = default;
  /// The callback runs from the event loop, or inside WaitForInput.
  virtual void Start(std::function<void()> on_interrupt) = 0;
  virtual void Stop() = 0;
  /// Blocks until standard input has something to read; false when interrupted first.
  [[nodiscard]] virtual bool WaitForInput() = 0;
};

/// Signals of a Unix system, brought into the event loop through a pipe. One object at a time.
class SignalInterrupts final : public Interrupts {
 public:
  SignalInterrupts() = default;
  SignalInterrupts(const SignalInterrupts&) = delete;
  SignalInterrupts& operator=(const SignalInterrupts&) = delete;
  ~SignalInterrupts() override { Stop(); }

  void Start(std::function<void()> on_interrupt) override;
  void Stop() override;
  [[nodiscard]] bool WaitForInput() override;

 private:
  void TakeSignal();

  std::function<void()> on_interrupt_;
  std::array<int, 2> pipe_{-1, -1};
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace orvane::platform
