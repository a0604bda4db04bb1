#pragma once

#include <QObject>
#include <vector>

#include "core/app_settings.h"
#include "editor/menus.h"
#include "link/port_list.h"

namespace orvane::editor {

/// The menu of the serial ports. It is filled anew each time it opens; the check mark moves only
/// when the user picks a port. A chosen port that is gone stays below the others, disabled.
class SerialPortMenu : public QObject {
  Q_OBJECT

 public:
  SerialPortMenu(const Menus& menus, link::PortFinder& finder, core::SettingsStore& settings);

  /// Lists the ports there are now.
  void UpdateComList();
  /// Checks the port kept from the last run if it is in the list. It stays selected anyway.
  void SelectStoredPort();
  /// As if the user had picked the port with that number; one that is not in the list is left.
  void Choose(int number);
  [[nodiscard]] int PortNumber() const { return port_number_; }
  /// Chooses a port for as long as it is lent: the next run does not know of it, whoever chooses
  /// it. False when it is not in the list; nothing is chosen then.
  [[nodiscard]] bool Borrow(int number);
  /// The borrowed port is gone; where it is the chosen one, the one of before is so again.
  void GiveBack();

 private:
  static constexpr int kPorts = 64;

  /// Nobody needs the items before the menu is filled.
  void MakeItems();
  void Pick(int index);
  /// -1: none.
  void CheckOnly(int index);

  const Menus menus_;
  std::vector<QAction*> items_;  ///< kPorts, once they were made
  link::CComList list_;
  core::AppSettings settings_;
  int own_port_;  ///< the last one that was not borrowed; another window may keep its own
  int port_number_;
  int borrowed_ = 0;  ///< 0: none
  QString chosen_;    ///< caption of the port that was checked, "" as long as none was
};

}  // namespace orvane::editor
