#pragma once

#include <cstdint>

#include "image/bits.h"

/// Places that more than the field tables need: what the consistency pass, the checks of an image
/// and the destination bits work on. Groups are 0 USA, 1 INTL, 2 Canada, 3 EXP/LMR.
namespace orvane::image::places {

inline constexpr Bits kModelCode = BytesAt(64, 2);
/// The second copy, counted from the end of the used bytes.
inline constexpr Bits kModelCodeFromEnd = BytesAt(-2, 2);
/// Where radios with an old clone mode are asked for their model code.
inline constexpr Bits kRadioModelCode = BytesAt(0, 2);
inline constexpr Bits kProduct = BytesAt(16370, 1);

inline constexpr Bits kCommonSettings = BytesAt(66, 29);
inline constexpr Bits kCommonChecksum = BytesAt(95, 1);

inline constexpr Bits kLastChannelGroup = BytesAt(70, 1);
inline constexpr Bits kChannelMode = BytesAt(71, 1);  ///< 0 marine group, 1 weather
inline constexpr Bits kLastWxChannel = BytesAt(72, 1);
inline constexpr Bits kLastDisplayChannel = BytesAt(80, 2);
inline constexpr Bits kMarineLmrChannel = BytesAt(82, 2);
constexpr Bits PriorityChannel(int group) {
  return BytesAt(84 + 2 * group, 2);
}
/// A byte of beep settings that belongs to the radio: programming takes over the radio's value.
inline constexpr Bits kRadioOwnByte = BytesAt(90, 1);
inline constexpr Bits kRotaryBeep = BitAt(90, 0);
constexpr Bits GroupEnable(int group) {
  return BitAt(93, 3 - group);
}

/// Three lists of channels the user stored, 16-bit little-endian combined channel numbers.
inline constexpr int kStoredChannelsPerGroup = 10;
constexpr Bits StoredChannel(int group, int index) {
  return BytesAt(96 + 20 * group + 2 * index, 2);
}

/// DSC settings; other models carry these bytes unread.
inline constexpr Bits kDscSettings = BytesAt(160, 8);
/// Count the radio keeps behind the user's MMSI.
inline constexpr Bits kMmsiCount = BytesAt(501, 1);

inline constexpr Bits kSel1 = BitAt(168, 5);
inline constexpr Bits kSel2 = BitAt(168, 4);
/// Belongs to the radio, as kRadioOwnByte.
inline constexpr Bits kRadioOwnBit = BitAt(168, 2);

constexpr Bits MarineEnable(int group) {
  return {256 * 8 + 64 * 8 * group, 240};
}
inline constexpr Bits kWxEnable = {448 * 8, 10};
inline constexpr Bits kExtraEnable = {450 * 8, 40};

/// Every image that was programmed into a radio carries this mark.
inline constexpr Bits kWrittenMark = BytesAt(504, 1);
inline constexpr std::uint8_t kWrittenMarkValue = 0xA1;

constexpr Bits AtisGroup(int group) {
  return BitAt(505, 7 - group);
}
/// 0 no ATIS, 1 without and 2 with call signs in the list.
constexpr Bits AtisMode(int group) {
  return BitRange(506, 7 - 2 * group, 6 - 2 * group);
}

inline constexpr int kCallSignBase = 12544;
inline constexpr int kCallSignStride = 8;
inline constexpr Bits kCallSignMid = BytesAt(0, 3);  ///< within an entry

}  // namespace orvane::image::places
