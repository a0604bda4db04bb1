#include "platform/interrupts.h"

#include <QGuiApplication>
#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

namespace orvane::platform {
namespace {

constexpr std::array<int, 2> kSignals = {SIGINT, SIGTERM};

// A signal handler can reach nothing but a global.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
volatile std::sig_atomic_t signal_pipe = -1;

extern "C" void OnSignal(int /*number*/) {
  const int saved = errno;
  const char byte = 1;
  static_cast<void>(!::write(signal_pipe, &byte, 1));
  errno = saved;
}

}  // namespace

void SignalInterrupts::Start(std::function<void()> on_interrupt) {
  Stop();
  if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  on_interrupt_ = std::move(on_interrupt);
  signal_pipe = pipe_[1];
  notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { TakeSignal(); });
  for (const int number : kSignals) std::signal(number, OnSignal);
}

void SignalInterrupts::Stop() {
  if (pipe_[0] < 0) return;
  for (const int number : kSignals) std::signal(number, SIG_DFL);
  notifier_.reset();
  for (int& end : pipe_) ::close(std::exchange(end, -1));
}

bool SignalInterrupts::WaitForInput() {
  std::array<pollfd, 2> sources = {{{STDIN_FILENO, POLLIN, 0}, {pipe_[0], POLLIN, 0}}};
  while (::poll(sources.data(), sources.size(), -1) < 0) {
    if (errno != EINTR) return true;
  }
  if (sources[1].revents == 0) return true;
  TakeSignal();
  return false;
}

void SignalInterrupts::TakeSignal() {
  std::array<char, 16> bytes{};
  if (::read(pipe_[0], bytes.data(), bytes.size()) > 0) on_interrupt_();
}

}  // namespace orvane::platform

#else

namespace orvane::platform {

// Windows has no signals to bring here: Ctrl-C ends the process there.
void SignalInterrupts::Start(std::function<void()> /*on_interrupt*/) {}
void SignalInterrupts::Stop() {}
bool SignalInterrupts::WaitForInput() {
  return true;
}
void SignalInterrupts::TakeSignal() {}

}  // namespace orvane::platform

#endif

namespace orvane::platform {

void DesktopInterrupts::Start(std::function<void()> on_interrupt) {
  session_end_ = std::make_unique<QObject>();
  // Answered at once: the session manager waits for it.
  QObject::connect(
      qGuiApp, &QGuiApplication::commitDataRequest, session_end_.get(),
      [on_interrupt](QSessionManager& /*manager*/) { on_interrupt(); }, Qt::DirectConnection);
  signals_.Start(std::move(on_interrupt));
}

void DesktopInterrupts::Stop() {
  signals_.Stop();
  session_end_.reset();
}

}  // namespace orvane::platform
