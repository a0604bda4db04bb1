#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/model_profile.h"
#include "image/image_check.h"
#include "sim/host_system.h"
#include "sim/options.h"
#include "sim/radio_source.h"
#include "support/dates.h"

namespace orvane::sim {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

TEST(RadioOptions, WrongWordsAreToldWithWhatWouldBeRight) {
  struct Case {
    std::string words, told;
  };
  const std::vector<Case> cases = {
      {"--port 17", "1 to 16"},
      {"--port 0", "1 to 16"},
      {"--port 1.5", "1 to 16"},
      {"--port 15,17", "1 to 16"},
      {"--model 7", "0 to 6"},
      {"--baud -1", "0 to 4000000"},
      {"--baud nan", "0 to 4000000"},
      {"--faults 101", "0 to 100"},
      {"--seed x", "--seed"},
      {"--fault busy@read", "busy@read"},
      {"--fault nonsense@1", "unplug"},
      {"--nope", "--nope"},
      {"a b", "b"},
      {"--keep", "--keep"},
      {"--replug 1e9", "0 to 3600"},
  };
  for (const Case& c : cases) {
    std::ostringstream out, err;
    const ParsedOptions parsed = ParseOptions(Words(c.words), out, err);
    EXPECT_FALSE(parsed.options) << c.words;
    EXPECT_EQ(parsed.exit_status, 2) << c.words;
    EXPECT_NE(err.str().find(c.told), std::string::npos) << err.str();
    EXPECT_EQ(out.str(), "");
  }
}

TEST(RadioOptions, AreReadFromTheCommandLine) {
  std::ostringstream out, err;
  const ParsedOptions parsed = ParseOptions(
      Words("boat.hex --until-input-ends --model 3 --port 2,11,7 --baud 0 --keep k --log l --quiet "
            "--fault busy@status:1 "
            "--fault unplug@9=4 --faults 2.5 --seed 18446744073709551615 --replug 0.5"),
      out, err);
  ASSERT_TRUE(parsed.options) << err.str();
  const Options& options = *parsed.options;
  EXPECT_EQ(options.image, "boat.hex");
  EXPECT_EQ(options.model, 3);
  EXPECT_EQ(options.ports, (std::vector<int>{2, 11, 7}));
  EXPECT_TRUE(options.until_input_ends);
  EXPECT_EQ(options.baud, 0);
  EXPECT_EQ(options.keep, "k");
  EXPECT_EQ(options.log, "l");
  EXPECT_TRUE(options.quiet);
  ASSERT_EQ(options.faults.size(), 2U);
  EXPECT_EQ(options.faults[1], *link::ParseFault("unplug@9=4").fault);
  EXPECT_EQ(options.fault_percent, 2.5);
  EXPECT_EQ(options.seed, 18446744073709551615U);
  EXPECT_EQ(options.replug_seconds, 0.5);
}

TEST(RadioOptions, HelpNamesEveryFault) {
  std::ostringstream out, err;
  const ParsedOptions parsed = ParseOptions({"--help"}, out, err);
  EXPECT_FALSE(parsed.options);
  EXPECT_EQ(parsed.exit_status, 0);
  for (const link::FaultInfo& info : link::Faults()) {
    EXPECT_NE(out.str().find(info.name), std::string::npos) << info.name;
  }
}

std::string ImageOf(std::size_t size, int code, int second_code, char product = 2) {
  std::string image(size, product);
  for (const auto& [at, value] : {std::pair(std::size_t{64}, code), {size - 2, second_code}}) {
    image[at] = static_cast<char>(value / 256);
    image[at + 1] = static_cast<char>(value % 256);
  }
  return image;
}

TEST(RadioContents, AnImageMustBeWholeAndOfTheModel) {
  struct Case {
    std::string image;
    std::optional<std::int16_t> model;
    bool taken;
  };
  const std::vector<Case> cases = {
      {ImageOf(16384, 740, 740), std::nullopt, true},
      {ImageOf(16384, 740, 740), 5, true},
      {ImageOf(8192, 310, 310), std::nullopt, true},
      {ImageOf(16384, 740, 740), 6, false},
      {ImageOf(16384, 740, 741), 5, false},
      {ImageOf(16384, 740, 740, 3), 5, false},
      {ImageOf(8192, 740, 740), std::nullopt, false},
      {ImageOf(16384, 310, 310), 1, false},
      {ImageOf(16384, 99, 99), std::nullopt, false},
      {"", std::nullopt, false},
      {"", 5, false},
  };
  for (const Case& c : cases) {
    const RadioContents contents = ContentsOfImage("boat.hex", c.image, c.model);
    EXPECT_EQ(contents.error.empty(), c.taken) << contents.error;
    EXPECT_EQ(contents.memory.size(), c.taken ? c.image.size() : 0);
    EXPECT_EQ(contents.error.find("boat.hex") != std::string::npos, !c.taken);
  }
}

TEST(RadioContents, ASampleOfEveryModelPassesTheChecksOfAConnectingProgram) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    const RadioContents contents =
        SampleContents(profile.model_type, ::orvane::testing::kAfterCutOver);
    EXPECT_FALSE(image::CheckImage(contents.memory, profile, profile.radio_code_address).Any());
  }
}

/// An empty folder, removed at the end.
class PortFolder : public ::testing::Test {
 public:
  PortFolder()
      : folder_(fs::path(::testing::TempDir()) /
                (std::string("orvane_ports_") +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name())) {
    fs::remove_all(folder_);
  }
  ~PortFolder() override { fs::remove_all(folder_); }
  PortFolder(const PortFolder&) = delete;
  PortFolder& operator=(const PortFolder&) = delete;

 protected:
  [[nodiscard]] std::unique_ptr<PortRegistration> Radio(int number) const {
    return RadioAtOneOf({number});
  }
  [[nodiscard]] std::unique_ptr<PortRegistration> RadioAtOneOf(std::vector<int> numbers) const {
    return MakePortRegistration((folder_ / "ports").string(), std::move(numbers));
  }
  [[nodiscard]] fs::path Link(const std::string& name) const { return folder_ / "ports" / name; }

  fs::path folder_;
};

TEST_F(PortFolder, ARunningRadioHasItsNumberToItself) {
  const auto first = Radio(16), second = Radio(16), other = Radio(15);
  EXPECT_EQ(first->Register("/dev/null"), "");
  EXPECT_EQ(fs::read_symlink(Link("COM16")), "/dev/null");
  EXPECT_NE(second->Register("/dev/zero").find("COM16 is taken"), std::string::npos);
  EXPECT_EQ(other->Register("/dev/zero"), "");
  first->Withdraw();
  EXPECT_FALSE(fs::exists(fs::symlink_status(Link("COM16"))));
  EXPECT_NE(second->Register("/dev/zero"), "") << "only unplugged: the number stays reserved";
  EXPECT_EQ(first->Register("/dev/zero"), "");
}

TEST_F(PortFolder, NothingIsLeftBehind) {
  EXPECT_EQ(Radio(16)->Register("/dev/null"), "");
  EXPECT_TRUE(fs::is_empty(folder_ / "ports"));
}

TEST_F(PortFolder, WhatAKilledRadioLeftIsTakenOver) {
  // The dead radio's device may be another program's terminal by now.
  ASSERT_EQ(Radio(16)->Register("/dev/null"), "");
  fs::create_symlink("/dev/null", Link("COM16"));
  std::ofstream(Link(".COM16.lock")) << "/dev/null";
  EXPECT_EQ(Radio(16)->Register("/dev/zero"), "");
  fs::create_symlink("/dev/no-such-device", Link("COM16"));
  EXPECT_EQ(Radio(16)->Register("/dev/zero"), "");
}

// 16 has a running radio, 15 is a user's own whose adapter is not plugged in, 14 was left behind.
TEST_F(PortFolder, OfSeveralNumbersTheFirstThatNobodyHasIsTakenAndKept) {
  const auto running = Radio(16);
  ASSERT_EQ(running->Register("/dev/null"), "");
  fs::create_symlink("/dev/no-such-device", Link("COM15"));
  fs::create_symlink("/dev/null", Link("COM14"));
  std::ofstream(Link(".COM14.lock")) << "/dev/null";
  const auto radio = RadioAtOneOf({16, 15, 14, 13});
  EXPECT_EQ(radio->Register("/dev/zero"), "");
  EXPECT_EQ(radio->Number(), 14);
  EXPECT_EQ(fs::read_symlink(Link("COM15")), "/dev/no-such-device");
  radio->Withdraw();
  EXPECT_FALSE(fs::exists(fs::symlink_status(Link("COM14"))));
  EXPECT_EQ(radio->Register("/dev/full"), "") << "plugged in again";
  EXPECT_EQ(fs::read_symlink(Link("COM14")), "/dev/full");
  EXPECT_NE(RadioAtOneOf({16, 15, 14})->Register("/dev/zero"), "");
}

TEST_F(PortFolder, AUsersOwnLinkIsNotTouched) {
  fs::create_directories(folder_ / "ports");
  fs::create_symlink("/dev/null", Link("COM16"));
  EXPECT_NE(Radio(16)->Register("/dev/zero").find("pinned to /dev/null"), std::string::npos);
  EXPECT_EQ(fs::read_symlink(Link("COM16")), "/dev/null");
}

}  // namespace
}  // namespace orvane::sim
