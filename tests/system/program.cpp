#include "program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace orvane::testing {
namespace {

constexpr int kPatienceMs = 30'000;

// Pointers for the system, ended by null. The texts must outlive them.
std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): execv changes nothing
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  return pointers;
}

}  // namespace

Program::Program(const std::vector<std::string>& words, const std::vector<std::string>& settings) {
  std::array<int, 2> out{};
  std::array<int, 2> err{};
  if (::pipe2(out.data(), O_CLOEXEC) != 0 || ::pipe2(err.data(), O_CLOEXEC) != 0) return;
  std::vector<char*> arguments = Pointers(words);
  arguments.push_back(nullptr);
  std::vector<char*> environment = Pointers(settings);
  for (char** entry = environ; *entry != nullptr; ++entry) environment.push_back(*entry);
  environment.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
  if (::posix_spawn(&child_, arguments[0], &actions, nullptr, arguments.data(),
                    environment.data()) != 0) {
    child_ = -1;
  }
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(out[1]);
  ::close(err[1]);
  out_.end = out[0];
  err_.end = err[0];
}

Program::~Program() {
  if (child_ > 0) {
    Signal(SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }
  for (const int end : {out_.end, err_.end}) {
    if (end >= 0) ::close(end);
  }
}

void Program::Take(Stream& stream) {
  std::array<char, 4096> buffer{};
  const ssize_t count = ::read(stream.end, buffer.data(), buffer.size());
  if (count > 0) {
    stream.text.append(buffer.data(), static_cast<std::size_t>(count));
    return;
  }
  ::close(stream.end);
  stream.end = -1;
}

bool Program::Collect() {
  if (out_.end < 0 && err_.end < 0) return false;
  std::array<pollfd, 2> ends = {pollfd{out_.end, POLLIN, 0}, pollfd{err_.end, POLLIN, 0}};
  if (::poll(ends.data(), ends.size(), kPatienceMs) <= 0) return false;
  if (ends[0].revents != 0) Take(out_);
  if (ends[1].revents != 0) Take(err_);
  return true;
}

bool Program::AwaitOutput(const std::function<bool(const std::string&)>& condition) {
  while (!condition(out_.text)) {
    if (out_.end < 0 || !Collect()) return false;
  }
  return true;
}

void Program::Signal(int number) const {
  if (child_ > 0) ::kill(child_, number);
}

int Program::Wait() {
  while (Collect()) {
  }
  int status = 0;
  if (out_.end >= 0 || err_.end >= 0) Signal(SIGKILL);  // it says nothing and does not end
  if (child_ <= 0 || ::waitpid(child_, &status, 0) != child_) return -1;
  child_ = -1;
  constexpr int kSignalled = 128;
  return WIFEXITED(status) ? WEXITSTATUS(status) : kSignalled + WTERMSIG(status);
}

}  // namespace orvane::testing
