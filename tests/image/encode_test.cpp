#include <gtest/gtest.h>

#include <random>
#include <string>

#include "image/codec.h"
#include "image/memory_map.h"
#include "support/image_fixtures.h"

namespace orvane::image {
namespace {

using core::RadioData;
using ::orvane::testing::BytesOf;
using ::orvane::testing::kAfterCutOver;
using ::orvane::testing::kBeforeCutOver;
using ::orvane::testing::NewData;
using Bytes = std::vector<int>;

constexpr int kRecord1 = 2304;

TEST(MarineFlags, InhibitedWinsOverLowPowerAndThePlanOverDuplex) {
  struct Case {
    bool tx, low, duplex, allowed;
    int power, flags;
  };
  for (const Case& c :
       {Case{false, true, false, true, 3, 0x00}, Case{true, true, false, true, 3, 0x40},
        Case{true, false, true, true, 2, 0xA0}, Case{true, false, true, false, 3, 0xC0},
        Case{true, false, false, true, 7, 0xC0}}) {
    RadioData data = NewData(5);
    core::ChannelRecord& channel = data.Marine[2][10];
    channel.TxEnable = c.tx;
    channel.LowPower = c.low;
    channel.Duplex = c.duplex;
    channel.DuplexAllowed = c.allowed;
    channel.TXPower = static_cast<std::uint8_t>(c.power);
    data.Image[1792 + 20] = 0x01;
    data.Image[1792 + 21] = 0x5A;
    EncodeAll(data, kAfterCutOver);
    EXPECT_EQ(BytesOf(data.Image, 1792 + 20, 2), (Bytes{c.flags, 0x5A}));
  }
}

TEST(EncodeExtra, NarrowIsForcedWhereTheLawForbidsWide) {
  struct Case {
    int model_type;
    core::Date today;
    int lmr_exp;
    double mhz;
    int narrow;
  };
  for (const Case& c : {Case{5, kAfterCutOver, -1, 155, 1}, Case{5, kBeforeCutOver, -1, 155, 0},
                        Case{5, kAfterCutOver, 0, 155, 0}, Case{5, kAfterCutOver, -1, 149.9, 0},
                        Case{6, kAfterCutOver, -1, 155, 0}}) {
    RadioData data = NewData(c.model_type);
    data.EXP[1].LMR_EXP = static_cast<std::int16_t>(c.lmr_exp);
    data.EXP[1].Txfreq = c.mhz;
    EncodeAll(data, c.today);
    EXPECT_EQ(data.Image[kRecord1] & 1, c.narrow);
    EXPECT_FALSE(data.EXP[1].Narrow);
  }
}

TEST(EncodeExtra, LastByteIsRebuilt) {
  RadioData data = NewData(5);
  data.EXP[1].LMR_EXP = 7;  // of neither kind
  data.Image[kRecord1 + 15] = 0xFF;
  EncodeAll(data, kAfterCutOver);
  EXPECT_EQ(data.Image[kRecord1 + 15], 0);
}

TEST(EncodeExtra, Frequencies) {
  struct Case {
    double mhz;
    Bytes bytes;
  };
  for (const auto& [mhz, bytes] :
       {Case{0, {0, 0, 0}}, Case{100, {0, 0, 0}}, Case{162, {0x62, 0, 0}},
        Case{157.0125, {0x57, 0x01, 0x25}}, Case{199.9999, {0x99, 0x99, 0x99}}, Case{-5, {0, 0, 0}},
        Case{199.99996, {0, 0, 0}}, Case{200, {0, 0, 0}}, Case{250, {0, 0, 0}},
        Case{1e300 * 1e300, {0, 0, 0}}}) {
    RadioData data = NewData(5);
    data.EXP[40].Txfreq = mhz;
    EncodeAll(data, kAfterCutOver);
    EXPECT_EQ(BytesOf(data.Image, kRecord1 + 39 * 16 + 8, 3), bytes) << mhz;
  }
}

TEST(EncodeExtra, Tones) {
  struct Case {
    std::int16_t tx_ctcss, rx_ctcss, tx_dcs, rx_dcs;
    bool complement;
    Bytes bytes;
  };
  for (const Case& c : {Case{2, 3, 0, 109, false, {0x10 | 0x40, 0xC2, 5, 0}},
                        Case{50, 50, 208, 109, true, {0x80 | 0x20 | 0x0C | 0x40, 0xB2, 5, 104}},
                        Case{0, 0, 104, 104, false, {0x40, 0, 104, 104}}}) {
    RadioData data = NewData(4);
    data.Image[kRecord1 + 11] = 0x40;  // bit 6 belongs to no tone
    data.EXP[1].TxCTCSS = c.tx_ctcss;
    data.EXP[1].RxCTCSS = c.rx_ctcss;
    data.EXP[1].TxDCS = c.tx_dcs;
    data.EXP[1].RxDCS = c.rx_dcs;
    data.EXP[1].RxComp = c.complement;
    EncodeAll(data, kAfterCutOver);
    EXPECT_EQ(BytesOf(data.Image, kRecord1 + 11, 4), c.bytes);
  }
}

TEST(EncodeExtra, TonesLieOverTheLastFrequencyDigitsWhereTheyShareAByte) {
  RadioData data = NewData(2);
  data.EXP[1].Txfreq = 156.8175;
  data.EXP[1].RxCTCSS = 50;
  EncodeAll(data, kAfterCutOver);
  EXPECT_EQ(BytesOf(data.Image, kRecord1 + 8, 3), (Bytes{0x56, 0x81, 0x40 | 0x0C}));
}

TEST(EncodeExtra, OnlyKindsInUseAreMarkedWhereTheGroupIsSplit) {
  for (const bool lmr_present : {false, true}) {
    for (const bool exp_present : {false, true}) {
      for (const int model_type : {4, 5}) {
        RadioData data = NewData(model_type);
        data.LmrPresent() = lmr_present;
        data.ExpPresent = exp_present;
        for (const int number : {1, 2, 3}) data.EXP[number].Enable = true;
        data.EXP[1].LMR_EXP = -1;
        data.EXP[3].LMR_EXP = 7;
        EncodeAll(data, kAfterCutOver);
        const int split = (lmr_present ? 0x80 : 0) | (exp_present ? 0x40 : 0);
        EXPECT_EQ(data.Image[450], model_type == 5 ? split : 0xE0);
        EXPECT_EQ(data.Image[93] & 1, lmr_present || exp_present);
      }
    }
  }
}

TEST(EncodeText, NamesAreRaisedAndFilled) {
  RadioData data = NewData(5);
  data.WX[0].ChTag = "ch 16";
  data.EXP[40].ChTag = "a+b(c).*?far too long";
  data.EXP[1].CHDisplayL = "l";
  data.EXP[1].CHDisplayR = "abc";
  EncodeAll(data, kAfterCutOver);
  EXPECT_EQ(data.WX[0].ChTag, "CH 16");
  EXPECT_EQ(BytesOf(data.Image, 11712, 12),
            (Bytes{'C', 'H', ' ', '1', '6', 255, 255, 255, 255, 255, 255, 255}));
  EXPECT_EQ(BytesOf(data.Image, 11840 + 39 * 12, 12),
            (Bytes{'A', '+', 'B', '(', 'C', ')', '.', '*', 255, 'F', 'A', 'R'}));
  EXPECT_EQ(BytesOf(data.Image, kRecord1 + 1, 4), (Bytes{'l', ' ', 'a', 'b'}));
  DecodeAll(data);
  EXPECT_EQ(data.EXP[40].ChTag, "A");
}

TEST(EncodeText, CallSignsAndNumbers) {
  RadioData data = NewData(0);
  data.CallSigns[20] = {"a", "A B"};
  data.Dsc.UserMmsi = "123456789";
  data.Usable[0].Backup = 0xEE;
  data.Stations[1] = {true, "Sea+Breeze", "33812"};
  EncodeAll(data, kAfterCutOver);
  EXPECT_EQ(BytesOf(data.Image, 12544 + 19 * 8, 8),
            (Bytes{255, 255, 'a', 'A', 255, 'B', 255, 255}));
  EXPECT_EQ(BytesOf(data.Image, 496, 5), (Bytes{0x12, 0x34, 0x56, 0x78, 0x9F}));
  EXPECT_EQ(BytesOf(data.Image, 507, 5), (Bytes{255, 255, 255, 255, 255}));
  EXPECT_EQ(BytesOf(data.Image, 12800, 16), (Bytes{0x33, 0x81, 0x2F, 0xFF, 0xFF, 'S', 'e', 'a', '+',
                                                   'B', 'r', 'e', 'e', 'z', 'e', 255}));
}

TEST(EncodeSettings, BackupStandsAloneWithoutDsc) {
  RadioData data = NewData(5);
  data.Dsc.UserMmsi = "123456789";
  data.Usable[1].Backup = 0x1EE;
  EncodeAll(data, kAfterCutOver);
  EXPECT_EQ(BytesOf(data.Image, 496, 5), (Bytes{255, 255, 0xEE, 255, 255}));
}

TEST(EncodeSettings, OffsetTimeLeavesItsNeighbours) {
  struct Case {
    int value, stored;
  };
  for (const auto& [value, stored] :
       {Case{-3, 12}, Case{0, 12}, Case{11, 1}, Case{12, 16}, Case{17, 21}, Case{99, 28}}) {
    RadioData data = NewData(3);
    data.Common.Offset_Time = static_cast<std::int16_t>(value);
    data.Common.Magnetic_Variation = 1;
    data.Image[76] = 0xA0;
    EncodeAll(data, kAfterCutOver);
    EXPECT_EQ(data.Image[76], 0xE0 | stored) << value;
  }
}

TEST(EncodeSettings, NegativeChannelsAreErasedNumbers) {
  RadioData data = NewData(5);
  data.Common.Last_Display_CH = -7;
  data.Usable[2].Priority_CH = 0x10123;
  EncodeAll(data, kAfterCutOver);
  EXPECT_EQ(BytesOf(data.Image, 80, 2), (Bytes{255, 255}));
  EXPECT_EQ(BytesOf(data.Image, 88, 2), (Bytes{0x01, 0x23}));
}

TEST(Encode, RadiosWithDscSwitchOffGroupsWithoutChannels) {
  for (const int model_type : {0, 5}) {
    const bool dsc = model_type == 0;
    RadioData data = NewData(model_type);
    data.Usable[core::kExtraGroup].Enable = true;
    data.ExpPresent = true;
    for (core::ChannelRecord& channel : data.Marine[1]) channel.Enable = false;
    EncodeAll(data, kAfterCutOver);
    EXPECT_TRUE(data.Usable[0].Enable);
    EXPECT_EQ(data.Usable[1].Enable, !dsc);
    EXPECT_EQ(data.LmrPresent(), !dsc);
    EXPECT_EQ(data.ExpPresent, !dsc);
    EXPECT_EQ(data.Image[93] & 0x0F, dsc ? 0x0A : 0x0F);
  }
}

// Known memory that is carried through, and the rest of what no field owns.
struct Range {
  int first, last;
};
constexpr std::array<Range, 12> kCarried = {{{0, 67},
                                             {71, 73},
                                             {95, 159},
                                             {167, 255},
                                             {286, 287},
                                             {501, 504},
                                             {506, 506},
                                             {512, 767},
                                             {2272, 2303},
                                             {2944, 3071},
                                             {12320, 12543},
                                             {13728, 16383}}};

// "7..5" -> 0xE0
int MaskOf(const std::string& bits) {
  if (bits.empty()) return 0xFF;
  const int high = bits.front() - '0';
  const int low = bits.back() - '0';
  return (1 << (high + 1)) - (1 << low);
}

TEST(DecodeThenEncode, KeepsEveryBitThatNoFieldOwns) {
  std::mt19937 random(20240611);
  for (const auto& profile : core::ModelProfiles()) {
    for (int round = 0; round < 12; ++round) {
      RadioData data = NewData(profile.model_type);
      // Every other round is mostly erased memory, as in a radio that was hardly ever used.
      for (std::uint8_t& byte : data.Image.All()) {
        byte = static_cast<std::uint8_t>(round % 2 == 0 || random() % 8 == 0 ? random() : 255);
      }
      const RadioData before = data;
      DecodeAll(data);
      EncodeAll(data, kAfterCutOver);
      for (const auto& [first, last] : kCarried) {
        EXPECT_EQ(BytesOf(data.Image, first, last - first + 1),
                  BytesOf(before.Image, first, last - first + 1))
            << profile.model << ' ' << first;
      }
      for (int i = 769; i < 2272; i += 2) {
        ASSERT_EQ(data.Image[i], before.Image[i]) << "second flag byte " << i;
      }
      for (const MapRow& row : MemoryMap(before)) {
        const bool kept_call_sign = !profile.has_call_signs && row.name.starts_with("ATIS call");
        if (row.name != "(not used)" && !row.name.starts_with("radio's own") && !kept_call_sign) {
          continue;
        }
        const int mask = MaskOf(row.bits);
        for (int i = row.offset; i < row.offset + row.length; ++i) {
          ASSERT_EQ(data.Image[i] & mask, before.Image[i] & mask) << profile.model << ' ' << i;
        }
      }
      for (int i = profile.image_size; i < core::MemoryImage::kSize; ++i) {
        ASSERT_EQ(data.Image[i], before.Image[i]) << "beyond the used bytes: " << i;
      }
    }
  }
}

}  // namespace
}  // namespace orvane::image
