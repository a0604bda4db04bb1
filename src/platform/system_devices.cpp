#include "platform/system_devices.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>

#include "link/port_links.h"
#endif
#ifdef Q_OS_LINUX
#include <sys/sysmacros.h>
#endif

namespace orvane::platform {

#ifdef Q_OS_UNIX
namespace {

namespace fs = std::filesystem;
using link::PortHolder;

/// A process by its folder in /proc.
class Process {
 public:
  explicit Process(fs::path folder) : folder_(std::move(folder)) {}

  [[nodiscard]] PortHolder Holder() const {
    std::ifstream comm(folder_ / "comm");
    std::string name;
    std::getline(comm, name);
    return {name, std::stoi(folder_.filename())};
  }

  /// The paths it has open; none where the system does not tell.
  [[nodiscard]] std::set<fs::path> OpenPaths() const {
    std::set<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator it(folder_ / "fd", error), end; !error && it != end;
         it.increment(error)) {
      std::error_code link_error;
      paths.insert(fs::read_symlink(it->path(), link_error));
    }
    return paths;
  }

 private:
  fs::path folder_;
};

bool IsProcessNumber(const std::string& name) {
  constexpr std::size_t kMostDigits = 9;
  return !name.empty() && name.size() <= kMostDigits &&
         name.find_first_not_of("0123456789") == std::string::npos;
}

/// All but this one, lowest number first.
std::vector<Process> OtherProcesses() {
  std::vector<int> numbers;
  std::error_code error;
  for (fs::directory_iterator it("/proc", error), end; !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename();
    if (IsProcessNumber(name) && std::stoi(name) != ::getpid()) numbers.push_back(std::stoi(name));
  }
  std::sort(numbers.begin(), numbers.end());
  std::vector<Process> processes;
  processes.reserve(numbers.size());
  for (const int number : numbers) processes.emplace_back("/proc/" + std::to_string(number));
  return processes;
}

// What has the other end of a pseudo-terminal, such as a simulated radio, may keep this end open
// too and is not in the way.
bool IsOtherEnd(const std::set<fs::path>& open, const fs::path& device) {
  return device.string().starts_with("/dev/pts/") &&
         (open.contains("/dev/ptmx") || open.contains("/dev/pts/ptmx"));
}

}  // namespace

// What is no terminal cannot be a port. It is not opened to find out: opening moves the lines of a
// cable, and closing hangs up a pseudo-terminal.
bool IsTerminal(const std::string& device) {
  struct stat status = {};
  if (::stat(device.c_str(), &status) != 0 || !S_ISCHR(status.st_mode)) return false;
#ifdef Q_OS_LINUX
  std::ifstream drivers("/proc/tty/drivers");
  if (!drivers) return true;
  const std::string text{std::istreambuf_iterator<char>(drivers), {}};
  return link::HasTerminalDriver(text, major(status.st_rdev), minor(status.st_rdev));
#else
  return true;
#endif
}

std::vector<std::vector<PortHolder>> SystemDevices::HoldersOf(
    const std::vector<std::string>& devices) {
  std::vector<std::vector<PortHolder>> holders(devices.size());
  std::vector<fs::path> paths;
  for (const std::string& device : devices) {
    std::error_code error;
    paths.push_back(IsTerminal(device) ? fs::canonical(device, error) : fs::path());
  }
  for (const Process& process : OtherProcesses()) {
    const std::set<fs::path> open = process.OpenPaths();
    for (std::size_t i = 0; i < paths.size(); ++i) {
      if (paths[i].empty() || !open.contains(paths[i]) || IsOtherEnd(open, paths[i])) continue;
      holders[i].push_back(process.Holder());
    }
  }
  return holders;
}

std::vector<PortHolder> SystemDevices::Running(std::string_view program) {
  std::vector<PortHolder> running;
  for (const Process& process : OtherProcesses()) {
    PortHolder holder = process.Holder();
    if (holder.program == program) running.push_back(std::move(holder));
  }
  return running;
}

link::DeviceGroup SystemDevices::GroupOf(const std::string& device) {
  struct stat status {};
  const bool group_may = ::stat(device.c_str(), &status) == 0 && (status.st_mode & S_IWGRP) != 0;
  const group* const owner = group_may ? ::getgrgid(status.st_gid) : nullptr;
  const passwd* const user = ::getpwuid(::getuid());
  return {owner != nullptr ? owner->gr_name : "", user != nullptr ? user->pw_name : "$USER"};
}

#else

bool IsTerminal(const std::string& /*device*/) {
  return true;
}

std::vector<std::vector<link::PortHolder>> SystemDevices::HoldersOf(
    const std::vector<std::string>& devices) {
  return std::vector<std::vector<link::PortHolder>>(devices.size());
}

std::vector<link::PortHolder> SystemDevices::Running(std::string_view /*program*/) {
  return {};
}

link::DeviceGroup SystemDevices::GroupOf(const std::string& /*device*/) {
  return {};
}

#endif

}  // namespace orvane::platform
