#include <gtest/gtest.h>

#include <string>

#include "image/codec.h"
#include "support/image_fixtures.h"

namespace orvane::image {
namespace {

using core::RadioData;
using ::orvane::testing::NewData;
using ::orvane::testing::SetBytes;

constexpr int kRecord1 = 2304;

TEST(DecodeOffsetTime, IsSignAndMagnitudeCappedAtTwelveHours) {
  struct Case {
    int stored;
    int value;
  };
  for (const auto& [stored, value] : {Case{0, 12}, Case{31, 12}, Case{16, 12}, Case{21, 17},
                                      Case{5, 7}, Case{15, 0}, Case{30, 24}, Case{1, 11}}) {
    RadioData data = NewData(0);
    data.Image[76] = static_cast<std::uint8_t>(stored | 0xE0);
    DecodeAll(data);
    EXPECT_EQ(data.Common.Offset_Time, value) << stored;
    EXPECT_EQ(data.Common.Magnetic_Variation, 1);
  }
}

TEST(DecodeCommon, ErasedChannelNumbersAreNone) {
  RadioData data = NewData(5);
  SetBytes(data.Image, 80, {255, 255, 255, 255, 255, 255, 1, 30});
  DecodeAll(data);
  EXPECT_EQ(data.Common.Last_Display_CH, -1);
  EXPECT_EQ(data.Common.Marine_LMR_CH, -1);
  EXPECT_EQ(data.Usable[0].Priority_CH, -1);
  EXPECT_EQ(data.Usable[1].Priority_CH, 286);
}

TEST(DecodeCommon, RotaryBeepComesBackOnlyWithCallSigns) {
  for (const auto& profile : core::ModelProfiles()) {
    RadioData data = NewData(profile.model_type);
    data.Common.RotaryBeep = false;
    data.Image[90] = 0xFF;
    DecodeAll(data);
    EXPECT_EQ(data.Common.RotaryBeep, profile.model_type == 0) << profile.model;
  }
}

TEST(DecodeMarine, BitmapsCountFromTheHighBit) {
  RadioData data = NewData(5);
  for (int i = 256; i < 286; ++i) data.Image[i] = 0;
  data.Image[256] = 128;
  data.Image[352 + 29] = 1;
  DecodeAll(data);
  EXPECT_TRUE(data.Marine[0][0].Enable);
  EXPECT_FALSE(data.Marine[0][1].Enable);
  EXPECT_TRUE(data.Marine[1][239].ScanMemory);
}

TEST(DecodeMarine, PowerCodeSetsThreeMembers) {
  struct Case {
    int flags;
    bool tx, low;
    int power;
  };
  for (const Case& c : {Case{0x00, false, false, 0}, Case{0x40, true, true, 1},
                        Case{0x80, true, false, 2}, Case{0xC0, true, false, 3}}) {
    RadioData data = NewData(5);
    data.Image[1280 + 2 * 7] = static_cast<std::uint8_t>(c.flags | 0x3A);
    DecodeAll(data);
    const core::ChannelRecord& channel = data.Marine[1][7];
    EXPECT_EQ(channel.TxEnable, c.tx);
    EXPECT_EQ(channel.LowPower, c.low);
    EXPECT_EQ(channel.TXPower, c.power);
    EXPECT_TRUE(channel.Duplex && channel.PowUp && channel.SelectedPlan);
    EXPECT_EQ(channel.Scramble, 5);
  }
}

TEST(DecodeText, NamesEndAtAForeignCharacterCallSignsSkipIt) {
  RadioData data = NewData(0);
  SetBytes(data.Image, 12544, {'A', '?', 'B', 'A', '!', 'B'});
  SetBytes(data.Image, 5952, {'A', '?', 'B'});
  SetBytes(data.Image, 5952 + 12, {' ', 'a', '-', '/', ',', '_', ' ', '9', ' ', ' ', ' ', ' '});
  DecodeAll(data);
  EXPECT_EQ(data.CallSigns[1].Mid, "AB");
  EXPECT_EQ(data.CallSigns[1].Display, "AB");
  EXPECT_EQ(data.Marine[1][0].ChTag, "A");
  EXPECT_EQ(data.Marine[1][1].ChTag, " a-/,_ 9");
}

TEST(DecodeExtra, FrequenciesEndAtAForeignDigit) {
  struct Case {
    std::array<int, 3> bytes;
    double mhz;
  };
  for (const auto& [bytes, mhz] :
       {Case{{0x56, 0x80, 0x00}, 156.8}, Case{{0x56, 0x40, 0x00}, 156.4},
        Case{{0x57, 0x01, 0x25}, 157.0125}, Case{{0xFF, 0xFF, 0xFF}, 0},
        Case{{0x56, 0x8F, 0x11}, 156.8}, Case{{0x5F, 0x11, 0x11}, 150}, Case{{0x00, 0x00, 0x00}, 0},
        Case{{0x00, 0x00, 0x01}, 100.0001}, Case{{0x99, 0x99, 0x99}, 199.9999}}) {
    RadioData data = NewData(5);
    SetBytes(data.Image, kRecord1 + 5, {bytes[0], bytes[1], bytes[2]});
    DecodeAll(data);
    EXPECT_EQ(data.EXP[1].Rxfreq, mhz);
  }
}

TEST(DecodeExtra, ToneBlockStandsWhereTheModelHasIt) {
  struct Case {
    std::array<int, 4> bytes;
    int tx_ctcss, rx_ctcss, rx_dcs, tx_dcs;
    bool complement;
  };
  for (const Case& c : {Case{{0x10, 0xC2, 5, 255}, 2, 3, 109, 0, false},
                        Case{{0x8F, 0xBF, 0, 5}, 0, 62, 0, 109, false},
                        Case{{0x0F, 0xFF, 255, 255}, 0, 0, 0, 0, false},
                        Case{{0xA0, 0x00, 255, 255}, 0, 0, 0, 0, true},
                        Case{{0x30, 0x01, 7, 104}, 1, 0, 7, 104, false}}) {
    for (const int model_type : {2, 4, 5, 6}) {
      RadioData data = NewData(model_type);
      const int base = kRecord1 + (model_type == 2 ? 10 : 11);
      SetBytes(data.Image, base, {c.bytes[0], c.bytes[1], c.bytes[2], c.bytes[3]});
      DecodeAll(data);
      EXPECT_EQ(data.EXP[1].TxCTCSS, c.tx_ctcss);
      EXPECT_EQ(data.EXP[1].RxCTCSS, c.rx_ctcss);
      EXPECT_EQ(data.EXP[1].RxDCS, c.rx_dcs);
      EXPECT_EQ(data.EXP[1].TxDCS, c.tx_dcs);
      EXPECT_EQ(data.EXP[1].RxComp, c.complement);
    }
  }
}

TEST(DecodeExtra, PresenceNeedsTheGroupAndAnEnabledChannelOfTheKind) {
  struct Case {
    bool group, lmr, exp;
  };
  for (const Case& c : {Case{true, true, true}, Case{true, false, true}, Case{true, true, false},
                        Case{true, false, false}, Case{false, true, true}}) {
    RadioData data = NewData(5);
    data.Image[93] = static_cast<std::uint8_t>(c.group ? 0xFF : 0xFE);
    data.Image[450] = static_cast<std::uint8_t>((c.lmr ? 0x80 : 0) | (c.exp ? 0x40 : 0));
    data.Image[kRecord1 + 15] = 0x80;
    data.Image[kRecord1 + 16 + 15] = 0x00;
    DecodeAll(data);
    EXPECT_EQ(data.LmrPresent(), c.group && c.lmr);
    EXPECT_EQ(data.ExpPresent, c.group && c.exp);
  }
}

TEST(DecodeDirectories, EndAtTheFirstEmptyNumber) {
  RadioData data = NewData(3);
  for (const int entry : {0, 1, 3}) {
    SetBytes(data.Image, 12800 + 16 * entry, {0x33, 0x81, 0x23, 0x45, 0x6F, 'S', 'T', 'N', '1'});
    SetBytes(data.Image, 13568 + 16 * (entry + 1), {0x03, 0x38, 0x12, 0x34, 0x56, 'G'});
  }
  DecodeAll(data);
  EXPECT_TRUE(data.Stations[2].Enable);
  EXPECT_EQ(data.Stations[2].TagName, "STN1");
  EXPECT_EQ(data.Stations[2].Mmsid, "338123456");
  for (int i = 3; i <= core::kStations; ++i) {
    EXPECT_EQ(data.Stations[i], core::DirectoryEntry{}) << i;
  }
  for (const core::DirectoryEntry& group : data.StationGroups) {
    EXPECT_EQ(group, core::DirectoryEntry{});
  }
}

TEST(Decode, NeverTouchesTheImageNorWhatTheModelLacks) {
  for (const auto& profile : core::ModelProfiles()) {
    RadioData data = NewData(profile.model_type);
    const RadioData before = data;
    for (std::uint8_t& byte : data.Image.All()) byte = 'A';
    const core::MemoryImage image = data.Image;
    DecodeAll(data);
    EXPECT_EQ(data.Image, image) << profile.model;
    EXPECT_EQ(data.Marine[0][32].ChTag == before.Marine[0][32].ChTag, !profile.has_channel_names);
    EXPECT_EQ(data.Stations == before.Stations, !profile.has_dsc);
    EXPECT_EQ(data.Dsc == before.Dsc, !profile.has_dsc);
    EXPECT_EQ(data.CallSigns == before.CallSigns, !profile.has_call_signs);
    EXPECT_EQ(data.EXP[1].TxCTCSS == before.EXP[1].TxCTCSS, !profile.HasTones());
    EXPECT_EQ(data.Usable[3].Priority_CH, before.Usable[3].Priority_CH);
  }
}

TEST(Decode, ModelNameFollowsTheDestination) {
  RadioData data = NewData(5);
  EXPECT_EQ(ModelName(data), "KT740");
  SetDestinationBits(data.Image, false, true);
  DecodeAll(data);
  EXPECT_EQ(ModelName(data), "KT520");
  EXPECT_EQ(data.Image[168], 0xFF & ~0x20 & ~0x04);
}

}  // namespace
}  // namespace orvane::image
