#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/catalogue.h"
#include "core/radio_data.h"

/// What is wrong with a data set, told without a radio at hand, and the remedies. A channel is in
/// use when it is enabled and its group is; what nobody can come to is not complained about.
namespace orvane::document {

enum class Severity : std::uint8_t {
  kNote,     ///< programming changes it silently (a name in small letters)
  kWarning,  ///< the radio takes it; hardly what the user meant (may transmit, power code 0)
  kError     ///< outside what the model takes, or leading nowhere
};

enum class ProblemKind : std::uint8_t {
  kValue,             ///< the model does not take the value
  kNoFrequency,       ///< EXP/LMR channel in use without a receive frequency
  kNoDisplay,         ///< EXP/LMR channel in use without a number to show
  kEmptyGroup,        ///< group in use without a channel
  kPriorityNotInUse,  ///< priority channel that is not in use
  kStoredNotInUse,    ///< a channel of the radio's own lists that is not in use
  kLastNotInUse,      ///< last group or channel that is not in use
  kPowerCodeZero,     ///< Tx Enable is ticked, but the power code lets nothing out
  kChannel16,         ///< 16 is off or has Tx Enable off, in a group in use
  kNoGroup,           ///< EXP channel in use that belongs to no group
  kWide,              ///< wide where the law wants narrow
  kNameCut,           ///< a name that does not come back from the radio as it is
  kSameDisplay,       ///< two EXP/LMR channels in use show one number
  kSameFrequency,     ///< two EXP/LMR channels in use with equal frequencies and tones
  kSilentChange       ///< programming writes something else
};

struct Problem {
  ProblemKind kind = ProblemKind::kValue;
  Severity severity = Severity::kWarning;
  core::FieldRef at;   ///< where the cursor goes; a stored channel has the memory it lies in
  std::string text;    ///< what is wrong and what would be right, without the name of the field
  std::string remedy;  ///< caption of the remedy ("Let it transmit"); "" where there is none
  int slot = 0;        ///< of a stored channel: which of the group's list, 0..9
  int group = 0;       ///< of a stored channel: whose list, 0..2
};

/// In catalogue order. The date decides about the narrowband rule.
[[nodiscard]] std::vector<Problem> FindProblems(const core::RadioData& data, core::Date today);

/// Body of the edit that applies the remedy, by the rules of editing; nothing when it has none.
void Mend(core::RadioData& data, const Problem& problem, core::Date today);

/// Problems of one kind that whoever programs a radio should know about.
struct SendingProblem {
  ProblemKind kind = ProblemKind::kPowerCodeZero;
  std::vector<core::FieldRef> at;  ///< all of them, in catalogue order
  /// With their number and the first names: "53 channels in use may transmit by their page but
  /// carry power code 0: USA 01A, 05A, 06 ..., 16 among them."
  std::string text;
  std::string remedy;  ///< caption: "Let 53 channels transmit"; "" where there is none
};
/// Gravest first; empty when nothing speaks against sending.
[[nodiscard]] std::vector<SendingProblem> ProblemsForSending(const core::RadioData& data,
                                                             core::Date today);
/// The same picked from what FindProblems found, for whoever has both to show.
[[nodiscard]] std::vector<SendingProblem> ProblemsForSending(const core::RadioData& data,
                                                             const std::vector<Problem>& problems);
/// Body of the edit that mends all of the kind that have a remedy. Mending may take the remedy
/// from others (the last channel of a group cannot be switched off).
void MendAll(core::RadioData& data, ProblemKind kind, core::Date today);

}  // namespace orvane::document
