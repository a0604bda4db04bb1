#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "hostile_world.h"
#include "image/sample_radio.h"
#include "link/simulated_radio.h"
#include "link/transfer_session.h"

/// A whole read or program session against a radio that answers what it likes.
///
/// The input's first byte picks model, session and length. For each transmission of the PC one byte
/// more says what comes back; after the input's end nothing does. Up to 127: all is well for that
/// many exchanges (long sessions: eight times as many) and one more. Else the bytes up to the next
/// 255 come, and its bits say what else: 1 the echo before them, 2 the true answer before them,
/// 4 Cancel is pressed, 8 the device fails afterwards.
///
/// A whole session is a thousand exchanges, nearly all of them alike: all but a few of the shortest
/// inputs get so many that the first blocks travel, and then silence.
namespace orvane::fuzz {
namespace {

constexpr core::Date kToday{std::chrono::year{2026}, std::chrono::month{6}, std::chrono::day{15}};

class HostilePort : public link::SerialPort {
 public:
  HostilePort(Input input, bool endless, link::SimulatedRadio& radio, core::RunState& state)
      : input_(input), endless_(endless), radio_(radio), state_(state) {}
  [[nodiscard]] std::optional<core::SystemError> Open() override {
    open_ = true;
    DiscardInput();
    return std::nullopt;
  }
  void Close() override { open_ = false; }
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] std::size_t Waiting() override { return incoming_.size() - taken_; }
  [[nodiscard]] std::optional<std::uint8_t> ReadByte() override {
    if (taken_ == incoming_.size()) return std::nullopt;
    return incoming_[taken_++];
  }
  void DiscardInput() override { taken_ = incoming_.size(); }
  [[nodiscard]] std::optional<core::SystemError> Write(
      std::span<const std::uint8_t> bytes) override {
    Require(open_);
    if (failed_) return Failure();
    if (++exchanges_ > kShortSession && !endless_) return std::nullopt;
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
      honest_exchanges_ = endless_ ? *choice * 8 : *choice;
      return;
    }
    Deliver(input_.NextStretch());
    if ((*choice & 4) != 0) state_.Cancel = true;
    failed_ = (*choice & 8) != 0;
  }
  template <class Bytes>
  void Deliver(const Bytes& bytes) {
    if (taken_ == incoming_.size()) {
      incoming_.clear();
      taken_ = 0;
    }
    incoming_.insert(incoming_.end(), bytes.begin(), bytes.end());
  }

  static constexpr int kShortSession = 40;

  Input input_;
  bool endless_;
  link::SimulatedRadio& radio_;
  core::RunState& state_;
  std::vector<std::uint8_t> incoming_;
  std::size_t taken_ = 0;
  int exchanges_ = 0;
  int honest_exchanges_ = 0;
  double time_ = 0;
  bool open_ = false;
  bool failed_ = false;
};

/// What the sessions of a model start from, made once.
struct Bench {
  explicit Bench(std::int16_t model) : desk(image::MakeSampleRadio(model, kToday)) {
    memory = link::RadioMemory(core::ProfileOf(desk), desk.Image.Used());
    desk.Common.SCAN = !desk.Common.SCAN;
    data = desk;
  }

  core::RadioData desk;
  std::vector<std::uint8_t> memory;
  core::RadioData data;  ///< equals the desk when a session begins
};

Bench& BenchOf(int model) {
  static std::array<Bench, 7> benches = {Bench(0), Bench(1), Bench(2), Bench(3),
                                         Bench(4), Bench(5), Bench(6)};
  return benches[static_cast<std::size_t>(model)];
}

void Transfer(std::span<const std::uint8_t> bytes) {
  Input input(bytes);
  const int choice = input.Next().value_or(0);
  const bool read = choice / 7 % 2 == 0;
  // Programs models 5 and 6, reads models 0 to 3, with room for one disturbance.
  const bool endless = choice >= 250 && bytes.size() <= 4;
  auto& [before, memory, data] = BenchOf(choice % 7);

  link::SimulatedRadio radio(memory);
  core::RunState state;
  HostilePort port(input, endless, radio, state);
  JumpingClock clock;
  Silence silence;
  Impatient prompts;
  link::TransferSession session(data, state, {port, clock, clock, silence, silence}, prompts);
  const int phases = choice / 14 % 3;
  const link::TransferOutcome outcome = session.Run(
      read ? link::SessionKind::kRead : link::SessionKind::kProgram,
      {.keep_copy = phases == 1, .read_back = phases > 0, .fill_from_radio = phases == 2});
  const link::Ending ending = outcome.ending;
  const bool done = ending == link::Ending::kDone;

  Require(!port.IsOpen() && !state.Busy);
  Require((done && !outcome.not_read_back) == prompts.completed);
  Require(outcome.receipt.has_value() == ((done && !read) || ending == link::Ending::kDiffers));
  Require(ending != link::Ending::kFailed || state.Error);
  Require(done || state.Error || state.Cancel);
  if (read && !done) {
    Require(data == before);
  } else {
    data = before;
  }
}

}  // namespace
}  // namespace orvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::fuzz::Transfer({bytes, size});
  return 0;
}
