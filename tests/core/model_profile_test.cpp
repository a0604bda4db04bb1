#include "core/model_profile.h"

#include <gtest/gtest.h>

namespace orvane::core {
namespace {

TEST(ModelProfile, EveryModelHasItsFacts) {
  struct Case {
    std::int16_t model_type;
    std::uint16_t code;
    std::int32_t last_index;
    bool dsc;
    std::string_view word;
    std::optional<int> tone_byte;
    int radio_code_address;
  };
  const Case cases[] = {{0, 6100, 16383, true, "EXP", std::nullopt, 0},
                        {1, 310, 8191, false, "EXP", std::nullopt, 0},
                        {2, 510, 16383, false, "LMR", 10, 0},
                        {3, 9000, 16383, true, "EXP", std::nullopt, 0},
                        {4, 520, 16383, false, "LMR", 11, 64},
                        {5, 740, 16383, false, "LMR", 11, 64},
                        {6, 741, 16383, false, "LMR", 11, 64}};
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
    std::int16_t model_type;
    double min_frequency;
    bool raster, common, rotary, scrambler, bandwidth;
  };
  const Case cases[] = {
      {0, 137, true, true, true, true, true},    {1, 137, false, true, true, true, true},
      {2, 137, false, true, true, true, true},   {3, 137, true, false, false, false, true},
      {4, 134, false, true, false, true, false}, {5, 134, false, true, false, true, true},
      {6, 134, false, true, false, true, true}};
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
