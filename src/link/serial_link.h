#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/radio_data.h"
#include "core/services.h"
#include "link/monitor.h"
#include "link/serial_port.h"

namespace orvane::link {

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
};

/// Sends over the echoing cable and collects replies, with deadlines and cancellation.
///
/// Every byte sent comes back before the radio answers; a transmission counts only when its whole
/// echo has come back unchanged. The outcome of sending is the error flag of the data set, as is
/// cancelling: set by the user interface while a wait lets it process its events.
class SerialLink {
 public:
  SerialLink(core::RadioData& data, LinkServices services);

  bool PortOpen();
  bool PortInit();
  bool PortInitCP();
  void PortClose();
  /// Why the port could not be opened last time; number 0 when it could.
  [[nodiscard]] const core::SystemError& OpenFailure() const { return open_failure_; }

  void SendBytes(std::span<const std::uint8_t> bytes);
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

  void Monitor(std::string_view text);  ///< debug mode: shows the text, then pauses 500 ms

  [[nodiscard]] core::RadioData& Data() { return data_; }
  [[nodiscard]] LinkServices& Services() { return services_; }

 private:
  core::RadioData& data_;
  LinkServices services_;
  core::SystemError open_failure_;
};

}  // namespace orvane::link
