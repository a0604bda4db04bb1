#include "editor/backup_keeper.h"

#include <algorithm>
#include <vector>

#include "core/calendar.h"

#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr std::size_t kSpared = 8;  // a program run keeps two or three

}  // namespace

BackupKeeper::BackupKeeper(document::Document& document, core::FileStore& store, core::Clock& clock,
                           const std::string& folder)
    : document_(document), store_(store), clock_(clock), folder_(folder), library_(store, folder) {
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
  if (!kept.error) kept_lately_.push_back(kept.path);
  if (kept_lately_.size() > kSpared) kept_lately_.erase(kept_lately_.begin());
  if (!kept.anew) return kept;
  const std::vector<files::Backup> gone = library_.Trim(kept_lately_);
  if (!gone.empty()) {
    emit Trimmed(tr("%1 old backups made room, the last one of %2.")
                     .arg(gone.size())
                     .arg(platform::FromUtf8(gone.back().heading.made)));
  }
  return kept;
}

std::string BackupKeeper::CopyWithinTheHour(const std::string& port,
                                            std::int16_t model_type) const {
  constexpr std::size_t kTimeOfDay = 11;
  constexpr std::size_t kMinutes = 5;
  const std::string now = clock_.Timestamp();
  for (const files::Backup& backup : library_.Since(core::HourBefore(now))) {
    const files::SnapshotHeading& heading = backup.heading;
    if (heading.made > now) continue;  // the clock was ahead
    const bool of_radio =
        heading.origin == files::kOriginRead || heading.origin == files::kOriginBefore;
    if (of_radio && heading.port == port && heading.model_type == model_type) {
      return heading.made.substr(kTimeOfDay, kMinutes);
    }
  }
  return {};
}

// The characters of a time that no file name may have everywhere are left out.
void BackupKeeper::KeepReceipt(const std::string& began, const std::string& text) {
  std::string name = began;
  std::erase(name, ':');
  std::replace(name.begin(), name.end(), ' ', '-');
  const auto failure = store_.WriteFile(folder_ + '/' + name + "-receipt.txt", text);
  if (failure) emit FailureChanged(platform::FromUtf8(failure->description));
}

// A step that was taken back and is made again has been seen before: equal data are kept once.
void BackupKeeper::Replaced() {
  const document::Contents* const before = document_.ReplacedUnsaved();
  lost_ = before != nullptr &&
          Keep(before->data, {.origin = files::kOriginReplaced, .file = before->file_name}).error;
}

}  // namespace orvane::editor
