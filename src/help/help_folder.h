#pragma once

#include <QLockFile>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <optional>

namespace orvane::help {

/// A folder that is one program's own while it lives and goes with it: the first free one of
/// help-1, help-2, ... in the root. What a program that was killed left there is taken over by the
/// next, so that nothing piles up. Where the root cannot be written it is a temporary folder.
class HelpFolder {
 public:
  explicit HelpFolder(const QString& root);
  ~HelpFolder();
  HelpFolder(const HelpFolder&) = delete;
  HelpFolder& operator=(const HelpFolder&) = delete;

  /// Empty when no folder could be made; Reason then says why.
  [[nodiscard]] const QString& Path() const { return path_; }
  [[nodiscard]] QString Reason() const { return temporary_->errorString(); }

 private:
  [[nodiscard]] bool Take(const QString& path);

  std::unique_ptr<QLockFile> lock_;
  std::optional<QTemporaryDir> temporary_;
  QString path_;
};

}  // namespace orvane::help
