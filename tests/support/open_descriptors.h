#pragma once

#include <filesystem>
#include <iterator>
#include <system_error>

namespace orvane::testing {

/// How many files, sockets and devices this process has open; 0 where the system does not tell.
[[nodiscard]] inline std::ptrdiff_t OpenDescriptors() {
  std::error_code failure;
  const std::filesystem::directory_iterator listing("/proc/self/fd", failure);
  return failure ? 0 : std::distance(begin(listing), end(listing));
}

}  // namespace orvane::testing
