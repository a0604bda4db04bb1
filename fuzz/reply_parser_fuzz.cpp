#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <vector>

#include "link/clone_protocol.h"

/// Any bytes are a radio's answers: what is sent comes back as echo and is followed by the next
/// stretch of the input, up to a byte 255. Nothing outside the block asked for may change, and no
/// exchange may end in success with the error flag set.
namespace orvane {
namespace {

constexpr std::uint8_t kEndOfAnswer = 0xFF;
constexpr int kAddress = 64;
constexpr int kLength = 16;

class JumpingClock : public core::Clock, public core::EventPump {
 public:
  [[nodiscard]] double Now() const override { return now_; }
  [[nodiscard]] core::Date Today() const override { return {}; }
  void Pause(double seconds) override { now_ += seconds; }
  void WaitForEvents(double deadline) override { now_ = deadline + 1; }
  void ProcessEvents() override {}

 private:
  double now_ = 0;
};

class AnsweringPort : public link::SerialPort {
 public:
  explicit AnsweringPort(std::span<const std::uint8_t> answers)
      : answers_(answers.begin(), answers.end()) {}
  [[nodiscard]] std::optional<core::SystemError> Open() override { return std::nullopt; }
  void Close() override {}
  [[nodiscard]] bool IsOpen() const override { return true; }
  [[nodiscard]] std::size_t Waiting() override { return incoming_.size(); }
  [[nodiscard]] std::optional<std::uint8_t> ReadByte() override {
    if (incoming_.empty()) return std::nullopt;
    return Take(incoming_);
  }
  void DiscardInput() override { incoming_.clear(); }
  [[nodiscard]] std::optional<core::SystemError> Write(
      std::span<const std::uint8_t> bytes) override {
    incoming_.insert(incoming_.end(), bytes.begin(), bytes.end());
    while (!answers_.empty()) {
      const std::uint8_t byte = Take(answers_);
      if (byte == kEndOfAnswer) break;
      incoming_.push_back(byte);
    }
    return std::nullopt;
  }
  void SetDtr(bool /*on*/) override {}
  void SetRts(bool /*on*/) override {}
  [[nodiscard]] std::optional<core::SystemError> Failure() const override { return std::nullopt; }

 private:
  static std::uint8_t Take(std::deque<std::uint8_t>& bytes) {
    const std::uint8_t byte = bytes.front();
    bytes.pop_front();
    return byte;
  }

  std::deque<std::uint8_t> incoming_;
  std::deque<std::uint8_t> answers_;
};

class Silence : public core::ErrorLog, public link::TransferView {
 public:
  void Write(std::string_view /*routine*/, std::string_view /*message*/) override {}
  void Monitor(std::string_view /*text*/) override {}
  void ShowProgress(int /*percent*/) override {}
  void BlockDone(int /*address*/, std::size_t /*so_far*/, std::size_t /*total*/) override {}
};

/// Agrees to everything until the answers have had their chance, then gives up.
class Impatient : public core::Prompts {
 public:
  core::Answer Show(const core::Message& message) override {
    if (++shown_ > 8) return core::Answer::kCancel;
    return message.buttons == core::Buttons::kRetryCancel ? core::Answer::kRetry
                                                          : core::Answer::kOk;
  }

 private:
  int shown_ = 0;
};

void Require(bool holds) {
  if (!holds) std::abort();
}

void Converse(std::span<const std::uint8_t> answers) {
  core::RadioData data;
  JumpingClock clock;
  AnsweringPort port(answers);
  Silence silence;
  Impatient prompts;
  link::SerialLink serial(data, {port, clock, clock, silence, silence});
  link::CloneProtocol protocol(serial, prompts, "fuzz");

  constexpr std::uint8_t kFiller = 0x5A;
  std::vector<std::uint8_t> target(kAddress + kLength, kFiller);
  const bool read = protocol.ReadBlock(target, kAddress, kLength);
  Require(read != static_cast<bool>(data.Flags.Error));
  Require(std::all_of(target.begin(), target.begin() + kAddress,
                      [&](std::uint8_t byte) { return byte == kFiller; }));
  const bool ready = protocol.StatusCheck();
  Require(ready != static_cast<bool>(data.Flags.Error));
  const core::MemoryImage image = data.Image;
  const bool written = protocol.WriteBlock(kAddress, kLength);
  Require(written != static_cast<bool>(data.Flags.Error));
  Require(data.Image == image);
}

}  // namespace
}  // namespace orvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::Converse({bytes, size});
  return 0;
}
