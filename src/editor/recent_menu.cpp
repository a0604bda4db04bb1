#include "editor/recent_menu.h"

#include <cstddef>

#include "platform/ansi_text.h"

namespace orvane::editor {

RecentMenu::RecentMenu(const Menus& menus, core::FileStore& files, core::SettingsStore& settings)
    : menus_(menus), files_(files), settings_(settings) {
  for (std::size_t place = 0; place < menus_.recent_files.size(); ++place) {
    connect(menus_.recent_files[place], &QAction::triggered, this,
            [this, place] { emit Picked(paths_[place]); });
  }
  connect(menus_.recent, &QMenu::aboutToShow, this, &RecentMenu::Update);
  Update();
}

void RecentMenu::Update() {
  paths_ = settings_.RecentFiles();
  menus_.no_recent->setVisible(paths_.empty());
  for (std::size_t place = 0; place < menus_.recent_files.size(); ++place) {
    QAction& item = *menus_.recent_files[place];
    item.setVisible(place < paths_.size());
    if (place >= paths_.size()) continue;
    const QString path = platform::FromUtf8(paths_[place]);
    const QString number = QString::number(place + 1);
    // The last digit is the access key: 1 to 9, and 0 for the tenth.
    item.setData(path);
    item.setText(QString(number).insert(number.size() - 1, QLatin1Char('&')) + QLatin1Char(' ') +
                 PlainCaption(path));
    const bool there = files_.FileSize(paths_[place]).has_value();
    item.setEnabled(there);
    item.setToolTip(there ? path : tr("%1 is not there any more.").arg(path));
  }
}

}  // namespace orvane::editor
