#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <thread>

#include "system_bench.h"

/// Windows are killed at random moments while they are edited. What the next start finds is whole,
/// nothing older than the last copy that was on the disk, and the saved file is never older than
/// the last save.
namespace orvane {
namespace {

constexpr std::chrono::milliseconds kInterval{30};  // a thousandth of the program's own

struct Told {
  std::map<std::string, int> last;  ///< by what was told
  std::map<int, int> times;         ///< milliseconds, by edit
  Told() = default;
  explicit Told(const std::string& text) {
    std::istringstream lines(text);
    std::string what;
    for (int number = 0; lines >> what >> number;) {
      if (what == "at") times[last["edit"]] = number;
      last[what] = number;
    }
  }
  /// Milliseconds from the first edit after that one until the last.
  [[nodiscard]] int Since(int edit) const {
    const auto next = times.upper_bound(edit);
    return next == times.end() ? 0 : times.rbegin()->second - next->second;
  }
  [[nodiscard]] int Of(const std::string& what) const {
    const auto it = last.find(what);
    return it == last.end() ? -1 : it->second;
  }
};

class KilledWindows : public testing::SystemBench {
 protected:
  struct Window {
    std::string number;
    std::unique_ptr<testing::Program> program{};
    Told before{};
  };

  /// The start after a kill, and what it found.
  void Start(Window& window) {
    const Words words = {EDITED_PROGRAM, folder_, window.number, std::to_string(kInterval.count())};
    window.program = std::make_unique<testing::Program>(words, settings_);
    const bool ready = window.program->AwaitOutput(
        [](const std::string& text) { return text.find("ready") != std::string::npos; });
    ASSERT_TRUE(ready) << window.program->Out() << window.program->Err();
    const Told now(window.program->Out());
    const Told& before = window.before;
    EXPECT_GE(now.Of("opened"), before.Of("saved"));
    EXPECT_GE(now.Of("ready"),
              std::max({before.Of("ready"), before.Of("kept"), before.Of("saved")}));
    EXPECT_LE(now.Of("ready"), std::max({before.Of("ready"), before.Of("edit"), now.Of("opened")}));
    lost_ = std::max(lost_, before.Since(now.Of("ready")));
    restored_ += now.Of("restored") > 0 ? 1 : 0;
  }
  static void Kill(Window& window) {
    window.program->Signal(SIGKILL);
    EXPECT_EQ(window.program->Wait(), 128 + SIGKILL);
    window.before = Told(window.program->Out());
  }

  /// Each round starts all windows, and kills them at moments of their own.
  void KillAgainAndAgain(std::vector<std::string> numbers) {
    const char* const wanted = std::getenv("ORVANE_KILLS");
    const int rounds = wanted != nullptr ? std::atoi(wanted) : 10;
    std::vector<Window> windows;
    for (std::string& number : numbers) windows.push_back({std::move(number)});
    std::mt19937 random(static_cast<unsigned>(windows.size()));
    for (int round = 0; round < rounds && !HasFatalFailure(); ++round) {
      for (Window& window : windows) Start(window);
      for (Window& window : windows) {
        // The moment is what is tested; nothing is waited for.
        std::this_thread::sleep_for(std::chrono::milliseconds(random() % 250));
        if (window.program != nullptr) Kill(window);
      }
    }
    for (Window& window : windows) Start(window);
    EXPECT_GT(restored_, rounds / 4);
    constexpr int kSlowDisk = 1000;
    EXPECT_LE(lost_, kInterval.count() + kSlowDisk);
    std::cout << rounds << " kills, work was restored " << restored_ << " times, at most the last "
              << lost_ << " ms were lost\n";
  }

  int restored_ = 0;
  int lost_ = 0;  ///< milliseconds of edits, at most
};

TEST_F(KilledWindows, LeaveWholeCopiesNoOlderThanTheLastOneKept) {
  KillAgainAndAgain({"1"});
}

TEST_F(KilledWindows, DoNotTakeEachOthersWork) {
  KillAgainAndAgain({"1", "2"});
}

}  // namespace
}  // namespace orvane
