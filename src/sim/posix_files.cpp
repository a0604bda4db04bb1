#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <system_error>

#include "sim/host_system.h"

namespace orvane::sim {
namespace {

core::SystemError LastError() {
  const int number = errno;
  return {number, std::generic_category().message(number)};
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace

core::FileBytes ReadWholeFile(const std::string& path) {
  static_assert(kNoSuchFile == ENOENT);
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return {LastError(), {}};
  core::FileBytes result;
  std::array<char, 16384> buffer{};
  ssize_t count = 0;
  while ((count = read(file, buffer.data(), buffer.size())) > 0) {
    result.bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
  if (count < 0) result.error = LastError();
  close(file);
  return result;
}

std::optional<core::SystemError> ReplaceFile(const std::string& path, std::string_view bytes) {
  std::string temporary = path + ".XXXXXX";
  const int file = mkstemp(temporary.data());
  if (file < 0) return LastError();
  struct stat old = {};
  const mode_t mode = stat(path.c_str(), &old) == 0 ? old.st_mode & 07777 : 0644;
  const bool written = WriteAll(file, bytes) && fchmod(file, mode) == 0 && fsync(file) == 0;
  std::optional<core::SystemError> error;
  if (!written) error = LastError();
  close(file);
  if (!error && std::rename(temporary.c_str(), path.c_str()) != 0) error = LastError();
  if (error) unlink(temporary.c_str());
  return error;
}

core::Date Today() {
  const time_t now = time(nullptr);
  tm local = {};
  localtime_r(&now, &local);
  return {std::chrono::year{local.tm_year + 1900},
          std::chrono::month{static_cast<unsigned>(local.tm_mon + 1)},
          std::chrono::day{static_cast<unsigned>(local.tm_mday)}};
}

}  // namespace orvane::sim
