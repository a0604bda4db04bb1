#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <system_error>

#include "sim/host_system.h"

namespace orvane::sim {
namespace {

core::SystemError LastError() {
  const int number = errno;
  return {number, std::generic_category().message(number)};
}

void IgnoreSignal(int /*number*/) {}

/// The signals that end the program. They are held back except while it sleeps, so that none is
/// missed between looking and sleeping.
sigset_t StopSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, number);
  return set;
}

/// A pseudo-terminal. The program keeps the PC's end open too: the device then stays as it was
/// set up, and alive, while no other program has it open.
class PosixTerminal final : public Terminal {
 public:
  explicit PosixTerminal(StopsAt stops_at)
      : input_(stops_at == StopsAt::kEndOfInput ? STDIN_FILENO : kNone) {
    struct sigaction ignore = {};
    ignore.sa_handler = IgnoreSignal;
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaction(number, &ignore, nullptr);
    signal(SIGPIPE, SIG_IGN);
    const sigset_t stop = StopSignals();
    sigprocmask(SIG_BLOCK, &stop, &sleeping_mask_);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigdelset(&sleeping_mask_, number);
#ifdef __linux__
    prctl(PR_SET_TIMERSLACK, 1000UL, 0UL, 0UL, 0UL);  // wake up at a byte's time, within 1 us
#endif
  }
  PosixTerminal(const PosixTerminal&) = delete;
  PosixTerminal& operator=(const PosixTerminal&) = delete;
  ~PosixTerminal() override {
    HangUp();
  }

  [[nodiscard]] std::optional<core::SystemError> Open() override {
    HangUp();
    radio_end_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (radio_end_ < 0 || grantpt(radio_end_) != 0 || unlockpt(radio_end_) != 0) return Fail();
    const char* const name = ptsname(radio_end_);
    if (name == nullptr) return Fail();
    device_ = name;
    pc_end_ = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (pc_end_ < 0) return Fail();
    termios modes = {};
    if (tcgetattr(pc_end_, &modes) != 0) return Fail();
    cfmakeraw(&modes);
    cfsetspeed(&modes, B9600);
    if (tcsetattr(pc_end_, TCSANOW, &modes) != 0) return Fail();
    return std::nullopt;
  }

  void HangUp() override {
    for (int* const end : {&pc_end_, &radio_end_}) {
      if (*end >= 0) close(*end);
      *end = -1;
    }
    device_.clear();
  }

  [[nodiscard]] std::string Device() const override {
    return device_;
  }

  [[nodiscard]] std::vector<std::uint8_t> Read() override {
    std::vector<std::uint8_t> bytes;
    std::array<std::uint8_t, 4096> buffer{};
    while (radio_end_ >= 0) {
      const ssize_t count = read(radio_end_, buffer.data(), buffer.size());
      if (count <= 0) break;
      bytes.insert(bytes.end(), buffer.begin(), buffer.begin() + count);
    }
    if (!bytes.empty()) LetOthersOpen();
    return bytes;
  }

  void Write(std::span<const std::uint8_t> bytes) override {
    while (radio_end_ >= 0 && !bytes.empty()) {
      const ssize_t count = write(radio_end_, bytes.data(), bytes.size());
      if (count <= 0) return;
      bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
  }

  [[nodiscard]] double Now() const override {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
  }

  [[nodiscard]] bool Wait(std::optional<double> until) override {
    sigset_t pending;
    sigpending(&pending);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
      if (sigismember(&pending, number) == 1) return false;
    }
    timespec left = {};
    if (until) {
      const double seconds = std::max(0.0, *until - Now());
      left.tv_sec = static_cast<time_t>(seconds);
      left.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    }
    std::array<pollfd, 2> ends = {{{.fd = radio_end_, .events = POLLIN, .revents = 0},
                                   {.fd = input_, .events = POLLIN, .revents = 0}}};
    const int ready = ppoll(ends.data(), ends.size(), until ? &left : nullptr, &sleeping_mask_);
    if (ready < 0) return errno != EINTR;
    return ends[1].revents == 0 || HasInput();
  }

 private:
  // A PC's program that is killed cannot give back the device it has taken for itself alone, and
  // the end that is kept open here keeps it taken. Programs that mind lock files still exclude
  // each other.
  void LetOthersOpen() const {
    ioctl(pc_end_, TIOCNXCL);
  }

  // What is typed means nothing here.
  [[nodiscard]] bool HasInput() const {
    std::array<char, 256> passed_over{};
    return read(input_, passed_over.data(), passed_over.size()) > 0;
  }

  std::optional<core::SystemError> Fail() {
    const core::SystemError error = LastError();
    HangUp();
    return error;
  }

  static constexpr int kNone = -1;  ///< poll passes over it

  const int input_;
  int radio_end_ = -1;
  int pc_end_ = -1;
  std::string device_;
  sigset_t sleeping_mask_{};
};

}  // namespace

std::unique_ptr<Terminal> MakeTerminal(StopsAt stop) {
  return std::make_unique<PosixTerminal>(stop);
}

}  // namespace orvane::sim
