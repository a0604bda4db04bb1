#include "core/channel_plan.h"
#include "core/field_ref.h"
#include "document/edits.h"
#include "document/in_use.h"
#include "document/problem_rules.h"
#include "image/raw_areas.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::RadioData;

void MendChannel(RadioData& data, const Problem& problem, ChannelPlace place, core::Date today) {
  const ChannelRecord& channel = ChannelAt(data, place);
  switch (problem.kind) {
    case ProblemKind::kChannel16:
      static_cast<void>(EnableChannel(data, place, true, today));
      if (!channel.RxOnly) SetTransmit(data, place, true, channel.LowPower);
      break;
    case ProblemKind::kPowerCodeZero:
      SetTransmit(data, place, true, channel.LowPower);
      break;
    case ProblemKind::kNoFrequency:
    case ProblemKind::kNoDisplay:
      static_cast<void>(EnableChannel(data, place, false, today));
      break;
    case ProblemKind::kNoGroup: {
      GroupMembership groups{data.Usable[0].Enable, data.Usable[1].Enable, data.Usable[2].Enable};
      if (!groups.Any()) groups = {true, true, true};
      static_cast<void>(SetGroups(data, place, groups, today));
      break;
    }
    case ProblemKind::kWide:
      static_cast<void>(SetField(data, problem.at, "On", today));
      break;
    case ProblemKind::kValue:
      static_cast<void>(SetField(data, problem.at, "Off", today));
      break;
    default:
      break;
  }
}

void SwitchOff(RadioData& data, core::FieldRef group) {
  if (core::IsMember<&RadioData::ExpPresent>(group)) {
    SwitchExp(data, false);
  } else {
    SwitchGroup(data, group.entry, false);
  }
}

void MendLast(RadioData& data, core::FieldRef at) {
  const std::size_t group = LastGroup(data);
  if (group >= core::kMarineGroups.size()) return;
  if (core::IsMember<&core::CommonSettings::Last_CH_Group>(at)) {
    data.Common.Last_CH_Group = static_cast<std::int16_t>(group);
  } else {
    core::Set(data, at, FirstChoice(data, group));
  }
}

}  // namespace

void Mend(RadioData& data, const Problem& problem, core::Date today) {
  if (problem.remedy.empty()) return;
  switch (problem.kind) {
    case ProblemKind::kEmptyGroup:
      SwitchOff(data, problem.at);
      return;
    case ProblemKind::kPriorityNotInUse:
      core::Set(data, problem.at, FirstChoice(data, problem.at.entry));
      return;
    case ProblemKind::kStoredNotInUse:
      image::SetStoredChannel(data.Image, problem.group, problem.slot, image::kEmptyStoredChannel);
      return;
    case ProblemKind::kLastNotInUse:
      MendLast(data, problem.at);
      return;
    case ProblemKind::kNameCut: {
      const auto name = std::get<std::string>(core::Get(data, problem.at));
      static_cast<void>(SetField(data, problem.at, MendedName(problem.at, name), today));
      return;
    }
    default:
      if (const std::optional<ChannelPlace> place = PlaceOf(data, problem.at)) {
        MendChannel(data, problem, *place, today);
      }
  }
}

void MendAll(RadioData& data, ProblemKind kind, core::Date today) {
  for (const Problem& problem : FindProblems(data, today)) {
    if (problem.kind == kind) Mend(data, problem, today);
  }
}

}  // namespace orvane::document
