#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/services.h"

/// What a file held before it was last saved over: one previous version of each file, byte for
/// byte, in a folder of the user's.
namespace orvane::files {

/// Where the previous version of the file at that path stands: "boat-1A2B3C4D.dat". The number is
/// a checksum of the whole path, for files of one name in several folders.
[[nodiscard]] std::string PreviousVersionPath(const std::string& folder, const std::string& path);

/// To be called before the file is saved over. There is nothing to keep of a file that is not there
/// or that holds the new bytes already. Returns why what there was could not be kept.
[[nodiscard]] std::optional<core::SystemError> KeepPreviousVersion(core::FileStore& store,
                                                                   const std::string& folder,
                                                                   const std::string& path,
                                                                   std::string_view new_bytes);

}  // namespace orvane::files
