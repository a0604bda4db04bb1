#include "document/in_use.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/model_profile.h"

namespace orvane::document {

bool IsKindInUse(const core::RadioData& data, const core::ChannelRecord& channel) {
  if (!core::ProfileOf(data).splits_lmr_and_exp) return data.LmrPresent() || data.ExpPresent;
  return (channel.IsLmr() && data.LmrPresent()) || (channel.IsExp() && data.ExpPresent);
}

bool IsInUse(const core::RadioData& data, ChannelPlace place) {
  const core::ChannelRecord& channel = ChannelAt(data, place);
  if (!channel.Enable) return false;
  return place.IsMarine() ? bool{data.Usable[static_cast<std::size_t>(place.kind)].Enable}
                          : IsKindInUse(data, channel);
}

bool IsInUse(const core::RadioData& data, std::size_t group, std::int32_t channel) {
  if (channel < 0 || channel >= core::kChannelIndexEnd) return false;
  if (channel < core::kFirstExtraChannelIndex) {
    return IsInUse(data, {static_cast<ChannelPlace::Kind>(group), channel});
  }
  if (channel >= core::kFirstWxChannelIndex) {
    return data.WX[static_cast<std::size_t>(channel - core::kFirstWxChannelIndex)].Enable;
  }
  return IsInUse(data, {ChannelPlace::Kind::kExp,
                        channel - core::kFirstExtraChannelIndex + core::ExtraTable::kFirst});
}

std::int32_t FirstChoice(const core::RadioData& data, std::size_t group) {
  for (const std::int32_t channel : {core::kChannel16, core::kChannel09}) {
    if (IsInUse(data, group, channel)) return channel;
  }
  for (std::int32_t channel = 0; channel < core::kFirstExtraChannelIndex; ++channel) {
    if (IsInUse(data, group, channel)) return channel;
  }
  return core::kNoChannel;
}

core::FieldRef FieldOfChannel(ChannelPlace place, const char* member) {
  const std::span<const core::Table> tables = core::Catalogue();
  const core::TableKind kind =
      place.IsMarine() ? core::TableKind::kMarine : core::TableKind::kExtra;
  const auto table = std::find_if(tables.begin(), tables.end(),
                                  [=](const core::Table& each) { return each.kind == kind; });
  const int marine = place.IsMarine() ? static_cast<int>(place.kind) : 0;
  const auto field = std::find_if(table->fields.begin(), table->fields.end(),
                                  [=](const core::Field& each) { return each.member == member; });
  return {.table = static_cast<std::uint8_t>(table - tables.begin() + marine),
          .field = static_cast<std::uint8_t>(field - table->fields.begin()),
          .entry = static_cast<std::uint16_t>(
              place.IsMarine() ? place.number : place.number - core::ExtraTable::kFirst)};
}

std::string_view GroupWord(std::size_t group) {
  static constexpr std::array<std::string_view, 3> kWords = {"USA", "INTL", "CANADA"};
  return kWords[group];
}

std::string ChannelName(const core::RadioData& data, ChannelPlace place) {
  if (!place.IsMarine()) {
    return core::ExtraChannelName(core::ProfileOf(data), place.number, place.IsLmr());
  }
  return std::string(GroupWord(static_cast<std::size_t>(place.kind))) + " " +
         std::string(core::PlanLabel(place.number));
}

}  // namespace orvane::document
