#include "help/help_folder.h"

#include <QDir>

namespace orvane::help {
namespace {

// As many windows with open help as anyone has at a time.
constexpr int kFolders = 16;

}  // namespace

HelpFolder::HelpFolder(const QString& root) {
  if (QDir().mkpath(root)) {
    for (int number = 1; number <= kFolders; ++number) {
      if (Take(QStringLiteral("%1/help-%2").arg(root).arg(number))) return;
    }
  }
  temporary_.emplace();
  if (temporary_->isValid()) path_ = temporary_->path();
}

HelpFolder::~HelpFolder() {
  if (lock_ != nullptr) QDir(path_).removeRecursively();
}

bool HelpFolder::Take(const QString& path) {
  auto lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
  lock->setStaleLockTime(0);  // it holds as long as its owner runs
  if (!lock->tryLock()) return false;
  if (!QDir(path).removeRecursively() || !QDir().mkdir(path)) return false;
  lock_ = std::move(lock);
  path_ = path;
  return true;
}

}  // namespace orvane::help
