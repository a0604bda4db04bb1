#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers in text, always with a point, whatever the locale.
namespace orvane::core {

/// Nearest integer, halves to the even neighbour.
[[nodiscard]] double RoundHalfEven(double value);

/// Blanks, an optional sign, digits with an optional point and fraction (a digit on one side is
/// enough), an optional exponent, blanks. Anything else is no number.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

/// ParseNumber, rounded half to even, then tested against the type's range.
[[nodiscard]] std::optional<std::int16_t> ParseInt16(std::string_view text);
[[nodiscard]] std::optional<std::int32_t> ParseInt32(std::string_view text);
[[nodiscard]] std::optional<std::uint8_t> ParseByte(std::string_view text);

/// The number at the start of the text (digits and one point); 0 when there is none.
[[nodiscard]] double LeadingNumber(std::string_view text);

/// At most 15 significant digits, no trailing zeros, never an exponent within the values a radio
/// uses: "156.8", "157.0125", "0".
[[nodiscard]] std::string ShortestText(double value);

/// Upper-case hexadecimal, zero-filled on the left to the given number of digits.
[[nodiscard]] std::string HexText(unsigned value, int digits);
/// The whole text as hexadecimal digits, either letter case; nothing for an empty or other text.
[[nodiscard]] std::optional<unsigned> ParseHex(std::string_view text);

}  // namespace orvane::core
