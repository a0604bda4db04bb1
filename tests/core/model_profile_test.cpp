#include "core/model_profile.h"

#include <gtest/gtest.h>

namespace orvane::core {
namespace {

TEST(ModelProfile, EveryModelHasItsFacts) {
  struct Case {
    std::string_view word;
    std::int32_t last_index;
    int radio_code_address;
    std::optional<int> tone_byte;
    std::int16_t model_type;
    std::uint16_t code;
    bool dsc;
  };
  const Case cases[] = {{"EXP", 16383, 0, std::nullopt, 0, 6100, true},
                        {"EXP", 8191, 0, std::nullopt, 1, 310, false},
                        {"LMR", 16383, 0, 10, 2, 510, false},
                        {"EXP", 16383, 0, std::nullopt, 3, 9000, true},
                        {"LMR", 16383, 64, 11, 4, 520, false},
                        {"LMR", 16383, 64, 11, 5, 740, false},
                        {"LMR", 16383, 64, 11, 6, 741, false}};
  for (const Case& c : cases) {
    const ModelProfile& profile = ProfileOf(c.model_type);
    SCOPED_TRACE(c.model_type);
    EXPECT_EQ(profile.model_type, c.model_type);
    EXPECT_EQ(profile.code, c.code);
    EXPECT_EQ(profile.LastIndex(), c.last_index);
    EXPECT_EQ(profile.has_dsc, c.dsc);
    EXPECT_EQ(profile.GroupWord(true), c.word);
    EXPECT_EQ(profile.GroupWord(false), "EXP");
    EXPECT_EQ(profile.tone_byte, c.tone_byte);
    EXPECT_EQ(profile.radio_code_address, c.radio_code_address);
    EXPECT_EQ(FindProfileByCode(c.code), &profile);
  }
  EXPECT_EQ(FindProfileByCode(742), nullptr);
  EXPECT_EQ(ProfileOf(7).model_type, 5);
  EXPECT_EQ(ProfileOf(-1).model_type, 5);
}

TEST(ModelProfile, BothCodesMustBeTheModelsOwn) {
  const ModelProfile& kt740 = ProfileOf(5);
  EXPECT_TRUE(ModelCodeMatches(kt740, 740, 740));
  EXPECT_FALSE(ModelCodeMatches(kt740, 740, 741));
  EXPECT_FALSE(ModelCodeMatches(kt740, 741, 740));
  EXPECT_FALSE(ModelCodeMatches(kt740, 741, 741));
}

TEST(ModelProfile, ProductByteBindsOneModelOnly) {
  for (const ModelProfile& profile : ModelProfiles()) {
    EXPECT_TRUE(ProductMatches(profile, 2));
    EXPECT_EQ(ProductMatches(profile, 3), profile.model != "KT740") << profile.model;
  }
}

TEST(ModelProfile, OnlyTheKt310TakesHalfImages) {
  for (const ModelProfile& profile : ModelProfiles()) {
    const bool half = profile.model == "KT310";
    EXPECT_EQ(ImageLengthMatches(profile, 8192), half) << profile.model;
    EXPECT_EQ(ImageLengthMatches(profile, 16384), !half) << profile.model;
    EXPECT_FALSE(ImageLengthMatches(profile, 16383));
    EXPECT_FALSE(ImageLengthMatches(profile, 0));
  }
}

TEST(ModelProfile, DisplayNameFollowsTheDestinationOfOneModel) {
  struct Case {
    std::int16_t model_type;
    bool sel1;
    std::string_view name;
  };
  const Case cases[] = {
      {0, true, "RB6100S"}, {1, true, "KT310"},         {2, true, "KT510"},
      {3, true, "QM9000"},  {4, true, "KT520"},         {5, true, "KT740"},
      {5, false, "KT520"},  {6, false, "KT740E/KT520"}, {6, true, "KT740E/KT520"}};
  for (const Case& c : cases) EXPECT_EQ(ModelDisplayName(c.model_type, c.sel1), c.name);
}

TEST(ModelProfile, EditorLimitsPerModel) {
  // Lowest frequency in MHz, 25 kHz raster, common settings, rotary beep, scrambler, bandwidth.
  struct Case {
    double min_frequency;
    std::int16_t model_type;
    bool raster, common, rotary, scrambler, bandwidth;
  };
  const Case cases[] = {
      {137, 0, true, true, true, true, true},    {137, 1, false, true, true, true, true},
      {137, 2, false, true, true, true, true},   {137, 3, true, false, false, false, true},
      {134, 4, false, true, false, true, false}, {134, 5, false, true, false, true, true},
      {134, 6, false, true, false, true, true}};
  for (const Case& c : cases) {
    const ModelProfile& profile = ProfileOf(c.model_type);
    SCOPED_TRACE(profile.model);
    EXPECT_EQ(profile.min_frequency, c.min_frequency);
    EXPECT_EQ(profile.raster_25khz, c.raster);
    EXPECT_EQ(profile.shows_common_settings, c.common);
    EXPECT_EQ(profile.shows_rotary_beep, c.rotary);
    EXPECT_EQ(profile.shows_scrambler, c.scrambler);
    EXPECT_EQ(profile.shows_bandwidth, c.bandwidth);
  }
}

}  // namespace
}  // namespace orvane::core
