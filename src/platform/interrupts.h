#pragma once

#include <QSocketNotifier>
#include <array>
#include <functional>
#include <memory>
#include <utility>

namespace orvane::platform {

/// The wish to stop what a program is doing: Ctrl-C in its terminal, or the system's request to
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

/// While this lives, an interrupt runs the callback; before and after it does what it usually does.
class WhileInterruptible {
 public:
  WhileInterruptible(Interrupts& interrupts, std::function<void()> on_interrupt)
      : interrupts_(interrupts) {
    interrupts_.Start(std::move(on_interrupt));
  }
  WhileInterruptible(const WhileInterruptible&) = delete;
  WhileInterruptible& operator=(const WhileInterruptible&) = delete;
  ~WhileInterruptible() { interrupts_.Stop(); }

 private:
  Interrupts& interrupts_;
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

/// Those of a program with a window: the end of the desktop session is one too. Needs a
/// QGuiApplication.
class DesktopInterrupts final : public Interrupts {
 public:
  void Start(std::function<void()> on_interrupt) override;
  void Stop() override;
  [[nodiscard]] bool WaitForInput() override { return signals_.WaitForInput(); }

 private:
  SignalInterrupts signals_;
  std::unique_ptr<QObject> session_end_;  ///< lives while the end of the session is listened for
};

}  // namespace orvane::platform
