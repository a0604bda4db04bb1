#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "program.h"

namespace orvane::testing {

/// The real programs in a folder of their own, with their own configuration.
class SystemBench : public ::testing::Test {
 public:
  SystemBench() {
    std::string name = std::filesystem::temp_directory_path() / "orvane_system_XXXXXX";
    folder_ = ::mkdtemp(name.data()) != nullptr ? name : "";
    settings_ = {"XDG_CONFIG_HOME=" + Path("config"), "XDG_STATE_HOME=" + Path("state"),
                 "QT_QPA_PLATFORM=offscreen", "LC_ALL=C.UTF-8"};
    std::filesystem::create_directories(Path("config"));
  }
  ~SystemBench() override {
    radio_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  SystemBench(const SystemBench&) = delete;
  SystemBench& operator=(const SystemBench&) = delete;

 protected:
  using Words = std::vector<std::string>;

  [[nodiscard]] std::string Path(const std::string& name) const { return folder_ + "/" + name; }
  [[nodiscard]] bool Exists(const std::string& name) const {
    return std::filesystem::exists(Path(name));
  }
  [[nodiscard]] std::string Contents(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// A radio at COM16 that is ready; it keeps its memory in the file "kept". Fast unless told.
  void StartRadio(const Words& options = {}, const std::string& baud = "0") {
    Words words = {ORVANE_RADIO, "--baud", baud, "--keep", Path("kept")};
    words.insert(words.end(), options.begin(), options.end());
    radio_ = std::make_unique<Program>(words, settings_);
    ASSERT_TRUE(radio_->AwaitOutput([](const std::string& text) {
      return text.starts_with("COM16 is ") && text.ends_with('\n');
    })) << radio_->Err();
  }
  /// What the radio was asked since it was started, as far as it has told.
  [[nodiscard]] Words Asked() const {
    std::istringstream lines(radio_->Out());
    Words asked;
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) asked.push_back(line);
    return asked;
  }
  /// Until the radio was asked for the n-th time to do that.
  [[nodiscard]] bool AwaitAsked(const std::string& kind, long count) {
    return radio_->AwaitOutput([&](const std::string&) {
      const Words asked = Asked();
      return std::count_if(asked.begin(), asked.end(), [&](const std::string& line) {
               return line.starts_with(kind);
             }) >= count;
    });
  }
  /// Ends the radio in good order, so that all it told and kept is there.
  void StopRadio(int signal) {
    radio_->Signal(signal);
    EXPECT_EQ(radio_->Wait(), 0);
  }

  [[nodiscard]] std::unique_ptr<Program> StartCli(Words words) const {
    words.insert(words.begin(), {ORVANE_CLI, "--yes"});
    return std::make_unique<Program>(words, settings_);
  }
  /// Exit status; what the program said is in said_, standard error only.
  int Cli(const Words& words) {
    const std::unique_ptr<Program> program = StartCli(words);
    const int status = program->Wait();
    said_ = program->Err();
    return status;
  }
  int Read(const std::string& file, Words more = {}) {
    Words words = {"read", "--model", "5", "--port", "COM16", "-o", Path(file)};
    words.insert(words.end(), more.begin(), more.end());
    return Cli(words);
  }

  std::string folder_;
  Words settings_;
  std::unique_ptr<Program> radio_;
  std::string said_;
};

}  // namespace orvane::testing
