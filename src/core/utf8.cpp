#include "core/utf8.h"

#include <array>
#include <bit>
#include <cstddef>

#include "core/ansi.h"

namespace orvane::core {
namespace {

constexpr int kDataBits = 6;  // of each byte behind the first
constexpr unsigned kDataMask = 0x3F;
constexpr unsigned kFollowerMark = 0x80;
constexpr char32_t kLastCodePoint = 0x10FFFF;

// The least code point that needs a form of so many bytes behind the first.
constexpr std::array<char32_t, 4> kLeast = {0, 0x80, 0x800, 0x10000};

bool IsCharacter(char32_t code_point, std::size_t followers) {
  const bool surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
  return code_point >= kLeast[followers] && code_point <= kLastCodePoint && !surrogate;
}

}  // namespace

char32_t TakeUtf8(std::string_view& bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  const auto ones = static_cast<std::size_t>(std::countl_one(lead));
  if (ones == 0) return lead;
  const std::size_t followers = ones - 1;
  if (followers == 0 || followers >= kLeast.size() || bytes.size() < followers) {
    return kNoCharacter;
  }
  char32_t code_point = lead & (kDataMask >> followers);
  for (std::size_t i = 0; i < followers; ++i) {
    const unsigned byte = static_cast<unsigned char>(bytes[i]);
    if ((byte & ~kDataMask) != kFollowerMark) return kNoCharacter;
    code_point = (code_point << kDataBits) | (byte & kDataMask);
  }
  if (!IsCharacter(code_point, followers)) return kNoCharacter;
  bytes.remove_prefix(followers);
  return code_point;
}

void AppendUtf8(std::string& text, char32_t code_point) {
  std::size_t followers = 0;
  while (followers + 1 < kLeast.size() && code_point >= kLeast[followers + 1]) ++followers;
  const auto part = [&](std::size_t follower) {
    return static_cast<unsigned>(code_point >> (kDataBits * static_cast<int>(follower)));
  };
  if (followers == 0) {
    text += static_cast<char>(code_point);
    return;
  }
  const unsigned lead_mark = (0xF00U >> (followers + 1)) & 0xFFU;
  text += static_cast<char>(lead_mark | part(followers));
  while (followers-- > 0) text += static_cast<char>(kFollowerMark | (part(followers) & kDataMask));
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t size = bytes.size();
    // The character itself may be written in a text; then it takes three bytes.
    if (TakeUtf8(bytes) == kNoCharacter && size - bytes.size() == 1) return false;
  }
  return true;
}

std::string AnsiToUtf8(std::string_view ansi) {
  std::string text;
  text.reserve(ansi.size());
  for (const char byte : ansi) AppendUtf8(text, AnsiCodePoint(byte));
  return text;
}

std::optional<std::string> Utf8ToAnsi(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t code_point = TakeUtf8(utf8);
    const char byte = AnsiByte(code_point);
    if (AnsiCodePoint(byte) != code_point) return {};
    text += byte;
  }
  return text;
}

}  // namespace orvane::core
