#include "files/byte_order_mark.h"

#include <bit>
#include <cstddef>

#include "core/ansi.h"

namespace orvane::files {
namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

unsigned ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

/// Takes the first character off; one byte when it is none.
char32_t TakeUtf8(std::string_view& bytes) {
  constexpr unsigned kDataMask = 0x3F;
  const auto lead = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  const int ones = std::countl_one(lead);
  if (ones == 0) return lead;
  const auto followers = static_cast<std::size_t>(ones - 1);
  if (ones == 1 || ones > 4 || bytes.size() < followers) return kNoCharacter;
  char32_t code_point = lead & (kDataMask >> (ones - 1));
  for (std::size_t i = 0; i < followers; ++i) {
    const unsigned byte = ByteAt(bytes, i);
    if ((byte & ~kDataMask) != 0x80) return kNoCharacter;
    code_point = (code_point << 6) | (byte & kDataMask);
  }
  bytes.remove_prefix(followers);
  return code_point;
}

std::string FromUtf8(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) text.push_back(core::AnsiByte(TakeUtf8(bytes)));
  return text;
}

/// `high` is the place of the greater byte in each pair. Every character of Windows-1252 is one
/// pair.
std::string FromUtf16(std::string_view bytes, std::size_t high) {
  std::string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    text.push_back(core::AnsiByte((ByteAt(bytes, i + high) << 8) | ByteAt(bytes, i + 1 - high)));
  }
  return text;
}

}  // namespace

std::optional<std::string> WithoutByteOrderMark(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return FromUtf8(bytes.substr(3));
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(bytes.substr(2), 1);
  if (bytes.starts_with("\xFE\xFF")) return FromUtf16(bytes.substr(2), 0);
  return std::nullopt;
}

}  // namespace orvane::files
