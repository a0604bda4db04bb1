#pragma once

#include <string>
#include <string_view>

#include "core/model_profile.h"
#include "core/radio_data.h"

/// The EXP/LMR channels as they are seen under their two headings, "LMR" and "EXP".
namespace orvane::core {

/// Whether the channel is of the kind that the heading lists. Models with one kind only list
/// every channel under either heading.
[[nodiscard]] bool OfKind(const ModelProfile& profile, const ChannelRecord& channel, bool lmr_root);

/// Whether the channel carries the enabled mark under the heading.
[[nodiscard]] bool MarkedEnabled(const ModelProfile& profile, const ChannelRecord& channel,
                                 bool lmr_root);
/// The same for the channel with that number, 1..40.
[[nodiscard]] bool MarkedEnabled(const RadioData& data, int number, bool lmr_root);

/// Name of a channel under the heading: "LMR7" or "EXP7".
[[nodiscard]] std::string ExtraChannelName(const ModelProfile& profile, int number, bool lmr_root);

/// What follows the name of an enabled channel in the tree and in the grids.
inline constexpr std::string_view kEnabledMark = "[Enable]";

}  // namespace orvane::core
