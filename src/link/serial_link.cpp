#include "link/serial_link.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/text.h"
#include "link/clone_frame.h"

namespace orvane::link {
namespace {

constexpr std::string_view kLineSettings = "9600,N,8,1";
constexpr double kEchoSeconds = 100;
// An echo comes at once or never: long before the wait for it ends, the user may know.
constexpr double kSilenceShownAfter = 3;
constexpr double kCrLfSeconds = 1;
constexpr double kMonitorPause = 0.500;
constexpr std::size_t kFixedLineLength = 8;

// How long received bytes may keep a wait from letting the user interface work. Short enough for
// Cancel to feel immediate, long enough not to run an event loop for every byte.
constexpr double kYieldInterval = 0.020;

// A radio sends a reply without gaps; adapters hand it on in parts. The longest reply lasts 60 ms.
constexpr double kSilence = 0.100;
constexpr double kLongestRest = 1;

std::vector<std::uint8_t> BytesOf(std::string_view text, std::string_view terminator = {}) {
  std::vector<std::uint8_t> bytes(text.begin(), text.end());
  bytes.insert(bytes.end(), terminator.begin(), terminator.end());
  return bytes;
}

}  // namespace

SerialLink::SerialLink(core::RunState& state, const LinkServices& services)
    : state_(state), services_(services) {}

bool SerialLink::OpenPort(std::string_view routine) {
  std::optional<core::SystemError> failure = services_.port.Open();
  open_failure_ = failure.value_or(core::SystemError{});
  if (failure) WriteErrLog(routine, *failure);
  return !failure;
}

bool SerialLink::PortOpen() {
  return services_.port.IsOpen() || OpenPort("frmRadio102.PortOpen");
}

bool SerialLink::Reopen(std::string_view routine) {
  if (services_.port.IsOpen()) services_.port.Close();
  if (!OpenPort(routine)) return false;
  Monitor(kLineSettings);
  return true;
}

bool SerialLink::PortInit() {
  return Reopen("frmRadio102.PortInit");
}

bool SerialLink::PortInitCP() {
  return Reopen("frmRadio102.PortInitCP");
}

void SerialLink::PortClose() {
  if (!services_.port.IsOpen()) return;
  services_.port.SetDtr(true);
  services_.port.SetRts(true);
  services_.port.Close();
}

void SerialLink::SendBytes(std::span<const std::uint8_t> bytes) {
  services_.clock.Pause(kPauseBeforeSending);
  if (std::optional<core::SystemError> failure = services_.port.Write(bytes)) {
    throw LinkFailure(*std::move(failure));
  }
  EchoWait(bytes);
}

void SerialLink::SendText(std::string_view text) {
  SendBytes(BytesOf(text));
}

void SerialLink::SendLine(std::string_view text) {
  SendBytes(BytesOf(text, "\r\n"));
}

void SerialLink::SendFixedLine(std::string_view text) {
  if (text.size() == kFixedLineLength) SendLine(text);
}

void SerialLink::SendByte(std::uint8_t byte) {
  FlushInput();
  SendBytes({&byte, 1});
}

void SerialLink::FlushInput() {
  services_.port.DiscardInput();
}

// Lets the user interface work before each look at the port. With nothing received it sleeps until
// something happens, so that waiting costs no processor time and a byte is seen when it arrives.
// A wait that begins cancelled must not sleep.
void SerialLink::Yield(double deadline) {
  if (services_.port.Waiting() == 0 && !state_.Cancel) {
    if (std::optional<core::SystemError> failure = services_.port.Failure()) {
      throw LinkFailure(*std::move(failure));
    }
    services_.pump.WaitForEvents(deadline);
  } else if (services_.clock.Now() - last_yield_ >= kYieldInterval) {
    services_.pump.ProcessEvents();
  } else {
    return;
  }
  last_yield_ = services_.clock.Now();
}

// Cancelling and the deadline are looked at after each byte and come before the byte's own verdict:
// what completes a wait too late, or together with Cancel, does not count.
template <class OnByte>
WaitStatus SerialLink::Wait(double seconds, OnByte on_byte, Silence silence) {
  const double start = services_.clock.Now();
  const double deadline = start + seconds;
  double wake =
      silence == Silence::kShown ? std::min(start + kSilenceShownAfter, deadline) : deadline;
  bool silent = true;
  std::optional<WaitStatus> verdict;
  while (!verdict) {
    Yield(wake);
    if (const std::optional<std::uint8_t> byte = services_.port.ReadByte()) {
      silent = false;
      verdict = on_byte(*byte);
    }
    if (state_.Cancel) return WaitStatus::kCancelled;
    const double now = services_.clock.Now();
    if (now > deadline) return WaitStatus::kTimedOut;
    if (now > wake) {
      wake = deadline;
      if (silent) services_.view.NothingComesBack();
    }
  }
  return *verdict;
}

void SerialLink::EchoWait(std::span<const std::uint8_t> sent) {
  state_.Error = true;
  ClearCancel();
  std::size_t matched = 0;
  const auto match = [&](std::uint8_t byte) -> std::optional<WaitStatus> {
    if (byte != sent[matched]) return WaitStatus::kMismatch;
    if (++matched < sent.size()) return std::nullopt;
    return WaitStatus::kArrived;
  };
  if (sent.empty() || Wait(kEchoSeconds, match, Silence::kShown) == WaitStatus::kArrived) {
    state_.Error = false;
  }
}

WaitStatus SerialLink::WaitByte(std::uint8_t expected, double seconds) {
  return Wait(seconds, [&](std::uint8_t byte) -> std::optional<WaitStatus> {
    if (byte != expected) return std::nullopt;
    return WaitStatus::kArrived;
  });
}

ReceivedText SerialLink::ReadText(std::size_t count, double seconds) {
  ReceivedText received;
  received.status = Wait(seconds, [&](std::uint8_t byte) -> std::optional<WaitStatus> {
    received.text += static_cast<char>(byte);
    if (core::EqualsIgnoringCase(received.text, kRefusal)) return WaitStatus::kRefused;
    if (received.text.size() < count) return std::nullopt;
    return WaitStatus::kArrived;
  });
  return received;
}

ReceivedText SerialLink::ReadLine(double seconds) {
  ReceivedText received;
  bool after_cr = false;
  received.status = Wait(seconds, [&](std::uint8_t byte) -> std::optional<WaitStatus> {
    if (after_cr && byte == kLf) return WaitStatus::kArrived;
    if (byte == kCr) after_cr = true;
    if (!after_cr) received.text += static_cast<char>(byte);
    return std::nullopt;
  });
  return received;
}

ReceivedText SerialLink::ReadLineBinary(double seconds) {
  ReceivedText received;
  bool after_cr = false;
  received.status = Wait(seconds, [&](std::uint8_t byte) -> std::optional<WaitStatus> {
    if (after_cr) return byte == kLf ? WaitStatus::kArrived : WaitStatus::kMismatch;
    if (byte == kCr) {
      after_cr = true;
    } else {
      received.text += static_cast<char>(byte);
    }
    return std::nullopt;
  });
  return received;
}

bool SerialLink::WaitCrLf() {
  return WaitByte(kCr, kCrLfSeconds) == WaitStatus::kArrived &&
         WaitByte(kLf, kCrLfSeconds) == WaitStatus::kArrived;
}

void SerialLink::AwaitSilence() {
  const double end = services_.clock.Now() + kLongestRest;
  double silent_until = services_.clock.Now() + kSilence;
  while (services_.clock.Now() < std::min(silent_until, end)) {
    services_.clock.Pause(kYieldInterval);
    services_.pump.ProcessEvents();
    if (services_.port.Waiting() == 0) continue;
    FlushInput();
    silent_until = services_.clock.Now() + kSilence;
  }
}

void SerialLink::Rest(double seconds) {
  const double end = services_.clock.Now() + seconds;
  while (!state_.Cancel && services_.clock.Now() < end) {
    services_.clock.Pause(std::min(kYieldInterval, end - services_.clock.Now()));
    services_.pump.ProcessEvents();
  }
}

void SerialLink::Monitor(std::string_view text) {
  if (!state_.Debug) return;
  services_.view.Monitor(text);
  services_.clock.Pause(kMonitorPause);
}

core::Facts SerialLink::PortFacts(core::Facts facts) const {
  const std::string port = services_.port_label.Text();
  if (!port.empty()) facts.push_back({"port", port});
  return facts;
}

void SerialLink::WriteErrLog(std::string_view routine, const core::SystemError& error) {
  if (!state_.Debug) return;
  // The log has one line for each failure; what follows the first line is advice to the user.
  const std::string reason = error.description.substr(0, error.description.find_first_of("\r\n"));
  services_.log.Write(routine, std::to_string(error.number) + reason);
}

void SerialLink::ClearCancel() {
  cancel_seen_ = CancelRequested();
  state_.Cancel = false;
}

void SerialLink::ForgetCancel() {
  cancel_seen_ = false;
  state_.Cancel = false;
}

}  // namespace orvane::link
