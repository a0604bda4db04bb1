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

std::optional<core::SystemError> PreviousVersion::Keep(std::string_view new_bytes) {
  if (!store_.FileSize(path_)) return std::nullopt;
  const core::FileBytes old = store_.ReadFile(path_);
  if (old.error || old.bytes == new_bytes) return old.error;
  if (std::optional<core::SystemError> failure = store_.MakeFolder(folder_)) return failure;
  const std::string kept = PreviousVersionPath(folder_, path_);
  core::FileBytes older = store_.ReadFile(kept);
  std::optional<core::SystemError> failure = store_.WriteFile(kept, old.bytes);
  if (!failure && !older.error) replaced_ = std::move(older.bytes);
  return failure;
}

void PreviousVersion::TakeBack() {
  if (!replaced_) return;
  static_cast<void>(store_.WriteFile(PreviousVersionPath(folder_, path_), *replaced_));
  replaced_.reset();
}

}  // namespace orvane::files
