#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "link/clone_frame.h"

/// One whole read and one whole program run of orvane-cli against orvane-radio at 9600 baud over a
/// pseudo-terminal. Compares the time that passes with the time the wire itself needs for the bytes
/// that travelled, plus the pauses that the protocol prescribes, and shows the processor time of
/// orvane-cli. Takes minutes.
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
    char ready = 0;
    if (::read(ends[0], &ready, 1) != 1) Fail("the radio does not start");
    output_ = ends[0];
  }
  Radio(const Radio&) = delete;
  Radio& operator=(const Radio&) = delete;
  ~Radio() {
    ::kill(child_, SIGTERM);
    ::waitpid(child_, nullptr, 0);
    ::close(output_);
  }
  [[nodiscard]] const fs::path& Log() const { return log_; }

 private:
  fs::path log_;
  pid_t child_ = -1;
  int output_ = -1;
};

/// What the wire and the prescribed pauses take for the exchanges of a log.
struct WireTime {
  int bytes = 0;
  double pauses = kSettlePause + kEndPause;
  [[nodiscard]] double Seconds() const { return bytes * kSecondsPerByte + pauses; }
};

std::size_t BytesOf(const std::string& kind, const std::string& address, std::size_t length) {
  const std::string data(2 * length, '0');
  const std::string size = link::LengthField(static_cast<int>(length));
  if (kind == "handshake") return 2;
  if (kind == "confirm") return 1;
  if (kind == "mode") return link::kModeRequest.size() + 2 + std::string("OK\r\n").size();
  if (kind == "sync") return link::kCommandSync.size() + 2 + kAcknowledgement;
  if (kind == "closing") return kAcknowledgement;
  if (kind == "status") {
    return link::BuildFrame(link::kCommandStatusRequest, "00").size() + kAcknowledgement +
           link::BuildFrame(link::kCommandStatusReply, "00").size();
  }
  if (kind == "read") {
    return link::BuildFrame(link::kCommandRead, address, size).size() + kAcknowledgement +
           link::BuildFrame(link::kCommandData, address, size, data).size();
  }
  if (kind == "write") {
    return link::BuildFrame(link::kCommandWrite, address, size, data).size() + kAcknowledgement;
  }
  Fail("an exchange that does not belong to a faultless run: " + kind);
}

WireTime TimeOnTheWire(const fs::path& log) {
  WireTime time;
  std::ifstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string kind;
    std::string address;
    std::size_t length = 0;
    words >> kind >> address >> length;
    if (address.starts_with("0x")) address.erase(0, 2);
    time.bytes += static_cast<int>(BytesOf(kind, address, length));
    time.pauses += kPauseBeforeSending;
  }
  return time;
}

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

void Measure(const fs::path& programs, const fs::path& folder, const std::string& name,
             const std::vector<std::string>& words, double extra_pause) {
  const Radio radio(programs, folder / (name + ".log"));
  std::vector<std::string> command = {programs / "orvane-cli", "--yes"};
  command.insert(command.end(), words.begin(), words.end());
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = Start(command, -1);
  int status = 0;
  rusage usage{};
  ::wait4(child, &status, 0, &usage);
  const double passed =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) Fail(name + " failed");
  WireTime wire = TimeOnTheWire(radio.Log());
  wire.pauses += extra_pause;
  const double processor = Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
  std::printf(
      "%-8s %6d bytes  wire and pauses %7.2f s  passed %7.2f s (+%.2f %%)  processor %.2f s "
      "(%.2f %% of a core)\n",
      name.c_str(), wire.bytes, wire.Seconds(), passed, 100 * (passed / wire.Seconds() - 1),
      processor, 100 * processor / passed);
  std::fflush(stdout);
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
  Measure(programs, folder, "read", {"read", "--model", "5", "--port", "16", "-o", image}, 0);
  Measure(programs, folder, "program", {"program", "--port", "16", image}, kBeforeWritingPause);
  fs::remove_all(folder);
  return 0;
}
