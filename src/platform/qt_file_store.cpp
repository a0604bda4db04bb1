#include "platform/qt_file_store.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>
#include <cerrno>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

core::SystemError FromNumber(int number) {
  return {number, std::generic_category().message(number)};
}

// The failure of the call just made: the system's number where it left one.
core::SystemError LastFailure(const QFileDevice& file) {
  const int number = errno;
  if (number != 0) return FromNumber(number);
  return {file.error(), ToUtf8(file.errorString())};
}

// A name in other bytes than UTF-8, or one that Qt has already put a replacement character into,
// would lead to another file or to a new one beside it.
std::optional<core::SystemError> CheckName(const std::string& path) {
  if (path.empty()) return FromNumber(ENOENT);
  if (!FromUtf8(path).contains(QChar::ReplacementCharacter)) return std::nullopt;
  return core::SystemError{
      EILSEQ, "The name has characters that are not UTF-8. Rename the file or its folder first."};
}

// Whether a path leads to a file that can be opened without waiting for somebody at its other end.
std::optional<core::SystemError> CheckKind(const QFileInfo& file) {
  if (file.isDir()) return FromNumber(EISDIR);
  if (file.isFile() || !file.exists()) return std::nullopt;
  return core::SystemError{EINVAL, "This is no ordinary file but a pipe or a device."};
}

// Short contents wait in a buffer until here, and a full disk may tell only when it is made to
// take them. Committing notices neither.
bool IsOnDisk(QFileDevice& file) {
  if (!file.flush()) return false;
#ifdef Q_OS_UNIX
  return ::fsync(file.handle()) == 0;
#else
  return true;
#endif
}

// A rename is only safe against a power cut once the folder itself is on the disk.
void FlushFolder(const QString& folder) {
#ifdef Q_OS_UNIX
  const int descriptor =
      ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
#else
  Q_UNUSED(folder);
#endif
}

std::optional<core::SystemError> CheckExisting(const QFileInfo& file) {
  if (std::optional<core::SystemError> failure = CheckKind(file)) return failure;
  if (!file.isWritable()) return FromNumber(EACCES);
  return std::nullopt;
}

std::optional<core::SystemError> CheckFolder(const QString& path) {
  const QFileInfo folder(path);
  if (!folder.exists()) return FromNumber(ENOENT);
  if (!folder.isDir()) return FromNumber(ENOTDIR);
  const QStorageInfo disk(path);
  if (disk.isValid() && disk.isReadOnly()) return FromNumber(EROFS);
  if (!folder.isWritable()) return FromNumber(EACCES);
  if (disk.isValid() && disk.bytesTotal() > 0 && disk.bytesAvailable() == 0) {
    return FromNumber(ENOSPC);
  }
  return std::nullopt;
}

// What a link points at is replaced, not the link.
QFileInfo Target(const std::string& path) {
  const QFileInfo file(FromUtf8(path));
  return file.isSymLink() ? QFileInfo(file.symLinkTarget()) : file;
}

// Over the old file by a rename.
std::optional<core::SystemError> Replace(const QString& path, std::string_view bytes) {
  QSaveFile file(path);
  errno = 0;
  if (!file.open(QIODevice::WriteOnly)) return LastFailure(file);
  const auto size = static_cast<qint64>(bytes.size());
  const bool stored = file.write(bytes.data(), size) == size && IsOnDisk(file) && file.commit();
  if (!stored) return LastFailure(file);
  FlushFolder(Target(ToUtf8(path)).absolutePath());
  return std::nullopt;
}

// The old contents go byte by byte, never all at once.
std::optional<core::SystemError> Overwrite(const QString& path, std::string_view bytes) {
  QFile file(path);
  errno = 0;
  if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) return LastFailure(file);
  const auto size = static_cast<qint64>(bytes.size());
  const bool stored =
      file.write(bytes.data(), size) == size && file.flush() && file.resize(size) && IsOnDisk(file);
  return stored ? std::nullopt : std::optional(LastFailure(file));
}

// At most that many bytes from the start of the file.
core::FileBytes Read(const std::string& path, std::int64_t most) {
  if (std::optional<core::SystemError> failure = CheckName(path)) return {failure, {}};
  if (std::optional<core::SystemError> failure = CheckKind(QFileInfo(FromUtf8(path)))) {
    return {failure, {}};
  }
  QFile file(FromUtf8(path));
  errno = 0;
  if (!file.open(QIODevice::ReadOnly)) return {LastFailure(file), {}};
  const QByteArray bytes = file.read(most);
  if (file.error() != QFileDevice::NoError) return {LastFailure(file), {}};
  return {std::nullopt, bytes.toStdString()};
}

bool MayNotReplace(const core::SystemError& failure) {
  return failure.number == EACCES || failure.number == EPERM;
}

}  // namespace

core::FileBytes QtFileStore::ReadFile(const std::string& path) {
  core::FileBytes file = Read(path, kLargestFile + 1);
  if (file.bytes.size() > kLargestFile) return {FromNumber(EFBIG), {}};
  return file;
}

core::FileBytes QtFileStore::ReadStart(const std::string& path, std::size_t most) {
  return Read(path, static_cast<std::int64_t>(most));
}

std::optional<std::uint64_t> QtFileStore::FileSize(const std::string& path) {
  const QFileInfo file(FromUtf8(path));
  if (!file.isFile()) return std::nullopt;
  return static_cast<std::uint64_t>(file.size());
}

std::optional<core::SystemError> QtFileStore::WriteFile(const std::string& path,
                                                        std::string_view bytes) {
  if (std::optional<core::SystemError> failure = CheckWritable(path)) return failure;
  std::optional<core::SystemError> failure = Replace(FromUtf8(path), bytes);
  const QFileInfo file = Target(path);
  const bool in_place =
      failure && MayNotReplace(*failure) && file.exists() && !copies_folder_.empty();
  return in_place ? WriteInPlace(file.absoluteFilePath(), bytes) : failure;
}

std::optional<core::SystemError> QtFileStore::WriteInPlace(const QString& path,
                                                           std::string_view bytes) {
  constexpr qsizetype kMostCharacters = 80;  // a name's length is limited
  const core::FileBytes old = ReadFile(ToUtf8(path));
  if (old.error) return old.error;
  const QString folder = FromUtf8(copies_folder_);
  const QString copy = folder + '/' + QString(path).replace('/', '%').right(kMostCharacters);
  QDir().mkpath(folder);
  if (std::optional<core::SystemError> failure = Replace(copy, old.bytes)) {
    failure->description =
        "No copy of the old file could be kept in " + copies_folder_ + ": " + failure->description;
    return failure;
  }
  std::optional<core::SystemError> failure = Overwrite(path, bytes);
  if (!failure) return std::nullopt;
  const bool whole_again = !Overwrite(path, old.bytes);
  failure->description += whole_again
                              ? ". The old file is as it was."
                              : ". The file is damaged; a copy of the old one is " + ToUtf8(copy);
  return failure;
}

std::optional<core::SystemError> QtFileStore::CheckWritable(const std::string& path) {
  if (std::optional<core::SystemError> failure = CheckName(path)) return failure;
  const QFileInfo file = Target(path);
  if (file.exists()) {
    if (std::optional<core::SystemError> failure = CheckExisting(file)) return failure;
  }
  std::optional<core::SystemError> failure = CheckFolder(file.absolutePath());
  const bool in_place =
      failure && MayNotReplace(*failure) && file.exists() && !copies_folder_.empty();
  return in_place ? std::nullopt : failure;
}

std::vector<std::string> QtFileStore::ListFolder(const std::string& folder) {
  std::vector<std::string> names;
  QDirIterator entries(FromUtf8(folder), QDir::Files);
  while (entries.hasNext()) {
    entries.next();
    names.push_back(ToUtf8(entries.fileName()));
  }
  return names;
}

std::optional<core::SystemError> QtFileStore::MakeFolder(const std::string& folder) {
  if (std::optional<core::SystemError> failure = CheckName(folder)) return failure;
  errno = 0;
  if (QDir().mkpath(FromUtf8(folder))) return std::nullopt;
  return FromNumber(errno != 0 ? errno : EACCES);
}

std::optional<core::SystemError> QtFileStore::RemoveFile(const std::string& path) {
  if (std::optional<core::SystemError> failure = CheckName(path)) return failure;
  QFile file(FromUtf8(path));
  errno = 0;
  if (file.remove() || errno == ENOENT || !QFileInfo::exists(FromUtf8(path))) return std::nullopt;
  return LastFailure(file);
}

}  // namespace orvane::platform
