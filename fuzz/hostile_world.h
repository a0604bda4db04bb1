#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <optional>
#include <span>
#include <vector>

#include "core/services.h"
#include "link/monitor.h"

/// Services for fuzz targets that talk to a radio: no time passes and nobody looks.
namespace orvane::fuzz {

inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// The bytes of an input, one after the other.
class Input {
 public:
  explicit Input(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  [[nodiscard]] std::optional<std::uint8_t> Next() {
    if (at_ == bytes_.size()) return std::nullopt;
    return bytes_[at_++];
  }
  /// The bytes up to, not including, the next 255 or the end.
  [[nodiscard]] std::vector<std::uint8_t> NextStretch() {
    std::vector<std::uint8_t> stretch;
    for (auto byte = Next(); byte && *byte != kEnd; byte = Next()) stretch.push_back(*byte);
    return stretch;
  }

 private:
  static constexpr std::uint8_t kEnd = 0xFF;
  std::span<const std::uint8_t> bytes_;
  std::size_t at_ = 0;
};

class JumpingClock : public core::Clock, public core::EventPump {
 public:
  [[nodiscard]] double Now() const override { return now_; }
  [[nodiscard]] core::Date Today() const override {
    return {std::chrono::year{2026}, std::chrono::month{6}, std::chrono::day{15}};
  }
  [[nodiscard]] std::string Timestamp() const override { return "2026-06-15 12:00:00"; }
  void Pause(double seconds) override { now_ += seconds; }
  void WaitForEvents(double deadline) override { now_ = deadline + 1; }
  void ProcessEvents() override {}

 private:
  double now_ = 0;
};

class Silence : public core::ErrorLog, public link::TransferView {
 public:
  void Write(std::string_view /*routine*/, std::string_view /*message*/) override {}
  void Monitor(std::string_view /*text*/) override {}
  void ShowProgress(int /*percent*/) override {}
  void BlockDone(int /*address*/, std::size_t /*so_far*/, std::size_t /*total*/) override {}
  void NothingComesBack() override {}
};

/// Agrees to everything for a while, then gives up.
class Impatient : public core::Prompts {
 public:
  core::Answer Show(const core::Message& message) override {
    completed |= message.text == "Complete!!";
    if (++shown_ > 8) return core::Answer::kCancel;
    return message.buttons == core::Buttons::kRetryCancel ? core::Answer::kRetry
                                                          : core::Answer::kOk;
  }

  bool completed = false;  ///< success was reported

 private:
  int shown_ = 0;
};

}  // namespace orvane::fuzz
