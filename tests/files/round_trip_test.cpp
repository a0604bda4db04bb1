#include <gtest/gtest.h>

#include <random>

#include "files/image_file.h"
#include "files/settings_file.h"
#include "image/image_check.h"
#include "support/fakes.h"
#include "support/image_fixtures.h"

/// What is saved, loaded and saved again is the same, whatever image it began with.
namespace orvane::files {
namespace {

using core::RadioData;

/// Any bytes that pass for the model's own image; every other one is mostly erased memory.
RadioData AnyImage(std::mt19937& random, const core::ModelProfile& profile, bool erased) {
  RadioData data = testing::NewData(profile.model_type);
  for (std::uint8_t& byte : data.Image.All()) {
    byte = static_cast<std::uint8_t>(!erased || random() % 8 == 0 ? random() : 255);
  }
  image::StoreModelCodes(data.Image, profile);
  if (profile.product_byte) data.Image[image::kProductOffset] = *profile.product_byte;
  image::DecodeAll(data);
  return data;
}

std::string Saved(RadioData& data, testing::MemoryFiles& files) {
  testing::ScriptedPrompts prompts;
  testing::RecordingLog log;
  PrepareImageForSaving(data, testing::kAfterCutOver);
  core::RunState state;
  SaveHexFileAs(data, state, "boat.hex", files, prompts, log);
  EXPECT_TRUE(prompts.messages.empty());
  return files.files["boat.hex"];
}

RadioData Loaded(const core::ModelProfile& profile, testing::MemoryFiles& files) {
  testing::ScriptedPrompts prompts;
  testing::RecordingLog log;
  RadioData data = testing::NewData(profile.model_type);
  core::RunState state;
  LoadHexFile(data, state, "boat.hex", files, prompts, log);
  EXPECT_TRUE(prompts.messages.empty());
  return data;
}

class RoundTrips : public ::testing::TestWithParam<std::int16_t> {
 protected:
  template <class Check>
  void ForAnyImage(Check check) {
    std::mt19937 random(static_cast<unsigned>(2406 + GetParam()));
    for (int round = 0; round < 30; ++round) {
      SCOPED_TRACE(round);
      check(AnyImage(random, core::ProfileOf(GetParam()), round % 2 == 1));
      if (HasFatalFailure()) return;
    }
  }
};

TEST_P(RoundTrips, AnImageFileThatIsLoadedAndSavedAgainIsTheSameFile) {
  ForAnyImage([](RadioData data) {
    const core::ModelProfile& profile = core::ProfileOf(data);
    testing::MemoryFiles files;
    // What the first rounds repair stays repaired.
    constexpr int kSettlingRounds = 3;
    for (int i = 0; i < kSettlingRounds; ++i) {
      Saved(data, files);
      data = Loaded(profile, files);
    }
    const std::string settled = Saved(data, files);
    RadioData again = Loaded(profile, files);
    ASSERT_TRUE(Saved(again, files) == settled);
    ASSERT_TRUE(Loaded(profile, files).Marine == again.Marine);
  });
}

/// Any bytes but line ends, no blanks at the end.
std::string AnyText(std::mt19937& random) {
  std::string text(random() % 13, '\0');
  for (char& c : text) c = static_cast<char>(random() % 224 + 32);
  return text.erase(text.find_last_not_of(' ') + 1);
}

TEST_P(RoundTrips, ASettingsFileGivesBackTheRecordsAndTheSameFile) {
  ForAnyImage([random = std::mt19937(static_cast<unsigned>(GetParam()))](RadioData data) mutable {
    testing::ManualClock clock;
    testing::ManualPump pump(clock);
    const core::ModelProfile& profile = core::ProfileOf(data);
    if (profile.has_channel_names) {
      for (core::ChannelRecord& channel : data.Marine[0]) channel.ChTag = AnyText(random);
    }
    // Reading drops duplex from channels that have no second frequency.
    ASSERT_TRUE(ApplySettingText(data, SettingFileText(data, pump), pump));
    const std::string text = SettingFileText(data, pump);
    RadioData read = testing::NewData(data.MODELTYPE);
    ASSERT_TRUE(ApplySettingText(read, text, pump));
    ASSERT_TRUE(SettingFileText(read, pump) == text);
    read.Common.RotaryBeep = data.Common.RotaryBeep;  // only in the radio
    ASSERT_TRUE(read.Usable == data.Usable);
    ASSERT_TRUE(read.Common == data.Common);
    ASSERT_TRUE(read.Atis == data.Atis);
    ASSERT_TRUE(read.WX == data.WX);
    // Of other models the file leaves out what the radio has: scrambler codes, names.
    ASSERT_TRUE(read.Marine == data.Marine || !profile.has_channel_names);
    ASSERT_TRUE(read.EXP == data.EXP || !profile.HasTones());
  });
}

INSTANTIATE_TEST_SUITE_P(Models, RoundTrips, ::testing::Range<std::int16_t>(0, 7));

}  // namespace
}  // namespace orvane::files
