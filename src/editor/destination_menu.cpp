#include "editor/destination_menu.h"

#include <cstddef>
#include <utility>

#include "core/text.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::editor {

DestinationMenu::DestinationMenu(const Menus& menus, core::FileStore& files,
                                 core::SettingsStore& settings, std::string folder)
    : menus_(menus), files_(files), settings_(settings), folder_(std::move(folder)) {
  for (int index = 0; index < Menus::kDestinations; ++index) {
    QAction* item = menus_.destinations[static_cast<std::size_t>(index)];
    item->setCheckable(true);
    connect(item, &QAction::triggered, this, [this, index] { Pick(index); });
  }
}

void DestinationMenu::Rebuild(std::int16_t model_type) {
  menus_.destination->setEnabled(false);
  names_ = core::DestinationNames(files_.ListFolder(folder_), model_type);
  menus_.destination->setEnabled(true);
  for (std::size_t i = 0; i < menus_.destinations.size(); ++i) {
    const bool used = i < names_.size();
    menus_.destinations[i]->setVisible(used);
    menus_.destinations[i]->setText(used ? PlainCaption(platform::FromUtf8(names_[i])) : QString());
  }
  checked_ = source_ = -1;
  ShowCheckMark();
  Check(settings_.Destination(model_type));
}

void DestinationMenu::Check(std::string_view name) {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (!core::EqualsIgnoringCase(names_[i], name)) continue;
    checked_ = static_cast<int>(i);
    ShowCheckMark();
    return;
  }
}

void DestinationMenu::CheckFor(const core::MemoryImage& image) {
  Check(core::BuiltInDestination(image::Sel1(image)));
}

void DestinationMenu::Remember(std::int16_t model_type, std::string_view name) {
  settings_.SetDestination(model_type, name);
  Check(name);
  source_ = checked_;
}

std::string DestinationMenu::TemplatePath(std::string_view name, std::int16_t model_type) const {
  return folder_ + "/" + core::DestinationFileName(name, model_type);
}

void DestinationMenu::Pick(int index) {
  ShowCheckMark();  // triggering has toggled the entry
  if (index == source_ || index >= static_cast<int>(names_.size())) return;
  const std::string name = names_[static_cast<std::size_t>(index)];
  emit Picked(name);
}

void DestinationMenu::ShowCheckMark() {
  for (int index = 0; index < Menus::kDestinations; ++index) {
    menus_.destinations[static_cast<std::size_t>(index)]->setChecked(index == checked_);
  }
}

}  // namespace orvane::editor
