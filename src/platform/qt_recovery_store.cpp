#include "platform/qt_recovery_store.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <utility>

#include "files/snapshot.h"
#include "platform/ansi_text.h"
#include "platform/qt_file_store.h"

namespace orvane::platform {
namespace {

constexpr const char* kLockEnding = ".lock";

QString Ending() {
  return FromUtf8(std::string(files::kSnapshotEnding));
}

}  // namespace

QtRecoveryStore::QtRecoveryStore(const std::string& folder) : folder_(FromUtf8(folder)) {
  writer_.setMaxThreadCount(1);
}

QtRecoveryStore::~QtRecoveryStore() {
  Wait();
}

QString QtRecoveryStore::LockOf(const QString& path) {
  return path.chopped(static_cast<qsizetype>(files::kSnapshotEnding.size())) +
         QLatin1String(kLockEnding);
}

// The lock comes before the file: no other program may find the file without it.
bool QtRecoveryStore::TakeOwnName() {
  if (own_ != nullptr && own_->isLocked()) return true;
  if (!QDir().mkpath(folder_)) return false;
  const QString name =
      QStringLiteral("%1-%2")
          .arg(QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")))
          .arg(QCoreApplication::applicationPid());
  path_ = folder_ + QLatin1Char('/') + name + Ending();
  own_ = std::make_unique<QLockFile>(LockOf(path_));
  own_->setStaleLockTime(0);  // a program may run for weeks
  return own_->tryLock(0);
}

std::optional<core::SystemError> QtRecoveryStore::Write(const std::string& text) {
  if (!TakeOwnName()) {
    return core::SystemError{0, "No file can be made in " + ToUtf8(folder_) + "."};
  }
  return QtFileStore().WriteFile(ToUtf8(path_), text);
}

void QtRecoveryStore::Keep(std::string text) {
  writer_.start([this, text = std::move(text)] {
    const std::optional<core::SystemError> failure = Write(text);
    last_failed_ = failure.has_value();
    QMetaObject::invokeMethod(
        this,
        [this, failure] {
          if (told_) told_(failure);
        },
        Qt::QueuedConnection);
  });
}

void QtRecoveryStore::Forget() {
  writer_.start([this] {
    if (!path_.isEmpty()) QFile::remove(path_);
    own_.reset();
  });
}

void QtRecoveryStore::Leave() {
  writer_.start([this] {
    own_.reset();
    path_.clear();
  });
}

std::vector<core::RecoveryStore::Left> QtRecoveryStore::LeftBehind() {
  Wait();
  std::vector<Left> left;
  const QFileInfoList files =
      QDir(folder_).entryInfoList({QLatin1Char('*') + Ending()}, QDir::Files, QDir::Time);
  for (const QFileInfo& file : files) {
    const QString path = file.filePath();
    if (path == path_) continue;
    auto lock = std::make_unique<QLockFile>(LockOf(path));
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) continue;
    core::FileBytes bytes = QtFileStore().ReadFile(ToUtf8(path));
    if (bytes.error) continue;
    left.push_back({ToUtf8(path), std::move(bytes.bytes)});
    claimed_.push_back(std::move(lock));
  }
  return left;
}

void QtRecoveryStore::Discard(const std::string& path) {
  writer_.start([this, path] {
    if (!last_failed_) QFile::remove(FromUtf8(path));
  });
}

void QtRecoveryStore::Release() {
  // The locks go with the last copy of the work.
  writer_.start([claimed = std::exchange(claimed_, {})] {});
}

}  // namespace orvane::platform
