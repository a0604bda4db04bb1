#include "link/fill_from_radio.h"

#include <algorithm>
#include <cstddef>

#include "image/codec.h"
#include "image/raw_areas.h"
#include "link/transfer_plan.h"

namespace orvane::link {
namespace {

// Without tones a settings file keeps of an extra channel what every radio has, and no more.
void FillExtraChannels(core::ExtraTable& channels, const core::ExtraTable& radio) {
  for (int number = core::ExtraTable::kFirst; number <= core::ExtraTable::kLast; ++number) {
    channels[number].ChTag = radio[number].ChTag;
    channels[number].Scramble = radio[number].Scramble;
    channels[number].Narrow = radio[number].Narrow;
  }
}

// Radios that name no channel keep scrambler codes nevertheless.
void FillScramblers(core::MarineTable& channels, const core::MarineTable& radio) {
  for (std::size_t i = 0; i < channels.size(); ++i) channels[i].Scramble = radio[i].Scramble;
}

void CopyBytes(const core::MemoryImage& from, core::MemoryImage& to, int first, int count) {
  std::copy_n(from.All().begin() + first, count, to.All().begin() + first);
}

}  // namespace

bool FileLacksSomething(const core::ModelProfile& profile) {
  return profile.has_dsc || profile.has_call_signs || !profile.has_channel_names ||
         !profile.HasTones();
}

void FillFromRadio(core::RadioData& data, const core::RadioData& radio) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  if (profile.has_dsc) {
    data.Dsc = radio.Dsc;
    data.Stations = radio.Stations;
  }
  if (profile.has_call_signs) {
    data.CallSigns = radio.CallSigns;
    data.Common.RotaryBeep = radio.Common.RotaryBeep;
  }
  if (!profile.has_channel_names) {
    for (std::size_t group = 0; group < data.Marine.size(); ++group) {
      FillScramblers(data.Marine[group], radio.Marine[group]);
    }
  }
  if (!profile.HasTones()) FillExtraChannels(data.EXP, radio.EXP);

  const core::MemoryImage file = data.Image;
  for (int address = kFirstBlock; address <= file.LastIndex(); address += kBlockSize) {
    if (IsBlockRead(address)) CopyBytes(radio.Image, data.Image, address, kBlockSize);
  }
  for (int group = 0; group < image::kStoredChannelGroups; ++group) {
    for (int slot = 0; slot < image::kStoredChannelSlots; ++slot) {
      image::SetStoredChannel(data.Image, group, slot, image::StoredChannel(file, group, slot));
    }
  }
  CopyBytes(file, data.Image, image::kPriSetChOffset, image::kPriSetChLength);
  image::SetDestinationBits(data.Image, image::Sel1(file), image::Sel2(file));
}

}  // namespace orvane::link
