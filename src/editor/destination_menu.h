#pragma once

#include <QObject>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/app_settings.h"
#include "core/memory_image.h"
#include "editor/menus.h"

namespace orvane::editor {

/// The menu of the destinations: one entry for each template file of the current model that
/// stands beside the program, and for the built-in ones. At most one entry is checked; whether the
/// data come from its template is another matter.
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
  /// The same for the built-in destination that the image's SEL1 bit stands for.
  void CheckFor(const core::MemoryImage& image);
  /// The data come from that destination's template: checks it and keeps it for the next run.
  void Remember(std::int16_t model_type, std::string_view name);
  /// The data come from elsewhere.
  void ForgetSource() { source_ = -1; }
  /// Full path of the destination's template file, whether it exists or not.
  [[nodiscard]] std::string TemplatePath(std::string_view name, std::int16_t model_type) const;

 signals:
  /// The user picked an entry that the data do not come from.
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
  int source_ = -1;  ///< the entry whose template the data come from
};

}  // namespace orvane::editor
