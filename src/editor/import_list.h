#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QPalette>
#include <array>
#include <vector>

#include "files/table_file.h"

namespace orvane::editor {

/// What an import would do, as a table: a row for each change, each refusal and each line that
/// changes nothing, in the order of the file's lines; then what follows elsewhere.
class ImportList : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kLine, kEntry, kOutcome, kField, kBefore, kAfter, kReason, kColumns };
  /// Whether the row changes anything or is refused.
  static constexpr int kMattersRole = Qt::UserRole;

  using QAbstractTableModel::QAbstractTableModel;

  void Show(const files::ImportPlan& plan);
  /// The drawing beside what is refused, in the palette's colours.
  void SetIcons(const QPalette& palette);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  struct Row {
    files::ImportPlan::Verdict verdict;
    std::array<QString, kColumns> texts;
  };

  std::vector<Row> rows_;
  QIcon refused_;
};

}  // namespace orvane::editor
