#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/services.h"
#include "document/document.h"
#include "files/backup_library.h"

namespace orvane::editor {

/// Puts data into the backup library: by itself unsaved ones that another data set replaced, and
/// what it is given. The user's work goes on whatever becomes of it.
class BackupKeeper : public QObject, private document::Watcher {
  Q_OBJECT

 public:
  BackupKeeper(document::Document& document, core::FileStore& store, core::Clock& clock,
               const std::string& folder);
  ~BackupKeeper() override;
  BackupKeeper(const BackupKeeper&) = delete;
  BackupKeeper& operator=(const BackupKeeper&) = delete;

  /// The heading's time is now.
  files::BackupLibrary::Kept Keep(const core::RadioData& data, files::SnapshotHeading heading);
  /// Which copy of what a radio of that model at that port held was kept within the last hour, by a
  /// read or before programming: "13:40"; "" when none was.
  [[nodiscard]] std::string CopyWithinTheHour(const std::string& port,
                                              std::int16_t model_type) const;
  /// The unsaved data that were replaced last could not be kept.
  [[nodiscard]] bool HasLostReplaced() const { return lost_; }
  /// The receipt of a run that began at that time, beside the backups.
  void KeepReceipt(const std::string& began, const std::string& text);

 signals:
  /// Why the last one was not kept, or "" when it was.
  void FailureChanged(const QString& reason);
  /// Old backups have gone to make room.
  void Trimmed(const QString& what);

 private:
  // document::Watcher
  void Changed(std::span<const core::Change> /*changes*/) override {}
  void Replaced() override;
  void StatusChanged() override {}

  document::Document& document_;
  core::FileStore& store_;
  core::Clock& clock_;
  const std::string folder_;
  files::BackupLibrary library_;
  bool lost_ = false;
  std::vector<std::string> kept_lately_;  ///< paths, not to be cleared away
};

}  // namespace orvane::editor
