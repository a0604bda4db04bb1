#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "core/text.h"

namespace orvane::core {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t CountDigits(std::string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) -
                                  text.begin());
}

/// Length of the digits with an optional point at the start of the text; 0 without any digit.
std::size_t DecimalLength(std::string_view text) {
  const std::size_t whole = CountDigits(text);
  if (whole == text.size() || text[whole] != '.') return whole;
  const std::size_t fraction = CountDigits(text.substr(whole + 1));
  return whole + fraction == 0 ? 0 : whole + 1 + fraction;
}

/// Length of "e", an optional sign and digits at the start of the text; 0 when it is not that.
std::size_t ExponentLength(std::string_view text) {
  if (text.empty() || (text[0] != 'e' && text[0] != 'E')) return 0;
  const std::size_t sign = text.size() > 1 && (text[1] == '+' || text[1] == '-') ? 1 : 0;
  const std::size_t digits = CountDigits(text.substr(1 + sign));
  return digits == 0 ? 0 : 1 + sign + digits;
}

/// Up to four digits and nothing else: nearly every number of a settings file.
std::optional<int> ParseShortWhole(std::string_view text) {
  constexpr std::size_t kMostDigits = 4;
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  int value = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

template <class Integer>
std::optional<Integer> ParseInteger(std::string_view text) {
  const std::optional<int> whole = ParseShortWhole(text);
  if (whole && *whole <= std::numeric_limits<Integer>::max()) return static_cast<Integer>(*whole);
  const std::optional<double> number = ParseNumber(text);
  if (!number) return std::nullopt;
  const double rounded = RoundHalfEven(*number);
  if (rounded < std::numeric_limits<Integer>::min() ||
      rounded > std::numeric_limits<Integer>::max()) {
    return std::nullopt;
  }
  return static_cast<Integer>(rounded);
}

/// The digits with the point before digit number `point` (which may lie outside them).
std::string PlacePoint(std::string_view digits, int point) {
  if (point <= 0) {
    return "0." + std::string(static_cast<std::size_t>(-point), '0') + std::string(digits);
  }
  const auto whole = static_cast<std::size_t>(point);
  if (digits.size() <= whole) return std::string(digits) + std::string(whole - digits.size(), '0');
  return std::string(digits.substr(0, whole)) + "." + std::string(digits.substr(whole));
}

}  // namespace

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
  return up ? below + 1 : below;
}

std::optional<double> ParseNumber(std::string_view text) {
  if (const std::optional<int> whole = ParseShortWhole(text)) return *whole;
  text = Trim(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t decimal = DecimalLength(text);
  if (decimal == 0 || decimal + ExponentLength(text.substr(decimal)) != text.size()) {
    return std::nullopt;
  }
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
  return negative ? -value : value;
}

std::optional<std::int16_t> ParseInt16(std::string_view text) {
  return ParseInteger<std::int16_t>(text);
}

std::optional<std::int32_t> ParseInt32(std::string_view text) {
  return ParseInteger<std::int32_t>(text);
}

std::optional<std::uint8_t> ParseByte(std::string_view text) {
  return ParseInteger<std::uint8_t>(text);
}

double LeadingNumber(std::string_view text) {
  return ParseNumber(text.substr(0, DecimalLength(text))).value_or(0);
}

std::string ShortestText(double value) {
  if (value == 0 || !std::isfinite(value)) return "0";
  // "1.56800000000000e+02": one digit, the point, 14 digits, "e", the exponent with its sign.
  constexpr int kDigitsAfterPoint = 14;
  std::array<char, 32> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                    std::chars_format::scientific, kDigitsAfterPoint);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
  std::string digits = std::string(text.substr(0, 1)) + std::string(text.substr(2, 14));
  digits.erase(digits.find_last_not_of('0') + 1);
  std::string_view exponent_text = text.substr(text.find('e') + 1);
  if (exponent_text.starts_with('+')) exponent_text.remove_prefix(1);
  int exponent = 0;
  std::from_chars(exponent_text.data(), exponent_text.data() + exponent_text.size(), exponent);
  return (value < 0 ? "-" : "") + PlacePoint(digits, exponent + 1);
}

std::string HexText(unsigned value, int digits) {
  std::array<char, 16> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, 16);
  const std::string text = UpperCase({buffer.data(), result.ptr});
  const auto width = static_cast<std::size_t>(std::max(digits, 0));
  return text.size() >= width ? text : std::string(width - text.size(), '0') + text;
}

std::optional<unsigned> ParseHex(std::string_view text) {
  unsigned value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, 16);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

}  // namespace orvane::core
