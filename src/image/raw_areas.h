#pragma once

#include <cstdint>

#include "core/memory_image.h"
#include "image/layout_places.h"

/// Areas of the image that no record decodes and that the settings file keeps byte for byte.
namespace orvane::image {

inline constexpr int kStoredChannelGroups = 3;  ///< USA, INTL, Canada
inline constexpr int kStoredChannelSlots = places::kStoredChannelsPerGroup;
inline constexpr std::uint16_t kEmptyStoredChannel = 0xFFFF;

/// First byte of a slot; its channel is little-endian, unlike every other number of the image.
[[nodiscard]] constexpr int StoredChannelOffset(int group, int slot) {
  return places::StoredChannel(group, slot).FirstByte();
}

/// Combined channel number in a slot, whatever it is; kEmptyStoredChannel when there is none.
[[nodiscard]] inline std::uint16_t StoredChannel(const core::MemoryImage& image, int group,
                                                 int slot) {
  const int offset = StoredChannelOffset(group, slot);
  return static_cast<std::uint16_t>(image[offset] | image[offset + 1] << 8);
}

inline void SetStoredChannel(core::MemoryImage& image, int group, int slot, std::uint16_t channel) {
  const int offset = StoredChannelOffset(group, slot);
  image[offset] = static_cast<std::uint8_t>(channel & 0xFF);
  image[offset + 1] = static_cast<std::uint8_t>(channel >> 8);
}

/// Eight bytes that models with DSC use for its settings and other models carry unread.
inline constexpr int kPriSetChOffset = places::kDscSettings.FirstByte();
inline constexpr int kPriSetChLength = places::kDscSettings.Length();

/// Count that the radio keeps behind the user MMSI; the text report prints it.
inline constexpr int kMmsiCountOffset = places::kMmsiCount.FirstByte();

}  // namespace orvane::image
