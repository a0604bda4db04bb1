#include <optional>

#include "core/extra_channel.h"
#include "core/field_ref.h"
#include "core/text.h"
#include "document/edits.h"
#include "document/field_locks.h"
#include "document/in_use.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::Value;
using Kind = ChannelPlace::Kind;

/// One setting of a channel field by its rule.
struct Setting {
  core::RadioData& data;
  ChannelPlace place;
  core::FieldRef at;
  const Value& value;
  core::Date today;

  [[nodiscard]] bool On() const { return std::get<bool>(value); }
  [[nodiscard]] int Number() const { return std::get<std::int32_t>(value); }
  [[nodiscard]] const ChannelRecord& Channel() const { return ChannelAt(data, place); }
};

std::string Taken(bool taken) {
  return taken ? std::string() : std::string(kLastChannelRefusal);
}

template <bool GroupMembership::*kGroup>
std::string SetGroup(const Setting& setting) {
  GroupMembership groups = GroupsOf(setting.data, setting.place);
  // A channel of the other kind may bear the mark of a group; it leaves none with it.
  if (!setting.On() && !(groups.*kGroup)) {
    core::Set(setting.data, setting.at, setting.value);
    return {};
  }
  groups.*kGroup = setting.On();
  return Taken(SetGroups(setting.data, setting.place, groups, setting.today));
}

template <Way kWay>
std::string SetMegahertz(const Setting& setting) {
  SetFrequency(setting.data, setting.place, kWay, std::get<double>(setting.value), setting.today);
  return {};
}
template <Way kWay>
std::string SetTone(const Setting& setting) {
  SetCtcss(setting.data, setting.place, kWay, setting.Number());
  return {};
}
template <Way kWay>
std::string SetCode(const Setting& setting) {
  SetDcs(setting.data, setting.place, kWay, setting.Number());
  return {};
}

std::string SetEnable(const Setting& setting) {
  return Taken(EnableChannel(setting.data, setting.place, setting.On(), setting.today));
}

std::string SetTxEnable(const Setting& setting) {
  SetTransmit(setting.data, setting.place, setting.On(), setting.Channel().LowPower);
  return {};
}
std::string SetLowPower(const Setting& setting) {
  SetTransmit(setting.data, setting.place, setting.Channel().TxEnable, setting.On());
  return {};
}

struct Rule {
  const char* member;
  std::string (*set)(const Setting&);
};
template <auto kMember>
constexpr Rule For(std::string (*set)(const Setting&)) {
  return {&core::kMemberTag<kMember>, set};
}

constexpr std::array kChannelRules = {
    For<&ChannelRecord::Enable>(&SetEnable),
    For<&ChannelRecord::TxEnable>(&SetTxEnable),
    For<&ChannelRecord::LowPower>(&SetLowPower),
    For<&ChannelRecord::USA_Group>(&SetGroup<&GroupMembership::usa>),
    For<&ChannelRecord::INT_Group>(&SetGroup<&GroupMembership::intl>),
    For<&ChannelRecord::CAN_Group>(&SetGroup<&GroupMembership::canada>),
    For<&ChannelRecord::Rxfreq>(&SetMegahertz<Way::kReceive>),
    For<&ChannelRecord::Txfreq>(&SetMegahertz<Way::kTransmit>),
    For<&ChannelRecord::RxCTCSS>(&SetTone<Way::kReceive>),
    For<&ChannelRecord::TxCTCSS>(&SetTone<Way::kTransmit>),
    For<&ChannelRecord::RxDCS>(&SetCode<Way::kReceive>),
    For<&ChannelRecord::TxDCS>(&SetCode<Way::kTransmit>),
};

std::string SetChannelField(const Setting& setting) {
  const core::Field& field = core::FieldOf(setting.at);
  std::string refusal =
      RefusalOfChoice(setting.data, setting.place, field, setting.value, setting.today);
  if (!refusal.empty()) return refusal;
  for (const Rule& rule : kChannelRules) {
    if (rule.member == field.member) return rule.set(setting);
  }
  core::Set(setting.data, setting.at, setting.value);
  return {};
}

std::string SetFieldAt(core::RadioData& data, std::optional<ChannelPlace> place, core::FieldRef at,
                       std::string_view text, core::Date today) {
  const core::Field& field = core::FieldOf(at);
  const core::ModelProfile& profile = core::ProfileOf(data);
  if (!core::HasField(profile, core::TableOf(at), field)) {
    return "A " + std::string(profile.model) + " has no such field.";
  }
  if (field.derived) return "It follows from other data and cannot be set.";
  const std::optional<Value> parsed = field.notation->parse(text);
  if (!parsed) return "It must be " + std::string(field.notation->expects) + ".";
  const Value value = AsKept(at, *parsed);
  std::string refusal = core::RefusalOf(profile, at, value);
  if (!refusal.empty()) return refusal;
  if (place) return SetChannelField({data, *place, at, value, today});
  if (core::IsMember<&core::UsableGroup::Enable>(field)) {
    SwitchGroup(data, at.entry, std::get<bool>(value));
  } else if (core::IsMember<&core::RadioData::ExpPresent>(field)) {
    SwitchExp(data, std::get<bool>(value));
  } else {
    core::Set(data, at, value);
  }
  return {};
}

}  // namespace

std::optional<ChannelPlace> PlaceOf(const core::RadioData& data, core::FieldRef at) {
  const core::Table& table = core::TableOf(at);
  if (table.kind == core::TableKind::kExtra) {
    const int number = at.entry + 1;
    return ChannelPlace{data.EXP[number].IsLmr() ? Kind::kLmr : Kind::kExp, number};
  }
  if (table.kind != core::TableKind::kMarine) return {};
  for (const core::MarineGroup group : core::kMarineGroups) {
    if (table.record(data, 0) == data.Table(group).data()) {
      return ChannelPlace{static_cast<Kind>(group), at.entry};
    }
  }
  return {};
}

Value AsKept(core::FieldRef at, Value value) {
  const core::Field& field = core::FieldOf(at);
  const bool capitals = core::IsMember<&ChannelRecord::ChTag>(field) ||
                        core::IsMember<&ChannelRecord::CHDisplayL>(field) ||
                        core::IsMember<&ChannelRecord::CHDisplayR>(field);
  if (auto* text = std::get_if<std::string>(&value); text != nullptr && capitals) {
    *text = core::UpperCase(*text);
  }
  return value;
}

std::string SetField(core::RadioData& data, core::FieldRef at, std::string_view text,
                     core::Date today) {
  return SetFieldAt(data, PlaceOf(data, at), at, text, today);
}

std::string SetField(core::RadioData& data, ChannelPlace place, const char* member,
                     std::string_view text, core::Date today) {
  return SetFieldAt(data, place, FieldOfChannel(place, member), text, today);
}

}  // namespace orvane::document
