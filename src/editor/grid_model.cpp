#include "editor/grid_model.h"

#include <algorithm>
#include <utility>

#include "core/explanations.h"
#include "core/model_profile.h"
#include "editor/tool_tips.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr int kTwipsPerPixel = 15;

files::Cell CellOf(const QModelIndex& index) {
  return {index.row(), index.column()};
}

}  // namespace

files::Sheet GridModel::SheetNow() const {
  return IsMarine() ? files::MarineSheet(data_, node_.group, shows_unused_)
                    : files::ExtraSheet(data_, IsLmr());
}

void GridModel::SetNode(const NodeRef& group) {
  beginResetModel();
  node_ = group;
  sheet_ = SheetNow();
  model_type_ = data_.MODELTYPE;
  today_ = clock_.Today();
  endResetModel();
}

void GridModel::SetShowsUnused(bool shown) {
  shows_unused_ = shown;
  Refresh();
}

bool GridModel::Refresh() {
  files::Sheet now = SheetNow();
  if (model_type_ != data_.MODELTYPE || now.numbers != sheet_.numbers) {
    SetNode(node_);
    return false;
  }
  today_ = clock_.Today();
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  return true;
}

NodeRef GridModel::ChannelOf(int row) const {
  const NodeKind kind = IsMarine() ? NodeKind::kMarineChannel
                        : IsLmr()  ? NodeKind::kLmrChannel
                                   : NodeKind::kExpChannel;
  return {kind, node_.group, sheet_.Place(row).number};
}

int GridModel::RowOf(int number) const {
  const auto found = std::find(sheet_.numbers.begin(), sheet_.numbers.end(), number);
  return found == sheet_.numbers.end() ? -1 : static_cast<int>(found - sheet_.numbers.begin());
}

int GridModel::ColumnWidth(int column) const {
  return sheet_.Column(column).width_twips / kTwipsPerPixel;
}

QString GridModel::CellText(int row, int column) const {
  return platform::FromAnsi(sheet_.Column(column).GridText(files::RowOf(data_, sheet_, row)));
}

QString GridModel::TextToEdit(const QModelIndex& index) const {
  return platform::FromAnsi(files::TextToEdit(data_, sheet_, CellOf(index)));
}

files::CellKind GridModel::KindOf(const QModelIndex& index) const {
  return files::KindOf(sheet_.Column(index.column()));
}

QString GridModel::NameOf(const QModelIndex& index) const {
  return platform::FromAnsi(files::CellName(data_, sheet_, CellOf(index)));
}

QString GridModel::LockOf(const QModelIndex& index) const {
  return platform::FromAnsi(files::LockOf(data_, sheet_, CellOf(index), today_));
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : sheet_.Rows();
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : sheet_.Columns();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const files::ChannelColumn& column = sheet_.Column(index.column());
  const bool is_picture = column.checked != nullptr;
  switch (role) {
    case Qt::DisplayRole:
      return is_picture ? QVariant() : CellText(index.row(), index.column());
    case Qt::CheckStateRole: {
      if (!is_picture) return {};
      const bool checked = column.checked(files::RowOf(data_, sheet_, index.row()));
      return static_cast<int>(checked ? Qt::Checked : Qt::Unchecked);
    }
    case Qt::TextAlignmentRole:
      return static_cast<int>((column.centered ? Qt::AlignHCenter : Qt::AlignLeft) |
                              Qt::AlignVCenter);
    case Qt::AccessibleDescriptionRole:
      return IsInUse(index.row()) ? QVariant() : tr("not in use");
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const files::ChannelColumn& column = sheet_.Column(section);
  if (role == Qt::DisplayRole) return platform::FromAnsi(column.caption);
  if (role == Qt::ToolTipRole) return ToolTipText(core::ExplainColumn(column.caption));
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>((column.centered ? Qt::AlignHCenter : Qt::AlignLeft) |
                            Qt::AlignVCenter);
  }
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!index.isValid()) return flags;
  const files::CellKind kind = KindOf(index);
  const bool typed = kind != files::CellKind::kFixed && kind != files::CellKind::kSwitch;
  if (typed && LockOf(index).isEmpty()) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace orvane::editor
