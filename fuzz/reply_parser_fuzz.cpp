#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "core/radio_data.h"
#include "hostile_world.h"
#include "link/clone_protocol.h"

/// Any bytes are a radio's answers: what is sent comes back as echo and is followed by the next
/// stretch of the input, up to a byte 255. Nothing outside the block asked for may change, and no
/// exchange may end in success with the error flag set.
namespace orvane::fuzz {
namespace {

constexpr int kAddress = 64;
constexpr int kLength = 16;

class AnsweringPort : public link::SerialPort {
 public:
  explicit AnsweringPort(std::span<const std::uint8_t> answers) : answers_(answers) {}
  [[nodiscard]] std::optional<core::SystemError> Open() override { return std::nullopt; }
  void Close() override {}
  [[nodiscard]] bool IsOpen() const override { return true; }
  [[nodiscard]] std::size_t Waiting() override { return incoming_.size(); }
  [[nodiscard]] std::optional<std::uint8_t> ReadByte() override {
    if (incoming_.empty()) return std::nullopt;
    const std::uint8_t byte = incoming_.front();
    incoming_.pop_front();
    return byte;
  }
  void DiscardInput() override { incoming_.clear(); }
  [[nodiscard]] std::optional<core::SystemError> Write(
      std::span<const std::uint8_t> bytes) override {
    incoming_.insert(incoming_.end(), bytes.begin(), bytes.end());
    const std::vector<std::uint8_t> answer = answers_.NextStretch();
    incoming_.insert(incoming_.end(), answer.begin(), answer.end());
    return std::nullopt;
  }
  void SetDtr(bool /*on*/) override {}
  void SetRts(bool /*on*/) override {}
  [[nodiscard]] std::optional<core::SystemError> Failure() const override { return std::nullopt; }

 private:
  std::deque<std::uint8_t> incoming_;
  Input answers_;
};

void Converse(std::span<const std::uint8_t> answers) {
  const core::RadioData data;
  core::RunState state;
  JumpingClock clock;
  AnsweringPort port(answers);
  Silence silence;
  Impatient prompts;
  link::SerialLink serial(state, {port, clock, clock, silence, silence});
  link::CloneProtocol protocol(serial, prompts, "fuzz");

  constexpr std::uint8_t kFiller = 0x5A;
  std::vector<std::uint8_t> target(kAddress + kLength, kFiller);
  const bool read = protocol.ReadBlock(target, kAddress, kLength);
  Require(read != static_cast<bool>(state.Error));
  Require(std::all_of(target.begin(), target.begin() + kAddress,
                      [&](std::uint8_t byte) { return byte == kFiller; }));
  const bool ready = protocol.StatusCheck();
  Require(ready != static_cast<bool>(state.Error));
  const core::MemoryImage image = data.Image;
  const bool written = protocol.WriteBlock(data.Image.All(), kAddress, kLength);
  Require(written != static_cast<bool>(state.Error));
  Require(data.Image == image);
}

}  // namespace
}  // namespace orvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::fuzz::Converse({bytes, size});
  return 0;
}
