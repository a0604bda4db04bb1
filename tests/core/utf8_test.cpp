#include "core/utf8.h"

#include <gtest/gtest.h>

namespace orvane::core {
namespace {

TEST(Utf8, EveryByteOfWindows1252ComesBack) {
  std::string ansi;
  for (int byte = 0; byte < 256; ++byte) ansi += static_cast<char>(byte);
  const std::string utf8 = AnsiToUtf8(ansi);
  EXPECT_TRUE(IsUtf8(utf8));
  EXPECT_EQ(Utf8ToAnsi(utf8), ansi);
}

TEST(Utf8, EveryCharacterComesBack) {
  for (char32_t code_point = 0; code_point <= 0x10FFFF; code_point += 37) {
    if (code_point >= 0xD800 && code_point <= 0xDFFF) continue;
    std::string text;
    AppendUtf8(text, code_point);
    std::string_view rest = text;
    ASSERT_EQ(TakeUtf8(rest), code_point);
    ASSERT_TRUE(rest.empty() && IsUtf8(text));
  }
}

TEST(Utf8, WhatIsNoCharacterIsTakenByteByByte) {
  for (const std::string_view bytes :
       {"\x80", "\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
        "\xF8\x88\x80\x80\x80", "\xE2\x82", "\xC3("}) {
    std::string_view rest = bytes;
    EXPECT_EQ(TakeUtf8(rest), kNoCharacter) << bytes;
    EXPECT_EQ(rest, bytes.substr(1));
    EXPECT_FALSE(IsUtf8(bytes));
    EXPECT_EQ(Utf8ToAnsi(bytes), std::nullopt);
  }
  EXPECT_TRUE(IsUtf8("\xEF\xBF\xBD"));
  EXPECT_EQ(Utf8ToAnsi("\xE2\x82\xAC\xC3\xA4"), "\x80\xE4");
  EXPECT_EQ(Utf8ToAnsi("\xD0\x96"), std::nullopt);
}

}  // namespace
}  // namespace orvane::core
