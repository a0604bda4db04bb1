#include "document/field_locks.h"

#include <algorithm>
#include <array>

#include "core/extra_channel.h"
#include "core/field_ref.h"
#include "core/model_profile.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::Value;

struct Look {
  const core::RadioData& data;
  ChannelPlace place;
  core::Date today;

  [[nodiscard]] const ChannelRecord& Channel() const { return ChannelAt(data, place); }
};

// What the channel, its plan, its destination or a rule leaves no choice about.
struct Given {
  const char* member;
  Value only;  ///< the value that goes all the same
  bool (*holds)(const Look&);
  std::string_view why;
};

template <auto kMember>
Given For(Value only, bool (*holds)(const Look&), std::string_view why) {
  return {&core::kMemberTag<kMember>, std::move(only), holds, why};
}

const std::array kGiven = {
    For<&ChannelRecord::TxEnable>(
        false, [](const Look& at) { return at.place.IsMarine() && at.Channel().RxOnly; },
        "The channel plan allows reception only."),
    For<&ChannelRecord::Duplex>(
        false, [](const Look& at) { return !at.Channel().DuplexAllowed; },
        "The channel plan has no second frequency for duplex here."),
    For<&ChannelRecord::Narrow>(
        true, [](const Look& at) { return MustBeNarrow(at.data, at.place, at.today); },
        "LMR channels from 150 to 174 MHz are narrow, by rule of the FCC."),
    For<&ChannelRecord::Scramble>(
        std::int32_t{0}, [](const Look& at) { return !MayScramble(at.data, at.place); },
        "The scrambler is not offered for this channel and destination."),
};

const Given* GivenFor(const Look& at, const core::Field& field) {
  const auto* const row = std::find_if(kGiven.begin(), kGiven.end(), [&](const Given& given) {
    return given.member == field.member;
  });
  return row != kGiven.end() && row->holds(at) ? row : nullptr;
}

// A switch that is worked only while the one before it is on.
std::string_view LockByOthers(const Look& at, const core::Field& field) {
  const ChannelRecord& channel = at.Channel();
  const bool transmits =
      channel.TxEnable && GivenFor(at, core::kFieldAt<&ChannelRecord::TxEnable>) == nullptr;
  if (core::IsMember<&ChannelRecord::LowPower>(field) && !transmits) {
    return "Low Power Only goes with Tx Enable, which is off here.";
  }
  if (core::IsMember<&ChannelRecord::PowUp>(field) && !(transmits && channel.LowPower)) {
    return "Power Up goes with Tx Enable and Low Power Only, which are not both on here.";
  }
  if (core::IsMember<&ChannelRecord::RxComp>(field) && channel.RxDCS == 0) {
    return "COMP goes with a receive DCS code, and there is none here.";
  }
  if (core::IsMember<&ChannelRecord::Scramble>(field) &&
      !core::ProfileOf(at.data).shows_scrambler) {
    return "The scrambler is not offered for this model.";
  }
  return {};
}

}  // namespace

bool PutsInUse(const char* member) {
  static constexpr std::array kMembers = {
      &core::kMemberTag<&ChannelRecord::Enable>, &core::kMemberTag<&ChannelRecord::USA_Group>,
      &core::kMemberTag<&ChannelRecord::INT_Group>, &core::kMemberTag<&ChannelRecord::CAN_Group>};
  return std::find(kMembers.begin(), kMembers.end(), member) != kMembers.end();
}

bool ShowsEnabled(const core::RadioData& data, ChannelPlace place) {
  const ChannelRecord& channel = ChannelAt(data, place);
  if (place.IsMarine()) return channel.Enable;
  if (!core::OfKind(core::ProfileOf(data), channel, place.IsLmr())) return false;
  if (place.IsLmr() || channel.IsLmr()) return channel.Enable;
  return channel.USA_Group || channel.INT_Group || channel.CAN_Group;
}

std::string LockOf(const core::RadioData& data, ChannelPlace place, const core::Field& field,
                   core::Date today) {
  if (PutsInUse(field.member)) return {};
  if (!ShowsEnabled(data, place)) return "The channel is not in use. Switch it on first.";
  const Look at{data, place, today};
  if (const Given* const given = GivenFor(at, field)) return std::string(given->why);
  return std::string(LockByOthers(at, field));
}

std::string RefusalOfChoice(const core::RadioData& data, ChannelPlace place,
                            const core::Field& field, const core::Value& value, core::Date today) {
  const Given* const given = GivenFor({data, place, today}, field);
  return given == nullptr || value == given->only ? std::string() : std::string(given->why);
}

}  // namespace orvane::document
