#pragma once

#include <string_view>

#include "core/calendar.h"
#include "core/radio_data.h"
#include "core/services.h"

/// The FCC rule that LMR channels in the 150 - 174 MHz band use narrow bandwidth from
/// 1 January 2013 on.
namespace orvane::core {

enum class WideState {
  kNone = 0,      ///< the rule does not touch the channel
  kAllowed = 1,   ///< in the band, before the cut-over date
  kForbidden = 2  ///< in the band, on or after the cut-over date
};

/// Whether the rule touches this EXP/LMR channel, whatever its present bandwidth.
[[nodiscard]] WideState WideTest(const RadioData& data, const ChannelRecord& channel, Date today);
/// State of the first enabled wide channel the rule touches; none while the group is switched off.
[[nodiscard]] WideState WideChannelState(const RadioData& data, Date today);
/// Sets every enabled channel the rule touches to narrow.
void SetNarrow(RadioData& data, Date today);

enum class NarrowbandDirection { kDownload, kUpload, kSave };
/// Tells the user about wide channels and converts them. False only when the user answered No to
/// a download that must not go on.
[[nodiscard]] bool NarrowbandCheck(RadioData& data, NarrowbandDirection direction, Date today,
                                   Prompts& prompts);

}  // namespace orvane::core
