#include "link/radio_faults.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"

namespace orvane::link {
namespace {

constexpr double kByteNumbers = 10000;  ///< no exchange is longer

constexpr std::array<FaultInfo, kFaultKinds> kFaults = {{
    {FaultKind::kWrongEcho, "wrong-echo", "byte N of the PC comes back changed (1)", 1,
     kByteNumbers},
    {FaultKind::kMissingEcho, "missing-echo", "nothing comes back from byte N of the PC on (1)", 1,
     kByteNumbers},
    {FaultKind::kGarbledReply, "garbled-reply", "byte N of the answer arrives changed (1)", 1,
     kByteNumbers},
    {FaultKind::kShortReply, "short-reply", "only N bytes of the answer arrive (1)", 1,
     kByteNumbers},
    {FaultKind::kLateReply, "late-reply", "the answer comes after N seconds (15)", 15, 3600},
    {FaultKind::kMissingReply, "missing-reply", "the command is carried out, no answer comes", 0,
     0},
    {FaultKind::kWrongChecksum, "wrong-checksum", "a data or status frame with a wrong checksum", 0,
     0},
    {FaultKind::kWrongAddress, "wrong-address", "a data frame for another address", 0, 0},
    {FaultKind::kWrongLength, "wrong-length", "a data frame that claims one byte more", 0, 0},
    {FaultKind::kShortData, "short-data", "a data frame that lacks its last data byte", 0, 0},
    {FaultKind::kRefusal, "refusal", "\"ERROR\"; the command is not carried out", 0, 0},
    {FaultKind::kUnknown, "unknown", "\"#CMDUN\"; the command is not carried out", 0, 0},
    {FaultKind::kBusy, "busy", "status busy", 0, 0},
    {FaultKind::kOtherStatus, "other-status", "status N, 0 to 255 (2)", 2, 255},
    {FaultKind::kUnplug, "unplug", "the cable is pulled after N bytes of the exchange (0)", 0,
     kByteNumbers},
    {FaultKind::kNotStored, "not-stored", "the write is acknowledged, nothing is stored", 0, 0},
    {FaultKind::kOtherStored, "other-stored",
     "the write is acknowledged, its byte N is stored changed (1)", 1, kByteNumbers},
    {FaultKind::kForgottenBlock, "forgotten-block",
     "the write is acknowledged, the 16 bytes around it are erased", 0, 0},
}};

constexpr std::array<std::string_view, kExchangeKinds> kExchangeNames = {
    "handshake", "confirm", "mode", "sync", "status", "read", "write", "closing", "cancel", "other",
};

std::optional<ExchangeKind> ParseExchangeName(std::string_view name) {
  const auto it = std::find(kExchangeNames.begin(), kExchangeNames.end(), name);
  if (it == kExchangeNames.end()) return std::nullopt;
  return static_cast<ExchangeKind>(it - kExchangeNames.begin());
}

/// 1, 2, 3 ... without sign, point or blanks.
std::optional<int> ParseCount(std::string_view text) {
  constexpr std::size_t kMaxDigits = 7;
  if (text.empty() || text.size() > kMaxDigits) return std::nullopt;
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + (c - '0');
  }
  if (number == 0) return std::nullopt;
  return number;
}

/// Fills in where the fault strikes.
bool ParsePlace(std::string_view text, Fault& fault) {
  if (const std::optional<int> number = ParseCount(text)) {
    fault.number = *number;
    return true;
  }
  fault.number = 0;
  if (text == "all") return true;
  const std::size_t colon = text.find(':');
  fault.exchange = ParseExchangeName(text.substr(0, colon));
  if (!fault.exchange) return false;
  if (colon == std::string_view::npos) return true;
  const std::optional<int> number = ParseCount(text.substr(colon + 1));
  fault.number = number.value_or(0);
  return number.has_value();
}

ParsedFault Refuse(std::string_view text, std::string_view reason) {
  return {std::nullopt, "\"" + std::string(text) + "\" is no fault: " + std::string(reason)};
}

std::string KnownNames() {
  std::string names;
  for (const FaultInfo& info : kFaults) {
    if (!names.empty()) names += ", ";
    names += info.name;
  }
  return names;
}

/// Well mixed bits of a number (a finalizer in the manner of SplitMix64).
std::uint64_t Mix(std::uint64_t x) {
  x += 0x9E3779B97F4A7C15U;
  x = (x ^ (x >> 30U)) * 0xBF58476D1CE4E5B9U;
  x = (x ^ (x >> 27U)) * 0x94D049BB133111EBU;
  return x ^ (x >> 31U);
}

}  // namespace

std::string_view ExchangeName(ExchangeKind kind) {
  return kExchangeNames[static_cast<std::size_t>(kind)];
}

const std::array<FaultInfo, kFaultKinds>& Faults() {
  return kFaults;
}

const FaultInfo& InfoOf(FaultKind kind) {
  return kFaults[static_cast<std::size_t>(kind)];
}

bool Affects(FaultKind fault, ExchangeKind exchange) {
  const bool single_byte =
      exchange == ExchangeKind::kHandshake || exchange == ExchangeKind::kCancel;
  const bool answered = exchange != ExchangeKind::kConfirm && exchange != ExchangeKind::kClosing;
  switch (fault) {
    case FaultKind::kWrongEcho:
    case FaultKind::kMissingEcho:
    case FaultKind::kUnplug:
      return true;
    case FaultKind::kGarbledReply:
    case FaultKind::kLateReply:
    case FaultKind::kMissingReply:
      return answered;
    case FaultKind::kShortReply:
    case FaultKind::kRefusal:
    case FaultKind::kUnknown:
      return answered && !single_byte;
    case FaultKind::kWrongChecksum:
      return exchange == ExchangeKind::kRead || exchange == ExchangeKind::kStatus;
    case FaultKind::kWrongAddress:
    case FaultKind::kWrongLength:
    case FaultKind::kShortData:
      return exchange == ExchangeKind::kRead;
    case FaultKind::kBusy:
    case FaultKind::kOtherStatus:
      return exchange == ExchangeKind::kStatus;
    case FaultKind::kNotStored:
    case FaultKind::kOtherStored:
    case FaultKind::kForgottenBlock:
      return exchange == ExchangeKind::kWrite;
  }
  return false;
}

Fault MakeFault(FaultKind kind, int number) {
  return {.kind = kind, .number = number, .value = InfoOf(kind).default_value};
}

Fault MakeFault(FaultKind kind, ExchangeKind exchange, int number) {
  return {
      .kind = kind, .exchange = exchange, .number = number, .value = InfoOf(kind).default_value};
}

ParsedFault ParseFault(std::string_view text) {
  const std::size_t at = text.find('@');
  if (at == std::string_view::npos) {
    return Refuse(text, "it is written KIND@PLACE or KIND@PLACE=VALUE");
  }
  const std::string_view name = text.substr(0, at);
  const auto info = std::find_if(kFaults.begin(), kFaults.end(),
                                 [name](const FaultInfo& f) { return f.name == name; });
  if (info == kFaults.end()) return Refuse(text, "the kind is one of " + KnownNames());

  Fault fault = MakeFault(info->kind, 0);
  const std::string_view rest = text.substr(at + 1);
  const std::size_t equals = rest.find('=');
  if (!ParsePlace(rest.substr(0, equals), fault)) {
    return Refuse(text, "the place is an exchange number, a kind such as write, write:3, or all");
  }
  if (fault.exchange && !Affects(fault.kind, *fault.exchange)) {
    return Refuse(text, "such an exchange cannot show it");
  }
  if (equals == std::string_view::npos) return {fault, {}};

  if (info->max_value == 0) return Refuse(text, "the kind takes no value");
  const std::optional<double> value = core::ParseNumber(rest.substr(equals + 1));
  const bool whole = fault.kind == FaultKind::kLateReply || (value && std::floor(*value) == *value);
  if (!value || !whole || *value < 0 || *value > info->max_value) {
    return Refuse(text, "the value is a number from 0 to " + core::ShortestText(info->max_value));
  }
  fault.value = *value;
  return {fault, {}};
}

void FaultPlan::Scatter(std::uint64_t seed, double percent_of_exchanges) {
  seed_ = seed;
  percent_ = percent_of_exchanges;
}

std::optional<Fault> FaultPlan::Find(const Position& position,
                                     std::span<const FaultKind> among) const {
  const auto fits = [&](const Fault& fault) {
    if (std::find(among.begin(), among.end(), fault.kind) == among.end()) return false;
    if (position.kind && !Affects(fault.kind, *position.kind)) return false;
    if (fault.exchange && fault.exchange != position.kind) return false;
    const int number = fault.exchange ? position.occurrence : position.number;
    return fault.number == 0 || fault.number == number;
  };
  const auto listed = std::find_if(faults_.begin(), faults_.end(), fits);
  if (listed != faults_.end()) return *listed;
  const std::optional<Fault> scattered = Scattered(position.number);
  return scattered && fits(*scattered) ? scattered : std::nullopt;
}

std::optional<Fault> FaultPlan::Scattered(int number) const {
  constexpr double kPartsPerPercent = 1e6;
  constexpr std::uint64_t kParts = 100'000'000;
  constexpr std::uint64_t kValues = 64;  // reaches every byte of the usual exchanges
  if (percent_ <= 0) return std::nullopt;
  std::uint64_t bits = Mix(seed_ ^ Mix(static_cast<std::uint64_t>(number)));
  if (static_cast<double>(bits % kParts) >= percent_ * kPartsPerPercent) return std::nullopt;
  bits = Mix(bits);
  Fault fault = MakeFault(static_cast<FaultKind>(bits % kNoticedFaultKinds), number);
  if (InfoOf(fault.kind).max_value > 0) fault.value = static_cast<double>(Mix(bits) % kValues);
  return fault;
}

}  // namespace orvane::link
