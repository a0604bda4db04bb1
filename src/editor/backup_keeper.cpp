#include "editor/backup_keeper.h"

#include <vector>

#include "platform/ansi_text.h"

namespace orvane::editor {

BackupKeeper::BackupKeeper(document::Document& document, core::FileStore& store, core::Clock& clock,
                           const std::string& folder)
    : document_(document), clock_(clock), library_(store, folder) {
  document_.Watch(*this);
}

BackupKeeper::~BackupKeeper() {
  document_.Unwatch(*this);
}

files::BackupLibrary::Kept BackupKeeper::Keep(const core::RadioData& data,
                                              files::SnapshotHeading heading) {
  heading.made = clock_.Timestamp();
  files::BackupLibrary::Kept kept = library_.Keep(data, heading);
  emit FailureChanged(kept.error ? platform::FromUtf8(kept.error->description) : QString());
  if (!kept.anew) return kept;
  const std::vector<files::Backup> gone = library_.Trim(kept.path);
  if (!gone.empty()) {
    emit Trimmed(tr("%1 old backups made room, the last one of %2.")
                     .arg(gone.size())
                     .arg(platform::FromUtf8(gone.back().heading.made)));
  }
  return kept;
}

// A step that was taken back and is made again has been seen before: equal data are kept once.
void BackupKeeper::Replaced() {
  const document::Contents* const before = document_.ReplacedUnsaved();
  if (before != nullptr) Keep(before->data, {.origin = "replaced", .file = before->file_name});
}

}  // namespace orvane::editor
