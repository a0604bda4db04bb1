#pragma once

#include <QLockFile>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/recovery_store.h"
#include "core/services.h"

namespace orvane::platform {

/// Files in a folder of the user's, which is made when it is needed. Beside each stands a lock of
/// the program that writes it: one that nobody holds belongs to a program that was killed.
class QtRecoveryStore : public QObject, public core::RecoveryStore {
 public:
  explicit QtRecoveryStore(const std::string& folder);
  /// Waits until everything is on the disk. What is kept then stays.
  ~QtRecoveryStore() override;

  void Keep(std::string text) override;
  void Forget() override;
  void Leave() override;
  void WhenKept(std::function<void(const std::optional<core::SystemError>&)> told) override {
    told_ = std::move(told);
  }
  [[nodiscard]] std::vector<Left> LeftBehind() override;
  void Discard(const std::string& path) override;
  void Release() override;

  /// Everything that was asked for is on the disk.
  void Wait() { writer_.waitForDone(); }

 private:
  [[nodiscard]] std::optional<core::SystemError> Write(const std::string& text);
  [[nodiscard]] bool TakeOwnName();
  [[nodiscard]] static QString LockOf(const QString& path);

  QString folder_;
  QString path_;                    ///< of this program's file; "" until it was needed
  std::unique_ptr<QLockFile> own_;  ///< beside it
  std::vector<std::shared_ptr<QLockFile>> claimed_;
  QThreadPool writer_;        ///< one thread: what is asked for is done in order
  bool last_failed_ = false;  ///< the writer's
  std::function<void(const std::optional<core::SystemError>&)> told_;
};

}  // namespace orvane::platform
