#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>

#include "hostile_world.h"
#include "image/sample_radio.h"
#include "link/simulated_radio.h"
#include "link/transfer_session.h"
#include "support/radio_data_compare.h"

/// A whole read or program session against a radio that answers what it likes.
///
/// The input's first byte picks model and session. For each transmission of the PC one byte more
/// says what comes back; after the input's end nothing does. Up to 127: all is well for that many
/// exchanges and eight times more. Else the bytes up to the next 255 come, and its bits say what
/// else: 1 the echo before them, 2 the true answer before them, 4 Cancel is pressed, 8 the device
/// fails afterwards.
namespace orvane::fuzz {
namespace {

constexpr core::Date kToday{std::chrono::year{2026}, std::chrono::month{6}, std::chrono::day{15}};

class HostilePort : public link::SerialPort {
 public:
  HostilePort(Input input, link::SimulatedRadio& radio, core::RadioData& data)
      : input_(input), radio_(radio), data_(data) {}
  [[nodiscard]] std::optional<core::SystemError> Open() override {
    open_ = true;
    incoming_.clear();
    return std::nullopt;
  }
  void Close() override { open_ = false; }
  [[nodiscard]] bool IsOpen() const override { return open_; }
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
    Require(open_);
    if (failed_) return Failure();
    time_ += 1;  // keeps lines apart for the radio
    std::string answer;
    for (const std::uint8_t byte : bytes) answer += radio_.Receive(byte, time_).answer;
    if (honest_exchanges_ > 0) {
      --honest_exchanges_;
      Deliver(bytes);
      Deliver(answer);
      return std::nullopt;
    }
    Misbehave(bytes, answer);
    return std::nullopt;
  }
  void SetDtr(bool /*on*/) override {}
  void SetRts(bool /*on*/) override {}
  [[nodiscard]] std::optional<core::SystemError> Failure() const override {
    if (!failed_) return std::nullopt;
    return core::SystemError{5, "Input/output error"};
  }

 private:
  void Misbehave(std::span<const std::uint8_t> echo, const std::string& answer) {
    constexpr int kHostile = 128;
    const std::optional<std::uint8_t> choice = input_.Next();
    if (!choice) return;
    const bool honest = *choice < kHostile;
    if (honest || (*choice & 1) != 0) Deliver(echo);
    if (honest || (*choice & 2) != 0) Deliver(answer);
    if (honest) {
      honest_exchanges_ = *choice * 8;
      return;
    }
    Deliver(input_.NextStretch());
    if ((*choice & 4) != 0) data_.Flags.Cancel = true;
    failed_ = (*choice & 8) != 0;
  }
  template <class Bytes>
  void Deliver(const Bytes& bytes) {
    for (const auto byte : bytes) incoming_.push_back(static_cast<std::uint8_t>(byte));
  }

  Input input_;
  link::SimulatedRadio& radio_;
  core::RadioData& data_;
  std::deque<std::uint8_t> incoming_;
  int honest_exchanges_ = 0;
  double time_ = 0;
  bool open_ = false;
  bool failed_ = false;
};

const core::RadioData& Sample(int model) {
  static const auto samples = [] {
    std::array<core::RadioData, 7> made;
    for (std::int16_t m = 0; m < 7; ++m) {
      made[static_cast<std::size_t>(m)] = image::MakeSampleRadio(m, kToday);
    }
    return made;
  }();
  return samples[static_cast<std::size_t>(model)];
}

void Transfer(std::span<const std::uint8_t> bytes) {
  Input input(bytes);
  const int choice = input.Next().value_or(0);
  const bool read = choice / 7 % 2 == 0;
  core::RadioData data = Sample(choice % 7);
  data.Common.SCAN = !data.Common.SCAN;
  data.Flags.DataChanged = true;
  const core::RadioData before = data;

  link::SimulatedRadio radio(
      link::RadioMemory(core::ProfileOf(data), Sample(choice % 7).Image.Used()));
  HostilePort port(input, radio, data);
  JumpingClock clock;
  Silence silence;
  Impatient prompts;
  link::TransferSession session(data, {port, clock, clock, silence, silence}, prompts);
  const link::Ending ending =
      session.Run(read ? link::SessionKind::kRead : link::SessionKind::kProgram).ending;
  const bool done = ending == link::Ending::kDone;

  Require(!port.IsOpen() && !data.Flags.Busy);
  Require(done == prompts.completed);
  Require(ending != link::Ending::kFailed || data.Flags.Error);
  Require(done || data.Flags.Error || data.Flags.Cancel);
  if (read && !done) {
    Require(testing::SameContents(data, before));
    Require(data.Flags.DataChanged == before.Flags.DataChanged);
  }
}

}  // namespace
}  // namespace orvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::fuzz::Transfer({bytes, size});
  return 0;
}
