#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTimer>
#include <QTreeView>
#include <optional>
#include <string>

#include "editor/backup_list.h"
#include "editor/window_services.h"
#include "files/backup_library.h"

namespace orvane::editor {

/// The backup library to look through: what it holds can be opened, saved elsewhere or deleted.
/// The filter takes words, each of which some column must hold.
class BackupsDialog : public QDialog {
  Q_OBJECT

 public:
  BackupsDialog(const WindowServices& services, QWidget* parent);

  /// The backup to open, once the dialog was accepted.
  [[nodiscard]] const std::string& PathToOpen() const { return path_to_open_; }

 private:
  void AddFilter();
  void AddList();
  void AddButtons();

  void ReadNames();
  void Filter(const QString& words);
  void ShowState();
  [[nodiscard]] std::optional<files::Backup> Chosen() const;
  void OpenChosen();
  void SaveAs();
  void Compare();
  void Delete();
  void ShowFolder();
  /// With its data; a damaged one has been told.
  [[nodiscard]] files::Snapshot Load(const files::Backup& backup);

  const WindowServices services_;
  files::BackupLibrary library_;
  BackupList* list_;
  QSortFilterProxyModel* shown_;
  QTreeView* view_ = nullptr;
  QLineEdit* filter_ = nullptr;
  QLabel* state_ = nullptr;
  QPushButton* open_ = nullptr;
  QPushButton* save_as_ = nullptr;
  QPushButton* compare_ = nullptr;
  QPushButton* delete_ = nullptr;
  QTimer names_timer_;
  std::string path_to_open_;
};

}  // namespace orvane::editor
