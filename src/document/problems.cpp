#include "document/problems.h"

#include <algorithm>
#include <array>
#include <span>
#include <tuple>

#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/field_ref.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "document/edits.h"
#include "document/in_use.h"
#include "document/problem_rules.h"
#include "image/layout_places.h"
#include "image/raw_areas.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::FieldRef;
using core::RadioData;
using core::Value;

constexpr std::string_view kSwitchOff = "Switch it off";

bool IsDcs(const core::Field& field) {
  return core::IsMember<&ChannelRecord::RxDCS>(field) ||
         core::IsMember<&ChannelRecord::TxDCS>(field);
}

// Kept in capitals.
std::string Refusal(const core::ModelProfile& profile, FieldRef at, Value value) {
  if (auto* text = std::get_if<std::string>(&value)) *text = core::UpperCase(*text);
  return core::RefusalOf(profile, at, value);
}

void AddRefused(const RadioData& data, FieldRef at, Problems& problems) {
  const core::Field& field = core::FieldOf(at);
  const std::string refusal = Refusal(core::ProfileOf(data), at, core::Get(data, at));
  if (refusal.empty()) return;
  if (IsDcs(field)) {
    problems.push_back({.kind = ProblemKind::kValue,
                        .severity = Severity::kNote,
                        .at = at,
                        .text = "No DCS code has that number. Choose a code, or Off.",
                        .remedy = std::string(kSwitchOff)});
    return;
  }
  problems.push_back({.kind = ProblemKind::kValue,
                      .severity = Severity::kError,
                      .at = at,
                      .text = "The model does not take \"" +
                              field.notation->show(core::Get(data, at)) + "\". " + refusal,
                      .remedy = {}});
}

std::vector<std::uint8_t> FieldsWithRules(const RadioData& data, const core::Table& table) {
  std::vector<std::uint8_t> fields;
  const core::ModelProfile& profile = core::ProfileOf(data);
  if (!core::Has(profile, table.when)) return fields;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const core::Field& field = table.fields[i];
    const bool is_flag = std::holds_alternative<bool>(field.get(table.record(data, 0)));
    if (is_flag || field.derived || IsName(field)) continue;
    if (core::HasField(profile, table, field)) fields.push_back(static_cast<std::uint8_t>(i));
  }
  return fields;
}

// A channel that is off may hold whatever its memory was erased to.
bool IsSwitchedOff(const RadioData& data, const core::Table& table, int entry) {
  const bool is_channel = table.kind == core::TableKind::kMarine ||
                          table.kind == core::TableKind::kWeather ||
                          table.kind == core::TableKind::kExtra;
  return is_channel && !static_cast<const ChannelRecord*>(table.record(data, entry))->Enable;
}

// The channel of a combined number as a sentence names it.
std::string NumberName(std::int32_t channel) {
  return core::notation::kChannelNumber.show(channel);
}

Problem ReferenceProblem(ProblemKind kind, FieldRef at, std::int32_t channel,
                         std::int32_t replacement) {
  const bool off = replacement == core::kNoChannel;
  return {.kind = kind,
          .severity = Severity::kError,
          .at = at,
          .text = "Channel " + NumberName(channel) + " is not in use. Choose one that is" +
                  (off ? ", or none." : "."),
          .remedy = off ? std::string(kSwitchOff) : "Make it " + NumberName(replacement)};
}

void AddPriority(const RadioData& data, std::size_t group, Problems& problems) {
  const core::UsableGroup& usable = data.Usable[group];
  if (!usable.Enable || usable.Priority_CH == core::kNoChannel ||
      IsInUse(data, group, usable.Priority_CH)) {
    return;
  }
  problems.push_back(ReferenceProblem(ProblemKind::kPriorityNotInUse,
                                      core::RefTo<&core::UsableGroup::Priority_CH>(data, usable),
                                      usable.Priority_CH, FirstChoice(data, group)));
}

void AddStored(const RadioData& data, int group, Problems& problems) {
  const auto memory = static_cast<std::uint8_t>(core::Catalogue().size() - 1);
  for (int slot = 0; slot < image::kStoredChannelSlots; ++slot) {
    const std::uint16_t channel = image::StoredChannel(data.Image, group, slot);
    if (channel == image::kEmptyStoredChannel ||
        IsInUse(data, static_cast<std::size_t>(group), channel)) {
      continue;
    }
    const int run = image::StoredChannelOffset(group, slot) / core::kRunLength;
    problems.push_back({.kind = ProblemKind::kStoredNotInUse,
                        .severity = Severity::kError,
                        .at = {.table = memory, .entry = static_cast<std::uint16_t>(run)},
                        .text = "The radio's own list of " +
                                std::string(GroupWord(static_cast<std::size_t>(group))) +
                                " channels names " + NumberName(channel) +
                                ", which is not in use. Programming takes it off the list.",
                        .remedy = "Take it off the list",
                        .slot = slot,
                        .group = group});
  }
}

void AddLast(const RadioData& data, Problems& problems) {
  const std::size_t group = LastGroup(data);
  if (group >= core::kMarineGroups.size()) return;
  const core::CommonSettings& common = data.Common;
  const auto last = static_cast<std::size_t>(common.Last_CH_Group);
  if (last < core::kMarineGroups.size() && last != group) {
    problems.push_back(
        {.kind = ProblemKind::kLastNotInUse,
         .severity = Severity::kError,
         .at = core::RefTo<&core::CommonSettings::Last_CH_Group>(data, common),
         .text = "Group " + std::string(GroupWord(last)) + " is not in use. Choose one that is.",
         .remedy = "Make it " + std::string(GroupWord(group))});
  }
  // In weather mode the last channel is a weather channel, by another number.
  if (image::ReadBits(data.Image.All().data(), image::places::kChannelMode) != 0) return;
  const auto check = [&](std::int32_t channel, FieldRef at) {
    if (channel == core::kNoChannel || IsInUse(data, group, channel)) return;
    problems.push_back(
        ReferenceProblem(ProblemKind::kLastNotInUse, at, channel, FirstChoice(data, group)));
  };
  check(common.Last_Display_CH, core::RefTo<&core::CommonSettings::Last_Display_CH>(data, common));
  check(common.Marine_LMR_CH, core::RefTo<&core::CommonSettings::Marine_LMR_CH>(data, common));
}

Problem EmptyGroup(FieldRef at) {
  return {.kind = ProblemKind::kEmptyGroup,
          .severity = Severity::kError,
          .at = at,
          .text =
              "The group is in use, but none of its channels is switched on. Switch one on, or "
              "the group off.",
          .remedy = "Switch the group off"};
}

bool AnyEnabled(const RadioData& data, bool lmr) {
  for (int n = core::ExtraTable::kFirst; n <= core::ExtraTable::kLast; ++n) {
    if (core::MarkedEnabled(data, n, lmr)) return true;
  }
  return false;
}

}  // namespace

std::size_t LastGroup(const RadioData& data) {
  const auto last = static_cast<std::size_t>(data.Common.Last_CH_Group);
  if (last < core::kMarineGroups.size() && data.Usable[last].Enable) return last;
  std::size_t group = 0;
  while (group < core::kMarineGroups.size() && !data.Usable[group].Enable) ++group;
  return group;
}

void AddValueProblems(const RadioData& data, Problems& problems) {
  const std::span<const core::Table> tables = core::Catalogue();
  FieldRef at;
  for (const core::Table& table : tables.first(tables.size() - 1)) {
    const std::vector<std::uint8_t> fields = FieldsWithRules(data, table);
    for (int entry = 0; entry < table.count; ++entry) {
      if (IsSwitchedOff(data, table, entry)) continue;
      at.entry = static_cast<std::uint16_t>(entry);
      for (const std::uint8_t field : fields) {
        at.field = field;
        AddRefused(data, at, problems);
      }
    }
    ++at.table;
  }
}

void AddGroupProblems(const RadioData& data, Problems& problems) {
  for (std::size_t group = 0; group < data.Marine.size(); ++group) {
    const core::MarineTable& table = data.Marine[group];
    const bool any = std::any_of(table.begin(), table.end(),
                                 [](const ChannelRecord& channel) { return bool{channel.Enable}; });
    const core::UsableGroup& usable = data.Usable[group];
    if (usable.Enable && !any) {
      problems.push_back(EmptyGroup(core::RefTo<&core::UsableGroup::Enable>(data, usable)));
    }
  }
  if (data.LmrPresent() && !AnyEnabled(data, true)) {
    problems.push_back(
        EmptyGroup(core::RefTo<&core::UsableGroup::Enable>(data, data.Usable[core::kExtraGroup])));
  }
  if (data.ExpPresent && !AnyEnabled(data, false)) {
    problems.push_back(EmptyGroup(core::RefTo<&RadioData::ExpPresent>(data, data)));
  }
}

void AddReferenceProblems(const RadioData& data, Problems& problems) {
  for (const core::MarineGroup group : core::kMarineGroups) {
    AddPriority(data, static_cast<std::size_t>(group), problems);
    AddStored(data, static_cast<int>(group), problems);
  }
  AddLast(data, problems);
}

std::vector<Problem> FindProblems(const RadioData& data, core::Date today) {
  Problems problems;
  AddValueProblems(data, problems);
  AddGroupProblems(data, problems);
  AddReferenceProblems(data, problems);
  AddChannelProblems(data, today, problems);
  AddSilentChanges(data, today, problems);
  std::stable_sort(problems.begin(), problems.end(), [](const Problem& a, const Problem& b) {
    return std::tie(a.at.table, a.at.entry, a.at.field) <
           std::tie(b.at.table, b.at.entry, b.at.field);
  });
  return problems;
}

}  // namespace orvane::document
