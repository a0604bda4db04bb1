#include "link/doctor.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "core/message_facts.h"
#include "core/messages.h"

namespace orvane::link {
namespace {

using core::Facts;

/// What a taker's verdict is, by its name.
constexpr std::pair<std::string_view, Verdict> kTakers[] = {
    {kModemManagerProgram, Verdict::kModemManager}, {kBrlttyProgram, Verdict::kBrltty}};

std::optional<Verdict> VerdictOfTaker(const PortHolder& holder) {
  for (const auto& [program, verdict] : kTakers) {
    if (holder.program == program) return verdict;
  }
  return std::nullopt;
}

/// A path as a word of a command.
std::string Word(const std::string& path) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-+:@";
  if (path.find_first_not_of(kPlain) == std::string::npos) return path;
  std::string word = "'";
  for (const char c : path) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
}

// A device that is no file is none that a command could name.
bool CanRun(const VerdictRow& row, const Observations& seen) {
  return row.command.find("{device") == std::string_view::npos || seen.device.starts_with('/');
}

Diagnosis Make(Verdict verdict, const Observations& seen, const Facts& facts = {}) {
  const VerdictRow& row = RowOf(verdict);
  Facts of_command = facts;
  of_command.push_back({"device", Word(seen.device)});
  return {verdict, core::FilledText(row.text, facts), core::FilledText(row.remedy, facts),
          CanRun(row, seen) ? core::FilledText(row.command, of_command) : std::string()};
}

Diagnosis HeldBy(const PortHolder& holder, const Observations& seen, std::string_view likely = {}) {
  return Make(VerdictOfTaker(holder).value_or(Verdict::kBusy), seen,
              {{"holder", holder.Text()}, {"likely", std::string(likely)}});
}

// A program of another user does not show what it has open: one that is known for it and runs is
// the likely one.
Diagnosis Busy(const Observations& seen) {
  if (!seen.takers.empty()) return HeldBy(seen.takers.front(), seen, ", most likely");
  return Make(Verdict::kBusyUnknown, seen);
}

Diagnosis NoDevice(const Observations& seen) {
  const auto brltty =
      std::find_if(seen.takers.begin(), seen.takers.end(),
                   [](const PortHolder& taker) { return taker.program == kBrlttyProgram; });
  if (brltty == seen.takers.end()) return Make(Verdict::kNoDevice, seen);
  return Make(Verdict::kNoDeviceBrltty, seen, {{"holder", brltty->Text()}});
}

Diagnosis NoPermission(const Observations& seen) {
  if (seen.permission.group.empty()) {
    return Make(Verdict::kNoGroup, seen, {{"device", seen.device}});
  }
  return Make(Verdict::kNoPermission, seen,
              {{"group", seen.permission.group}, {"user", seen.permission.user}});
}

Diagnosis OfModel(const Observations& seen, const core::ModelProfile* wanted) {
  const core::CodePair codes = *seen.codes;
  const core::ModelProfile* const theirs =
      codes.first == codes.second ? core::FindProfileByCode(codes.first) : nullptr;
  const core::ModelProfile& ours = wanted != nullptr   ? *wanted
                                   : theirs != nullptr ? *theirs
                                                       : core::ProfileOf(core::kDefaultModelType);
  const core::MessageCase other = core::OtherModelOfRadio(codes, ours);
  if (theirs == nullptr) return Make(Verdict::kUnknownModel, seen, other.facts);
  if (theirs->code != ours.code) return Make(Verdict::kOtherModel, seen, other.facts);
  if (seen.product && !core::ProductMatches(ours, *seen.product)) {
    return Make(Verdict::kOtherProduct, seen, core::ProductFacts(*seen.product, ours));
  }
  return Make(Verdict::kReady, seen, {{"ours", std::string(ours.model)}});
}

Diagnosis OfLine(const Observations& seen) {
  if (seen.cancelled) return Make(Verdict::kCancelled, seen);
  if (seen.broke_off) return Make(Verdict::kBrokeOff, seen);
  if (!seen.echo) return Make(seen.stranger ? Verdict::kOtherDevice : Verdict::kNothingBack, seen);
  if (!seen.answer) return Make(Verdict::kNoRadio, seen);
  Facts facts;
  if (!seen.complaint.empty()) facts.push_back({"complaint", seen.complaint});
  return Make(Verdict::kNotReady, seen, facts);
}

}  // namespace

std::string PortHolder::Text() const {
  return program + " (process " + std::to_string(process) + ")";
}

std::string UseText(const std::vector<PortHolder>& holders) {
  if (holders.empty()) return "free, as far as is known";
  std::string text = "in use by ";
  for (const PortHolder& holder : holders) {
    text += (&holder == &holders.front() ? "" : ", ") + holder.Text();
  }
  return text;
}

std::vector<std::vector<PortHolder>> HoldersOf(DeviceFacts* devices,
                                               const std::vector<PortEntry>& ports) {
  std::vector<std::string> paths(ports.size());
  std::transform(ports.begin(), ports.end(), paths.begin(),
                 [](const PortEntry& port) { return port.device; });
  if (devices != nullptr) return devices->HoldersOf(paths);
  return std::vector<std::vector<PortHolder>>(ports.size());
}

std::vector<PortHolder> TakersAmong(DeviceFacts& devices) {
  std::vector<PortHolder> takers;
  for (const auto& [program, verdict] : kTakers) {
    for (PortHolder& running : devices.Running(program)) takers.push_back(std::move(running));
  }
  return takers;
}

Diagnosis Diagnose(const Observations& seen, const core::ModelProfile* wanted) {
  if (!seen.holders.empty()) return HeldBy(seen.holders.front(), seen);
  if (seen.open_failure) {
    if (std::optional<Diagnosis> known = DiagnoseOpening(seen)) return *std::move(known);
    return Make(Verdict::kCannotOpen, seen, {{"reason", seen.reason}});
  }
  return seen.codes ? OfModel(seen, wanted) : OfLine(seen);
}

std::optional<Diagnosis> DiagnoseOpening(const Observations& seen) {
  switch (seen.open_failure.value_or(0)) {
    case ENOENT:
    case ENXIO:
    case ENODEV:
    case ENOTDIR:
      return NoDevice(seen);
    case EBUSY:
      return seen.holders.empty() ? Busy(seen) : HeldBy(seen.holders.front(), seen);
    case EACCES:
    case EPERM:
      return NoPermission(seen);
    case ENOTTY:
    case EISDIR:
      return Make(Verdict::kNotSerial, seen);
    default:
      return std::nullopt;
  }
}

std::string OneLine(const Diagnosis& diagnosis) {
  std::string line = diagnosis.text + " " + diagnosis.remedy;
  if (!diagnosis.command.empty()) line += " Command: " + diagnosis.command;
  return line;
}

}  // namespace orvane::link
