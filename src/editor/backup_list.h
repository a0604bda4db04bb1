#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <optional>
#include <vector>

#include "files/backup_library.h"

namespace orvane::editor {

/// The backup library as a table, newest first. Time, origin and size are known from the headings;
/// the channel names take a look into each file, which ReadNames does little by little.
class BackupList : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kTime, kModel, kOrigin, kPort, kFile, kNames, kSize, kColumns };
  /// What a column is sorted by.
  static constexpr int kSortRole = Qt::UserRole;

  BackupList(const files::BackupLibrary& library, QObject* parent);

  /// Looks at the folder anew.
  void Refresh();
  /// Reads the channel names of the next backup. False when there is none left to read.
  bool ReadNames();

  [[nodiscard]] const files::Backup& At(int row) const {
    return rows_[static_cast<std::size_t>(row)].backup;
  }
  /// Bytes of all files.
  [[nodiscard]] std::uint64_t TotalSize() const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  struct Row {
    files::Backup backup;
    std::optional<QString> names{};  ///< nothing while they have not been read
  };
  [[nodiscard]] static QString Text(const Row& row, int column);

  const files::BackupLibrary& library_;
  std::vector<Row> rows_;
  std::size_t next_ = 0;  ///< first row whose names have not been read
};

/// "41 kB", "1.2 MB", "200 MB"; a kB are 1,024 bytes.
[[nodiscard]] QString SizeText(std::uint64_t bytes);

}  // namespace orvane::editor
