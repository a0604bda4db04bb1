#include "core/field_rules.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/number_text.h"
#include "core/text.h"

namespace orvane::core {
namespace {

constexpr double kUnitsPerMegahertz = 10000.0;  // 100 Hz, the radio's own unit
constexpr double kRaster = 250.0;               // 25 kHz in these units

constexpr std::size_t kStatusNameLength = 4;
constexpr std::size_t kDirectoryNameLength = 11;
constexpr std::size_t kCallSignLength = 3;
constexpr std::size_t kDigits = 10;
constexpr std::string_view kDecimalDigits = "0123456789";

bool HasOnly(std::string_view text, std::string_view allowed) {
  return text.find_first_not_of(allowed) == std::string_view::npos;
}

std::string LengthRefusal(std::string_view text, std::size_t longest) {
  if (text.size() <= longest) return {};
  return "At most " + std::to_string(longest) + " characters fit.";
}

// Halves are kept in capitals; the display's small letters are a matter of showing.
std::string DisplayRefusal(std::string_view half, std::string_view first_place) {
  const std::string allowed = UpperCase(kDisplayCharacters);
  const std::string_view rest = half.substr(std::min<std::size_t>(1, half.size()));
  if (half.size() <= kDisplayLength && HasOnly(rest, allowed) &&
      HasOnly(half.substr(0, half.size() - rest.size()), allowed + std::string(first_place))) {
    return {};
  }
  return "The display shows two of 0-9, A-J, L, N-U and Y" +
         std::string(first_place.empty() ? "." : "; M and K in the first place only.");
}

}  // namespace

bool TakesFrequency(const ModelProfile& profile, double mhz) {
  if (!(mhz >= profile.min_frequency && mhz <= kMaxFrequency)) return false;
  const double units = RoundHalfEven(mhz * kUnitsPerMegahertz);
  return !profile.raster_25khz || std::fmod(units, kRaster) == 0;
}

std::string FrequencyRefusal(const ModelProfile& profile, const Value& mhz) {
  const auto value = std::get<double>(mhz);
  if (value == 0 || TakesFrequency(profile, value)) return {};
  return "A " + std::string(profile.model) + " takes " + ShortestText(profile.min_frequency) +
         " to " + ShortestText(kMaxFrequency) + " MHz" +
         (profile.raster_25khz ? " in steps of 25 kHz." : ".");
}

std::string ChannelNameRefusal(const ModelProfile& /*profile*/, const Value& name) {
  const auto& text = std::get<std::string>(name);
  if (!HasOnly(text, kNameCharacters)) {
    return "A channel name has capital letters, digits, blanks and - / , _ . only.";
  }
  return LengthRefusal(text, kNameLength);
}

std::string LeftDisplayRefusal(const ModelProfile& /*profile*/, const Value& half) {
  return DisplayRefusal(std::get<std::string>(half), kFirstDisplayCharacters);
}

std::string RightDisplayRefusal(const ModelProfile& /*profile*/, const Value& half) {
  return DisplayRefusal(std::get<std::string>(half), {});
}

std::string StatusNameRefusal(const ModelProfile& /*profile*/, const Value& name) {
  return LengthRefusal(std::get<std::string>(name), kStatusNameLength);
}

std::string DirectoryNameRefusal(const ModelProfile& /*profile*/, const Value& name) {
  return LengthRefusal(std::get<std::string>(name), kDirectoryNameLength);
}

std::string ThreeCharactersRefusal(const ModelProfile& /*profile*/, const Value& text) {
  return LengthRefusal(std::get<std::string>(text), kCallSignLength);
}

std::string DigitsRefusal(const ModelProfile& /*profile*/, const Value& digits) {
  const auto& text = std::get<std::string>(digits);
  return HasOnly(text, kDecimalDigits) ? LengthRefusal(text, kDigits) : "Digits only.";
}

}  // namespace orvane::core
