#include "support/fault_runner.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "core/number_text.h"
#include "image/image_check.h"
#include "link/simulated_port.h"
#include "support/fakes.h"
#include "support/scripted_port.h"

namespace orvane::testing {
namespace {

using core::Answer;
using link::ExchangeKind;
using link::FaultKind;
using link::SessionKind;

constexpr double kEchoSeconds = 100;
constexpr double kReplySeconds = 10;
/// Any one exchange: its echo, the acknowledgement with its line end, header and line of the data,
/// the echo of the closing line.
constexpr double kExchangeSeconds = 2 * kEchoSeconds + 3 * kReplySeconds + 2;
/// Exchanges that still run after one of them has failed: the rest of a row of single bytes.
constexpr double kLongestRow = 20;
/// No run looks at its port more often than this, at any speed.
constexpr long kPumpLimit = 2'000'000;
constexpr int kPatience = 8;  ///< questions that the user agrees to

constexpr int kRadioOwnByte = 90;
constexpr std::uint8_t kRadioOwnBit = 0x04;

/// Time moves to whatever comes next at the port. Whoever never stops waiting is thrown out.
class FaultPump : public core::EventPump {
 public:
  FaultPump(ManualClock& clock, link::SimulatedPort& port) : clock_(clock), port_(port) {}
  void WaitForEvents(double deadline) override {
    const std::optional<double> wake = port_.NextWake(deadline);
    clock_.now = std::max(clock_.now, wake.value_or(deadline + 0.001));
    ProcessEvents();
  }
  void ProcessEvents() override {
    if (++calls_ > kPumpLimit) throw std::runtime_error("the session does not end");
    if (on_event) on_event();
  }

  std::function<void()> on_event;

 private:
  ManualClock& clock_;
  link::SimulatedPort& port_;
  long calls_ = 0;
};

class UserPrompts : public ScriptedPrompts {
 public:
  explicit UserPrompts(bool agree) : agree_(agree) {}
  Answer Show(const core::Message& message) override {
    const bool asks = message.buttons != core::Buttons::kOk;
    const bool agrees = agree_ && messages.size() < kPatience;
    const bool retry = message.buttons == core::Buttons::kRetryCancel;
    fallback = asks && !agrees ? Answer::kCancel : (retry ? Answer::kRetry : Answer::kOk);
    return ScriptedPrompts::Show(message);
  }

 private:
  bool agree_;
};

std::string Told(const core::Message& message) {
  return message.title + ": " + message.text;
}

bool Contains(const std::vector<core::Message>& messages, std::string_view text) {
  return std::any_of(messages.begin(), messages.end(),
                     [&](const core::Message& message) { return message.text == text; });
}

/// Messages that a session shows on its way or at its end, apart from success.
bool IsKnownFailure(const core::Message& message, std::string_view title) {
  static constexpr std::string_view kTexts =
      "|Communication Error!!|Radio not ready!!|Radio is busy!!|ACMD Command error!!|error!!|"
      "port inicialize error!!|time out!!|cancel!!|address error!!|data error!!|"
      "confirm the synchronization of the communication|Nothing was written to the radio.|"
      "The radio was written and has acknowledged everything, but it could not be read back.|";
  if (message.title == "Orvane") return message.text == "5\r\rInput/output error";
  if (message.title == "Model Check") return message.text == "Communication Error!!";
  return message.title == title && kTexts.find("|" + message.text + "|") != std::string_view::npos;
}

int CountFaults(const std::vector<link::Exchange>& asked) {
  return static_cast<int>(std::count_if(asked.begin(), asked.end(),
                                        [](const auto& exchange) { return exchange.fault; }));
}

std::size_t CountOf(std::span<const link::Exchange> asked, ExchangeKind kind) {
  return static_cast<std::size_t>(std::count_if(
      asked.begin(), asked.end(), [&](const auto& exchange) { return exchange.kind == kind; }));
}

}  // namespace

std::string CaseText(const FaultCase& fault_case) {
  std::string text;
  for (const link::Fault& fault : fault_case.faults) {
    text += std::string(link::InfoOf(fault.kind).name) + "@" + std::to_string(fault.number) + "=" +
            core::ShortestText(fault.value) + " ";
  }
  if (fault_case.percent > 0) {
    text += "scatter " + std::to_string(fault_case.seed) + " " +
            core::ShortestText(fault_case.percent) + "% ";
  }
  if (fault_case.cancel) {
    text += "cancel at exchange " + std::to_string(fault_case.cancel->exchange) + " after " +
            std::to_string(fault_case.cancel->waits) + " waits ";
  }
  return text + (fault_case.agree ? "agreeing" : "declining") + " at " +
         core::ShortestText(fault_case.baud) + " baud";
}

FaultRunner::FaultRunner(core::RadioData desk, std::vector<std::uint8_t> radio_memory,
                         SessionKind kind, const link::TransferOptions& options)
    : desk_(std::move(desk)),
      radio_memory_(std::move(radio_memory)),
      kind_(kind),
      options_(options) {
  ideal_ = RunOnce(desk_, radio_memory_, {});
}

FaultRunner::Run FaultRunner::RunOnce(const core::RadioData& data,
                                      const std::vector<std::uint8_t>& memory,
                                      const FaultCase& fault_case) const {
  Run run;
  run.data = data;
  link::FaultPlan plan(fault_case.faults);
  plan.Scatter(fault_case.seed, fault_case.percent);
  link::SimulatedRadio radio(memory, std::move(plan));
  ManualClock clock;
  link::SimulatedPort port(radio, clock, fault_case.baud);
  FaultPump pump(clock, port);
  UserPrompts prompts(fault_case.agree);
  RecordingLog log;
  RecordingView view;
  link::TransferSession session(run.data, run.state, {port, clock, pump, log, view}, prompts);

  double cancelled_at = 0;
  int waits = 0;
  pump.on_event = [&] {
    if (!fault_case.cancel || run.cancelled) return;
    if (static_cast<int>(run.asked.size()) + 1 < fault_case.cancel->exchange) return;
    if (waits++ < fault_case.cancel->waits) return;
    run.cancelled = true;
    run.state.Cancel = true;
    run.asked_before_cancel = run.asked.size();
    cancelled_at = clock.now;
  };
  radio.SetObserver([&](const link::Exchange& exchange) { run.asked.push_back(exchange); });

  const double start = clock.now;
  run.outcome = session.Run(kind_, options_);
  run.seconds = clock.now - start;
  run.seconds_after_cancel = run.cancelled ? clock.now - cancelled_at : 0;
  run.done = run.outcome.ending == link::Ending::kDone;
  run.port_open = port.IsOpen();
  run.messages = std::move(prompts.messages);
  run.memory.assign(radio.Memory().begin(), radio.Memory().end());
  return run;
}

std::string FaultRunner::Check(const FaultCase& fault_case) const {
  return BrokenPromises(RunOnce(desk_, radio_memory_, fault_case));
}

std::string FaultRunner::BrokenPromises(const Run& run) const {
  return CheckEnding(run) + CheckContents(run) + CheckWrites(run) + CheckCancelled(run) +
         CheckRecovery(run);
}

std::string FaultRunner::CheckEnding(const Run& run) const {
  const std::string_view title = link::ModeTitle(kind_);
  std::string broken;
  if (run.state.Busy || run.port_open) broken += "left busy or open; ";
  const bool proven = run.done && !run.outcome.not_read_back;
  if (proven != Contains(run.messages, "Complete!!")) broken += "\"Complete!!\" is not true; ";
  if (run.done && run.state.Error) broken += "done with error; ";
  if (!run.done && !run.state.Error && !run.state.Cancel) broken += "no flag is set; ";
  if (run.outcome.ending == link::Ending::kDiffers) broken += "an honest radio is accused; ";
  if (run.outcome.ending == link::Ending::kCancelled && !run.cancelled) {
    broken += "ended as cancelled by nobody; ";
  }
  for (const core::Message& message : run.messages) {
    if (message.text == "Complete!!" && message.icon == core::Icon::kInformation) continue;
    if (!IsKnownFailure(message, title)) broken += "unknown message " + Told(message) + "; ";
  }
  // A radio that does not answer "#CMDSY" is told of by the monitor line alone.
  const bool silent = run.outcome.ending == link::Ending::kFailed && !run.outcome.said;
  if (silent && CountOf(run.asked, ExchangeKind::kStatus) > 0) broken += "failed without a word; ";
  const double limit = ideal_.seconds + (CountFaults(run.asked) + kLongestRow) * kExchangeSeconds;
  if (run.seconds > limit) broken += "took " + core::ShortestText(run.seconds) + " s; ";
  return broken;
}

std::string FaultRunner::CheckContents(const Run& run) const {
  if (kind_ == SessionKind::kProgram) return {};
  std::string broken;
  const core::RadioData& wanted = run.done ? ideal_.data : desk_;
  if (run.data != wanted) broken += "the data differ; ";
  if (run.memory != radio_memory_) broken += "a read changed the radio; ";
  return broken;
}

std::string FaultRunner::CheckWrites(const Run& run) const {
  if (kind_ != SessionKind::kProgram) return {};
  std::string broken;
  const core::MemoryImage& image = run.data.Image;
  bool changed = false;
  for (std::size_t i = 0; i < run.memory.size(); ++i) {
    const int address = static_cast<int>(i);
    const bool written = ideal_.memory[i] != radio_memory_[i];
    changed |= run.memory[i] != radio_memory_[i];
    if (run.memory[i] == radio_memory_[i] && !(run.done && written)) continue;
    if (run.memory[i] != image[address]) {
      broken += "byte " + std::to_string(address) + " is not the image's; ";
    } else if (!written && address != kRadioOwnByte && address != image::kDestinationOffset) {
      broken += "byte " + std::to_string(address) + " was written; ";
    }
  }
  if (changed && Contains(run.messages, core::kNothingWrittenText))
    broken += "\"Nothing was written\" is not true; ";
  if (changed && !run.done && !run.outcome.partly_written)
    broken += "a partly written radio kept quiet; ";
  if (run.outcome.partly_written && !run.cancelled &&
      run.messages.back().details.find(core::kPartlyWrittenText) == std::string::npos) {
    broken += "the message does not say that the radio is partly written; ";
  }
  return broken;
}

std::string FaultRunner::CheckCancelled(const Run& run) const {
  if (!run.cancelled) return {};
  std::string broken;
  if (CountFaults(run.asked) == 0 && run.seconds_after_cancel > 2) broken += "cancelled late; ";
  if (run.seconds_after_cancel > kExchangeSeconds) broken += "cancelling does not end; ";
  const auto later = std::span(run.asked).subspan(run.asked_before_cancel);
  // One frame may be on its way when Cancel is pressed.
  if (CountOf(later, ExchangeKind::kWrite) > 1) broken += "wrote after Cancel; ";
  if (run.done || CountFaults(run.asked) > 0) return broken;
  const std::size_t under_way = std::max<std::size_t>(run.asked_before_cancel, 1) - 1;
  const bool in_blocks = kind_ == SessionKind::kRead && PhaseAt(under_way) == Phase::kBlocks;
  if (in_blocks && run.asked.back().kind != ExchangeKind::kCancel) broken += "no CAN; ";
  for (const core::Message& message : run.messages) {
    if (message.text != "cancel!!" && message.text != "Radio not ready!!" &&
        message.text != core::kNothingWrittenText) {
      broken += "Cancel answered by " + Told(message) + "; ";
    }
  }
  return broken;
}

std::string FaultRunner::CheckRecovery(const Run& run) const {
  Run again = RunOnce(run.data, run.memory, {});
  if (!again.done) return "the same session fails without fault; ";
  if (kind_ == SessionKind::kRead) {
    return again.data == ideal_.data ? "" : "the same session reads other data; ";
  }
  // What the radio keeps for itself was overwritten by a run that could not read it.
  again.memory[kRadioOwnByte] = ideal_.memory[kRadioOwnByte];
  std::uint8_t& destination = again.memory[image::kDestinationOffset];
  const std::uint8_t own = ideal_.memory[image::kDestinationOffset] & kRadioOwnBit;
  destination = static_cast<std::uint8_t>((destination & ~kRadioOwnBit) | own);
  return again.memory == ideal_.memory ? "" : "the same session leaves another radio; ";
}

FaultRunner::Phase FaultRunner::PhaseAt(std::size_t index) const {
  const std::size_t count = std::min(index + 1, ideal_.asked.size());
  const std::span<const link::Exchange> before = std::span(ideal_.asked).first(count);
  if (CountOf(before, ExchangeKind::kStatus) == 0) return Phase::kConnect;
  const std::size_t reads = CountOf(before, ExchangeKind::kRead);
  if (reads == 0) return Phase::kStatus;
  const bool has_product = image::kProductOffset <= desk_.Image.LastIndex();
  if (reads <= (has_product ? 4U : 3U)) return Phase::kModelCheck;
  if (kind_ == SessionKind::kRead || CountOf(before, ExchangeKind::kWrite) > 0) {
    return Phase::kBlocks;
  }
  return Phase::kRadioBytes;
}

Outcome FaultRunner::Expected(const FaultCase& fault_case, std::size_t index) const {
  const link::Fault& fault = fault_case.faults.front();
  const Phase phase = PhaseAt(index);
  if (fault.kind == FaultKind::kUnplug) {
    const bool in_last = index + 1 == ideal_.asked.size();
    return in_last ? Outcome::kEither : Outcome::kFailure;
  }
  const bool late = fault.kind == FaultKind::kLateReply;
  if (phase == Phase::kConnect) return Outcome::kEither;
  if (late && fault.value < kReplySeconds) return Outcome::kSuccess;
  if (phase == Phase::kRadioBytes) return late ? Outcome::kEither : Outcome::kSuccess;
  const bool asks = fault.kind == FaultKind::kRefusal || fault.kind == FaultKind::kBusy;
  return asks && fault_case.agree ? Outcome::kSuccess : Outcome::kFailure;
}

std::string FaultRunner::CheckSingle(const FaultCase& fault_case, std::size_t index) const {
  const Run run = RunOnce(desk_, radio_memory_, fault_case);
  std::string broken = BrokenPromises(run);
  const Outcome expected = Expected(fault_case, index);
  if (CountFaults(run.asked) != 1) broken += "the fault did not strike once; ";
  if (expected != Outcome::kEither && run.done != (expected == Outcome::kSuccess)) {
    broken += run.done ? "the fault went by unnoticed; " : "failed where it should have gone on; ";
  }
  const link::Fault& fault = fault_case.faults.front();
  if (expected == Outcome::kFailure) broken += CheckReason(run, fault, PhaseAt(index));
  double limit = ideal_.seconds + 2 * kReplySeconds + 2;
  if (fault.kind == FaultKind::kMissingEcho) limit += kEchoSeconds;
  if (fault.kind == FaultKind::kLateReply) limit += fault.value;
  if (run.seconds > limit) broken += "took " + core::ShortestText(run.seconds) + " s; ";
  return broken;
}

std::string FaultRunner::CheckReason(const Run& run, const link::Fault& fault, Phase phase) const {
  const std::string title(link::ModeTitle(kind_));
  std::string last;
  if (fault.kind == FaultKind::kUnplug) {
    last = phase == Phase::kConnect ? "" : "Orvane: 5\r\rInput/output error";
  } else if (phase == Phase::kStatus) {
    last = title + ": Radio not ready!!";
  } else if (phase == Phase::kModelCheck) {
    last = "Model Check: Communication Error!!";
  } else if (phase == Phase::kBlocks) {
    last = title + ": Communication Error!!";
  }
  std::string broken;
  if (!last.empty() && (run.messages.empty() || Told(run.messages.back()) != last)) {
    broken += "does not end in " + last + "; ";
  }
  static constexpr std::pair<FaultKind, std::string_view> kReasons[] = {
      {FaultKind::kWrongAddress, "address error!!"},
      {FaultKind::kWrongLength, "data error!!"},
      {FaultKind::kShortData, "data error!!"},
      {FaultKind::kBusy, "Radio is busy!!"},
      {FaultKind::kRefusal, "confirm the synchronization of the communication"},
  };
  for (const auto& [kind, reason] : kReasons) {
    if (fault.kind == kind && !Contains(run.messages, reason)) {
      broken += "does not say " + std::string(reason) + "; ";
    }
  }
  return broken;
}

}  // namespace orvane::testing
