#include <algorithm>

#include "image/area_walk.h"
#include "image/codec.h"
#include "image/decode_settings.h"
#include "image/layout_channels.h"
#include "image/layout_settings.h"

namespace orvane::image {
namespace {

// A directory is a packed list: what follows the first entry without a number is left over.
template <class Directory>
void EndAtFirstEmptyEntry(Directory& directory) {
  bool in_list = true;
  for (core::DirectoryEntry& entry : directory) {
    in_list = in_list && !entry.Mmsid.empty();
    if (!in_list) entry = {};
    entry.Enable = in_list;
  }
}

// A kind of extra channels is in use when the group is switched on and the table holds at least
// one enabled channel of that kind.
void FindPresentKinds(core::RadioData& data) {
  const auto any_enabled = [&data](bool (core::ChannelRecord::*of_kind)() const) {
    return std::any_of(data.EXP.begin(), data.EXP.end(), [=](const core::ChannelRecord& channel) {
      return channel.Enable && (channel.*of_kind)();
    });
  };
  const bool group_on = data.LmrPresent();
  data.ExpPresent = group_on && any_enabled(&core::ChannelRecord::IsExp);
  data.LmrPresent() = group_on && any_enabled(&core::ChannelRecord::IsLmr);
}

}  // namespace

void DecodeSettings(core::RadioData& data) {
  layout::VisitSettings(AreaDecoder{data, core::ProfileOf(data)});
}

void DecodeExtraChannels(core::RadioData& data) {
  layout::VisitExtra(AreaDecoder{data, core::ProfileOf(data)});
  FindPresentKinds(data);
}

void DecodeAll(core::RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const AreaDecoder decode{data, profile};
  DecodeSettings(data);
  layout::VisitMarineAndWx(decode);
  CopyPlanSelection(data);
  if (profile.has_dsc) {
    layout::VisitDirectories(decode);
    EndAtFirstEmptyEntry(data.Stations);
    EndAtFirstEmptyEntry(data.StationGroups);
  }
  DecodeExtraChannels(data);
}

std::unique_ptr<core::RadioData> Decoded(std::int16_t model_type, const core::MemoryImage& image) {
  auto data = std::make_unique<core::RadioData>();
  data->MODELTYPE = model_type;
  data->Image = image;
  DecodeAll(*data);
  return data;
}

}  // namespace orvane::image
