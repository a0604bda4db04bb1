#include "platform/serial_open_failure.h"

#include <QSerialPort>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "link/doctor.h"
#include "platform/system_devices.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace orvane::platform {
namespace {

#ifdef Q_OS_UNIX

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

// Windows answers with "access denied" when another program has the port.
int OpenErrorNumber(const std::string& device) {
  return std::filesystem::exists(device) ? EBUSY : ENOENT;
}

std::string SystemPath(const std::string& device) {
  return device.starts_with("\\\\") ? device : "\\\\.\\" + device;
}

#endif

}  // namespace

std::optional<std::string> OpenRemedy(int number, const std::string& device) {
  SystemDevices devices;
  link::Observations seen{.device = device, .open_failure = number};
  seen.holders = devices.HoldersOf({device}).front();
  seen.takers = link::TakersAmong(devices);
  seen.permission = devices.GroupOf(device);
  const std::optional<link::Diagnosis> known = link::DiagnoseOpening(seen);
  if (!known) return std::nullopt;
  return link::OneLine(*known);
}

core::SystemError ExplainOpenFailure(const std::string& device, const core::SystemError& reported) {
  const std::string path = SystemPath(device);
  int number = OpenErrorNumber(path);
  // Qt minds the lock file of another program; the system itself would open the port.
  const bool locked = reported.number == QSerialPort::PermissionError;
  if (number == 0 && (locked || !SystemDevices().HoldersOf({path}).front().empty())) number = EBUSY;
  const std::optional<std::string> remedy = OpenRemedy(number, path);
  if (!remedy && number == 0) return reported;
  if (!remedy) return {number, std::generic_category().message(number)};
  return {number, std::generic_category().message(number) + "\r\n" + *remedy};
}

}  // namespace orvane::platform
