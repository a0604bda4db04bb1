#include <cerrno>
#include <nlohmann/json.hpp>
#include <streambuf>

#include "cli_bench.h"
#include "core/model_profile.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "files/text_report.h"

namespace orvane::cli {
namespace {

class FileCommands : public CliBench {
 protected:
  void Keep(const char* path, const core::RadioData& data) {
    files.files[path] = std::string(data.Image.Used().begin(), data.Image.Used().end());
  }
  std::string Settings(const core::RadioData& data) {
    return files::SettingFileText(data, bench.pump);
  }
};

TEST_F(FileCommands, NewSavesAFreshDataSetOfEveryModel) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    const std::string model = std::to_string(profile.model_type);
    ASSERT_EQ(Run({"new", "--model", model, "-o", "f.dat"}), kDone) << err_;
    EXPECT_EQ(files::SettingFileModel(files.files["f.dat"]), profile.model_type);
    ASSERT_EQ(Run({"convert", "f.dat", "f.hex"}), kDone) << err_;
    EXPECT_EQ(files.files["f.hex"].size(), static_cast<std::size_t>(profile.image_size));
    EXPECT_EQ(Run({"convert", "f.hex", "again.dat"}), kDone) << "takes its own image: " << err_;
  }
  EXPECT_TRUE(err_.empty());
}

TEST_F(FileCommands, ARefusedFileIsNamedInTheProgramsWordsAndNothingIsWritten) {
  Keep("good.hex", sample);
  const std::string good = files.files["good.hex"];
  files.files["short.hex"] = good.substr(1);
  files.files["codes.hex"] = good;
  files.files["codes.hex"][16383] ^= 1;
  files.files["unknown.hex"] = std::string(16384, '\0');
  files.files["product.hex"] = good;
  files.files["product.hex"][0x3FF2] = 9;
  files.files["other.dat"] = "[MAIN]\r\nMODELTYPE=9\r\n";
  files.files["empty.dat"] = "";
  files.failing["broken.hex"] = {5, "Input/output error"};
  const struct {
    const char* input;
    const char* message;
  } cases[] = {
      {"short.hex", "PC Program for KT740 Series: bad file!!\nThe file has 16383 bytes; "},
      {"codes.hex", "Read from Radio: ModelType Error !!\n"},
      {"unknown.hex", "Read from Radio: ModelType Error !!\n"},
      {"product.hex",
       "Read from Radio: ProductType Error !!\nThe product byte of KT740 is 2, the image's is 9: "},
      {"missing.hex", "PC Program for KT740 Series: FileRead Error!!\n"},
      {"broken.hex", "Input/output error"},
      {"other.dat",
       "PC Program for KT740 Series: different model!!\nThe file is for MODELTYPE 9, "},
      {"empty.dat", "PC Program for KT740 Series: different model!!\n"},
      {"missing.dat", "missing.dat: No such file or directory"}};
  for (const auto& expected : cases) {
    EXPECT_EQ(Run({"convert", expected.input, "out.dat"}), kFailed) << expected.input;
    EXPECT_TRUE(ErrHas(expected.message)) << err_;
    EXPECT_FALSE(files.files.contains("out.dat")) << expected.input;
  }
}

TEST_F(FileCommands, AnOutputThatCannotBeWrittenIsToldWithTheSystemsReason) {
  Keep("a.hex", sample);
  for (const char* output : {"x.dat", "x.hex", "x.pdf"}) {
    files.failing[output] = {28, "No space left on device"};
    EXPECT_EQ(Run({"convert", "a.hex", output}), kFailed);
    EXPECT_TRUE(err_.starts_with("PC Program for KT740 Series: FileSave Error!!\n" +
                                 std::string(output) + ": No space left on device\nWhat stood "))
        << err_;
  }
  files.failing["x.txt"] = {28, "No space left on device"};
  EXPECT_EQ(Run({"convert", "a.hex", "x.txt"}), kFailed);
  EXPECT_TRUE(ErrHas("KT740 PC Program for KT740 Series: No space left on device\n")) << err_;
}

TEST_F(FileCommands, TheReportIsTheSameOnScreenAndInAFile) {
  Keep("a.hex", sample);
  ASSERT_EQ(Run({"convert", "a.hex", "a.txt"}), kDone);
  ASSERT_EQ(Run({"report", "a.hex"}), kDone);
  EXPECT_EQ(out_, files.files["a.txt"]);
  EXPECT_TRUE(out_.starts_with("\r\n\r\n#####"));
  EXPECT_TRUE(out_.ends_with("\r\n"));
}

TEST_F(FileCommands, AnOutputThatTakesNothingIsToldWithTheSystemsReason) {
  class FullDisk : public std::streambuf {
    int_type overflow(int_type /*c*/) override {
      errno = ENOSPC;
      return traits_type::eof();
    }
  } full;
  Keep("a.hex", sample);
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"report", "a.hex"}, {"map"}, {"--help"}}) {
    std::istringstream in;
    std::ostream out(&full);
    std::ostringstream err;
    EXPECT_EQ(cli::Run(words, in, out, err, services), kFailed) << words[0];
    EXPECT_EQ(err.str(), "The output could not be written: No space left on device\n") << words[0];
  }
}

TEST_F(FileCommands, PrintedPagesAreWrittenOnlyWhenTheyCouldBePainted) {
  Keep("a.hex", sample);
  EXPECT_EQ(Run({"convert", "a.hex", "a.PDF"}), kDone);
  EXPECT_EQ(files.files["a.PDF"], "%PDF-");
  pdf = {core::SystemError{0, "There is no font."}, {}};
  EXPECT_EQ(Run({"convert", "a.hex", "b.pdf"}), kFailed);
  EXPECT_TRUE(ErrHas("b.pdf: There is no font.")) << err_;
  EXPECT_FALSE(files.files.contains("b.pdf"));
}

TEST_F(FileCommands, SavingSettingsSetsForbiddenWideChannelsToNarrow) {
  core::ChannelRecord& channel = sample.EXP[1];
  channel.Enable = true;
  channel.LMR_EXP = -1;
  channel.Txfreq = 155;
  channel.Narrow = false;
  sample.LmrPresent() = true;
  files.files["wide.dat"] = Settings(sample);
  ASSERT_EQ(Run({"convert", "wide.dat", "narrow.dat"}), kDone);
  EXPECT_TRUE(err_.starts_with("Save: FCC Rule Caution!\n\nAfter Jan.1, 2013,")) << err_;
  EXPECT_EQ(err_.find('\r'), std::string::npos);
  EXPECT_NE(files.files["narrow.dat"], files.files["wide.dat"]);
  ASSERT_EQ(Run({"convert", "narrow.dat", "again.dat"}), kDone);
  EXPECT_TRUE(err_.empty()) << err_;
}

TEST_F(FileCommands, MapShowsAFreshImageOrTheFiles) {
  Keep("a.hex", sample);
  ASSERT_EQ(Run({"map", "a.hex"}), kDone);
  const std::string of_file = out_;
  EXPECT_NE(of_file.find("model code"), std::string::npos);
  ASSERT_EQ(Run({"map", "--model", "1"}), kDone);
  EXPECT_NE(out_, of_file);
  EXPECT_NE(out_.find("310"), std::string::npos) << "the model's code";
  EXPECT_EQ(Run({"map", "--model", "4", "a.hex"}), kFailed);
  EXPECT_TRUE(ErrHas("ModelType Error !!"));
}

TEST_F(FileCommands, ShowGivesEveryRecordAsJson) {
  sample.EXP[3].ChTag = "CAF\xC9";
  sample.EXP[3].Enable = true;
  sample.EXP[3].Rxfreq = 151.625;
  files.files["a.dat"] = Settings(sample);
  ASSERT_EQ(Run({"show", "a.dat", "--json"}), kDone) << err_;
  const nlohmann::json tree = nlohmann::json::parse(out_);
  EXPECT_EQ(tree["model"]["type"], 5);
  EXPECT_EQ(tree["model"]["code"], 740);
  EXPECT_EQ(tree["channels"]["usa"].size(), 240U);
  EXPECT_EQ(tree["channels"]["wx"].size(), 10U);
  EXPECT_EQ(tree["channels"]["usa"][32]["channel"], "16");
  EXPECT_EQ(tree["channels"]["usa"][32]["enable"], true);
  const nlohmann::json& extra = tree["channels"]["extra"][2];
  EXPECT_EQ(extra["name"], "CAF\u00C9");
  EXPECT_EQ(extra["rx_frequency"], 151.625);
  EXPECT_EQ(extra["kind"], sample.EXP[3].LMR_EXP != 0 ? "LMR" : "EXP");
  EXPECT_EQ(tree["usable_groups"]["usa"]["enable"], true);
  EXPECT_FALSE(tree.contains("stations")) << "the model has no directories";
  ASSERT_EQ(Run({"new", "--model", "0", "-o", "dsc.hex"}), kDone);
  ASSERT_EQ(Run({"show", "dsc.hex", "--json"}), kDone);
  EXPECT_EQ(nlohmann::json::parse(out_)["stations"].size(), 40U);
}

TEST_F(FileCommands, ShowListsOnlyWhatIsInUse) {
  sample.EXP[3] = {};
  sample.EXP[4] = {};
  sample.EXP[4].Enable = true;
  sample.EXP[4].Rxfreq = 151.625;
  files.files["a.dat"] = Settings(sample);
  ASSERT_EQ(Run({"show", "a.dat"}), kDone);
  EXPECT_NE(out_.find("    4: enable on rx_frequency 151.625 kind \"EXP\"\n"), std::string::npos)
      << out_;
  EXPECT_EQ(out_.find("    3: enable off"), std::string::npos);
}

TEST_F(CliBench, PortsAreListedWithNumberDescriptionAndDevice) {
  ASSERT_EQ(Run({"ports"}), kDone);
  EXPECT_EQ(out_, "COM16 Simulated radio /dev/radio\n");
  ASSERT_EQ(Run({"ports", "--json"}), kDone);
  const nlohmann::json list = nlohmann::json::parse(out_);
  EXPECT_EQ(list[0]["number"], 16);
  EXPECT_EQ(list[0]["name"], "COM16 Simulated radio");
  EXPECT_EQ(list[0]["description"], "Simulated radio");
  EXPECT_EQ(list[0]["device"], "/dev/radio");
  ports.ports.clear();
  ASSERT_EQ(Run({"ports"}), kDone);
  EXPECT_EQ(out_, "(not exist)\n");
}

}  // namespace
}  // namespace orvane::cli
