#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <cstdint>
#include <string>
#include <vector>

#include "editor/import_list.h"
#include "editor/window_services.h"
#include "files/table_file.h"

namespace orvane::editor {

/// Offers the tables that the model of the data has; the item's data is the table.
class TableBox : public QComboBox {
  Q_OBJECT

 public:
  TableBox(const core::ModelProfile& profile, QWidget* parent);

  void Choose(std::uint8_t table);
  [[nodiscard]] std::uint8_t Table() const;
};

/// `frmExportTable`: which table goes into a file, and how its cells are parted.
class ExportTableDialog : public QDialog {
  Q_OBJECT

 public:
  ExportTableDialog(const WindowServices& services, std::uint8_t table, QWidget* parent);

  [[nodiscard]] std::uint8_t Table() const { return tables_->Table(); }
  [[nodiscard]] files::TableSeparator Separator() const;

 private:
  TableBox* tables_;
  QComboBox* separators_;
};

/// `frmImportTable`: what taking a table over from a file would change, line by line, and what is
/// refused and why. Changes nothing itself.
class ImportTableDialog : public QDialog {
  Q_OBJECT

 public:
  /// Bytes of the file; table: the one it seems to be meant for. The document stays as it is while
  /// the dialog is open.
  ImportTableDialog(const WindowServices& services, const std::string& path, std::string bytes,
                    std::uint8_t table, QWidget* parent);

  [[nodiscard]] std::uint8_t Table() const { return tables_->Table(); }
  [[nodiscard]] const files::ImportPlan& Plan() const { return plan_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void AddTables(const std::string& path);
  void AddList();
  void AddButtons();
  void ShowPlan();
  void Filter();

  const WindowServices services_;
  const std::string bytes_;
  files::ImportPlan plan_;
  TableBox* tables_;
  QLabel* summary_;
  QLabel* unused_;
  QCheckBox* only_matters_;
  ImportList* list_;
  QSortFilterProxyModel* shown_;
  QTreeView* view_;
  QPushButton* import_ = nullptr;
};

}  // namespace orvane::editor
