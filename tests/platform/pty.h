#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <string>

namespace orvane::platform {

/// A pseudo-terminal: the device a program opens as its serial port, and the far end of the cable,
/// which programs that a test starts do not inherit.
class Pty {
 public:
  Pty() : far_end_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    ::grantpt(far_end_);
    ::unlockpt(far_end_);
    std::array<char, 64> name{};
    ::ptsname_r(far_end_, name.data(), name.size());
    device_ = name.data();
  }
  Pty(const Pty&) = delete;
  Pty& operator=(const Pty&) = delete;
  ~Pty() { Unplug(); }

  [[nodiscard]] const std::string& Device() const { return device_; }
  bool Send(const std::string& bytes) const {
    return ::write(far_end_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  }
  /// What has arrived at the far end by now.
  [[nodiscard]] std::string Received() const {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(far_end_, buffer.data(), buffer.size());
    return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
  }
  void Unplug() {
    if (far_end_ >= 0) ::close(far_end_);
    far_end_ = -1;
  }

 private:
  int far_end_;
  std::string device_;
};

}  // namespace orvane::platform
