#include "document/edits.h"

#include <algorithm>
#include <array>
#include <span>

#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/field_rules.h"
#include "core/model_profile.h"
#include "core/narrowband.h"
#include "image/codec.h"
#include "image/layout_places.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using Kind = ChannelPlace::Kind;

// Transmit power codes of a channel with and without "Low Power Only".
constexpr std::uint8_t kLowPowerCode = 1;
constexpr std::uint8_t kFullPowerCode = 3;

struct ToneFields {
  std::int16_t ChannelRecord::*ctcss;
  std::int16_t ChannelRecord::*dcs;
};
// By way.
constexpr std::array<ToneFields, 2> kToneFields = {
    {{&ChannelRecord::TxCTCSS, &ChannelRecord::TxDCS},
     {&ChannelRecord::RxCTCSS, &ChannelRecord::RxDCS}}};

template <class Data>
auto& Channel(Data& data, ChannelPlace place) {
  if (!place.IsMarine()) return data.EXP[place.number];
  return data.Marine[static_cast<std::size_t>(place.kind)][static_cast<std::size_t>(place.number)];
}

bool OfHeading(const core::RadioData& data, ChannelPlace place) {
  return core::OfKind(core::ProfileOf(data), ChannelAt(data, place), place.IsLmr());
}

void ApplyNarrowbandRule(core::RadioData& data, ChannelPlace place, core::Date today) {
  if (MustBeNarrow(data, place, today)) Channel(data, place).Narrow = true;
}

void StoreGroups(ChannelRecord& channel, GroupMembership groups) {
  channel.USA_Group = groups.usa;
  channel.INT_Group = groups.intl;
  channel.CAN_Group = groups.canada;
}

void SwitchOn(core::RadioData& data, ChannelPlace place, GroupMembership groups, core::Date today) {
  ChannelRecord& channel = Channel(data, place);
  channel.Enable = true;
  if (!place.IsMarine()) {
    channel.SetLmr(place.IsLmr());
    StoreGroups(channel, groups);
    ApplyNarrowbandRule(data, place, today);
  }
  SetTransmit(data, place, channel.TxEnable, channel.LowPower);
}

}  // namespace

const ChannelRecord& ChannelAt(const core::RadioData& data, ChannelPlace place) {
  return Channel(data, place);
}

bool IsLastEnabled(const core::RadioData& data, ChannelPlace place) {
  if (!ChannelAt(data, place).Enable) return false;
  if (place.IsMarine()) {
    const core::MarineTable& table = data.Marine[static_cast<std::size_t>(place.kind)];
    return std::count_if(table.begin(), table.end(),
                         [](const ChannelRecord& channel) { return channel.Enable; }) == 1;
  }
  const bool group_in_use = place.IsLmr() ? data.LmrPresent() : data.ExpPresent;
  if (!group_in_use) return false;
  for (int n = core::ExtraTable::kFirst; n <= core::ExtraTable::kLast; ++n) {
    if (n != place.number && core::MarkedEnabled(data, n, place.IsLmr())) return false;
  }
  return true;
}

bool EnableChannel(core::RadioData& data, ChannelPlace place, bool on, core::Date today) {
  if (!on && IsLastEnabled(data, place)) return false;
  if (on) {
    SwitchOn(data, place, GroupsOf(data, place), today);
  } else {
    Channel(data, place).Enable = false;
  }
  return true;
}

GroupMembership GroupsOf(const core::RadioData& data, ChannelPlace place) {
  if (place.IsMarine() || !OfHeading(data, place)) return {};
  const ChannelRecord& channel = ChannelAt(data, place);
  return {channel.USA_Group, channel.INT_Group, channel.CAN_Group};
}

bool SetGroups(core::RadioData& data, ChannelPlace place, GroupMembership groups,
               core::Date today) {
  if (!groups.Any() && IsLastEnabled(data, place)) return false;
  const GroupMembership before = GroupsOf(data, place);
  const bool joins = (groups.usa && !before.usa) || (groups.intl && !before.intl) ||
                     (groups.canada && !before.canada);
  if (joins) {
    SwitchOn(data, place, groups, today);
    return true;
  }
  StoreGroups(Channel(data, place), groups);
  if (!groups.Any()) Channel(data, place).Enable = false;
  return true;
}

void SetTransmit(core::RadioData& data, ChannelPlace place, bool enabled, bool low_power) {
  ChannelRecord& channel = Channel(data, place);
  channel.TxEnable = enabled;
  channel.LowPower = low_power;
  channel.TXPower = low_power ? kLowPowerCode : kFullPowerCode;
}

void SetCtcss(core::RadioData& data, ChannelPlace place, Way way, int index) {
  const ToneFields& fields = kToneFields[static_cast<std::size_t>(way)];
  Channel(data, place).*fields.ctcss = static_cast<std::int16_t>(index);
  if (index != 0) Channel(data, place).*fields.dcs = 0;
}

void SetDcs(core::RadioData& data, ChannelPlace place, Way way, int index) {
  const ToneFields& fields = kToneFields[static_cast<std::size_t>(way)];
  Channel(data, place).*fields.dcs = static_cast<std::int16_t>(index);
  if (index != 0) Channel(data, place).*fields.ctcss = 0;
}

void SetFrequency(core::RadioData& data, ChannelPlace place, Way way, double mhz,
                  core::Date today) {
  (way == Way::kTransmit ? Channel(data, place).Txfreq : Channel(data, place).Rxfreq) = mhz;
  if (way == Way::kTransmit) ApplyNarrowbandRule(data, place, today);
}

bool MustBeNarrow(const core::RadioData& data, ChannelPlace place, core::Date today) {
  return !place.IsMarine() &&
         core::WideTest(data, ChannelAt(data, place), today) == core::WideState::kForbidden;
}

// The radio looks at its memory, and so does this test.
void SwitchGroup(core::RadioData& data, std::size_t group, bool on) {
  data.Usable[group].Enable = on;
  if (!on || group == core::kExtraGroup) return;
  const image::Bits area = image::places::MarineEnable(static_cast<int>(group));
  const std::span<std::uint8_t> bytes = data.Image.All().subspan(
      static_cast<std::size_t>(area.FirstByte()), static_cast<std::size_t>(area.Length()));
  if (std::any_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte != 0; })) return;
  image::WriteBits(data.Image.All().data(), {area.first, 1}, 1);
  data.Marine[group][1].Enable = true;
}

void SwitchExp(core::RadioData& data, bool on) {
  data.ExpPresent = on;
  if (!on) return;
  for (ChannelRecord& channel : data.EXP) {
    if (channel.IsLmr()) continue;
    channel.Enable = channel.USA_Group || channel.INT_Group || channel.CAN_Group;
  }
}

bool MayScramble(const core::RadioData& data, ChannelPlace place) {
  if (!place.IsMarine()) return image::Sel1(data.Image);
  const ChannelRecord& channel = ChannelAt(data, place);
  return channel.SelectedPlan && channel.Position != core::kChannel16 &&
         channel.Position != core::kChannel70;
}

Missing MissingOf(const core::RadioData& data, ChannelPlace place) {
  if (place.IsMarine() || !ChannelAt(data, place).Enable || !OfHeading(data, place)) return {};
  const ChannelRecord& channel = ChannelAt(data, place);
  return {.frequency = !(channel.Rxfreq > 0),
          .display = channel.CHDisplayL.size() < std::size_t{core::kDisplayLength}};
}

}  // namespace orvane::document
