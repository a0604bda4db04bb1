#pragma once

#include <string>
#include <string_view>

#include "core/model_profile.h"
#include "core/notation.h"

/// What a model takes into a field, for whoever sets one: the editor's boxes, the command line, an
/// import. A refusal is a sentence for the user; "" when the value is taken.
namespace orvane::core {

inline constexpr std::string_view kNameCharacters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-/, _.";
inline constexpr int kNameLength = 12;
/// What a seven-segment display can show, in the case in which it shows it.
inline constexpr std::string_view kDisplayCharacters = "0123456789AbCdEFGHIJLnoPqrtSUy";
/// Shapes that only the first place of the display has the segments for.
inline constexpr std::string_view kFirstDisplayCharacters = "MK";
inline constexpr int kDisplayLength = 2;  ///< of each half

/// An EXP/LMR frequency in MHz lies in the model's band and on its raster. 0, none, does not.
[[nodiscard]] bool TakesFrequency(const ModelProfile& profile, double mhz);

[[nodiscard]] std::string FrequencyRefusal(const ModelProfile& profile, const Value& mhz);
[[nodiscard]] std::string ChannelNameRefusal(const ModelProfile& profile, const Value& name);
/// Stored in capitals; empty or two characters.
[[nodiscard]] std::string LeftDisplayRefusal(const ModelProfile& profile, const Value& half);
[[nodiscard]] std::string RightDisplayRefusal(const ModelProfile& profile, const Value& half);
[[nodiscard]] std::string StatusNameRefusal(const ModelProfile& profile, const Value& name);
[[nodiscard]] std::string DirectoryNameRefusal(const ModelProfile& profile, const Value& name);
[[nodiscard]] std::string ThreeCharactersRefusal(const ModelProfile& profile, const Value& text);
/// MMSI and ATIS code.
[[nodiscard]] std::string DigitsRefusal(const ModelProfile& profile, const Value& digits);

}  // namespace orvane::core
