#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/services.h"

namespace orvane::platform {

/// Files on the machine's disks. Writing goes through a temporary file in the same folder that is
/// flushed to the disk and renamed over the old one; only regular files are ever read or replaced.
///
/// Where the folder takes no new file but the old one may be written, it is overwritten in place:
/// only then a copy of the old contents is kept elsewhere first, since what is half written when
/// the power fails would be lost.
class QtFileStore : public core::FileStore {
 public:
  /// The copies of files that are overwritten in place go to that folder, which is made when
  /// needed; one for each path, the latest. Without such a folder no file is overwritten in place.
  explicit QtFileStore(std::string copies_folder = {}) : copies_folder_(std::move(copies_folder)) {}

  /// Nothing the program reads is larger; a file that is, is refused before memory fills up.
  static constexpr std::int64_t kLargestFile = std::int64_t{16} * 1024 * 1024;

  [[nodiscard]] core::FileBytes ReadFile(const std::string& path) override;
  [[nodiscard]] core::FileBytes ReadStart(const std::string& path, std::size_t most) override;
  [[nodiscard]] std::optional<std::uint64_t> FileSize(const std::string& path) override;
  [[nodiscard]] std::optional<core::SystemError> WriteFile(const std::string& path,
                                                           std::string_view bytes) override;
  [[nodiscard]] std::optional<core::SystemError> CheckWritable(const std::string& path) override;
  [[nodiscard]] std::vector<std::string> ListFolder(const std::string& folder) override;
  [[nodiscard]] std::optional<core::SystemError> MakeFolder(const std::string& folder) override;
  [[nodiscard]] std::optional<core::SystemError> RemoveFile(const std::string& path) override;

 private:
  [[nodiscard]] std::optional<core::SystemError> WriteInPlace(const QString& path,
                                                              std::string_view bytes);

  std::string copies_folder_;
};

}  // namespace orvane::platform
