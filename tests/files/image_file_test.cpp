#include "files/image_file.h"

#include <gtest/gtest.h>

#include "core/model_profile.h"
#include "core/product.h"
#include "image/codec.h"
#include "support/fakes.h"
#include "support/image_fixtures.h"

namespace orvane::files {
namespace {

using core::RadioData;

constexpr const char* kPath = "/boat.hex";
constexpr int kProductByte = 16370;

class ImageFile : public ::testing::Test {
 protected:
  static RadioData Fresh(int model) { return testing::NewData(model); }
  /// A saved image as a radio of the model would hold it.
  std::string Saved(std::int16_t model) {
    RadioData data = Fresh(model);
    data.Image[0] = 0x12;
    data.Image[1] = 0x34;
    if (model == 5) data.Image[kProductByte] = 2;
    data.Common.SQL = 11;
    data.WX[3].Enable = false;
    PrepareImageForSaving(data, clock.today);
    SaveHexFileAs(data, state, kPath, files, prompts, log);
    return files.files[kPath];
  }
  void Load(RadioData& data) { LoadHexFile(data, state, kPath, files, prompts, log); }

  core::RunState state;
  testing::ManualClock clock;
  testing::ScriptedPrompts prompts;
  testing::MemoryFiles files;
  testing::RecordingLog log;
};

int Byte(const std::string& bytes, std::size_t at) {
  return static_cast<std::uint8_t>(bytes[at]);
}

TEST_F(ImageFile, LoadsWhatWasSavedForEveryModel) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    SCOPED_TRACE(profile.model);
    const std::string bytes = Saved(profile.model_type);
    ASSERT_EQ(bytes.size(), profile.model_type == 1 ? 8192U : 16384U);
    int sum = 0;
    for (std::size_t at = 66; at <= 94; ++at) sum += Byte(bytes, at);
    EXPECT_EQ(Byte(bytes, 95), sum % 256);

    RadioData data = Fresh(profile.model_type);
    state.Error = true;
    Load(data);
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_FALSE(state.Error);
    EXPECT_FALSE(state.Busy);
    EXPECT_EQ(data.Image[0], 0x12);
    EXPECT_EQ(data.Image[1], 0x34);
    EXPECT_EQ(data.Common.SQL, 11);
    EXPECT_FALSE(data.WX[3].Enable);
    EXPECT_EQ(DetectImageModel(bytes).model_type, profile.model_type);
  }
}

TEST_F(ImageFile, RefusedFilesChangeNothing) {
  const std::string good = Saved(5);
  const std::string other_model = Saved(6);
  std::string wrong_copy = good;
  wrong_copy[16383] ^= 1;
  std::string wrong_product = good;
  wrong_product[kProductByte] = 3;
  std::string wrong_both = other_model;
  wrong_both[kProductByte] = 3;
  using Texts = std::vector<std::string>;
  const struct {
    const char* name;
    std::string bytes;
    Texts texts;
    std::string title;
  } cases[] = {
      {"short", good.substr(1), {"bad file!!"}, std::string(core::kProgramTitle)},
      {"long", good + "x", {"bad file!!"}, std::string(core::kProgramTitle)},
      {"half", Saved(1), {"bad file!!"}, std::string(core::kProgramTitle)},
      {"copy", wrong_copy, {"ModelType Error !!"}, "Read from Radio"},
      {"product", wrong_product, {"ProductType Error !!"}, "Read from Radio"},
      {"both", wrong_both, {"ModelType Error !!", "ProductType Error !!"}, "Read from Radio"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    RadioData data = Fresh(5);
    const RadioData before = data;
    files.files[kPath] = c.bytes;
    prompts.messages.clear();
    Load(data);
    EXPECT_EQ(prompts.Texts(), c.texts);
    for (const core::Message& message : prompts.messages) {
      EXPECT_EQ(message.icon, core::Icon::kCritical);
      EXPECT_EQ(message.title, c.title);
    }
    EXPECT_EQ(state.Error.Wire(), -1);
    EXPECT_FALSE(state.Busy);
    EXPECT_TRUE(data == before);
  }
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(ImageFile, IsBusyWhileItReadsAndWrites) {
  RadioData data = Fresh(5);
  data.Image[kProductByte] = 2;
  int uses = 0;
  files.on_use = [&] {
    ++uses;
    EXPECT_TRUE(state.Busy && !state.Cancel);
  };
  SaveHexFileAs(data, state, kPath, files, prompts, log);
  Load(data);
  EXPECT_EQ(uses, 2);
  EXPECT_FALSE(state.Busy || state.Cancel || state.Error);
}

TEST_F(ImageFile, ATemplateWithoutSel1RenamesTheModel) {
  RadioData other = Fresh(5);
  other.Image[kProductByte] = 2;
  image::SetDestinationBits(other.Image, false, true);
  PrepareImageForSaving(other, clock.today);
  SaveHexFileAs(other, state, kPath, files, prompts, log);
  RadioData data = Fresh(5);
  image::SetDestinationBits(data.Image, true, false);
  Load(data);
  EXPECT_EQ(image::ModelName(data), "KT520");
  EXPECT_FALSE(data.Marine[0][0].SelectedPlan);
}

TEST_F(ImageFile, FailuresOfTheSystemAreLoggedAndCancel) {
  RadioData data = Fresh(5);
  const RadioData before = data;
  files.failing[kPath] = {13, "Permission denied"};
  SaveHexFileAs(data, state, kPath, files, prompts, log);
  EXPECT_EQ(state.Cancel.Wire(), -1);
  EXPECT_FALSE(state.Error);
  state.Cancel = false;
  Load(data);
  EXPECT_EQ(state.Cancel.Wire(), -1);
  EXPECT_EQ(state.Error.Wire(), -1);
  EXPECT_FALSE(state.Busy);
  EXPECT_TRUE(data == before);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"frmMain.SaveHexFileAs -> 13Permission denied",
                                                 "frmMain.ReadHexFileAs -> 13Permission denied"}));
  EXPECT_EQ(prompts.Texts(), (std::vector<std::string>{"FileSave Error!!", "FileRead Error!!"}));
  for (const core::Message& message : prompts.messages) {
    EXPECT_EQ(message.icon, core::Icon::kExclamation);
    EXPECT_EQ(message.title, core::kProgramTitle);
  }
}

TEST_F(ImageFile, DetectionTellsWhyAFileIsNoImage) {
  const std::string good = Saved(4);
  std::string unknown = good;
  unknown[65] ^= 1;
  std::string differing = good;
  differing[16382] ^= 1;
  EXPECT_EQ(DetectImageModel("").refusal.text, "bad file!!");
  EXPECT_EQ(DetectImageModel(good.substr(0, 100)).refusal.text, "bad file!!");
  EXPECT_EQ(DetectImageModel(good.substr(0, 8192)).refusal.text, "bad file!!");
  EXPECT_EQ(DetectImageModel(unknown).refusal.text, "ModelType Error !!");
  EXPECT_EQ(DetectImageModel(differing).refusal.text, "ModelType Error !!");
  EXPECT_FALSE(DetectImageModel(differing).model_type);
}

}  // namespace
}  // namespace orvane::files
