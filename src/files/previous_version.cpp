#include "files/previous_version.h"

#include <algorithm>

#include "core/crc32.h"
#include "core/text.h"
#include "files/snapshot.h"

namespace orvane::files {

std::string PreviousVersionPath(const std::string& folder, const std::string& path) {
  const std::string name = core::WithoutFolder(path);
  const std::size_t dot = std::min(name.rfind('.'), name.size());
  return folder + '/' + name.substr(0, dot) + '-' + ChecksumText(core::Crc32(path)) +
         name.substr(dot);
}

std::optional<core::SystemError> KeepPreviousVersion(core::FileStore& store,
                                                     const std::string& folder,
                                                     const std::string& path,
                                                     std::string_view new_bytes) {
  if (!store.FileSize(path)) return std::nullopt;
  const core::FileBytes old = store.ReadFile(path);
  if (old.error || old.bytes == new_bytes) return old.error;
  if (std::optional<core::SystemError> failure = store.MakeFolder(folder)) return failure;
  return store.WriteFile(PreviousVersionPath(folder, path), old.bytes);
}

}  // namespace orvane::files
