#include "core/model_profile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvane::core {
namespace {

TEST(ModelProfile, EveryModelHasItsFacts) {
  struct Case {
    std::string_view word;
    double min_frequency;  // MHz
    std::int32_t last_index;
    int radio_code_address;
    std::optional<int> tone_byte;
    std::int16_t model_type;
    std::uint16_t code;
    bool dsc;
    // What the editor shows or asks for.
    bool raster, common, rotary, scrambler, bandwidth;
  };
  const std::optional<int> none;
  const Case cases[] = {
      {"EXP", 137, 16383, 0, none, 0, 6100, true, true, true, true, true, true},
      {"EXP", 137, 8191, 0, none, 1, 310, false, false, true, true, true, true},
      {"LMR", 137, 16383, 0, 10, 2, 510, false, false, true, true, true, true},
      {"EXP", 137, 16383, 0, none, 3, 9000, true, true, false, false, false, true},
      {"LMR", 134, 16383, 64, 11, 4, 520, false, false, true, false, true, false},
      {"LMR", 134, 16383, 64, 11, 5, 740, false, false, true, false, true, true},
      {"LMR", 134, 16383, 64, 11, 6, 741, false, false, true, false, true, true}};
  for (const Case& c : cases) {
    const ModelProfile& profile = ProfileOf(c.model_type);
    SCOPED_TRACE(c.model_type);
    EXPECT_EQ(profile.model_type, c.model_type);
    EXPECT_EQ(FindProfileByCode(c.code), &profile);
    EXPECT_EQ(profile.LastIndex(), c.last_index);
    EXPECT_EQ(profile.GroupWord(true), c.word);
    EXPECT_EQ(profile.GroupWord(false), "EXP");
    EXPECT_EQ(profile.tone_byte, c.tone_byte);
    EXPECT_EQ(profile.radio_code_address, c.radio_code_address);
    EXPECT_EQ(profile.min_frequency, c.min_frequency);
    const bool flags[] = {
        profile.has_dsc,           profile.raster_25khz,    profile.shows_common_settings,
        profile.shows_rotary_beep, profile.shows_scrambler, profile.shows_bandwidth};
    const bool expected[] = {c.dsc, c.raster, c.common, c.rotary, c.scrambler, c.bandwidth};
    EXPECT_TRUE(std::ranges::equal(flags, expected));
  }
  EXPECT_EQ(FindProfileByCode(742), nullptr);
  EXPECT_EQ(ProfileOf(7).model_type, 5);
  EXPECT_EQ(ProfileOf(-1).model_type, 5);
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

}  // namespace
}  // namespace orvane::core
