#pragma once

#include <QObject>
#include <string>
#include <vector>

#include "core/app_settings.h"
#include "core/services.h"
#include "editor/menus.h"

namespace orvane::editor {

/// The menu of the files last opened or saved, filled anew each time it opens. A file that cannot
/// be found stays in it, disabled, with the reason.
class RecentMenu : public QObject {
  Q_OBJECT

 public:
  RecentMenu(const Menus& menus, core::FileStore& files, core::SettingsStore& settings);

  /// Each item's data is the path it stands for.
  void Update();

 signals:
  void Picked(const std::string& path);

 private:
  const Menus menus_;
  core::FileStore& files_;
  core::AppSettings settings_;
  std::vector<std::string> paths_;
};

}  // namespace orvane::editor
