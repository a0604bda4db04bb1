#include <gtest/gtest.h>

#include <string>

#include "image/codec.h"
#include "image/image_check.h"
#include "support/image_fixtures.h"

namespace orvane::image {
namespace {

using core::RadioData;
using ::orvane::testing::BytesOf;
using ::orvane::testing::kAfterCutOver;
using ::orvane::testing::NewData;
using Bytes = std::vector<int>;

TEST(FreshImage, HoldsTheFactoryBytes) {
  for (const auto& profile : core::ModelProfiles()) {
    RadioData data;
    data.MODELTYPE = profile.model_type;
    MakeFreshImage(data);
    const core::MemoryImage& image = data.Image;
    EXPECT_EQ(image.UsedSize(), profile.image_size);
    EXPECT_EQ(BytesOf(image, 64, 6), (Bytes{profile.code >> 8, profile.code & 0xFF, 0, 0, 0, 0}));
    EXPECT_EQ(BytesOf(image, 70, 8),
              (Bytes{1, 0, 0, 0, 255, 0, 48, profile.model_type == 0 ? 15 : 255}));
    EXPECT_EQ(BytesOf(image, 80, 16),
              (Bytes{0, 30, 0, 30, 0, 32, 0, 32, 0, 32, 242, 206, 0, 191, 0, 255}));
    const bool late = profile.model_type >= 4;
    const bool latest = profile.model_type >= 5;
    EXPECT_EQ(BytesOf(image, 160, 8),
              latest ? Bytes(8, 255) : (Bytes{255, 96, 16, 16, 172, 254, 255, 255}));
    EXPECT_EQ(image[168], late ? 0xFB : 0xFF);
    EXPECT_EQ(BytesOf(image, 170, 6), (Bytes{7, 7, 7, 7, late ? 0 : 7, late ? 0 : 7}));
    EXPECT_EQ(BytesOf(image, 176, 16),
              (Bytes{188, 188, 7, 7, 7, 7, 7, 7, 0, 0, 0, 0, 0, 0, 255, 255}));
    EXPECT_EQ(BytesOf(image, 448, 8), (Bytes{255, 255, 0, 0, 0, 0, 0, 255}));
    EXPECT_EQ(BytesOf(image, 512, 6), (Bytes{'R', 'a', 'd', 'i', 'o', 255}));
    EXPECT_EQ(BytesOf(image, 544, 5), (Bytes{'R', 'a', 'm', '2', 255}));
    EXPECT_EQ(BytesOf(image, 592, 16), BytesOf(image, 560, 16));
    EXPECT_EQ(BytesOf(image, 752, 16), (Bytes{0x44, 0x50, 0x5C, 0x65, 0x6E, 0x77, 0x80, 0x89, 0x92,
                                              0x9B, 0xA4, 0xAA, 0xB3, 0xB6, 0xBB, 0xC1}));
    EXPECT_EQ(BytesOf(image, 2303, 642).front(), 255);
    EXPECT_EQ(BytesOf(image, 2304, 640), Bytes(640, 0));
    EXPECT_EQ(BytesOf(image, 2944, 2), (Bytes{255, 255}));
    EXPECT_EQ(image[16370], 255);
    EXPECT_EQ(image[16383], profile.image_size == 16384 ? profile.code & 0xFF : 255);
    EXPECT_EQ(image[8191], profile.image_size == 8192 ? profile.code & 0xFF : 255);
    EXPECT_EQ(data.Common.SQL, 15);
    EXPECT_TRUE(data.Usable[3].Enable);
  }
}

TEST(New, KeepsNothingOfTheDataBefore) {
  for (const auto& profile : core::ModelProfiles()) {
    const RadioData clean = NewData(profile.model_type);
    RadioData used = clean;
    for (std::uint8_t& byte : used.Image.All()) byte = 0x55;
    DecodeAll(used);
    used.EXP[3].ClockShift = true;
    used.Usable[2].Status_name = "LEFT";
    used.ExpPresent = true;
    ResetToDefaults(used, kAfterCutOver);
    EXPECT_TRUE(used == clean);
  }
}

TEST(New, EncodesThePlansWithoutTransmitPower) {
  const RadioData data = NewData(5);
  EXPECT_EQ(data.Marine[0][32].ChTag, "DISTRESS");
  EXPECT_EQ(data.Image[256 + 4] & 0x80, 0x80);
  EXPECT_TRUE(data.Marine[0][32].TxEnable);
  EXPECT_EQ(data.Image[768 + 64] & 0xC0, 0);
  EXPECT_EQ(BytesOf(data.Image, 448, 2), (Bytes{255, 255}));
  EXPECT_EQ(data.WX[9].ChTag, "163.275MHZ");
  EXPECT_EQ(data.Image[93] & 0x0F, 0x0E) << "no extra channel, no group of them";
  EXPECT_EQ(ModelName(data), "KT740");
  EXPECT_TRUE(Sel1(data.Image) && Sel2(data.Image));
}

TEST(CheckImage, NamesEveryFault) {
  const core::ModelProfile& kt740 = core::ProfileOf(std::int16_t{5});
  RadioData data = NewData(5);
  const auto check = [&] { return CheckImage(data.Image.Used(), kt740); };
  EXPECT_TRUE(check().product) << "a new image is not a radio's yet";
  data.Image[16370] = 2;
  EXPECT_FALSE(check().Any());
  data.Image[16382] = 0xFF;
  EXPECT_TRUE(check().model);
  data.Image[16370] = 3;
  EXPECT_TRUE(check().model && check().product);
  EXPECT_TRUE(CheckImage(data.Image.Used().first(16383), kt740).length);
  EXPECT_TRUE(CheckImage({}, kt740).length);
}

TEST(CheckImage, EachModelTakesItsOwnImageOnly) {
  for (const auto& made : core::ModelProfiles()) {
    const RadioData data = NewData(made.model_type);
    for (const auto& asked : core::ModelProfiles()) {
      const ImageFaults faults = CheckImage(data.Image.Used(), asked);
      const bool same = made.model_type == asked.model_type;
      EXPECT_EQ(faults.length || faults.model, !same) << made.model << " as " << asked.model;
    }
  }
}

}  // namespace
}  // namespace orvane::image
