#include <algorithm>

#include "core/text.h"
#include "image/area_walk.h"
#include "image/codec.h"
#include "image/layout_channels.h"
#include "image/layout_settings.h"

namespace orvane::image {
namespace {

template <class Table>
bool HasEnabledChannel(const Table& table) {
  return std::any_of(table.begin(), table.end(),
                     [](const core::ChannelRecord& channel) { return bool{channel.Enable}; });
}

// A radio with DSC must not offer a group that has no channel to go to.
void SwitchOffEmptyGroups(core::RadioData& data) {
  for (std::size_t group = 0; group < data.Marine.size(); ++group) {
    if (!HasEnabledChannel(data.Marine[group])) data.Usable[group].Enable = false;
  }
  if (!HasEnabledChannel(data.EXP)) {
    data.Usable[core::kExtraGroup].Enable = false;
    data.ExpPresent = false;
  }
}

template <class Table>
void RaiseNames(Table& table) {
  for (core::ChannelRecord& channel : table) {
    const auto lower = [](char c) { return c >= 'a' && c <= 'z'; };
    if (std::any_of(channel.ChTag.begin(), channel.ChTag.end(), lower)) {
      channel.ChTag = core::UpperCase(channel.ChTag);
    }
  }
}

// The radio's display has capital letters only.
void RaiseAllNames(core::RadioData& data) {
  for (core::MarineTable& table : data.Marine) RaiseNames(table);
  RaiseNames(data.WX);
  RaiseNames(data.EXP);
}

}  // namespace

void EncodeAll(core::RadioData& data, core::Date today) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  if (profile.has_dsc) SwitchOffEmptyGroups(data);
  if (profile.has_channel_names) RaiseAllNames(data);

  const AreaEncoder encode{data, {data, profile, today}};
  layout::VisitSettings(encode);
  layout::VisitMarineAndWx(encode);
  layout::VisitDirectories(encode);
  layout::VisitExtra(encode);
}

}  // namespace orvane::image
