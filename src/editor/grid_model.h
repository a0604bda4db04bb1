#pragma once

#include <QAbstractTableModel>
#include <QString>

#include "core/radio_data.h"
#include "core/services.h"
#include "editor/node.h"
#include "files/sheet.h"

namespace orvane::editor {

/// The channels of one group as rows of a grid. Cells are composed from the data whenever they are
/// asked for; which rows and columns there are, and the date that the rules go by, are settled by
/// SetNode and Refresh. Data, clock outlive it.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  GridModel(const core::RadioData& data, const core::Clock& clock, QObject* parent = nullptr)
      : QAbstractTableModel(parent), data_(data), clock_(clock) {}

  /// The group's node, or one of the two nodes above the EXP/LMR channels.
  void SetNode(const NodeRef& group);
  /// Marine channels that are not in use are rows as well. The EXP/LMR channels always are.
  void SetShowsUnused(bool shown);
  [[nodiscard]] bool ShowsUnused() const { return shows_unused_; }
  /// Follows the data. False when there are other rows or columns now: the model was reset.
  bool Refresh();
  [[nodiscard]] const files::Sheet& Sheet() const { return sheet_; }

  /// Node of the channel in that row.
  [[nodiscard]] NodeRef ChannelOf(int row) const;
  /// Row of a channel, -1 when it is not listed.
  [[nodiscard]] int RowOf(int number) const;
  [[nodiscard]] bool IsInUse(int row) const { return files::IsRowInUse(data_, sheet_, row); }
  /// Designed width in device-independent pixels, for the smallest font.
  [[nodiscard]] int ColumnWidth(int column) const;
  [[nodiscard]] QString CellText(int row, int column) const;
  /// What an editor in the cell begins with.
  [[nodiscard]] QString TextToEdit(const QModelIndex& index) const;
  [[nodiscard]] files::CellKind KindOf(const QModelIndex& index) const;
  /// "USA 22A, CH Name".
  [[nodiscard]] QString NameOf(const QModelIndex& index) const;
  /// Why the user may not change the cell; empty when it may be changed.
  [[nodiscard]] QString LockOf(const QModelIndex& index) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  /// Qt::CheckStateRole tells which picture a cell shows instead of a text.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  /// Editable: F2 opens an editor in the cell.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  [[nodiscard]] files::Sheet SheetNow() const;
  [[nodiscard]] bool IsMarine() const { return node_.kind == NodeKind::kMarineGroup; }
  [[nodiscard]] bool IsLmr() const { return node_.kind == NodeKind::kLmrRoot; }

  const core::RadioData& data_;
  const core::Clock& clock_;
  NodeRef node_{NodeKind::kMarineGroup};
  bool shows_unused_ = false;
  std::int16_t model_type_ = 0;  ///< whose columns they are
  files::Sheet sheet_;
  core::Date today_;
};

}  // namespace orvane::editor
