#pragma once

#include <cstdint>

namespace orvane::image {

/// A run of bits of the memory, counted from bit 7 (the most significant) of the first byte on.
/// Every field of the radio's memory is one such run, or two.
struct Bits {
  int first = 0;
  int count = 0;

  [[nodiscard]] constexpr int FirstByte() const { return first / 8; }
  [[nodiscard]] constexpr int LastByte() const { return (first + count - 1) / 8; }
  [[nodiscard]] constexpr int Length() const { return count / 8; }  ///< whole bytes
  [[nodiscard]] constexpr Bits MovedBy(int bytes) const { return {first + bytes * 8, count}; }
};

constexpr Bits BitAt(int byte, int bit) {
  return {byte * 8 + 7 - bit, 1};
}
constexpr Bits BitRange(int byte, int high, int low) {
  return {byte * 8 + 7 - high, high - low + 1};
}
constexpr Bits BytesAt(int byte, int length) {
  return {byte * 8, length * 8};
}

/// The run as a number, most significant bit first. At most 24 bits.
constexpr std::uint32_t ReadBits(const std::uint8_t* base, Bits bits) {
  const int last = bits.LastByte();
  std::uint32_t value = 0;
  for (int i = bits.FirstByte(); i <= last; ++i) value = value << 8 | base[i];
  const int below = 7 - (bits.first + bits.count - 1) % 8;
  return value >> below & ((1U << bits.count) - 1);
}

/// Stores the low bits of the value; bits outside the run keep theirs. At most 24 bits.
constexpr void WriteBits(std::uint8_t* base, Bits bits, std::uint32_t value) {
  const int below = 7 - (bits.first + bits.count - 1) % 8;
  std::uint32_t mask = ((1U << bits.count) - 1) << below;
  value <<= below;
  for (int i = bits.LastByte(); i >= bits.FirstByte(); --i) {
    base[i] = static_cast<std::uint8_t>((base[i] & ~mask) | (value & mask));
    mask >>= 8;
    value >>= 8;
  }
}

}  // namespace orvane::image
