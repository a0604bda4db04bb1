#include "editor/tree_model.h"

#include <utility>

#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/model_profile.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using core::MarineGroup;

using platform::FromAnsi;

// What follows the name of a group whose status text the radio shows in place of an icon.
QString StatusSuffix(const core::RadioData& data, std::size_t group) {
  const core::UsableGroup& usable = data.Usable[group];
  if (!core::ProfileOf(data).has_channel_names) return {};
  if (usable.Status_name.empty() || usable.Status_Icon) return {};
  return QLatin1Char('(') + FromAnsi(usable.Status_name) + QLatin1Char(')');
}

}  // namespace

/// One pass over the data, top to bottom as the tree shows it.
class TreeModel::Builder {
 public:
  explicit Builder(const core::RadioData& data) : data_(data), profile_(core::ProfileOf(data)) {}

  void Build() {
    const auto add_plain = [this](int parent, NodeKind kind) {
      return Add(parent, {.kind = kind}, PlainNodeName(kind));
    };
    const int general = add_plain(-1, NodeKind::kGeneral);
    add_plain(general, NodeKind::kUsable);
    add_plain(general, NodeKind::kCommon);
    const int program = add_plain(-1, NodeKind::kProgram);
    for (const MarineGroup group : {MarineGroup::kUsa, MarineGroup::kIntl, MarineGroup::kCanada}) {
      AddMarine(program, group);
    }
    add_plain(program, NodeKind::kWeather);
    if (data_.LmrPresent()) {
      AddExtra(true, NodeKind::kLmrRoot, NodeKind::kLmrChannel,
               StatusSuffix(data_, core::kExtraGroup));
    }
    if (data_.ExpPresent) AddExtra(false, NodeKind::kExpRoot, NodeKind::kExpChannel, {});
  }

  std::vector<Item> items;
  std::vector<int> roots;

 private:
  int Add(int parent, const NodeRef& node, QString text) {
    const int item = static_cast<int>(items.size());
    std::vector<int>& siblings =
        parent < 0 ? roots : items[static_cast<std::size_t>(parent)].children;
    const int row = static_cast<int>(siblings.size());
    siblings.push_back(item);
    items.push_back({node, KeyOf(node), std::move(text), parent, row, {}});
    return item;
  }

  void AddMarine(int program, MarineGroup group) {
    const auto index = static_cast<std::size_t>(group);
    if (!data_.Usable[index].Enable) return;
    const int root = Add(program, {.kind = NodeKind::kMarineGroup, .group = group},
                         MarineGroupName(group) + StatusSuffix(data_, index));
    int number = 0;
    for (const core::ChannelRecord& channel : data_.Table(group)) {
      QString text = QLatin1String("CH") + FromAnsi(core::PlanLabel(channel.Position));
      if (channel.Enable) text += FromAnsi(core::kEnabledMark);
      Add(root, {NodeKind::kMarineChannel, group, number++}, std::move(text));
    }
  }

  void AddExtra(bool lmr_root, NodeKind root_kind, NodeKind channel_kind, const QString& suffix) {
    const int root = Add(-1, {.kind = root_kind}, ExtraGroupName(profile_, lmr_root) + suffix);
    for (int number = core::ExtraTable::kFirst; number <= core::ExtraTable::kLast; ++number) {
      QString text = FromAnsi(core::ExtraChannelName(profile_, number, lmr_root));
      if (core::MarkedEnabled(data_, number, lmr_root)) text += FromAnsi(core::kEnabledMark);
      Add(root, {.kind = channel_kind, .number = number}, std::move(text));
    }
  }

  const core::RadioData& data_;
  const core::ModelProfile& profile_;
};

TreeModel::TreeModel(const core::RadioData& data, QObject* parent)
    : QAbstractItemModel(parent), data_(data) {
  Rebuild();
}

bool TreeModel::Rebuild() {
  Builder fresh(data_);
  fresh.Build();
  bool same_nodes = fresh.items.size() == items_.size();
  for (std::size_t i = 0; same_nodes && i < items_.size(); ++i) {
    same_nodes = fresh.items[i].node == items_[i].node;
  }
  if (same_nodes) {
    for (std::size_t i = 0; i < items_.size(); ++i) {
      if (items_[i].text == fresh.items[i].text) continue;
      items_[i].text = std::move(fresh.items[i].text);
      const QModelIndex changed = IndexOfItem(static_cast<int>(i));
      emit dataChanged(changed, changed, {Qt::DisplayRole});
    }
    return false;
  }
  beginResetModel();
  items_ = std::move(fresh.items);
  roots_ = std::move(fresh.roots);
  by_key_.clear();
  by_key_.reserve(static_cast<qsizetype>(items_.size()));
  for (std::size_t i = 0; i < items_.size(); ++i) {
    by_key_.insert(items_[i].key.toUpper(), static_cast<int>(i));
  }
  endResetModel();
  return true;
}

QModelIndex TreeModel::IndexOfKey(const QString& key) const {
  const auto it = by_key_.constFind(key.toUpper());
  return it == by_key_.constEnd() ? QModelIndex() : IndexOfItem(*it);
}

const NodeRef& TreeModel::NodeAt(const QModelIndex& index) const {
  return items_[index.internalId()].node;
}

QModelIndex TreeModel::IndexOfItem(int item) const {
  return createIndex(items_[static_cast<std::size_t>(item)].row, 0, static_cast<quintptr>(item));
}

const std::vector<int>& TreeModel::ChildrenOf(const QModelIndex& parent) const {
  return parent.isValid() ? items_[parent.internalId()].children : roots_;
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return IndexOfItem(ChildrenOf(parent)[static_cast<std::size_t>(row)]);
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
  if (!child.isValid()) return {};
  const int parent = items_[child.internalId()].parent;
  return parent < 0 ? QModelIndex() : IndexOfItem(parent);
}

int TreeModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > 0 ? 0 : static_cast<int>(ChildrenOf(parent).size());
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const {
  return 1;
}

QVariant TreeModel::Description(const Item& item) {
  const bool lmr = item.node.kind == NodeKind::kLmrRoot;
  if (!lmr && item.node.kind != NodeKind::kExpRoot) return {};
  return ExtraGroupDescription(lmr);
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Item& item = items_[index.internalId()];
  if (role == Qt::DisplayRole) return item.text;
  if (role == kKeyRole) return item.key;
  if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) return Description(item);
  return {};
}

}  // namespace orvane::editor
