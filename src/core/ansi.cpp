#include "core/ansi.h"

#include <algorithm>
#include <array>

namespace orvane::core {
namespace {

constexpr char32_t kFirstSpecial = 0x80;
constexpr char32_t kLatin1 = 0xA0;  // from here on byte and code point are the same again
constexpr char32_t kLastByte = 0xFF;

// Code points of the bytes 0x80..0x9F.
constexpr std::array<char32_t, kLatin1 - kFirstSpecial> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char32_t AnsiCodePoint(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= kFirstSpecial && value < kLatin1 ? kSpecials[value - kFirstSpecial] : value;
}

char AnsiByte(char32_t code_point) {
  if (code_point < kFirstSpecial || (code_point >= kLatin1 && code_point <= kLastByte)) {
    return static_cast<char>(code_point);
  }
  const auto* const found = std::find(kSpecials.begin(), kSpecials.end(), code_point);
  if (found == kSpecials.end()) return '?';
  return static_cast<char>(kFirstSpecial + static_cast<char32_t>(found - kSpecials.begin()));
}

}  // namespace orvane::core
