#include "link/port_check.h"

#include <algorithm>
#include <deque>
#include <map>
#include <optional>
#include <utility>

#include "core/memory_image.h"
#include "core/messages.h"
#include "image/image_check.h"
#include "link/clone_protocol.h"
#include "link/monitor.h"
#include "link/serial_link.h"

namespace orvane::link {
namespace {

/// A port that notes what comes back through it.
class NotedPort : public SerialPort {
 public:
  NotedPort(SerialPort& port, const core::Clock& clock, Observations& seen)
      : port_(port), clock_(clock), seen_(seen) {}

  [[nodiscard]] double LastSent() const { return last_sent_; }

  [[nodiscard]] std::optional<core::SystemError> Open() override { return port_.Open(); }
  void Close() override { port_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return port_.IsOpen(); }
  [[nodiscard]] std::size_t Waiting() override { return port_.Waiting(); }
  [[nodiscard]] std::optional<std::uint8_t> ReadByte() override {
    const std::optional<std::uint8_t> byte = port_.ReadByte();
    if (byte) Note(*byte);
    return byte;
  }
  void DiscardInput() override { port_.DiscardInput(); }
  [[nodiscard]] std::optional<core::SystemError> Write(
      std::span<const std::uint8_t> bytes) override {
    due_.assign(bytes.begin(), bytes.end());
    echoed_ = false;
    last_sent_ = clock_.Now();
    return port_.Write(bytes);
  }
  void SetDtr(bool on) override { port_.SetDtr(on); }
  void SetRts(bool on) override { port_.SetRts(on); }
  [[nodiscard]] std::optional<core::SystemError> Failure() const override {
    return port_.Failure();
  }

 private:
  void Note(std::uint8_t byte) {
    if (echoed_) seen_.answer = true;
    if (due_.empty()) return;
    if (byte != due_.front()) {
      seen_.stranger = true;
      due_.clear();
      return;
    }
    due_.pop_front();
    if (!due_.empty()) return;
    seen_.echo = true;
    echoed_ = true;
  }

  SerialPort& port_;
  const core::Clock& clock_;
  Observations& seen_;
  double last_sent_ = clock_.Now();
  std::deque<std::uint8_t> due_;  ///< of the echo
  bool echoed_ = false;           ///< what was sent last has come back whole
};

/// Asks nobody: notes what is said, and gives up where it could be gone on.
class NotedPrompts : public core::Prompts {
 public:
  core::Answer Show(const core::Message& message) override {
    said = message.details.substr(0, message.details.find('\r'));
    return core::Answer::kCancel;
  }
  std::string said;  ///< the meaning of the last message
};

/// An echo comes at once or never: a line that stays silent is given up.
class GivingUp : public TransferView {
 public:
  explicit GivingUp(core::RunState& state) : state_(state) {}
  void Monitor(std::string_view /*text*/) override {}
  void ShowProgress(int /*percent*/) override {}
  void BlockDone(int /*address*/, std::size_t /*so_far*/, std::size_t /*total*/) override {}
  void NothingComesBack() override { state_.Cancel = silent = true; }

  bool silent = false;

 private:
  core::RunState& state_;
};

/// A line that falls silent within an echo would be waited for much longer than any answer takes.
class ShortPatience : public core::EventPump {
 public:
  ShortPatience(core::EventPump& pump, const core::Clock& clock, const NotedPort& port,
                GivingUp& view)
      : pump_(pump), clock_(clock), port_(port), view_(view) {}

  void WaitForEvents(double deadline) override {
    constexpr double kLongestAnswer = 12;  // seconds
    const double end = port_.LastSent() + kLongestAnswer;
    pump_.WaitForEvents(std::min(deadline, end));
    if (deadline > end && clock_.Now() > end) view_.NothingComesBack();
  }
  void ProcessEvents() override { pump_.ProcessEvents(); }

 private:
  core::EventPump& pump_;
  const core::Clock& clock_;
  const NotedPort& port_;
  GivingUp& view_;
};

/// Asks a radio which model it is. Models keep the two copies of their code in different places.
class ModelQuestion {
 public:
  explicit ModelQuestion(CloneProtocol& protocol) : protocol_(protocol) {}

  void Ask(const core::ModelProfile& first_guess, Observations& seen) {
    const core::ModelProfile* model = Names(first_guess) ? &first_guess : nullptr;
    for (const core::ModelProfile& profile : core::ModelProfiles()) {
      if (model == nullptr && Names(profile)) model = &profile;
    }
    if (model == nullptr) return AskStranger(seen);
    seen.codes = core::CodePair{model->code, model->code};
    if (model->product_byte && protocol_.ReadBlock(memory_.All(), image::kProductOffset, 1)) {
      seen.product = std::as_const(memory_)[image::kProductOffset];
    }
  }

 private:
  static constexpr int kCodeLength = 2;

  [[nodiscard]] bool Names(const core::ModelProfile& profile) {
    return CodeAt(profile.radio_code_address) == profile.code &&
           CodeAt(profile.image_size - kCodeLength) == profile.code;
  }

  /// A code that no model has is all that is known of its radio; a known one that is not confirmed
  /// is told with what stands in place of the other copy.
  void AskStranger(Observations& seen) {
    std::optional<std::uint16_t> first = CodeAt(image::kModelCodeOffset);
    if (!first) return;
    std::optional<std::uint16_t> second = first;
    if (const core::ModelProfile* const claimed = core::FindProfileByCode(*first)) {
      first = CodeAt(claimed->radio_code_address);
      second = CodeAt(claimed->image_size - kCodeLength);
    }
    if (first && second) seen.codes = core::CodePair{*first, *second};
  }

  /// Each place is asked for once, and nothing after a failure.
  std::optional<std::uint16_t> CodeAt(int address) {
    const auto known = codes_.find(address);
    if (known != codes_.end() || lost_) return known == codes_.end() ? std::nullopt : known->second;
    std::optional<std::uint16_t>& code = codes_[address];
    if (protocol_.ReadBlock(memory_.All(), address, kCodeLength)) {
      const core::MemoryImage& read = memory_;
      code = static_cast<std::uint16_t>(read[address] << 8 | read[address + 1]);
    } else {
      lost_ = true;
    }
    return code;
  }

  CloneProtocol& protocol_;
  core::MemoryImage memory_;
  std::map<int, std::optional<std::uint16_t>> codes_;
  bool lost_ = false;
};

}  // namespace

Diagnosis PortCheck::Run(SerialPort& port, const std::string& device,
                         const core::ModelProfile* wanted) {
  cancelled_ = false;
  Observations seen{.device = device};
  DeviceFacts* const devices = services_.devices;
  if (devices != nullptr) seen.holders = devices->HoldersOf({device}).front();
  if (seen.holders.empty()) TryPort(port, wanted, seen);
  if (seen.open_failure && devices != nullptr) {
    seen.permission = devices->GroupOf(device);
    seen.takers = TakersAmong(*devices);
  }
  return Diagnose(seen, wanted);
}

void PortCheck::TryPort(SerialPort& port, const core::ModelProfile* wanted, Observations& seen) {
  NotedPort noted(port, services_.clock, seen);
  NotedPrompts prompts;
  GivingUp view(state_);
  ShortPatience pump(services_.pump, services_.clock, noted, view);
  SerialLink link(state_, {noted, services_.clock, pump, services_.log, view});
  CloneProtocol protocol(link, prompts, {});
  try {
    if (protocol.Connect()) {
      if (protocol.StatusCheck()) {
        ModelQuestion(protocol).Ask(
            wanted != nullptr ? *wanted : core::ProfileOf(core::kDefaultModelType), seen);
      }
      protocol.AbortTransfer();
    }
  } catch (const LinkFailure&) {
    seen.broke_off = true;
  }
  link.PortClose();
  const core::SystemError& failure = link.OpenFailure();
  if (!failure.description.empty()) {
    seen.open_failure = failure.number;
    seen.reason = failure.description.substr(0, failure.description.find_first_of("\r\n"));
  }
  seen.broke_off = seen.broke_off || (view.silent && seen.echo);
  seen.cancelled = cancelled_;
  seen.complaint = prompts.said;
}

void PortCheck::Cancel() {
  state_.Cancel = true;
  cancelled_ = true;
}

}  // namespace orvane::link
