#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTimer>
#include <QTreeView>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "editor/backup_list.h"
#include "editor/window_services.h"
#include "files/backup_library.h"

namespace orvane::editor {

/// The backup library to look through: what it holds can be opened, saved elsewhere, compared or
/// deleted; or one is only chosen to be compared.
/// The filter takes words, each of which some column must hold.
class BackupsDialog : public QDialog {
  Q_OBJECT

 public:
  enum class Purpose : std::uint8_t { kManage, kChoose };
  BackupsDialog(const WindowServices& services, Purpose purpose, QWidget* parent);

  /// Once the dialog was accepted, one of the two: the backup to open, or that to compare with.
  [[nodiscard]] const std::string& PathToOpen() const { return path_to_open_; }
  /// Read whole; without data when there is none to compare with.
  [[nodiscard]] files::Snapshot TakeCompared() { return std::move(to_compare_); }

 private:
  void AddFilter();
  void AddList();
  void AddButtons();
  void AddManagingButtons(QBoxLayout& row);

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
  const Purpose purpose_;
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
  files::Snapshot to_compare_;
};

}  // namespace orvane::editor
