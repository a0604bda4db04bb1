#include "link/clone_frame.h"

#include <gtest/gtest.h>

namespace orvane::link {
namespace {

TEST(CloneFrame, IsBuiltAsTheRadioExpects) {
  EXPECT_EQ(BuildFrame("#WJDRD", AddressField(64), LengthField(16)), "#WJDRD\t0040\t10\t60\r\n");
  EXPECT_EQ(BuildFrame("#WJDSR", "00"), "#WJDSR\t00\t7B\r\n");
  // The XOR of this one is below 16: two digits all the same.
  EXPECT_EQ(BuildFrame("\x08"), "\x08\t01\r\n");
}

TEST(CloneFrame, EmptyFieldsVanishWithTheirTab) {
  EXPECT_EQ(BuildFrame("#W", "", "10", ""), BuildFrame("#W", "10"));
}

TEST(CloneFrame, HexDataKeepsEveryByteInTwoDigits) {
  EXPECT_EQ(HexData(std::array<std::uint8_t, 3>{0, 10, 255}), "000AFF");
}

TEST(LineChecksum, TakesOnlyTheXorOfWhatStandsBeforeIt) {
  struct Case {
    std::string_view line;
    bool right;
  };
  for (const Case& c : {Case{"#WJDSR\t00\t7B", true},
                        {"#WJDSR\t00\t7b", true},
                        {"#WJDSR\t00\t7C", false},
                        {"#WJDSR\t01\t7B", false},
                        {"#WJDSR\t00\t7", false},
                        {"A41", true},
                        {"41", false},
                        {"", false},
                        {"A4G", false},
                        {"A 41", false}}) {
    EXPECT_EQ(VerifyLineChecksum(c.line), c.right) << c.line;
  }
}

}  // namespace
}  // namespace orvane::link
