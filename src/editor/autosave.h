#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <span>
#include <vector>

#include "core/recovery_store.h"
#include "core/services.h"
#include "document/document.h"

namespace orvane::editor {

/// Keeps a copy of unsaved data: every half minute in which it changed, and at once after a radio
/// was read. Of saved data none is needed. What the window does never waits for it.
class Autosave : public QObject, private document::Watcher {
  Q_OBJECT

 public:
  /// replaced_is_lost: asked after unsaved data were replaced, whether nobody has kept them. They
  /// are left behind then, as after a crash.
  Autosave(document::Document& document, core::RecoveryStore& store, core::Clock& clock,
           std::function<bool()> replaced_is_lost);
  ~Autosave() override;
  Autosave(const Autosave&) = delete;
  Autosave& operator=(const Autosave&) = delete;

  /// Keeps the data now, whatever they are.
  void KeepNow();
  /// The user wants nothing of the unsaved data: the window closes.
  void Stop();
  [[nodiscard]] QTimer& Timer() { return timer_; }

 signals:
  /// Why no copies are being kept, or "" when they are again.
  void FailureChanged(const QString& reason);

 private:
  // document::Watcher
  void Changed(std::span<const core::Change> /*changes*/) override {}
  void Replaced() override;
  void StatusChanged() override;

  void Keep(const document::Contents& contents, const std::vector<core::FieldRef>& edited);
  void TellResult(const std::optional<core::SystemError>& failure);

  document::Document& document_;
  core::RecoveryStore& store_;
  core::Clock& clock_;
  const std::function<bool()> replaced_is_lost_;
  QTimer timer_;
  bool kept_ = false;  ///< the store may hold something
  QString reason_;
};

}  // namespace orvane::editor
