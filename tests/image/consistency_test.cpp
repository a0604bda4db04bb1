#include <gtest/gtest.h>

#include <string>

#include "image/codec.h"
#include "support/image_fixtures.h"

namespace orvane::image {
namespace {

using core::RadioData;
using ::orvane::testing::BytesOf;
using ::orvane::testing::NewData;
using ::orvane::testing::SetBytes;
using Bytes = std::vector<int>;

// Image bytes with all tables empty, so that each case marks just what it needs.
RadioData EmptyTables(int model_type) {
  RadioData data = NewData(model_type);
  for (int i = 256; i < 496; ++i) data.Image[i] = 0;
  SetBytes(data.Image, 80, {9, 9, 9, 9});
  return data;
}

void Mark(core::MemoryImage& image, int bitmap, int entry) {
  image[bitmap + entry / 8] =
      static_cast<std::uint8_t>(image[bitmap + entry / 8] | 0x80 >> entry % 8);
}

constexpr int kUsaMap = 256;
constexpr int kIntlMap = 320;
constexpr int kWxMap = 448;
constexpr int kExtraMap = 450;

TEST(ConsistencyMarine, FallsBackToAnEnabledGroup) {
  constexpr int kUsa = 8, kIntl = 4, kCanada = 2;
  struct Case {
    int group, enabled, result;
  };
  for (const auto& [group, enabled, result] :
       {Case{0, kUsa | kIntl, 0}, Case{0, kIntl | kCanada, 1}, Case{0, kCanada, 2},
        Case{2, kUsa | kIntl, 0}, Case{2, kIntl, 1}, Case{1, kUsa | kCanada, 2}, Case{1, kUsa, 0},
        Case{7, kUsa | kIntl, 0}, Case{7, kIntl, 7}, Case{1, 0, 1}, Case{0, 0, 0}}) {
    RadioData data = EmptyTables(5);
    data.Image[70] = static_cast<std::uint8_t>(group);
    data.Image[93] = static_cast<std::uint8_t>(0xB0 | enabled);
    data.Common.Last_CH_Group = 1;
    ConsistencyPass(data);
    EXPECT_EQ(data.Image[70], result) << group << ' ' << enabled;
    EXPECT_EQ(data.Common.Last_CH_Group, 1);
  }
}

TEST(ConsistencyMarine, LastChannelMustBeEnabledInItsGroup) {
  struct Case {
    int group;
    std::int32_t last;
    Bytes stored;
  };
  for (const auto& [group, last, stored] :
       {Case{0, 200, {0, 200, 0, 200}}, Case{0, 33, {0, 32, 0, 32}}, Case{0, -1, {0, 32, 0, 32}},
        Case{0, 280, {0, 32, 0, 32}}, Case{1, 32, {0, 245, 0, 245}}, Case{7, 32, {9, 9, 9, 9}}}) {
    RadioData data = EmptyTables(5);
    data.Image[70] = static_cast<std::uint8_t>(group);
    data.Image[93] = group == 7 ? 0xB4 : 0xBF;
    Mark(data.Image, kUsaMap, 32);
    Mark(data.Image, kUsaMap, 200);
    Mark(data.Image, kExtraMap, 5);
    data.Common.Last_Display_CH = last;
    ConsistencyPass(data);
    EXPECT_EQ(BytesOf(data.Image, 80, 4), stored) << group << ' ' << last;
    EXPECT_EQ(data.Common.Last_Display_CH, last);
  }
}

TEST(ConsistencyMarine, NothingIsWrittenWhenNoChannelIsLeft) {
  RadioData data = EmptyTables(5);
  ConsistencyPass(data);
  EXPECT_EQ(BytesOf(data.Image, 80, 4), (Bytes{9, 9, 9, 9}));
}

TEST(ConsistencyWx, KeepsOrReplacesTheWeatherNumber) {
  struct Case {
    int last;
    Bytes marked;
    int result;
    Bytes stored;
  };
  for (const auto& [last, marked, result, stored] :
       {Case{9, {3, 9}, 9, {0, 9, 9, 9}}, Case{8, {3, 9}, 3, {0, 3, 9, 9}},
        Case{255, {9}, 9, {0, 9, 9, 9}}, Case{4, {}, 4, {9, 9, 9, 9}}}) {
    RadioData data = EmptyTables(5);
    data.Image[71] = 1;
    data.Image[70] = 7;
    data.Image[72] = static_cast<std::uint8_t>(last);
    for (const int channel : marked) Mark(data.Image, kWxMap, channel);
    ConsistencyPass(data);
    EXPECT_EQ(data.Image[72], result);
    EXPECT_EQ(data.Image[70], 7);
    EXPECT_EQ(BytesOf(data.Image, 80, 4), stored);
  }
}

TEST(ConsistencyStored, OnlyValidChannelsStay) {
  for (const auto& profile : core::ModelProfiles()) {
    RadioData data = EmptyTables(profile.model_type);
    data.Image[71] = 9;  // neither mode: the lists are checked all the same
    Mark(data.Image, kUsaMap, 10);
    Mark(data.Image, kExtraMap, 0);
    Mark(data.Image, kWxMap, 9);
    data.Image[93] = 0xB9;  // USA and EXP/LMR
    SetBytes(data.Image, 96, {10, 0, 5, 0, 240, 0, 0x21, 1, 0x22, 1, 241, 0, 10, 1, 255, 255});
    SetBytes(data.Image, 116, {10, 0});
    Mark(data.Image, kIntlMap, 10);
    ConsistencyPass(data);
    EXPECT_EQ(BytesOf(data.Image, 96, 16),
              (Bytes{10, 0, 255, 255, 240, 0, 0x21, 1, 255, 255, 255, 255, 255, 255, 255, 255}))
        << profile.model;
    EXPECT_EQ(BytesOf(data.Image, 116, 2), (Bytes{255, 255})) << "the group is switched off";
  }
}

TEST(ConsistencyPriority, FallsBackTo16Then09ThenTheStoredChannels) {
  struct Case {
    std::int32_t priority;
    Bytes marked;
    int groups;
    std::int32_t result;
  };
  constexpr int kOn = 0xBF, kOff = 0xB7;
  for (const auto& [priority, marked, groups, result] :
       {Case{100, {100, 32}, kOn, 100}, Case{100, {32, 18}, kOn, 32}, Case{100, {18, 50}, kOn, 18},
        Case{100, {50, 60}, kOn, 60}, Case{100, {50}, kOn, -1}, Case{-1, {32}, kOn, -1},
        Case{290, {32}, kOn, -1}, Case{100, {}, kOff, 100}, Case{289, {32}, kOn, 32}}) {
    RadioData data = EmptyTables(5);
    data.Image[93] = static_cast<std::uint8_t>(groups);
    for (const int channel : marked) Mark(data.Image, kUsaMap, channel);
    SetBytes(data.Image, 96, {70, 0, 60, 0});
    data.Usable[0].Priority_CH = priority;
    ConsistencyPass(data);
    EXPECT_EQ(data.Usable[0].Priority_CH, result) << priority;
    EXPECT_EQ(data.Image[84] * 256 + data.Image[85], result & 0xFFFF);
  }
}

TEST(ConsistencyPriority, RadiosWithDscKeepTheirs) {
  RadioData data = EmptyTables(3);
  data.Usable[0].Priority_CH = 100;
  SetBytes(data.Image, 84, {7, 7});
  ConsistencyPass(data);
  EXPECT_EQ(data.Usable[0].Priority_CH, 100);
  EXPECT_EQ(BytesOf(data.Image, 84, 2), (Bytes{7, 7}));
}

TEST(ConsistencyAtis, ModesFollowGroupsAndCallSigns) {
  struct Case {
    int model_type, groups;
    bool call_sign;
    int modes;
  };
  for (const auto& [model_type, groups, call_sign, modes] :
       {Case{0, 0x8F, false, 0x40}, Case{0, 0x9F, true, 0x82}, Case{3, 0xFF, false, 0x55},
        Case{3, 0x00, true, 0x00}, Case{5, 0xFF, true, 255}}) {
    RadioData data = EmptyTables(model_type);
    data.Image[505] = static_cast<std::uint8_t>(groups);
    data.Image[12544 + 19 * 8 + 2] = call_sign ? 'X' : 255;
    ConsistencyPass(data);
    EXPECT_EQ(data.Image[506], modes);
  }
}

TEST(CommonChecksum, SumsTheCommonSettings) {
  RadioData data = NewData(5);
  for (int i = 66; i < 95; ++i) data.Image[i] = 10;
  data.Image[65] = data.Image[96] = 99;
  StoreCommonChecksum(data.Image);
  EXPECT_EQ(data.Image[95], 290 % 256);
}

}  // namespace
}  // namespace orvane::image
