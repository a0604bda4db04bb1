#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/records.h"

namespace orvane::core {

/// Index 0 is "Off", then the 50 standard tones in ascending order.
[[nodiscard]] const std::array<std::string_view, 51>& CtcssList();
/// Index 0 is "Off", then the 104 codes in ascending order.
inline constexpr int kLastCtcss = 50;
[[nodiscard]] const std::array<std::string_view, 105>& DcsList();
inline constexpr int kLastDcs = 104;  ///< indexes above it are the same codes inverted

/// Tone text, "" for an index outside the list.
[[nodiscard]] std::string_view CtcssText(int index);
/// Code followed by "N", or by "I" when inverted; "" for an index outside 1..208.
[[nodiscard]] std::string DcsText(int index);

enum class ToneDirection { kReceive, kTransmit };
/// What a table cell shows: the CTCSS tone, else the DCS code, else "-------".
[[nodiscard]] std::string ToneText(const ChannelRecord& channel, ToneDirection direction);

}  // namespace orvane::core
