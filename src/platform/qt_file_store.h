#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/services.h"

namespace orvane::platform {

/// Files on the machine's disks. Writing goes through a temporary file in the same folder that is
/// flushed to the disk and renamed over the old one; only regular files are ever replaced.
class QtFileStore : public core::FileStore {
 public:
  /// Nothing the program reads is larger; a file that is, is refused before memory fills up.
  static constexpr std::int64_t kLargestFile = std::int64_t{16} * 1024 * 1024;

  [[nodiscard]] core::FileBytes ReadFile(const std::string& path) override;
  [[nodiscard]] std::optional<std::uint64_t> FileSize(const std::string& path) override;
  [[nodiscard]] std::optional<core::SystemError> WriteFile(const std::string& path,
                                                           std::string_view bytes) override;
  [[nodiscard]] std::optional<core::SystemError> CheckWritable(const std::string& path) override;
  [[nodiscard]] std::vector<std::string> ListFolder(const std::string& folder) override;
};

}  // namespace orvane::platform
