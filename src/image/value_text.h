#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/flag.h"

/// How the memory map shows values.
namespace orvane::image {

struct Bits;
struct Place;

[[nodiscard]] std::string ValueText(core::Flag value);  ///< "on" / "off"
[[nodiscard]] std::string ValueText(double mhz);        ///< "156.8000 MHz", "none" for 0
[[nodiscard]] std::string ValueText(const std::string& text);
template <std::integral T>
[[nodiscard]] std::string ValueText(T value) {
  return std::to_string(value);
}

/// The bits as one number, most significant bit first. At most 24 bits.
[[nodiscard]] std::string NumberText(const std::uint8_t* base, const Place& place);
/// How many of the bits are set: "57 of 240 set".
[[nodiscard]] std::string SetBitsText(const std::uint8_t* base, const Bits& bits);
/// Two bytes, the low one first, as a channel number.
[[nodiscard]] std::string StoredChannelText(const std::uint8_t* base, const Place& place);
/// Printable characters as they are, others as a point.
[[nodiscard]] std::string CharactersText(const std::uint8_t* base, const Place& place);
/// Nothing: the bytes say it all.
[[nodiscard]] std::string NoText(const std::uint8_t* base, const Place& place);

}  // namespace orvane::image
