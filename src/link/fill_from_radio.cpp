#include "link/fill_from_radio.h"

#include <algorithm>
#include <cstddef>
#include <memory>

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

void FillFields(core::RadioData& data, const core::RadioData& radio) {
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
}

void FillMemory(core::MemoryImage& image, const core::MemoryImage& radio) {
  const core::MemoryImage file = image;
  for (int address = kFirstBlock; address <= file.LastIndex(); address += kBlockSize) {
    if (IsBlockRead(address)) CopyBytes(radio, image, address, kBlockSize);
  }
  for (int group = 0; group < image::kStoredChannelGroups; ++group) {
    for (int slot = 0; slot < image::kStoredChannelSlots; ++slot) {
      image::SetStoredChannel(image, group, slot, image::StoredChannel(file, group, slot));
    }
  }
  CopyBytes(file, image, image::kPriSetChOffset, image::kPriSetChLength);
  image::SetDestinationBits(image, image::Sel1(file), image::Sel2(file));
}

}  // namespace

bool FileLacksSomething(const core::ModelProfile& profile) {
  return profile.has_dsc || profile.has_call_signs || !profile.has_channel_names ||
         !profile.HasTones();
}

void FillFromRadio(core::RadioData& data, const core::RadioData& radio,
                   std::span<const core::FieldRef> but_not) {
  const auto own = std::make_unique<core::RadioData>(data);
  FillFields(data, radio);
  FillMemory(data.Image, radio.Image);
  for (const core::FieldRef& field : but_not) {
    if (core::TableOf(field).kind == core::TableKind::kMemory) continue;
    core::Set(data, field, core::Get(*own, field));
  }
}

}  // namespace orvane::link
