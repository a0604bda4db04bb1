#include "image/memory_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "image/codec.h"
#include "image/image_check.h"
#include "image/sample_radio.h"
#include "support/golden.h"
#include "support/image_fixtures.h"

namespace orvane::image {
namespace {

using ::orvane::testing::kAfterCutOver;

const MapRow* Find(const std::vector<MapRow>& rows, const std::string& name) {
  const auto found =
      std::find_if(rows.begin(), rows.end(), [&](const MapRow& row) { return row.name == name; });
  return found != rows.end() ? &*found : nullptr;
}

TEST(MemoryMap, NamesEveryUsedBitAndDoublesOnlyTheOverlaps) {
  for (const auto& profile : core::ModelProfiles()) {
    const core::RadioData data = ::orvane::testing::NewData(profile.model_type);
    std::vector<int> owners(static_cast<std::size_t>(profile.image_size) * 8);
    int last_offset = 0;
    for (const MapRow& row : MemoryMap(data)) {
      EXPECT_GE(row.offset, last_offset);
      last_offset = row.offset;
      const int high = row.bits.empty() ? 7 : row.bits.front() - '0';
      const int low = row.bits.empty() ? 0 : row.bits.back() - '0';
      const int first = row.offset * 8 + 7 - high;
      const int last = (row.offset + row.length - 1) * 8 + 7 - low;
      ASSERT_LT(last, profile.image_size * 8) << row.name;
      for (int bit = first; bit <= last; ++bit) ++owners[static_cast<std::size_t>(bit)];
    }
    EXPECT_EQ(std::count(owners.begin(), owners.end(), 0), 0) << profile.model;
    // The user's own MMSI over the backup bytes; tone bits over the transmit frequency.
    const int doubled = profile.has_dsc ? 3 * 8 : profile.tone_byte == 10 ? 40 * 7 : 0;
    EXPECT_EQ(std::count(owners.begin(), owners.end(), 2), doubled) << profile.model;
    EXPECT_EQ(std::count_if(owners.begin(), owners.end(), [](int n) { return n > 2; }), 0);
  }
}

TEST(MemoryMap, ShowsFieldsWithPlaceBytesAndValue) {
  struct Case {
    std::string name;
    int offset, length;
    std::string bits, bytes, value;
  };
  const std::vector<MapRow> rows = MemoryMap(MakeSampleRadio(5, kAfterCutOver));
  for (const Case& c :
       {Case{"model code", 64, 2, "", "02 E4", "740"}, Case{"SQL", 74, 1, "7..4", "5F", "5"},
        Case{"model code, second copy", 16382, 2, "", "02 E4", "740"},
        Case{"Last Display CH", 80, 2, "", "00 20", "32"}, Case{"SEL1", 168, 1, "5", "FB", "1"},
        Case{"USA 16 power code", 832, 1, "7..6", "C0", "3"},
        Case{"WX 10 ChTag", 11820, 12, "", "57 58 2D 31 30 FF FF FF FF FF FF FF", "\"WX-10\""},
        Case{"EXP/LMR 1 Rxfreq", 2309, 3, "", "51 60 00", "151.6000 MHz"},
        Case{"EXP/LMR 4 RxDCS", 2363, 1, "5..4", "90", "109"},
        Case{"EXP/LMR 1 RxCTCSS", 2315, 2, "3..6", "00 CC", "3"},
        Case{"EXP/LMR Enable", 450, 5, "", "FF F0 00 00 00", "12 of 40 set"},
        Case{"INTL 10 stored channel", 134, 2, "", "FF FF", "empty"},
        Case{"text 1", 512, 16, "", "52 61 64 69 6F FF FF FF FF FF FF FF FF FF FF FF",
             "\"Radio...........\""}}) {
    const MapRow* const row = Find(rows, c.name);
    ASSERT_NE(row, nullptr) << c.name;
    EXPECT_EQ(row->offset, c.offset) << c.name;
    EXPECT_EQ(row->length, c.length) << c.name;
    EXPECT_EQ(row->bits, c.bits) << c.name;
    EXPECT_EQ(row->bytes, c.bytes) << c.name;
    EXPECT_EQ(row->value, c.value) << c.name;
  }
  EXPECT_EQ(Find(rows, "DSC User MMSI"), nullptr) << "not a radio with DSC";
}

TEST(MemoryMap, PageOfTheDocumentationIsTheTablesOwn) {
  ::orvane::testing::ExpectGolden("../../docs/memory-map.md", MemoryMapPage());
}

TEST(SampleRadio, IsARadioInUseThatPassesItsOwnChecks) {
  for (const auto& profile : core::ModelProfiles()) {
    const core::RadioData data = MakeSampleRadio(profile.model_type, kAfterCutOver);
    EXPECT_FALSE(CheckImage(data.Image.Used(), profile).Any()) << profile.model;
    EXPECT_EQ(data.Image[95], CommonChecksum(data.Image));
    if (profile.radio_code_address == 0) {
      EXPECT_EQ(data.Image[0] * 256 + data.Image[1], profile.code);
    }
    const core::RadioData fresh = ::orvane::testing::NewData(profile.model_type);
    EXPECT_EQ(data.Image[168], fresh.Image[168]);

    core::RadioData again = data;
    DecodeAll(again);
    EXPECT_EQ(again.Marine, data.Marine);
    EXPECT_EQ(again.EXP, data.EXP);
    EXPECT_EQ(again.Usable, data.Usable);
    EncodeAll(again, kAfterCutOver);
    ConsistencyPass(again);
    EXPECT_EQ(again.Image, data.Image) << profile.model;

    EXPECT_EQ(data.EXP[6].Txfreq, 155.2) << "tones must not spoil it";
    EXPECT_EQ(data.EXP[1].TxCTCSS, profile.HasTones() ? 12 : 0);
    for (const core::MarineTable& table : data.Marine) {
      EXPECT_EQ(table[32].TXPower, 3);
      EXPECT_EQ(table[34].TXPower, 1);
      EXPECT_EQ(table[140].TXPower, 0) << "70 is for DSC only";
      EXPECT_EQ(table[99].TXPower, 0) << "no channel of the plan";
    }
    EXPECT_EQ(data.LmrPresent(), profile.extra_word == "LMR");
    EXPECT_EQ(data.ExpPresent, profile.extra_word == "EXP" || profile.splits_lmr_and_exp);
  }
}

TEST(DestinationTemplate, DecodesToNewWithPowerProductSel1AndLastingWeatherNames) {
  const std::array<std::string, 10> weather = {"162550KHZ", "162400KHZ", "162475KHZ", "162425KHZ",
                                               "162450KHZ", "162500KHZ", "162525KHZ", "161650KHZ",
                                               "161775KHZ", "163275KHZ"};
  for (const std::int16_t model : kTemplateModels) {
    for (const bool sel1 : {true, false}) {
      SCOPED_TRACE(std::to_string(model) + (sel1 ? " SEL1" : ""));
      core::RadioData meant = ::orvane::testing::NewData(model);
      for (core::MarineTable& table : meant.Marine) {
        for (core::ChannelRecord& channel : table) {
          channel.TxEnable = channel.Enable && !channel.RxOnly;
          channel.TXPower = !channel.TxEnable ? 0 : channel.LowPower ? 1 : 3;
          channel.SelectedPlan = sel1;
        }
      }
      for (std::size_t i = 0; i < weather.size(); ++i) meant.WX[i].ChTag = weather[i];

      core::RadioData read = ::orvane::testing::NewData(model);
      meant.Image = read.Image = MakeDestinationTemplate(model, sel1, kAfterCutOver);
      EXPECT_FALSE(CheckImage(read.Image.Used(), core::ProfileOf(model)).Any());
      EXPECT_EQ(Sel1(read.Image), sel1);
      EXPECT_EQ(Sel2(read.Image), Sel2(::orvane::testing::NewData(model).Image));
      DecodeAll(read);
      EXPECT_EQ(read.WX, meant.WX);
      EXPECT_TRUE(read == meant);
    }
  }
}

}  // namespace
}  // namespace orvane::image
