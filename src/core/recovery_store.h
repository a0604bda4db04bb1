#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/services.h"

namespace orvane::core {

/// Keeps the unsaved work of this program while it runs, and finds that of programs that were
/// killed. Each running program has one file of its own; several may run at once.
class RecoveryStore {
 public:
  virtual ~RecoveryStore() = default;
  /// Puts the text in the place of the one before. Returns at once; the file is written meanwhile,
  /// and is the old one or the new one, whole.
  virtual void Keep(std::string text) = 0;
  /// There is no unsaved work any more.
  virtual void Forget() = 0;
  /// What was kept last stays for another start to offer; what is kept next stands beside it.
  virtual void Leave() = 0;
  /// Called on the window's thread after each text that was kept, with the failure if there was
  /// one.
  virtual void WhenKept(std::function<void(const std::optional<SystemError>&)> told) = 0;

  struct Left {
    std::string path;
    std::string text;
  };
  /// What programs that run no longer left behind, newest first. No other program is offered it
  /// until Release.
  [[nodiscard]] virtual std::vector<Left> LeftBehind() = 0;
  /// Removes what was left behind there, once everything kept before is on the disk.
  virtual void Discard(const std::string& path) = 0;
  /// After what has been asked for: what is still there may be offered by other programs.
  virtual void Release() = 0;
};

}  // namespace orvane::core
