#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "core/channel_plan.h"
#include "core/field_ref.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "document/edits.h"
#include "document/in_use.h"
#include "document/problems.h"

namespace orvane::document {
namespace {

using core::FieldRef;
using core::RadioData;

/// Words around the number and the names, for one and for more.
struct Words {
  ProblemKind kind;
  std::string_view one;
  std::string_view more;
  std::string_view remedy_of_one;
  std::string_view remedy_of_more;  ///< "#": the number
};
constexpr std::array<Words, 4> kWords = {{
    {ProblemKind::kPowerCodeZero,
     "1 channel in use may transmit by its page but carries power code 0",
     "# channels in use may transmit by their page but carry power code 0",
     "Let 1 channel transmit", "Let # channels transmit"},
    {ProblemKind::kChannel16, "Channel 16 is off or cannot transmit in 1 group in use",
     "Channel 16 is off or cannot transmit in # groups in use", "Let channel 16 transmit",
     "Let channel 16 transmit"},
    {ProblemKind::kEmptyGroup, "1 group in use has no channel", "# groups in use have no channel",
     "Switch 1 group off", "Switch # groups off"},
    {ProblemKind::kNameCut, "1 name does not come back from the radio as it is",
     "# names do not come back from the radio as they are", "Change 1 name", "Change # names"},
}};

std::string WithNumber(std::string_view words, std::size_t number) {
  std::string text(words);
  const std::size_t place = text.find('#');
  return place == std::string::npos ? text : text.replace(place, 1, std::to_string(number));
}

/// "USA" and "16", "Weather" and "3", "" and "LMR7", "" and "INTL".
struct PlaceWords {
  std::string table;
  std::string entry;
};
PlaceWords WordsOf(const RadioData& data, FieldRef at) {
  const core::Table& table = core::TableOf(at);
  const std::optional<ChannelPlace> place = PlaceOf(data, at);
  if (place && !place->IsMarine()) return {{}, ChannelName(data, *place)};
  if (core::IsMember<&RadioData::ExpPresent>(at)) return {{}, std::string(table.label)};
  if (core::IsMember<&core::UsableGroup::Enable>(at)) {
    const std::string_view word = core::ProfileOf(data).extra_word;
    return {{},
            at.entry == core::kExtraGroup ? std::string(word) + " CH"
                                          : core::UpperCase(table.entry_name(at.entry))};
  }
  return {std::string(table.label), table.entry_name(at.entry)};
}

bool IsChannel16(const RadioData& data, FieldRef at) {
  const std::optional<ChannelPlace> place = PlaceOf(data, at);
  return place && place->IsMarine() && place->number == core::kChannel16;
}

// "USA 01A, 05A, 06 ..., 16 among them"
std::string FirstNames(const RadioData& data, const std::vector<FieldRef>& all) {
  constexpr std::size_t kShown = 3;
  std::string text;
  std::string table;
  for (std::size_t i = 0; i < std::min(kShown, all.size()); ++i) {
    PlaceWords words = WordsOf(data, all[i]);
    text += i == 0 ? "" : ", ";
    if (!words.table.empty() && words.table != table) text += words.table + " ";
    text += words.entry;
    table = std::move(words.table);
  }
  if (all.size() <= kShown) return text;
  text += " ...";
  const bool hides_16 = std::any_of(all.begin() + kShown, all.end(),
                                    [&](FieldRef at) { return IsChannel16(data, at); });
  return hides_16 ? text + ", 16 among them" : text;
}

// Of channel 16 only the groups tell apart.
std::string GroupNames(const RadioData& data, const std::vector<FieldRef>& all) {
  std::string text;
  for (const FieldRef at : all) text += (text.empty() ? "" : ", ") + WordsOf(data, at).table;
  return text;
}

}  // namespace

std::vector<SendingProblem> ProblemsForSending(const RadioData& data,
                                               const std::vector<Problem>& problems) {
  std::vector<SendingProblem> sending;
  for (const Words& words : kWords) {
    SendingProblem found{.kind = words.kind, .at = {}, .text = {}, .remedy = {}};
    std::size_t with_remedy = 0;
    for (const Problem& problem : problems) {
      if (problem.kind != words.kind) continue;
      found.at.push_back(problem.at);
      if (!problem.remedy.empty()) ++with_remedy;
    }
    if (found.at.empty()) continue;
    const std::string names = words.kind == ProblemKind::kChannel16 ? GroupNames(data, found.at)
                                                                    : FirstNames(data, found.at);
    const std::size_t count = found.at.size();
    found.text = WithNumber(count == 1 ? words.one : words.more, count) + ": " + names + ".";
    if (with_remedy > 0) {
      found.remedy =
          WithNumber(with_remedy == 1 ? words.remedy_of_one : words.remedy_of_more, with_remedy);
    }
    sending.push_back(std::move(found));
  }
  return sending;
}

std::vector<SendingProblem> ProblemsForSending(const RadioData& data, core::Date today) {
  return ProblemsForSending(data, FindProblems(data, today));
}

}  // namespace orvane::document
