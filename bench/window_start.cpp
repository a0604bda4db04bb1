#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

/// Starts the program and a bare window with a tree of 840 nodes in turn, as they are on the disk,
/// and compares what passes until the window is painted, and the memory resident then.
///   window_start [STARTS]     starts of each program that count (default 40)
namespace orvane::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kUncounted = 3;  // starts of each that fill the caches of the system
constexpr double kMostTime = 1.3;
constexpr double kMostMemory = 1.5;

[[noreturn]] void Fail(const std::string& sentence) {
  std::fprintf(stderr, "window_start: %s\n", sentence.c_str());
  std::exit(1);
}

struct Start {
  double milliseconds;
  double kilobytes;
  double most_kilobytes;
};

double Now() {
  const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
  return now.count();
}

Start Measure(const fs::path& program) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) Fail("no pipe");
  posix_spawn_file_actions_t actions{};
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::string name = program;
  const std::array<char*, 2> words = {name.data(), nullptr};
  pid_t child = -1;
  const double began = Now();
  if (::posix_spawn(&child, name.c_str(), &actions, nullptr, words.data(), environ) != 0) {
    Fail(name + " cannot be started");
  }
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  std::string line;
  std::array<char, 256> part{};
  for (ssize_t count = 0; (count = ::read(ends[0], part.data(), part.size())) > 0;) {
    line.append(part.data(), static_cast<std::size_t>(count));
  }
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  Start start{};
  double painted = 0;
  if (std::sscanf(line.c_str(), "%lf %lf %lf", &painted, &start.kilobytes, &start.most_kilobytes) !=
      3) {
    Fail(name + " did not paint a window");
  }
  start.milliseconds = (painted - began) * 1000;
  return start;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/// True when the ratio keeps the limit. It is the median of those of one start after the other,
/// which share what else the machine has to do.
bool Compare(const char* what, const char* unit, const std::vector<Start>& program,
             const std::vector<Start>& bare, double Start::*figure, double most) {
  std::vector<double> ours;
  std::vector<double> yardstick;
  std::vector<double> ratios;
  for (std::size_t i = 0; i < program.size(); ++i) {
    ours.push_back(program[i].*figure);
    yardstick.push_back(bare[i].*figure);
    ratios.push_back(ours[i] / yardstick[i]);
  }
  const double ratio = Median(ratios);
  std::printf("%-22s  orvane %8.1f %s  bare window %8.1f %s  ratio %.2f, at most %.1f\n", what,
              Median(ours), unit, Median(yardstick), unit, ratio, most);
  return ratio <= most;
}

}  // namespace
}  // namespace orvane::bench

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  using namespace orvane::bench;
  const int counted = argc > 1 ? std::atoi(argv[1]) : 40;
  if (counted < 1) Fail("usage: window_start [STARTS]");
  const fs::path programs = fs::absolute(argv[0]).parent_path();
  std::string place = fs::temp_directory_path() / "window_start_XXXXXX";
  if (::mkdtemp(place.data()) == nullptr) Fail("no folder for the settings");
  ::setenv("XDG_CONFIG_HOME", place.c_str(), 1);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  ::setenv("LD_PRELOAD", (programs / "first_paint_probe.so").c_str(), 1);

  std::vector<Start> program;
  std::vector<Start> bare;
  for (int i = -kUncounted; i < counted; ++i) {
    const Start ours = Measure(programs / "orvane");
    const Start yardstick = Measure(programs / "bare_window");
    if (i < 0) continue;
    program.push_back(ours);
    bare.push_back(yardstick);
  }
  fs::remove_all(place);
  std::printf("Medians of %d starts each, in turn:\n", counted);
  bool kept =
      Compare("process start to paint", "ms", program, bare, &Start::milliseconds, kMostTime);
  kept = Compare("resident memory", "kB", program, bare, &Start::kilobytes, kMostMemory) && kept;
  kept = Compare("its peak", "kB", program, bare, &Start::most_kilobytes, kMostMemory) && kept;
  return kept ? 0 : 1;
}
