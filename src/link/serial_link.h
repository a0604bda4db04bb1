#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/messages.h"
#include "core/run_state.h"
#include "core/services.h"
#include "link/monitor.h"
#include "link/port_list.h"
#include "link/serial_port.h"

namespace orvane::link {

/// Before each transmission, seconds.
inline constexpr double kPauseBeforeSending = 0.010;

/// How a wait ended.
enum class WaitStatus : std::int16_t {
  kArrived = 0,
  kCancelled = 1,
  kTimedOut = 3,
  kRefused = 8,   ///< the text received so far is "ERROR"
  kMismatch = -1  ///< data arrived but was not what was required
};

struct ReceivedText {
  std::string text;
  WaitStatus status = WaitStatus::kMismatch;
};

/// What the link needs of the world.
struct LinkServices {
  SerialPort& port;
  core::Clock& clock;
  core::EventPump& pump;
  core::ErrorLog& log;
  TransferView& view;
  PortLabel port_label{};  ///< for messages
};

/// The serial device itself failed (unplugged, I/O error): no wait can succeed any more.
/// Travels inside this library only; TransferSession turns it into a message.
class LinkFailure : public std::runtime_error {
 public:
  explicit LinkFailure(core::SystemError error)
      : std::runtime_error(error.description), error_(std::move(error)) {}
  [[nodiscard]] const core::SystemError& Error() const { return error_; }

 private:
  core::SystemError error_;
};

/// Sends over the echoing cable and collects replies, with deadlines and cancellation.
///
/// Every byte sent comes back before the radio answers; a transmission counts only when its whole
/// echo has come back unchanged. The outcome of sending is the error flag; the cancel flag is
/// set by the user interface while a wait lets it process its events. All operations
/// that send or wait throw LinkFailure when the device is gone.
class SerialLink {
 public:
  SerialLink(core::RunState& state, const LinkServices& services);

  bool PortOpen();    ///< does nothing when the port is open already
  bool PortInit();    ///< opens anew
  bool PortInitCP();  ///< opens anew
  void PortClose();
  /// Why the port could not be opened last time; number 0 when it could.
  [[nodiscard]] const core::SystemError& OpenFailure() const { return open_failure_; }

  void SendBytes(std::span<const std::uint8_t> bytes);
  void SendText(std::string_view text);       ///< the characters alone, such as a whole frame
  void SendLine(std::string_view text);       ///< text CR LF
  void SendFixedLine(std::string_view text);  ///< exactly 8 characters, else nothing is sent
  void SendByte(std::uint8_t byte);           ///< after FlushInput
  void EchoWait(std::span<const std::uint8_t> sent);
  void FlushInput();

  [[nodiscard]] WaitStatus WaitByte(std::uint8_t expected, double seconds);
  [[nodiscard]] ReceivedText ReadText(std::size_t count, double seconds);
  [[nodiscard]] ReceivedText ReadLine(double seconds);
  [[nodiscard]] ReceivedText ReadLineBinary(double seconds);
  [[nodiscard]] bool WaitCrLf();

  /// Drops what still arrives until the line has been silent for a moment, cancelled or not.
  void AwaitSilence();
  /// Waits without reading. Events are processed meanwhile; cancelling ends it.
  void Rest(double seconds);

  void Monitor(std::string_view text);  ///< debug mode: shows the text, then pauses 500 ms
  /// The facts of a message about the port or a radio that does not answer, and the port's name.
  [[nodiscard]] core::Facts PortFacts(core::Facts facts = {}) const;
  void WriteErrLog(std::string_view routine, const core::SystemError& error);  ///< debug mode

  /// Clears the cancel flag for an exchange that begins, but remembers that it was set: a press
  /// of Cancel that falls between two waits must not be lost.
  void ClearCancel();
  /// The user has cancelled since ForgetCancel(), whether or not the flag was cleared since.
  [[nodiscard]] bool CancelRequested() const { return cancel_seen_ || state_.Cancel; }
  /// A session begins: nothing is cancelled.
  void ForgetCancel();

  [[nodiscard]] core::RunState& State() { return state_; }

 private:
  bool Reopen(std::string_view routine);
  bool OpenPort(std::string_view routine);
  void Yield(double deadline);
  enum class Silence { kUsual, kShown };
  template <class OnByte>
  WaitStatus Wait(double seconds, OnByte on_byte, Silence silence = Silence::kUsual);

  core::RunState& state_;
  LinkServices services_;
  core::SystemError open_failure_;
  bool cancel_seen_ = false;
  double last_yield_ = 0;
};

}  // namespace orvane::link
