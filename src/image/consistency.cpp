#include <array>
#include <cstdint>
#include <optional>

#include "core/channel_plan.h"
#include "core/model_profile.h"
#include "image/codec.h"
#include "image/forms.h"
#include "image/layout_places.h"
#include "image/raw_areas.h"

namespace orvane::image {
namespace {

constexpr int kGroups = 3;
constexpr int kUsa = 0;
constexpr int kIntl = 1;
constexpr int kCanada = 2;

// What the image itself says about groups and channels.
class ImageState {
 public:
  explicit ImageState(core::MemoryImage& image) : bytes_(image.All().data()) {}

  [[nodiscard]] std::uint32_t Read(Bits bits) const { return ReadBits(bytes_, bits); }
  void Write(Bits bits, std::uint32_t value) { WriteBits(bytes_, bits, value); }

  [[nodiscard]] bool IsOn(Bits flag) const { return Read(flag) != 0; }

  // The index-th bit of a bitmap; false outside it.
  [[nodiscard]] bool IsMarked(Bits bitmap, std::int32_t index) const {
    return index >= 0 && index < bitmap.count && IsOn({bitmap.first + index, 1});
  }
  [[nodiscard]] std::optional<std::int32_t> FirstMarked(Bits bitmap) const {
    for (std::int32_t i = 0; i < bitmap.count; ++i) {
      if (IsMarked(bitmap, i)) return i;
    }
    return std::nullopt;
  }

  // Whether the radio can go to the channel (combined number) from the group.
  [[nodiscard]] bool IsValidChannel(int group, std::int32_t channel) const {
    if (channel < core::kFirstExtraChannelIndex) {
      return IsOn(places::GroupEnable(group)) && IsMarked(places::MarineEnable(group), channel);
    }
    if (channel < core::kFirstWxChannelIndex) {
      return IsOn(places::GroupEnable(static_cast<int>(core::kExtraGroup))) &&
             IsMarked(places::kExtraEnable, channel - core::kFirstExtraChannelIndex);
    }
    return IsMarked(places::kWxEnable, channel - core::kFirstWxChannelIndex);
  }

 private:
  std::uint8_t* bytes_;
};

// The last used group, or the one to fall back on when it is switched off.
std::uint32_t UsableGroupFor(const ImageState& image, std::uint32_t group) {
  if (group < kGroups && image.IsOn(places::GroupEnable(static_cast<int>(group)))) return group;
  std::array<int, 2> fallbacks = {kCanada, kUsa};
  if (group == kUsa) fallbacks = {kIntl, kCanada};
  if (group == kCanada) fallbacks = {kUsa, kIntl};
  for (const int fallback : fallbacks) {
    if (image.IsOn(places::GroupEnable(fallback))) return static_cast<std::uint32_t>(fallback);
  }
  return group;
}

void RepairMarineMode(ImageState& image, std::int32_t last_display_channel) {
  const std::uint32_t group = UsableGroupFor(image, image.Read(places::kLastChannelGroup));
  image.Write(places::kLastChannelGroup, group);
  if (group >= kGroups) return;

  const Bits table = places::MarineEnable(static_cast<int>(group));
  std::optional<std::int32_t> channel = last_display_channel;
  if (!image.IsMarked(table, last_display_channel)) {
    channel = image.FirstMarked(table);
    if (!channel) {
      channel = image.FirstMarked(places::kExtraEnable);
      if (channel) *channel += core::kFirstExtraChannelIndex;
    }
  }
  if (!channel) return;
  image.Write(places::kLastDisplayChannel, static_cast<std::uint32_t>(*channel));
  image.Write(places::kMarineLmrChannel, static_cast<std::uint32_t>(*channel));
}

void RepairWxMode(ImageState& image) {
  std::optional<std::int32_t> channel =
      static_cast<std::int32_t>(image.Read(places::kLastWxChannel));
  if (!image.IsMarked(places::kWxEnable, *channel)) channel = image.FirstMarked(places::kWxEnable);
  if (!channel) return;
  // The weather number itself, not its place in the combined numbering.
  image.Write(places::kLastWxChannel, static_cast<std::uint32_t>(*channel));
  image.Write(places::kLastDisplayChannel, static_cast<std::uint32_t>(*channel));
}

void RepairStoredChannels(const ImageState& state, core::MemoryImage& image) {
  for (int group = 0; group < kStoredChannelGroups; ++group) {
    for (int slot = 0; slot < kStoredChannelSlots; ++slot) {
      if (!state.IsValidChannel(group, StoredChannel(image, group, slot))) {
        SetStoredChannel(image, group, slot, kEmptyStoredChannel);
      }
    }
  }
}

// The distress and calling channels first, then what the user stored.
std::int32_t PriorityCandidate(const ImageState& state, const core::MemoryImage& image, int group) {
  for (const std::int32_t channel : {core::kChannel16, core::kChannel09}) {
    if (state.IsValidChannel(group, channel)) return channel;
  }
  for (int slot = 0; slot < kStoredChannelSlots; ++slot) {
    const std::int32_t channel = StoredChannel(image, group, slot);
    if (state.IsValidChannel(group, channel)) return channel;
  }
  return core::kNoChannel;
}

std::int32_t RepairedPriority(const ImageState& state, const core::MemoryImage& image, int group,
                              std::int32_t channel) {
  if (channel < 0 || channel >= core::kChannelIndexEnd) return core::kNoChannel;
  if (!state.IsOn(places::GroupEnable(group))) return channel;
  if (state.IsValidChannel(group, channel)) return channel;
  return PriorityCandidate(state, image, group);
}

void RepairPriorityChannels(ImageState& state, core::RadioData& data) {
  for (int group = 0; group < kGroups; ++group) {
    std::int32_t& channel = data.Usable[static_cast<std::size_t>(group)].Priority_CH;
    channel = RepairedPriority(state, data.Image, group, channel);
    state.Write(places::PriorityChannel(group), ChannelNumberForm::Coded(channel));
  }
}

bool HasCallSign(const ImageState& image) {
  std::uint32_t all = 0xFFFFFF;
  for (int i = 0; i < core::kCallSigns; ++i) {
    all &= image.Read(
        places::kCallSignMid.MovedBy(places::kCallSignBase + places::kCallSignStride * i));
  }
  return all != 0xFFFFFF;
}

void RebuildAtisModes(ImageState& image) {
  const std::uint32_t mode = HasCallSign(image) ? 2 : 1;
  for (int group = 0; group < core::kUsableGroups; ++group) {
    image.Write(places::AtisMode(group), image.IsOn(places::AtisGroup(group)) ? mode : 0);
  }
}

}  // namespace

void ConsistencyPass(core::RadioData& data) {
  constexpr std::uint32_t kMarineMode = 0;
  constexpr std::uint32_t kWxMode = 1;
  ImageState image(data.Image);
  const std::uint32_t mode = image.Read(places::kChannelMode);
  if (mode == kMarineMode) RepairMarineMode(image, data.Common.Last_Display_CH);
  if (mode == kWxMode) RepairWxMode(image);
  RepairStoredChannels(image, data.Image);
  if (core::ProfileOf(data).has_dsc) {
    RebuildAtisModes(image);
  } else {
    RepairPriorityChannels(image, data);
  }
}

void EncodeForRadio(core::RadioData& data, core::Date today) {
  EncodeAll(data, today);
  ConsistencyPass(data);
}

}  // namespace orvane::image
