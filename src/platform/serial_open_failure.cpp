#include "platform/serial_open_failure.h"

#include <QSerialPort>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace orvane::platform {
namespace {

namespace fs = std::filesystem;

std::string InUseBy(const std::string& program) {
  if (program.empty()) return "Another program is using the port. Close that program.";
  return "The port is in use by " + program + ". Close that program.";
}

#ifdef Q_OS_UNIX

bool IsProcessNumber(const std::string& name) {
  return !name.empty() && name.find_first_not_of("0123456789") == std::string::npos;
}

bool HasOpen(const fs::path& process, const fs::path& device) {
  std::error_code error;
  for (fs::directory_iterator it(process / "fd", error), end; !error && it != end;
       it.increment(error)) {
    std::error_code link_error;
    if (fs::read_symlink(it->path(), link_error) == device) return true;
  }
  return false;
}

// What has the other end of a pseudo-terminal, such as a simulated radio, may keep this end open
// too and is not in the way.
bool IsOtherEnd(const fs::path& process, const fs::path& device) {
  return device.string().starts_with("/dev/pts/") &&
         (HasOpen(process, "/dev/ptmx") || HasOpen(process, "/dev/pts/ptmx"));
}

// "name (process n)" of the first program other than this one that has the device open; "" where
// the system does not tell (another user's program, a system without /proc).
std::string ProgramUsing(const std::string& device) {
  std::error_code error;
  const fs::path wanted = fs::canonical(device, error);
  if (error) return {};
  const std::string own_number = std::to_string(::getpid());
  for (fs::directory_iterator it("/proc", error), end; !error && it != end; it.increment(error)) {
    const std::string number = it->path().filename();
    if (!IsProcessNumber(number) || number == own_number || !HasOpen(it->path(), wanted)) continue;
    if (IsOtherEnd(it->path(), wanted)) continue;
    std::ifstream comm(it->path() / "comm");
    std::string name;
    std::getline(comm, name);
    return name.append(" (process ").append(number).append(")");
  }
  return {};
}

std::string HowToGetPermission(const std::string& device) {
  struct stat status {};
  const bool group_may = ::stat(device.c_str(), &status) == 0 && (status.st_mode & S_IWGRP) != 0;
  const group* const owner = group_may ? ::getgrgid(status.st_gid) : nullptr;
  if (owner == nullptr) return "Ask the administrator for permission to use " + device + ".";
  const std::string name = owner->gr_name;
  return "Join the group \"" + name + "\" (sudo usermod -aG " + name +
         " \"$USER\"), then log in again.";
}

// The number the system gives for the failure. Qt folds several of them into one, so the device
// is asked again; 0 when it can be opened now.
int OpenErrorNumber(const std::string& device) {
  const int descriptor = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return errno;
  const bool terminal = ::isatty(descriptor) == 1;
  ::close(descriptor);
  return terminal ? 0 : ENOTTY;
}

std::string SystemPath(const std::string& device) {
  return device.starts_with("/") ? device : "/dev/" + device;
}

#else

std::string ProgramUsing(const std::string& /*device*/) {
  return {};
}

std::string HowToGetPermission(const std::string& device) {
  return "Ask the administrator for permission to use " + device + ".";
}

// Windows answers with "access denied" when another program has the port.
int OpenErrorNumber(const std::string& device) {
  return fs::exists(device) ? EBUSY : ENOENT;
}

std::string SystemPath(const std::string& device) {
  return device.starts_with("\\\\") ? device : "\\\\.\\" + device;
}

#endif

}  // namespace

std::optional<std::string> OpenRemedy(int number, const std::string& device) {
  switch (number) {
    case ENOENT:
    case ENXIO:
    case ENODEV:
    case ENOTDIR:
      return "There is no such device. Connect the cable or choose another port.";
    case EBUSY:
      return InUseBy(ProgramUsing(device));
    case EACCES:
    case EPERM:
      return HowToGetPermission(device);
    case ENOTTY:
    case EISDIR:
      return "This is not a serial port. Choose another port.";
    default:
      return std::nullopt;
  }
}

core::SystemError ExplainOpenFailure(const std::string& device, const core::SystemError& reported) {
  const std::string path = SystemPath(device);
  int number = OpenErrorNumber(path);
  // Qt minds the lock file of another program; the system itself would open the port.
  const bool locked = reported.number == QSerialPort::PermissionError;
  if (number == 0 && (locked || !ProgramUsing(path).empty())) number = EBUSY;
  const std::optional<std::string> remedy = OpenRemedy(number, path);
  if (!remedy) return reported;
  return {number, std::generic_category().message(number) + "\r\n" + *remedy};
}

}  // namespace orvane::platform
