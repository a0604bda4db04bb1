#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "core/radio_data.h"
#include "editor/node.h"
#include "files/columns.h"

namespace orvane::editor {

/// The channels of one group as rows of a grid. Cells are composed from the data whenever they are
/// asked for; only which rows there are is settled by SetNode.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridModel(const core::RadioData& data, QObject* parent = nullptr)
      : QAbstractTableModel(parent), data_(data) {}

  /// The group's node, or one of the two nodes above the EXP/LMR channels.
  void SetNode(const NodeRef& group);
  /// Node of the channel in that row.
  [[nodiscard]] NodeRef ChannelOf(int row) const;
  /// Row of a channel, -1 when it is not listed.
  [[nodiscard]] int RowOf(int number) const;
  /// Designed width in device-independent pixels, for the smallest font.
  [[nodiscard]] int ColumnWidth(int column) const;
  [[nodiscard]] QString CellText(int row, int column) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  /// Qt::CheckStateRole tells which picture a cell shows instead of a text.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] files::ChannelRow Row(int row) const;
  [[nodiscard]] bool IsMarine() const { return node_.kind == NodeKind::kMarineGroup; }
  [[nodiscard]] bool IsLmr() const { return node_.kind == NodeKind::kLmrRoot; }

  const core::RadioData& data_;
  NodeRef node_{NodeKind::kMarineGroup};
  std::vector<files::ChannelColumn> columns_;
  std::vector<int> numbers_;  ///< by row: table index of a marine channel, else 1..40
};

}  // namespace orvane::editor
