#pragma once

#include <QAbstractListModel>
#include <optional>
#include <vector>

#include "document/find.h"

namespace orvane::editor {

/// The channels that a search found, one a row, the best one first.
class FindModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  // The text of a row in two parts.
  static constexpr int kNameRole = Qt::UserRole;
  static constexpr int kFrequencyRole = Qt::UserRole + 1;

  void Take(std::vector<document::Hit> hits);
  [[nodiscard]] const std::vector<document::Hit>& Hits() const { return hits_; }
  /// Null beyond the rows.
  [[nodiscard]] const document::Hit* At(int row) const;
  /// The row of the same channel, whatever is to be said of it by now.
  [[nodiscard]] std::optional<int> RowOf(core::FieldRef channel) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<document::Hit> hits_;
};

}  // namespace orvane::editor
