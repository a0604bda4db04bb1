#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/radio_data.h"
#include "link/serial_link.h"
#include "support/fakes.h"

namespace orvane::testing {

/// A port whose far end follows a script: each write comes back as echo, then gets the next reply.
class ScriptedPort : public link::SerialPort {
 public:
  struct Reply {
    std::string text;
    double delay = 0.001;  ///< seconds behind the echo
  };

  explicit ScriptedPort(const ManualClock& clock) : clock_(clock) {}

  std::optional<core::SystemError> Open() override {
    calls.emplace_back("open");
    if (open_failures.empty()) return Opened();
    const std::optional<core::SystemError> refusal = open_failures.front();
    open_failures.pop_front();
    return refusal ? refusal : Opened();
  }
  void Close() override {
    calls.emplace_back("close");
    open_ = false;
  }
  bool IsOpen() const override { return open_; }
  std::size_t Waiting() override {
    return static_cast<std::size_t>(
        std::count_if(incoming_.begin(), incoming_.end(),
                      [&](const Byte& byte) { return byte.at <= clock_.now; }));
  }
  std::optional<std::uint8_t> ReadByte() override {
    if (Waiting() == 0) return std::nullopt;
    const std::uint8_t value = incoming_.front().value;
    incoming_.pop_front();
    return value;
  }
  void DiscardInput() override {
    while (Waiting() > 0) incoming_.pop_front();
  }
  std::optional<core::SystemError> Write(std::span<const std::uint8_t> bytes) override {
    if (failure) return failure;
    writes.emplace_back(bytes.begin(), bytes.end());
    Deliver(spoil_echo ? spoil_echo(writes.back()) : writes.back(), 0.001);
    if (replies.empty()) return std::nullopt;
    Deliver(replies.front().text, replies.front().delay);
    replies.pop_front();
    return std::nullopt;
  }
  void SetDtr(bool on) override { calls.emplace_back(on ? "dtr" : "dtr off"); }
  void SetRts(bool on) override { calls.emplace_back(on ? "rts" : "rts off"); }
  std::optional<core::SystemError> Failure() const override { return failure; }

  void Deliver(std::string_view text, double delay) {
    for (const char c : text) {
      incoming_.push_back({clock_.now + delay, static_cast<std::uint8_t>(c)});
    }
  }
  std::optional<double> NextArrival() const {
    const auto next = std::find_if(incoming_.begin(), incoming_.end(),
                                   [&](const Byte& byte) { return byte.at > clock_.now; });
    return next == incoming_.end() ? std::nullopt : std::optional(next->at);
  }
  /// What has come or will come and was not read.
  std::string Unread() const {
    std::string text;
    for (const Byte& byte : incoming_) text += static_cast<char>(byte.value);
    return text;
  }

  std::vector<std::string> writes;
  std::vector<std::string> calls;  ///< open, close, dtr, rts
  std::deque<Reply> replies;
  std::function<std::string(const std::string&)> spoil_echo;
  std::deque<std::optional<core::SystemError>> open_failures;  ///< of the next openings
  std::optional<core::SystemError> failure;

 private:
  struct Byte {
    double at;
    std::uint8_t value;
  };
  std::optional<core::SystemError> Opened() {
    open_ = true;
    return std::nullopt;
  }

  const ManualClock& clock_;
  std::deque<Byte> incoming_;
  bool open_ = false;
};

class RecordingView : public link::TransferView {
 public:
  void Monitor(std::string_view text) override { monitor.emplace_back(text); }
  void Phase(std::string_view name) override {
    phases.emplace_back(name);
    if (on_phase) on_phase();
  }
  void ShowProgress(int percent) override { percents.push_back(percent); }
  void BlockDone(int /*address*/, std::size_t so_far, std::size_t total) override {
    bytes_so_far = so_far;
    bytes_total = total;
  }

  void NothingComesBack() override { ++silences; }

  int silences = 0;
  std::vector<std::string> monitor;
  std::vector<std::string> phases;
  std::function<void()> on_phase;
  std::vector<int> percents;
  std::size_t bytes_so_far = 0;
  std::size_t bytes_total = 0;
};

/// A link over a scripted port. The user presses Cancel at a time of the script's choosing.
struct ScriptedBench {
  ScriptedBench() {
    pump.on_wait = [this](double deadline) -> std::optional<double> {
      const double arrival = port.NextArrival().value_or(deadline + 1);
      if (cancel_at && *cancel_at <= std::min(arrival, deadline)) {
        const double at = *std::exchange(cancel_at, std::nullopt);
        state.Cancel = true;
        return at;
      }
      return arrival <= deadline ? std::optional(arrival) : std::nullopt;
    };
  }
  ScriptedBench(const ScriptedBench&) = delete;
  ScriptedBench& operator=(const ScriptedBench&) = delete;

  core::RadioData data;
  core::RunState state;
  ManualClock clock;
  ManualPump pump{clock};
  ScriptedPort port{clock};
  RecordingLog log;
  RecordingView view;
  ScriptedPrompts prompts;
  link::SerialLink link{state, {port, clock, pump, log, view}};
  std::optional<double> cancel_at;
};

}  // namespace orvane::testing
