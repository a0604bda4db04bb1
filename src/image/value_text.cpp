#include "image/value_text.h"

#include <bit>
#include <cstdio>

#include "image/row.h"

namespace orvane::image {

std::string ValueText(core::Flag value) {
  return value ? "on" : "off";
}

std::string ValueText(double mhz) {
  if (mhz <= 0) return "none";
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.4f MHz", mhz);
  return text.data();
}

std::string ValueText(const std::string& text) {
  return '"' + text + '"';
}

std::string NumberText(const std::uint8_t* base, const Place& place) {
  return std::to_string(ReadBits(base, place.bits));
}

std::string SetBitsText(const std::uint8_t* base, const Bits& bits) {
  int set = 0;
  for (int i = 0; i < bits.count; ++i) {
    set += static_cast<int>(ReadBits(base, {bits.first + i, 1}));
  }
  return std::to_string(set) + " of " + std::to_string(bits.count) + " set";
}

std::string StoredChannelText(const std::uint8_t* base, const Place& place) {
  const std::uint32_t swapped = ReadBits(base, place.bits);
  const std::uint32_t channel = (swapped & 0xFF) << 8 | swapped >> 8;
  return channel == 0xFFFF ? "empty" : std::to_string(channel);
}

std::string CharactersText(const std::uint8_t* base, const Place& place) {
  std::string text;
  for (int i = place.bits.FirstByte(); i <= place.bits.LastByte(); ++i) {
    const bool printable = base[i] >= 0x20 && base[i] < 0x7F;
    text.push_back(printable ? static_cast<char>(base[i]) : '.');
  }
  return ValueText(text);
}

std::string NoText(const std::uint8_t* /*base*/, const Place& /*place*/) {
  return {};
}

}  // namespace orvane::image
