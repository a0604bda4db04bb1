#include "platform/ansi_text.h"

#include <QList>
#include <algorithm>
#include <array>
#include <cstddef>

namespace orvane::platform {
namespace {

constexpr char32_t kFirstSpecial = 0x80;
constexpr char32_t kLatin1 = 0xA0;  // from here on byte and code point are the same again

// Code points of the bytes 0x80..0x9F.
constexpr std::array<char16_t, kLatin1 - kFirstSpecial> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(char32_t code_point) {
  if (code_point < kFirstSpecial || (code_point >= kLatin1 && code_point <= 0xFF)) {
    return static_cast<char>(code_point);
  }
  const auto* const found = std::find(kSpecials.begin(), kSpecials.end(), code_point);
  if (found == kSpecials.end()) return '?';
  return static_cast<char>(kFirstSpecial + static_cast<char32_t>(found - kSpecials.begin()));
}

}  // namespace

QString FromAnsi(std::string_view bytes) {
  QString text;
  text.reserve(static_cast<qsizetype>(bytes.size()));
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    const bool special = value >= kFirstSpecial && value < kLatin1;
    text.append(QChar(special ? kSpecials[value - kFirstSpecial] : char16_t{value}));
  }
  return text;
}

std::string ToAnsi(const QString& text) {
  std::string bytes;
  for (const char32_t code_point : text.toUcs4()) bytes.push_back(ByteOf(code_point));
  return bytes;
}

QString FromUtf8(std::string_view bytes) {
  return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::string ToUtf8(const QString& text) {
  return text.toUtf8().toStdString();
}

std::string AnsiToUtf8(std::string_view bytes) {
  return ToUtf8(FromAnsi(bytes));
}

}  // namespace orvane::platform
