#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "link/clone_frame.h"

/// A whole read, a whole program run, and one that keeps a copy first and reads back, of orvane-cli
/// against orvane-radio at 9600 baud over a pseudo-terminal. Compares the time that passes with the
/// time the wire itself needs for the bytes that travelled, plus the pauses that the protocol
/// prescribes, and shows the processor time of orvane-cli. A bare loop that reads the same bytes
/// shows what of it is the machine's. Takes minutes.
///   transfer_bench [FOLDER]     the programs stand in FOLDER, else beside this one
namespace orvane::bench {
namespace {

namespace fs = std::filesystem;

constexpr double kSecondsPerByte = 10.0 / 9600;
constexpr double kPauseBeforeSending = 0.010;
constexpr double kSettlePause = 1.000;
constexpr double kEndPause = 0.500;
constexpr double kBeforeWritingPause = 0.010;
constexpr std::size_t kAcknowledgement = link::kCommandOk.size() + 2;

[[noreturn]] void Fail(const std::string& sentence) {
  std::fprintf(stderr, "transfer_bench: %s\n", sentence.c_str());
  std::exit(1);
}

pid_t Start(const std::vector<std::string>& words, int output) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  if (output >= 0) ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  pid_t child = -1;
  const int failed =
      ::posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) Fail("cannot start " + words[0]);
  return child;
}

/// Radio of a run of its own; its log tells what travelled.
class Radio {
 public:
  Radio(const fs::path& programs, fs::path log) : log_(std::move(log)) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) Fail("no pipe");
    child_ = Start({programs / "orvane-radio", "--port", "16", "--log", log_}, ends[1]);
    ::close(ends[1]);
    std::array<char, 256> ready{};
    if (::read(ends[0], ready.data(), ready.size() - 1) <= 0) Fail("the radio does not start");
    output_ = ends[0];
    std::istringstream words(ready.data());  // "COM16 is /dev/pts/1"
    words >> device_ >> device_ >> device_;
  }
  Radio(const Radio&) = delete;
  Radio& operator=(const Radio&) = delete;
  ~Radio() {
    ::kill(child_, SIGTERM);
    ::waitpid(child_, nullptr, 0);
    ::close(output_);
  }
  [[nodiscard]] const fs::path& Log() const { return log_; }
  [[nodiscard]] const std::string& Device() const { return device_; }

 private:
  fs::path log_;
  std::string device_;
  pid_t child_ = -1;
  int output_ = -1;
};

/// One exchange: what the PC sends and how many bytes the radio answers.
struct Step {
  std::string sent;
  std::size_t answer = 0;
};

Step StepOf(const std::string& kind, const std::string& address, std::size_t length) {
  const std::string data(2 * length, '0');
  const std::string size = link::LengthField(static_cast<int>(length));
  if (kind == "handshake") return {"P", 1};
  if (kind == "confirm") return {"0", 0};
  if (kind == "mode") return {std::string(link::kModeRequest) + "\r\n", sizeof("OK\r\n") - 1};
  if (kind == "sync") return {std::string(link::kCommandSync) + "\r\n", kAcknowledgement};
  if (kind == "closing") return {std::string(link::kCommandOk) + "\r\n", 0};
  if (kind == "status") {
    return {link::BuildFrame(link::kCommandStatusRequest, "00"),
            kAcknowledgement + link::BuildFrame(link::kCommandStatusReply, "00").size()};
  }
  if (kind == "read") {
    return {link::BuildFrame(link::kCommandRead, address, size),
            kAcknowledgement + link::BuildFrame(link::kCommandData, address, size, data).size()};
  }
  if (kind == "write") {
    return {link::BuildFrame(link::kCommandWrite, address, size, data), kAcknowledgement};
  }
  Fail("an exchange that does not belong to a faultless run: " + kind);
}

std::vector<Step> StepsOf(const fs::path& log) {
  std::vector<Step> steps;
  std::ifstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string kind;
    std::string address;
    std::size_t length = 0;
    words >> kind >> address >> length;
    if (address.starts_with("0x")) address.erase(0, 2);
    steps.push_back(StepOf(kind, address, length));
  }
  return steps;
}

/// What the wire and the prescribed pauses take.
struct WireTime {
  std::size_t bytes = 0;
  double pauses = kSettlePause + kEndPause;
  [[nodiscard]] double Seconds() const {
    return static_cast<double>(bytes) * kSecondsPerByte + pauses;
  }
};

WireTime TimeOnTheWire(const std::vector<Step>& steps) {
  WireTime time;
  for (const Step& step : steps) {
    time.bytes += step.sent.size() + step.answer;
    time.pauses += kPauseBeforeSending;
  }
  return time;
}

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

void Print(const std::string& name, const WireTime& wire, double passed, double processor) {
  std::printf(
      "%-8s %6zu bytes  wire and pauses %6.2f s  passed %6.2f s (+%.2f %%)  processor %.2f s "
      "(%.2f %% of a core)\n",
      name.c_str(), wire.bytes, wire.Seconds(), passed, 100 * (passed / wire.Seconds() - 1),
      processor, 100 * processor / passed);
  std::fflush(stdout);
}

double Now() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

/// A run of orvane-cli; what it asked of the radio.
std::vector<Step> Measure(const fs::path& programs, const fs::path& folder, const std::string& name,
                          const std::vector<std::string>& words, double extra_pause) {
  const Radio radio(programs, folder / (name + ".log"));
  std::vector<std::string> command = {programs / "orvane-cli", "--yes"};
  command.insert(command.end(), words.begin(), words.end());
  const double start = Now();
  const pid_t child = Start(command, -1);
  int status = 0;
  rusage usage{};
  ::wait4(child, &status, 0, &usage);
  const double passed = Now() - start;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) Fail(name + " failed");
  std::vector<Step> steps = StepsOf(radio.Log());
  WireTime wire = TimeOnTheWire(steps);
  wire.pauses += extra_pause;
  Print(name, wire, passed, Seconds(usage.ru_utime) + Seconds(usage.ru_stime));
  return steps;
}

void Pause(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

/// The same bytes with the same pauses by the shortest loop there is: what the machine itself adds
/// by waking up for every byte.
void MeasureBareLoop(const fs::path& programs, const fs::path& folder,
                     const std::vector<Step>& steps) {
  const Radio radio(programs, folder / "bare.log");
  const int port = ::open(radio.Device().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (port < 0) Fail("the radio's port cannot be opened");
  rusage before{};
  ::getrusage(RUSAGE_SELF, &before);
  const double start = Now();
  Pause(kSettlePause);
  for (const Step& step : steps) {
    Pause(kPauseBeforeSending);
    if (::write(port, step.sent.data(), step.sent.size()) < 0) Fail("the port cannot be written");
    for (std::size_t left = step.sent.size() + step.answer; left > 0;) {
      pollfd entry{port, POLLIN, 0};
      constexpr int kPatienceMs = 10'000;
      if (::poll(&entry, 1, kPatienceMs) <= 0) Fail("the radio does not answer");
      std::array<char, 256> buffer{};
      const ssize_t count = ::read(port, buffer.data(), buffer.size());
      left -= std::min(left, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
  }
  Pause(kEndPause);
  const double passed = Now() - start;
  rusage after{};
  ::getrusage(RUSAGE_SELF, &after);
  ::close(port);
  Print("bare", TimeOnTheWire(steps), passed,
        Seconds(after.ru_utime) + Seconds(after.ru_stime) - Seconds(before.ru_utime) -
            Seconds(before.ru_stime));
}

}  // namespace
}  // namespace orvane::bench

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  using namespace orvane::bench;
  const fs::path programs =
      fs::absolute(argc > 1 ? fs::path(argv[1]) : fs::path(argv[0]).parent_path());
  std::string place = fs::temp_directory_path() / "transfer_bench_XXXXXX";
  if (::mkdtemp(place.data()) == nullptr) Fail("no folder for the files");
  const fs::path folder = place;
  // The user's own port numbers stay as they are.
  ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
  fs::create_directories(folder / "config");
  const std::string image = folder / "boat.hex";
  const auto steps =
      Measure(programs, folder, "read", {"read", "--model", "5", "--port", "16", "-o", image}, 0);
  MeasureBareLoop(programs, folder, steps);
  Measure(programs, folder, "program", {"program", "--port", "16", image}, kBeforeWritingPause);
  Measure(programs, folder, "proven",
          {"program", "--port", "16", image, "--keep", folder / "kept.hex", "--verify"},
          kBeforeWritingPause + 2 * kEndPause);
  fs::remove_all(folder);
  return 0;
}
