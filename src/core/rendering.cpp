#include "core/rendering.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/number_text.h"
#include "core/text.h"

namespace orvane::core {
namespace {

template <std::size_t N>
std::string_view ItemText(const std::array<std::string_view, N>& items, int index) {
  if (index < 0 || index >= static_cast<int>(N)) return {};
  return items[static_cast<std::size_t>(index)];
}

/// MHz with at least three digits before the point; the empty form for 0 or less.
std::string MegahertzText(double mhz, int decimals, std::string_view empty) {
  if (!(mhz > 0) || !std::isfinite(mhz)) return std::string(empty);
  std::array<char, 320> buffer{};  // the largest double has 309 digits
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), mhz,
                                    std::chars_format::fixed, decimals);
  const std::string text(buffer.data(), result.ptr);
  const std::size_t width = 4 + static_cast<std::size_t>(decimals);
  return text.size() >= width ? text : std::string(width - text.size(), '0') + text;
}

}  // namespace

std::string_view OnOffText(bool flag) {
  return flag ? "On" : "Off";
}
std::string_view HiLowText(bool flag) {
  return flag ? "Hi" : "Low";
}
std::string_view EnableText(bool flag) {
  return flag ? "ENABLE" : "------";
}
std::string_view TxText(bool flag) {
  return flag ? "TX" : "--";
}
std::string_view LowText(bool flag) {
  return flag ? "LOW" : "---";
}
std::string_view UpText(bool flag) {
  return flag ? "UP" : "--";
}
std::string_view DupText(bool flag) {
  return flag ? "DUP" : "---";
}
std::string_view MemText(bool flag) {
  return flag ? "MEM" : "---";
}
std::string_view CmpText(bool flag) {
  return flag ? "CMP" : "---";
}
std::string_view NarrowText(bool flag) {
  return flag ? "N " : "--";
}
std::string_view UseText(bool flag) {
  return flag ? "USE" : "---";
}

std::string_view TxPoDisplayText(int value) {
  static constexpr std::array<std::string_view, 3> kItems = {"Lo Po Only", "Lo Po on Changing CH",
                                                             "Last TX Po"};
  return ItemText(kItems, value);
}

std::string_view ResumeTimeText(int value) {
  static constexpr std::array<std::string_view, 4> kItems = {"--", "1Sec", "2Sec", "3Sec"};
  return ItemText(kItems, value);
}

std::string_view MagneticVariationText(int value) {
  static constexpr std::array<std::string_view, 2> kItems = {"True", "Mag"};
  return ItemText(kItems, value);
}

std::string_view WeatherAlertText(int value) {
  constexpr int kBothBits = 3;
  if (value == 0) return "Off";
  return value == kBothBits ? "On" : "";
}

std::string OffsetTimeText(int value) {
  constexpr int kNoOffset = 12;
  if (value < 0 || value > 2 * kNoOffset) return {};
  const int hours = value - kNoOffset;
  const std::string_view sign = hours > 0 ? "+" : hours < 0 ? "-" : " ";
  return std::string(sign) + std::to_string(std::abs(hours)) + ":00";
}

std::string StatusNameText(std::string_view name) {
  return std::string(Trim(name).empty() ? "----" : name);
}

std::string PlanFrequencyText(double mhz) {
  return MegahertzText(mhz, 3, "---.---");
}

std::string FrequencyText(double mhz) {
  return MegahertzText(mhz, 4, "---.----");
}

std::string RasterFrequencyText(double mhz) {
  if (!(mhz > 0)) return FrequencyText(mhz);
  constexpr double kUnitsPerMegahertz = 10000;  // 100 Hz
  constexpr double kRaster5Khz = 50;
  constexpr double kRaster12Khz5 = 125;
  const double units = RoundHalfEven(mhz * kUnitsPerMegahertz);
  const bool on_raster = std::fmod(units, kRaster5Khz) == 0 || std::fmod(units, kRaster12Khz5) == 0;
  if (on_raster) return FrequencyText(mhz);
  const double lowered = std::floor(units / kRaster5Khz) * kRaster5Khz / kUnitsPerMegahertz;
  // Below the lowest step nothing is left, yet there is a frequency: not the empty form.
  return lowered > 0 ? FrequencyText(lowered) : "000.0000";
}

std::string ScramblerText(int scramble) {
  constexpr int kOnBit = 4;
  constexpr int kCodeBits = 3;
  return (scramble & kOnBit) != 0 ? std::to_string(scramble & kCodeBits) : "--";
}

std::string DisplayLetters(std::string_view text) {
  constexpr std::string_view kShownLower = "BDNOQRTY";
  std::string result(text);
  for (char& c : result) {
    if (kShownLower.find(c) != std::string_view::npos) c = static_cast<char>(c - 'A' + 'a');
  }
  return result;
}

std::string DisplayText(const ChannelRecord& channel) {
  const std::string right = " " + channel.CHDisplayR;
  const std::string last_two = right.substr(right.size() - std::min<std::size_t>(2, right.size()));
  return Cell(DisplayLetters(Cell(channel.CHDisplayL, 2) + last_two), 4);
}

std::string Cell(std::string_view text, std::size_t width) {
  std::string cell(text.substr(0, width));
  cell.resize(width, ' ');
  return cell;
}

}  // namespace orvane::core
