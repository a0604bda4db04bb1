#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/flag.h"
#include "core/memory_image.h"
#include "core/one_based_array.h"
#include "core/records.h"

namespace orvane::core {

inline constexpr int kMarineChannels = 240;
inline constexpr int kWxChannels = 10;
inline constexpr int kExtraChannels = 40;
inline constexpr int kUsableGroups = 4;
inline constexpr int kCallSigns = 20;
inline constexpr int kStations = 40;
inline constexpr int kStationGroups = 10;

using MarineTable = std::array<ChannelRecord, kMarineChannels>;
using WxTable = std::array<ChannelRecord, kWxChannels>;
using ExtraTable = OneBasedArray<ChannelRecord, kExtraChannels>;

/// The three marine channel groups, in the order in which every table lists them.
enum class MarineGroup { kUsa = 0, kIntl = 1, kCanada = 2 };
inline constexpr std::array<MarineGroup, 3> kMarineGroups = {MarineGroup::kUsa, MarineGroup::kIntl,
                                                             MarineGroup::kCanada};
/// Index of the EXP/LMR group among the usable groups.
inline constexpr std::size_t kExtraGroup = 3;

/// What a radio holds, and nothing else: the memory image and the records decoded from it.
///
/// Copying is cheap (about 200 kB), which is how "replace only after the new one decoded whole" is
/// done.
struct RadioData {
  std::int16_t MODELTYPE = 5;  ///< 0..6, see ModelProfile

  MemoryImage Image;

  std::array<MarineTable, 3> Marine;  ///< by MarineGroup
  WxTable WX;
  ExtraTable EXP;  ///< the EXP/LMR channels 1..40

  std::array<UsableGroup, kUsableGroups> Usable;  ///< USA, INTL, Canada, EXP/LMR
  CommonSettings Common;
  DscSettings Dsc;
  AtisSettings Atis;
  OneBasedArray<AtisCallSign, kCallSigns> CallSigns;
  OneBasedArray<DirectoryEntry, kStations> Stations;            ///< individual directory
  OneBasedArray<DirectoryEntry, kStationGroups> StationGroups;  ///< group directory

  /// The EXP extra-channel group is in use.
  Flag ExpPresent;
  /// The LMR extra-channel group is in use. It is the availability of the EXP/LMR group itself.
  [[nodiscard]] Flag& LmrPresent() { return Usable[kExtraGroup].Enable; }
  [[nodiscard]] const Flag& LmrPresent() const { return Usable[kExtraGroup].Enable; }

  [[nodiscard]] MarineTable& Table(MarineGroup group) {
    return Marine[static_cast<std::size_t>(group)];
  }
  [[nodiscard]] const MarineTable& Table(MarineGroup group) const {
    return Marine[static_cast<std::size_t>(group)];
  }

  bool operator==(const RadioData&) const = default;
};

/// Combined channel numbering: one number over all tables.
inline constexpr std::int32_t kNoChannel = -1;
inline constexpr std::int32_t kFirstExtraChannelIndex = 240;  ///< EXP/LMR channel 1
inline constexpr std::int32_t kFirstWxChannelIndex = 280;     ///< WX channel 1
inline constexpr std::int32_t kChannelIndexEnd = 290;

}  // namespace orvane::core
