#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/services.h"

/// What a file held before it was last saved over: one previous version of each file, byte for
/// byte, in a folder of the user's.
namespace orvane::files {

/// Where the previous version of the file at that path stands: "boat-1A2B3C4D.dat". The number is
/// a checksum of the whole path, for files of one name in several folders.
[[nodiscard]] std::string PreviousVersionPath(const std::string& folder, const std::string& path);

/// For one save of one file.
class PreviousVersion {
 public:
  /// The store outlives it.
  PreviousVersion(core::FileStore& store, std::string folder, std::string path)
      : store_(store), folder_(std::move(folder)), path_(std::move(path)) {}

  /// To be called before the file is saved over. There is nothing to keep of a file that is not
  /// there or that holds the new bytes already. Returns why what there was could not be kept.
  [[nodiscard]] std::optional<core::SystemError> Keep(std::string_view new_bytes);
  /// The save has failed: what was kept before stands again, if Keep has replaced it.
  void TakeBack();

 private:
  core::FileStore& store_;
  const std::string folder_;
  const std::string path_;
  std::optional<std::string> replaced_;
};

}  // namespace orvane::files
