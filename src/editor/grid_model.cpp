#include "editor/grid_model.h"

#include <algorithm>
#include <numeric>

#include "core/explanations.h"
#include "core/model_profile.h"
#include "editor/tool_tips.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr int kTwipsPerPixel = 15;

}  // namespace

void GridModel::SetNode(const NodeRef& group) {
  beginResetModel();
  node_ = group;
  const core::ModelProfile& profile = core::ProfileOf(data_);
  if (IsMarine()) {
    columns_ = files::MarineGridColumns(profile);
    numbers_ = files::EnabledMarineRows(data_.Table(node_.group));
  } else {
    columns_ = files::ExtraGridColumns(profile, IsLmr());
    numbers_.resize(core::ExtraTable::size());
    std::iota(numbers_.begin(), numbers_.end(), core::ExtraTable::kFirst);
  }
  endResetModel();
}

NodeRef GridModel::ChannelOf(int row) const {
  const NodeKind kind = IsMarine() ? NodeKind::kMarineChannel
                        : IsLmr()  ? NodeKind::kLmrChannel
                                   : NodeKind::kExpChannel;
  return {kind, node_.group, numbers_[static_cast<std::size_t>(row)]};
}

int GridModel::RowOf(int number) const {
  const auto found = std::find(numbers_.begin(), numbers_.end(), number);
  return found == numbers_.end() ? -1 : static_cast<int>(found - numbers_.begin());
}

int GridModel::ColumnWidth(int column) const {
  return columns_[static_cast<std::size_t>(column)].width_twips / kTwipsPerPixel;
}

QString GridModel::CellText(int row, int column) const {
  return platform::FromAnsi(columns_[static_cast<std::size_t>(column)].GridText(Row(row)));
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(numbers_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const files::ChannelColumn& column = columns_[static_cast<std::size_t>(index.column())];
  const bool is_picture = column.checked != nullptr;
  switch (role) {
    case Qt::DisplayRole:
      return is_picture ? QVariant() : CellText(index.row(), index.column());
    case Qt::CheckStateRole:
      if (!is_picture) return {};
      return static_cast<int>(column.checked(Row(index.row())) ? Qt::Checked : Qt::Unchecked);
    case Qt::TextAlignmentRole:
      return static_cast<int>((column.centered ? Qt::AlignHCenter : Qt::AlignLeft) |
                              Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const files::ChannelColumn& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return platform::FromAnsi(column.caption);
  if (role == Qt::ToolTipRole) return ToolTipText(core::ExplainColumn(column.caption));
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>((column.centered ? Qt::AlignHCenter : Qt::AlignLeft) |
                            Qt::AlignVCenter);
  }
  return {};
}

files::ChannelRow GridModel::Row(int row) const {
  const int number = numbers_[static_cast<std::size_t>(row)];
  const core::ChannelRecord& channel =
      IsMarine() ? data_.Table(node_.group)[static_cast<std::size_t>(number)] : data_.EXP[number];
  return {.profile = core::ProfileOf(data_),
          .channel = channel,
          .number = number,
          .lmr_form = !IsMarine() && IsLmr()};
}

}  // namespace orvane::editor
