#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/field_ref.h"
#include "core/radio_data.h"
#include "document/edits.h"

/// What of the data a user of the radio can come to.
namespace orvane::document {

/// The LMR or the EXP channels are offered by the radio. Models with one kind have one switch.
[[nodiscard]] bool IsKindInUse(const core::RadioData& data, const core::ChannelRecord& channel);
/// Enabled, and its group is in use.
[[nodiscard]] bool IsInUse(const core::RadioData& data, ChannelPlace place);
/// The same for a combined channel number, seen from a marine group.
[[nodiscard]] bool IsInUse(const core::RadioData& data, std::size_t group, std::int32_t channel);
/// A marine group's channel 16, else 09, else its first one in use, else none (-1).
[[nodiscard]] std::int32_t FirstChoice(const core::RadioData& data, std::size_t group);

/// Calls with each marine and EXP/LMR channel in use.
template <class Visit>
void ForEachInUse(const core::RadioData& data, Visit visit) {
  using Kind = ChannelPlace::Kind;
  for (const Kind kind : {Kind::kUsa, Kind::kIntl, Kind::kCanada}) {
    for (int position = 0; position < core::kMarineChannels; ++position) {
      const ChannelPlace place{kind, position};
      if (IsInUse(data, place)) visit(place, ChannelAt(data, place));
    }
  }
  for (int number = core::ExtraTable::kFirst; number <= core::ExtraTable::kLast; ++number) {
    const core::ChannelRecord& channel = data.EXP[number];
    const ChannelPlace place{channel.IsLmr() ? Kind::kLmr : Kind::kExp, number};
    if (IsInUse(data, place)) visit(place, channel);
  }
}

/// The field that stands for that member, in the table and entry of the channel.
[[nodiscard]] core::FieldRef FieldOfChannel(ChannelPlace place, const char* member);
template <auto kMember>
[[nodiscard]] core::FieldRef FieldOfChannel(ChannelPlace place) {
  return FieldOfChannel(place, &core::kMemberTag<kMember>);
}

/// A marine group as the window calls it: "CANADA".
[[nodiscard]] std::string_view GroupWord(std::size_t group);
/// "USA 22A", "LMR7".
[[nodiscard]] std::string ChannelName(const core::RadioData& data, ChannelPlace place);

}  // namespace orvane::document
