#include "link/simulated_radio.h"

#include <algorithm>

#include "core/number_text.h"
#include "core/text.h"
#include "link/clone_frame.h"

namespace orvane::link {
namespace {

constexpr std::uint8_t kAbsentByte = 255;
constexpr std::string_view kLineEnd = "\r\n";
/// A write of 255 bytes is 530 characters; what is longer cannot be a command.
constexpr std::size_t kLongestLine = 600;

constexpr std::array kEchoFaults = {FaultKind::kWrongEcho, FaultKind::kMissingEcho};
constexpr std::array kUnplugFault = {FaultKind::kUnplug};
constexpr std::array kRefusalFaults = {FaultKind::kRefusal, FaultKind::kUnknown};
constexpr std::array kStatusFaults = {FaultKind::kBusy, FaultKind::kOtherStatus};
constexpr std::array kChecksumFault = {FaultKind::kWrongChecksum};
constexpr std::array kDataFaults = {FaultKind::kWrongAddress, FaultKind::kWrongLength,
                                    FaultKind::kShortData};
constexpr std::array kLies = {FaultKind::kNotStored, FaultKind::kOtherStored,
                              FaultKind::kForgottenBlock};
constexpr std::array kDeliveryFaults = {FaultKind::kGarbledReply, FaultKind::kShortReply,
                                        FaultKind::kLateReply, FaultKind::kMissingReply};

struct Word {
  std::string_view text;
  ExchangeKind kind;
};
constexpr std::array kWords = {
    Word{kModeRequest, ExchangeKind::kMode},
    Word{kCommandSync, ExchangeKind::kSync},
    Word{kCommandStatusRequest, ExchangeKind::kStatus},
    Word{kCommandRead, ExchangeKind::kRead},
    Word{kCommandWrite, ExchangeKind::kWrite},
    Word{kCommandOk, ExchangeKind::kClosing},
    Word{kCommandChecksumWrong, ExchangeKind::kClosing},
    Word{kCommandError, ExchangeKind::kClosing},
    Word{kCommandUnknown, ExchangeKind::kClosing},
};

std::optional<ExchangeKind> KindOfLine(std::string_view line) {
  for (const Word& word : kWords) {
    if (line.starts_with(word.text)) return word.kind;
  }
  return std::nullopt;
}

std::string Line(std::string_view text) {
  return std::string(text) + std::string(kLineEnd);
}

/// A field of exactly that many hexadecimal digits.
std::optional<int> HexField(std::string_view field, std::size_t digits) {
  if (field.size() != digits) return std::nullopt;
  const std::optional<unsigned> value = core::ParseHex(field);
  if (!value) return std::nullopt;
  return static_cast<int>(*value);
}

/// Byte number n (from 1) of a text, the last one when there are not so many.
std::size_t IndexOf(double number, std::size_t size) {
  const auto n = static_cast<std::size_t>(number);
  return std::min(n > 0 ? n - 1 : 0, size - 1);
}

void SpoilChecksum(std::string& frame) {
  char& digit = frame[frame.size() - kLineEnd.size() - 1];
  digit = digit == '0' ? '1' : '0';
}

void ChangeBit(char& c) {
  c = static_cast<char>(static_cast<unsigned char>(c) ^ 1U);
}

struct Range {
  int address = 0;
  int length = 0;
};

/// The memory range of a read or write; nothing when it is malformed or reaches behind the end.
std::optional<Range> ParseRange(std::string_view address, std::string_view length, int end) {
  const std::optional<int> first = HexField(address, 4);
  const std::optional<int> count = HexField(length, 2);
  if (!first || !count || *count == 0 || *first + *count > end) return std::nullopt;
  return Range{*first, *count};
}

}  // namespace

/// What the radio says to a command; no bytes: nothing.
struct SimulatedRadio::Answer {
  std::string bytes{};
  bool refused = false;

  static Answer Refuse() { return {Line(kRefusal), true}; }
};

std::string ExchangeText(const Exchange& exchange) {
  std::string text(ExchangeName(exchange.kind));
  if (exchange.length > 0) {
    text += " 0x" + core::HexText(static_cast<unsigned>(exchange.address), 4) + " " +
            std::to_string(exchange.length);
  } else if (exchange.kind == ExchangeKind::kClosing || exchange.kind == ExchangeKind::kOther) {
    text += " ";
    for (const char c : exchange.line) text += c >= ' ' && c <= '~' ? c : '.';
  }
  if (exchange.refused) text += " refused";
  if (exchange.fault) text += " (" + std::string(InfoOf(*exchange.fault).name) + ")";
  return text;
}

std::vector<std::uint8_t> RadioMemory(const core::ModelProfile& profile,
                                      std::span<const std::uint8_t> image) {
  std::vector<std::uint8_t> memory(static_cast<std::size_t>(profile.image_size), kAbsentByte);
  std::copy_n(image.begin(), std::min(image.size(), memory.size()), memory.begin());
  const auto at = static_cast<std::size_t>(profile.radio_code_address);
  memory[at] = static_cast<std::uint8_t>(profile.code >> 8U);
  memory[at + 1] = static_cast<std::uint8_t>(profile.code & 0xFFU);
  return memory;
}

SimulatedRadio::SimulatedRadio(std::span<const std::uint8_t> memory, FaultPlan faults)
    : used_size_(std::min(memory.size(), memory_.size())), faults_(std::move(faults)) {
  memory_.fill(kAbsentByte);
  std::copy_n(memory.begin(), used_size_, memory_.begin());
}

CableReaction SimulatedRadio::Receive(std::uint8_t byte, double now) {
  CableReaction reaction;
  if (!plugged_) return reaction;
  const bool stale = now - last_byte_at_ > kLineTimeout;
  last_byte_at_ = now;
  if (bytes_received_ == 0 || stale || byte == kCancelByte) BeginExchange();
  ++bytes_received_;

  std::string& line = exchange_.line;
  std::optional<ExchangeKind> kind = SingleByteKind(byte);
  bool complete = kind.has_value();
  if (!complete) {
    complete = byte == kLf;
    if (complete && line.ends_with(kCr)) {
      line.pop_back();
    } else if (line.size() < kLongestLine) {
      line += static_cast<char>(byte);
    }
    kind = KindOfLine(line);
    if (complete && !kind) kind = ExchangeKind::kOther;
  }
  Echo(byte, complete, kind, reaction);
  if (complete && plugged_) Complete(*kind, reaction);
  return reaction;
}

void SimulatedRadio::PlugIn() {
  plugged_ = true;
  session_ = Session::kNone;
}

void SimulatedRadio::BeginExchange() {
  exchange_ = Exchange{.number = ++count_};
  bytes_received_ = 0;
  echo_spoilt_ = false;
}

std::optional<ExchangeKind> SimulatedRadio::SingleByteKind(std::uint8_t byte) const {
  if (byte == kCancelByte) return ExchangeKind::kCancel;
  if (!exchange_.line.empty()) return std::nullopt;
  if (byte == kHandshakeByte) return ExchangeKind::kHandshake;
  if (byte == kHandshakeConfirm && session_ == Session::kGreeted) return ExchangeKind::kConfirm;
  return std::nullopt;
}

std::optional<Fault> SimulatedRadio::FindFault(std::optional<ExchangeKind> kind,
                                               std::span<const FaultKind> among) const {
  const int occurrence = kind ? occurrences_[static_cast<std::size_t>(*kind)] + 1 : 0;
  return faults_.Find({exchange_.number, kind, occurrence}, among);
}

void SimulatedRadio::Echo(std::uint8_t byte, bool last, std::optional<ExchangeKind> kind,
                          CableReaction& reaction) {
  const auto reached = [&](double number) { return bytes_received_ >= number || last; };
  const std::optional<Fault> unplug = FindFault(kind, kUnplugFault);
  if (unplug && bytes_received_ > unplug->value) {
    if (kind) {
      exchange_.kind = *kind;
      ++occurrences_[static_cast<std::size_t>(*kind)];
    }
    Unplug(reaction);
    return;
  }
  reaction.echo = byte;
  const std::optional<Fault> fault = FindFault(kind, kEchoFaults);
  if (!fault || !reached(fault->value)) return;
  if (fault->kind == FaultKind::kMissingEcho) {
    reaction.echo.reset();
    Struck(FaultKind::kMissingEcho);
  } else if (!echo_spoilt_) {
    reaction.echo = static_cast<std::uint8_t>(byte ^ 1U);
    echo_spoilt_ = true;
    Struck(FaultKind::kWrongEcho);
  }
}

void SimulatedRadio::Complete(ExchangeKind kind, CableReaction& reaction) {
  exchange_.kind = kind;
  const Answer answer = AnswerTo(kind);
  exchange_.refused = answer.refused;
  reaction.answer = answer.bytes;
  SpoilDelivery(reaction);
  ++occurrences_[static_cast<std::size_t>(kind)];
  bytes_received_ = 0;
  if (plugged_ && observer_) observer_(exchange_);
}

SimulatedRadio::Answer SimulatedRadio::AnswerTo(ExchangeKind kind) {
  switch (kind) {
    case ExchangeKind::kHandshake:
      session_ = Session::kGreeted;
      return {std::string(1, static_cast<char>(kHandshakeByte))};
    case ExchangeKind::kConfirm:
      session_ = Session::kOpen;
      return {};
    case ExchangeKind::kCancel:
      session_ = Session::kNone;
      return {std::string(1, static_cast<char>(kAcknowledgeByte))};
    case ExchangeKind::kClosing:
      return {};
    default:
      break;
  }
  if (session_ != Session::kOpen && session_ != Session::kSynchronized) return {};
  if (const std::optional<Fault> fault = FindFault(kind, kRefusalFaults)) {
    Struck(fault->kind);
    if (fault->kind == FaultKind::kRefusal) return Answer::Refuse();
    return {Line(kCommandUnknown)};
  }
  return Execute(kind);
}

SimulatedRadio::Answer SimulatedRadio::Execute(ExchangeKind kind) {
  const std::string& line = exchange_.line;
  if (kind == ExchangeKind::kMode && line == kModeRequest) return {Line("OK")};
  if (kind == ExchangeKind::kSync && line == kCommandSync) {
    session_ = Session::kSynchronized;
    return {Line(kCommandOk)};
  }
  if (session_ != Session::kSynchronized || !VerifyLineChecksum(line)) return Answer::Refuse();
  const std::vector<std::string_view> fields =
      core::Split(std::string_view(line), static_cast<char>(kTab));
  switch (kind) {
    case ExchangeKind::kStatus:
      return AnswerStatus(fields);
    case ExchangeKind::kRead:
      return AnswerRead(fields);
    case ExchangeKind::kWrite:
      return AnswerWrite(fields);
    default:
      return Answer::Refuse();
  }
}

SimulatedRadio::Answer SimulatedRadio::AnswerStatus(const std::vector<std::string_view>& fields) {
  if (fields.size() != 3 || fields[0] != kCommandStatusRequest || fields[1] != "00") {
    return Answer::Refuse();
  }
  unsigned status = 0;
  if (const std::optional<Fault> fault = FindFault(ExchangeKind::kStatus, kStatusFaults)) {
    status = fault->kind == FaultKind::kBusy ? 1 : static_cast<unsigned>(fault->value);
    Struck(fault->kind);
  }
  std::string frame = BuildFrame(kCommandStatusReply, core::HexText(status, 2));
  if (FindFault(ExchangeKind::kStatus, kChecksumFault)) {
    SpoilChecksum(frame);
    Struck(FaultKind::kWrongChecksum);
  }
  return {Line(kCommandOk) + frame};
}

SimulatedRadio::Answer SimulatedRadio::AnswerRead(const std::vector<std::string_view>& fields) {
  if (fields.size() != 4 || fields[0] != kCommandRead) return Answer::Refuse();
  const std::optional<Range> range =
      ParseRange(fields[1], fields[2], static_cast<int>(memory_.size()));
  if (!range) return Answer::Refuse();
  exchange_.address = range->address;
  exchange_.length = range->length;

  int address = range->address;
  int length = range->length;
  std::string data = HexData(std::span<const std::uint8_t>(memory_).subspan(
      static_cast<std::size_t>(address), static_cast<std::size_t>(length)));
  if (const std::optional<Fault> fault = FindFault(ExchangeKind::kRead, kDataFaults)) {
    if (fault->kind == FaultKind::kWrongAddress) address ^= 0x10;
    if (fault->kind == FaultKind::kWrongLength) length = (length + 1) % 256;
    if (fault->kind == FaultKind::kShortData) data.resize(data.size() - 2);
    Struck(fault->kind);
  }
  std::string frame = BuildFrame(kCommandData, AddressField(address), LengthField(length), data);
  if (FindFault(ExchangeKind::kRead, kChecksumFault)) {
    SpoilChecksum(frame);
    Struck(FaultKind::kWrongChecksum);
  }
  return {Line(kCommandOk) + frame};
}

SimulatedRadio::Answer SimulatedRadio::AnswerWrite(const std::vector<std::string_view>& fields) {
  if (fields.size() != 5 || fields[0] != kCommandWrite) return Answer::Refuse();
  const std::optional<Range> range = ParseRange(fields[1], fields[2], static_cast<int>(used_size_));
  if (!range || fields[3].size() != 2 * static_cast<std::size_t>(range->length)) {
    return Answer::Refuse();
  }
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < fields[3].size(); i += 2) {
    const std::optional<int> byte = HexField(fields[3].substr(i, 2), 2);
    if (!byte) return Answer::Refuse();
    bytes.push_back(static_cast<std::uint8_t>(*byte));
  }
  exchange_.address = range->address;
  exchange_.length = range->length;
  Store(range->address, std::move(bytes));
  return {Line(kCommandOk)};
}

void SimulatedRadio::Store(int address, std::vector<std::uint8_t> bytes) {
  constexpr int kBlock = 16;
  const std::optional<Fault> lie = FindFault(ExchangeKind::kWrite, kLies);
  if (lie) {
    Struck(lie->kind);
    if (lie->kind == FaultKind::kNotStored) return;
    if (lie->kind == FaultKind::kForgottenBlock) {
      std::fill_n(memory_.begin() + (address - address % kBlock), kBlock, kAbsentByte);
      return;
    }
    bytes[IndexOf(lie->value, bytes.size())] ^= 1U;
  }
  std::copy(bytes.begin(), bytes.end(), memory_.begin() + address);
}

void SimulatedRadio::SpoilDelivery(CableReaction& reaction) {
  const ExchangeKind kind = exchange_.kind;
  const std::optional<Fault> fault = FindFault(kind, kDeliveryFaults);
  if (fault && !reaction.answer.empty()) {
    switch (fault->kind) {
      case FaultKind::kGarbledReply:
        ChangeBit(reaction.answer[IndexOf(fault->value, reaction.answer.size())]);
        break;
      case FaultKind::kShortReply:
        reaction.answer.resize(
            std::min(static_cast<std::size_t>(fault->value), reaction.answer.size() - 1));
        break;
      case FaultKind::kLateReply:
        reaction.answer_delay = fault->value;
        break;
      default:
        reaction.answer.clear();
    }
    Struck(fault->kind);
  }
  if (const std::optional<Fault> unplug = FindFault(kind, kUnplugFault)) {
    const auto left = static_cast<std::size_t>(unplug->value - bytes_received_);
    reaction.answer.resize(std::min(left, reaction.answer.size()));
    Unplug(reaction);
  }
}

void SimulatedRadio::Struck(FaultKind fault) {
  if (!exchange_.fault) exchange_.fault = fault;
}

void SimulatedRadio::Unplug(CableReaction& reaction) {
  Struck(FaultKind::kUnplug);
  reaction.unplugged = true;
  plugged_ = false;
  session_ = Session::kNone;
  bytes_received_ = 0;
  if (observer_) observer_(exchange_);
}

}  // namespace orvane::link
