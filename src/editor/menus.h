#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <array>

namespace orvane::editor {

/// The window's menus as built: captions, names, shortcuts; nothing connected. All actions and
/// menus belong to the menu bar.
struct Menus {
  static constexpr int kModels = 4;
  static constexpr int kDestinations = 11;
  static constexpr int kRecentFiles = 10;

  QAction* file_new;
  QAction* file_open;
  QAction* file_save;
  QAction* file_save_as;
  QAction* file_print;
  QAction* file_print_to_file;
  QMenu* recent;
  QAction* no_recent;
  std::array<QAction*, kRecentFiles> recent_files;
  QAction* backups;
  QAction* export_table;
  QAction* import_table;
  QAction* file_exit;
  std::array<QAction*, kModels> models;
  QAction* undo;
  QAction* redo;
  QAction* find;
  QAction* find_next;
  QAction* find_previous;
  QAction* problems;  ///< shows and hides the list of problems
  QAction* history;   ///< shows and hides the list of steps
  QAction* compare;
  QAction* program;
  QAction* read;
  QAction* compare_radio;
  QMenu* destination;
  std::array<QAction*, kDestinations> destinations;
  QMenu* serial_port;
  QAction* no_port;
  QAction* gone_port;   ///< the chosen port while it is not there; those that are stand before it
  QAction* find_cable;  ///< in the port menu and in the Help menu
  QAction* simulated_radio;
  QAction* end_simulated;
  QAction* help_contents;
  QAction* about;
};

[[nodiscard]] Menus BuildMenus(QMenuBar& bar);

/// A text as a caption: its ampersands are no access keys.
[[nodiscard]] QString PlainCaption(QString text);

}  // namespace orvane::editor
