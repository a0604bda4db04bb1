#include "platform/ansi_text.h"

#include <gtest/gtest.h>

namespace orvane::platform {
namespace {

TEST(AnsiText, EveryByteSurvivesTheWayThereAndBack) {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes.push_back(static_cast<char>(value));
  EXPECT_EQ(ToAnsi(FromAnsi(bytes)), bytes);
}

TEST(AnsiText, BytesMeanTheCharactersOfWindows1252) {
  EXPECT_EQ(FromAnsi("\x80\x8A\x9F\xA0\xE9"),
            QString::fromUtf16(u"\u20AC\u0160\u0178\u00A0\u00E9"));
}

TEST(AnsiText, CharactersWithoutAByteBecomeOneQuestionMarkEach) {
  EXPECT_EQ(ToAnsi(QString::fromUtf16(u"A\u03A9B\U0001F6A4C")), "A?B?C");
}

}  // namespace
}  // namespace orvane::platform
