#include "files/byte_order_mark.h"

#include <cstddef>

#include "core/ansi.h"
#include "core/utf8.h"

namespace orvane::files {
namespace {

/// Takes one unit of UTF-16 off. `high` is the place of the greater byte in each pair.
char32_t TakeUnit(std::string_view& bytes, std::size_t high) {
  const auto byte_at = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
  const char32_t unit = (char32_t{byte_at(high)} << 8) | byte_at(1 - high);
  bytes.remove_prefix(2);
  return unit;
}

std::string FromUtf16(std::string_view bytes, std::size_t high) {
  constexpr char32_t kLead = 0xD800;
  constexpr char32_t kTrail = 0xDC00;
  constexpr char32_t kSurrogateEnd = 0xE000;
  std::string text;
  while (bytes.size() >= 2) {
    char32_t character = TakeUnit(bytes, high);
    if (character >= kLead && character < kSurrogateEnd) {
      std::string_view rest = bytes;
      const char32_t second = rest.size() >= 2 ? TakeUnit(rest, high) : 0;
      const bool pair = character < kTrail && second >= kTrail && second < kSurrogateEnd;
      character =
          pair ? 0x10000 + ((character - kLead) << 10) + (second - kTrail) : core::kNoCharacter;
      if (pair) bytes = rest;
    }
    core::AppendUtf8(text, character);
  }
  return text;
}

/// As UTF-8, but what the mark says is UTF-8 may be none.
std::optional<std::string> AsMarked(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return std::string(bytes.substr(3));
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(bytes.substr(2), 1);
  if (bytes.starts_with("\xFE\xFF")) return FromUtf16(bytes.substr(2), 0);
  return std::nullopt;
}

}  // namespace

std::optional<std::string> WithoutByteOrderMark(std::string_view bytes) {
  const std::optional<std::string> marked = AsMarked(bytes);
  if (!marked) return std::nullopt;
  std::string text;
  for (std::string_view rest = *marked; !rest.empty();) {
    text.push_back(core::AnsiByte(core::TakeUtf8(rest)));
  }
  return text;
}

std::string AsUtf8(std::string_view bytes) {
  if (std::optional<std::string> marked = AsMarked(bytes)) return *std::move(marked);
  return core::IsUtf8(bytes) ? std::string(bytes) : core::AnsiToUtf8(bytes);
}

}  // namespace orvane::files
