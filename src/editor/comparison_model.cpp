#include "editor/comparison_model.h"

#include <QFont>
#include <algorithm>
#include <map>
#include <utility>

#include "core/model_profile.h"
#include "editor/words.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using document::Difference;
using document::Listed;
using platform::FromAnsi;

enum class Level : std::uint8_t { kGroup = 1, kEntry, kField };

// Table, entry and field take 32 bits, the first bit of unnamed memory 20.
quint64 IdFor(Level level, core::FieldRef at, int detail = 0) {
  constexpr int kLevelShift = 60;
  constexpr int kDetailShift = 32;
  return static_cast<quint64>(level) << kLevelShift | static_cast<quint64>(detail) << kDetailShift |
         static_cast<quint64>(at.table) << 24U | static_cast<quint64>(at.entry) << 8U | at.field;
}

}  // namespace

/// Gathers the listed rows group by group, as their order in the catalogue is not the tree's.
class ComparisonModel::Builder {
 public:
  void Add(const ComparisonPlace& place, const Item& field, core::FieldRef at) {
    Group& group = groups_[place.rank];
    group.caption = place.group;
    if (group.entries.empty() || group.entries.back().caption != place.entry) {
      group.entries.push_back({place.entry, IdFor(Level::kEntry, {at.table, 0, at.entry}), {}});
    }
    group.entries.back().fields.push_back(field);
  }

  Items Take() {
    for (auto& [rank, group] : groups_) {
      const int root = Append({IdFor(Level::kGroup, {}, rank), group.caption});
      for (Entry& entry : group.entries) {
        const int above = entry.caption.isEmpty() ? root : Append({entry.id, entry.caption, root});
        for (Item& field : entry.fields) {
          field.parent = above;
          Append(std::move(field));
        }
      }
    }
    return std::move(items_);
  }

 private:
  struct Entry {
    QString caption;
    quint64 id = 0;
    Items fields;
  };
  struct Group {
    QString caption;
    std::vector<Entry> entries;
  };

  int Append(Item item) {
    const int number = static_cast<int>(items_.size());
    if (item.parent >= 0) {
      std::vector<int>& siblings = At(item.parent).children;
      item.row = static_cast<int>(siblings.size());
      siblings.push_back(number);
    } else {
      item.row = roots_++;
    }
    for (int above = item.parent; above >= 0; above = At(above).parent) {
      At(above).differing += item.differing;
    }
    items_.push_back(std::move(item));
    return number;
  }
  Item& At(int number) { return items_[static_cast<std::size_t>(number)]; }

  std::map<int, Group> groups_;
  Items items_;
  int roots_ = 0;
};

void ComparisonModel::Compare(Data left, Data right) {
  left_ = std::move(left);
  right_ = std::move(right);
  same_ = left_ != nullptr && right_ != nullptr &&
          &core::ProfileOf(*left_) == &core::ProfileOf(*right_);
  List();
}

void ComparisonModel::SetTitles(const QString& left, const QString& right,
                                const QString& about_left, const QString& about_right) {
  titles_ = {tr("Field"), left, right};
  abouts_ = {QString(), about_left, about_right};
  emit headerDataChanged(Qt::Horizontal, kField, kRight);
}

void ComparisonModel::SetListed(Listed listed) {
  listed_ = listed;
  List();
}

void ComparisonModel::SetFilter(const QString& words) {
  words_ = WordsOf(words);
  Rebuild();
}

void ComparisonModel::List() {
  rows_.clear();
  memory_.clear();
  columns_.clear();
  differing_ = 0;
  if (CanCompare()) {
    for (const document::ComparedField& field : document::CompareFields(*left_, *right_, listed_)) {
      rows_.push_back({field});
      differing_ += field.differs ? 1 : 0;
    }
    memory_ = document::CompareMemory(*left_, *right_);
    for (std::size_t i = 0; i < memory_.size(); ++i) {
      rows_.push_back({{memory_[i].at, true}, static_cast<int>(i)});
    }
    differing_ += static_cast<int>(memory_.size());
  }
  Rebuild();
}

// Asked row by row for what the filter looks at, the texts of all rows would be made at each key.
bool ComparisonModel::IsListed(int source, const ComparisonPlace& place) const {
  if (words_.isEmpty()) return true;
  columns_.resize(rows_.size());
  QString& columns = columns_[static_cast<std::size_t>(source)];
  if (columns.isNull()) {
    const Difference texts = TextsOf(source);
    columns = QStringList({place.group, place.entry, FromAnsi(texts.name), FromAnsi(texts.ours),
                           FromAnsi(texts.theirs)})
                  .join(QLatin1Char('\n'));
  }
  return HasEachWord(columns, words_);
}

ComparisonModel::Items ComparisonModel::Build() const {
  Builder builder;
  ComparisonPlace place;
  const Row* last = nullptr;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Row& row = rows_[i];
    const core::FieldRef at = row.field.at;
    const bool same_entry =
        last != nullptr && last->field.at.table == at.table && last->field.at.entry == at.entry;
    if (!same_entry) place = PlaceInComparison(*left_, at);
    last = &row;
    const int source = static_cast<int>(i);
    if (!IsListed(source, place)) continue;
    const int first_bit =
        row.memory < 0 ? 0 : memory_[static_cast<std::size_t>(row.memory)].bits.first;
    builder.Add(place,
                {.id = IdFor(Level::kField, at, first_bit),
                 .source = source,
                 .differing = row.field.differs ? 1 : 0},
                at);
  }
  return builder.Take();
}

void ComparisonModel::Rebuild() {
  Items fresh = Build();
  const bool same_nodes =
      std::equal(fresh.begin(), fresh.end(), items_.begin(), items_.end(),
                 [](const Item& a, const Item& b) { return a.id == b.id && a.parent == b.parent; });
  if (same_nodes) return TakeTexts(std::move(fresh));
  beginResetModel();
  items_ = std::move(fresh);
  roots_.clear();
  by_id_.clear();
  by_id_.reserve(static_cast<qsizetype>(items_.size()));
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const int item = static_cast<int>(i);
    if (items_[i].parent < 0) roots_.push_back(item);
    by_id_.insert(items_[i].id, item);
  }
  endResetModel();
}

void ComparisonModel::TakeTexts(Items fresh) {
  items_ = std::move(fresh);
  const auto announce = [this](const std::vector<int>& siblings) {
    if (siblings.empty()) return;
    emit dataChanged(IndexOfItem(siblings.front()), IndexOfItem(siblings.back(), kRight));
  };
  announce(roots_);
  for (const Item& item : items_) announce(item.children);
}

int ComparisonModel::ListedDifferences() const {
  int count = 0;
  for (const int root : roots_) count += items_[static_cast<std::size_t>(root)].differing;
  return count;
}

int ComparisonModel::FieldCount() const {
  return static_cast<int>(std::count_if(items_.begin(), items_.end(),
                                        [](const Item& item) { return item.source >= 0; }));
}

Difference ComparisonModel::TextsOf(int source) const {
  const Row& row = rows_[static_cast<std::size_t>(source)];
  if (row.memory >= 0) return memory_[static_cast<std::size_t>(row.memory)];
  return document::RowOf(*left_, *right_, row.field.at);
}

std::vector<int> ComparisonModel::FieldsBelow(const QModelIndexList& nodes) const {
  std::vector<bool> chosen(items_.size());
  for (const QModelIndex& node : nodes) chosen[node.internalId()] = true;
  std::vector<int> fields;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const int above = items_[i].parent;
    if (above >= 0 && chosen[static_cast<std::size_t>(above)]) chosen[i] = true;
    if (chosen[i] && items_[i].source >= 0) fields.push_back(static_cast<int>(i));
  }
  return fields;
}

std::vector<Difference> ComparisonModel::RowsBelow(const QModelIndexList& nodes) const {
  std::vector<Difference> rows;
  for (const int field : FieldsBelow(nodes)) {
    rows.push_back(TextsOf(items_[static_cast<std::size_t>(field)].source));
  }
  return rows;
}

int ComparisonModel::DifferencesBelow(const QModelIndexList& nodes) const {
  int count = 0;
  for (const int field : FieldsBelow(nodes)) {
    count += items_[static_cast<std::size_t>(field)].differing;
  }
  return count;
}

std::vector<Difference> ComparisonModel::AllRows() const {
  std::vector<Difference> rows;
  for (const Item& item : items_) {
    if (item.source >= 0) rows.push_back(TextsOf(item.source));
  }
  return rows;
}

QModelIndex ComparisonModel::NextDifference(const QModelIndex& from, bool forward) const {
  const int step = forward ? 1 : -1;
  const int end = static_cast<int>(items_.size());
  int item = forward ? -1 : end;
  if (from.isValid()) item = static_cast<int>(from.internalId());
  for (item += step; item >= 0 && item < end; item += step) {
    const Item& each = items_[static_cast<std::size_t>(item)];
    if (each.source >= 0 && each.differing > 0) return IndexOfItem(item);
  }
  return {};
}

quint64 ComparisonModel::IdOf(const QModelIndex& node) const {
  return items_[node.internalId()].id;
}

QModelIndex ComparisonModel::NodeOf(quint64 id) const {
  const auto found = by_id_.constFind(id);
  return found == by_id_.constEnd() ? QModelIndex() : IndexOfItem(*found);
}

std::vector<quint64> ComparisonModel::Ids() const {
  std::vector<quint64> ids;
  ids.reserve(items_.size());
  for (const Item& item : items_) ids.push_back(item.id);
  return ids;
}

QModelIndex ComparisonModel::IndexOfItem(int item, int column) const {
  return createIndex(items_[static_cast<std::size_t>(item)].row, column,
                     static_cast<quintptr>(item));
}

const std::vector<int>& ComparisonModel::ChildrenOf(const QModelIndex& parent) const {
  return parent.isValid() ? items_[parent.internalId()].children : roots_;
}

QModelIndex ComparisonModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return IndexOfItem(ChildrenOf(parent)[static_cast<std::size_t>(row)], column);
}

QModelIndex ComparisonModel::parent(const QModelIndex& child) const {
  if (!child.isValid()) return {};
  const int parent = items_[child.internalId()].parent;
  return parent < 0 ? QModelIndex() : IndexOfItem(parent);
}

int ComparisonModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > 0 ? 0 : static_cast<int>(ChildrenOf(parent).size());
}

int ComparisonModel::columnCount(const QModelIndex& /*parent*/) const {
  return kColumns;
}

QString ComparisonModel::Caption(const Item& item) const {
  // Of a channel that is listed for its differences alone they can be counted by eye.
  const bool counted = item.differing > 0 && (item.parent < 0 || listed_ == Listed::kAll);
  if (!counted) return item.caption;
  return item.differing == 1 ? tr("%1: 1 differs").arg(item.caption)
                             : tr("%1: %2 differ").arg(item.caption).arg(item.differing);
}

QString ComparisonModel::Text(const Item& item, int column) const {
  if (item.source < 0) return column == kField ? Caption(item) : QString();
  const Row& row = rows_[static_cast<std::size_t>(item.source)];
  if (column == kField && row.memory < 0) return FromAnsi(core::FieldOf(row.field.at).label);
  const Difference texts = TextsOf(item.source);
  if (column == kField) return FromAnsi(texts.name);
  return FromAnsi(column == kLeft ? texts.ours : texts.theirs);
}

QVariant ComparisonModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Item& item = items_[index.internalId()];
  if (role == Qt::DisplayRole) return Text(item, index.column());
  if (role == kDifferingRole) return item.differing;
  const bool marked = listed_ == Listed::kAll && item.source >= 0 && item.differing > 0;
  if (role == Qt::AccessibleDescriptionRole && marked) return tr("differs");
  if (role == Qt::FontRole && marked) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return {};
}

QVariant ComparisonModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kColumns) return {};
  const auto column = static_cast<std::size_t>(section);
  if (role == Qt::DisplayRole) return titles_[column];
  if (role == Qt::ToolTipRole) return abouts_[column];
  return {};
}

}  // namespace orvane::editor
