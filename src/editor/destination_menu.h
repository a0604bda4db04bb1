#pragma once

#include <QObject>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/app_settings.h"
#include "editor/menus.h"

namespace orvane::editor {

/// The menu of the destinations: one entry for each template file of the current model that
/// stands beside the program, and for the built-in ones. At most one entry is checked.
class DestinationMenu : public QObject {
  Q_OBJECT

 public:
  DestinationMenu(const Menus& menus, core::FileStore& files, core::SettingsStore& settings,
                  std::string folder);

  /// Lists the model's destinations and checks the one chosen last.
  void Rebuild(std::int16_t model_type);
  /// Checks the destination of that name and no other; letter case is ignored. Without such an
  /// entry the check mark stays.
  void Check(std::string_view name);
  /// Checks it and keeps it for the next run.
  void Remember(std::int16_t model_type, std::string_view name);
  /// Full path of the destination's template file, whether it exists or not.
  [[nodiscard]] std::string TemplatePath(std::string_view name, std::int16_t model_type) const;

 signals:
  /// The user picked an entry that is not checked.
  void Picked(const std::string& name);

 private:
  void Pick(int index);
  void ShowCheckMark();

  const Menus menus_;
  core::FileStore& files_;
  core::AppSettings settings_;
  std::string folder_;
  std::vector<std::string> names_;
  int checked_ = -1;
};

}  // namespace orvane::editor
