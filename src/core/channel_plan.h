#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/radio_data.h"

namespace orvane::core {

/// One position of a channel plan: label and default frequencies (MHz).
struct ChannelPlanEntry {
  std::int16_t number = 0;
  std::string text;  ///< marine: the label, "00".."119A"; WX: the frequency text
  double tx_frequency = 0;
  double rx_simplex = 0;
  double rx_duplex = 0;  ///< 0 where the plan has no duplex
  Flag duplex_allowed;
  Flag second_flag;
  std::string display;  ///< WX: "WX01[162.550MHz]"

  /// Where a channel listens that works duplex, or does not.
  [[nodiscard]] double Receive(bool duplex) const { return duplex ? rx_duplex : rx_simplex; }
};

/// The 240 marine positions: index 2k is channel k, index 2k + 1 channel k "A".
[[nodiscard]] const std::array<ChannelPlanEntry, kMarineChannels>& ChannelPlan();
/// The ten weather channels.
[[nodiscard]] const std::array<ChannelPlanEntry, kWxChannels>& WxPlan();

/// Positions of the channels that have a part of their own.
inline constexpr int kChannel09 = 18;   ///< calling
inline constexpr int kChannel16 = 32;   ///< distress and calling
inline constexpr int kChannel70 = 140;  ///< distress and calling by DSC

/// Resets one marine table to the defaults of its plan.
void ResetMarineTable(MarineGroup group, MarineTable& table);
/// Resets the weather table to its ten defaults.
void ResetWxTable(WxTable& table);

/// What the plan has for a marine channel; null for a position outside 0..239.
[[nodiscard]] const ChannelPlanEntry* PlanOf(const ChannelRecord& marine);
/// Label of a position ("16", "22A"); "" outside 0..239.
[[nodiscard]] std::string_view PlanLabel(int position);
/// Text of a combined channel number: "Off", a plan label, or the extra-channel word and number.
/// Weather channels and everything above read "Off".
[[nodiscard]] std::string ChannelLabel(std::int32_t channel, std::string_view extra_word);

}  // namespace orvane::core
