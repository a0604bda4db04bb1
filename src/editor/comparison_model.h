#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>
#include <vector>

#include "core/radio_data.h"
#include "document/compare.h"
#include "editor/comparison_groups.h"

namespace orvane::editor {

/// Two data sets side by side as a tree: groups, in them channels and the like, in them fields with
/// both values. The tree is made anew as a whole; as long as it has the same nodes only their texts
/// are announced, otherwise the model is reset. Texts are made when they are asked for.
class ComparisonModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  enum Column { kField, kLeft, kRight, kColumns };
  /// How many fields at and below the node differ.
  static constexpr int kDifferingRole = Qt::UserRole;
  using Data = std::shared_ptr<const core::RadioData>;

  using QAbstractItemModel::QAbstractItemModel;

  /// Nothing is listed while one is null, or where they are of different models.
  void Compare(Data left, Data right);
  void SetTitles(const QString& left, const QString& right, const QString& about_left,
                 const QString& about_right);
  void SetListed(document::Listed listed);
  /// Leaves the fields that have every word in a column, those of group and channel included.
  void SetFilter(const QString& words);

  [[nodiscard]] bool CanCompare() const { return left_ != nullptr && right_ != nullptr && same_; }
  /// How many fields differ, and how many of them are listed.
  [[nodiscard]] int DifferenceCount() const { return differing_; }
  [[nodiscard]] int ListedDifferences() const;
  /// Fields that are listed, equal ones included.
  [[nodiscard]] int FieldCount() const;

  /// The fields at and below the nodes, each once, from top to bottom.
  [[nodiscard]] std::vector<document::Difference> RowsBelow(const QModelIndexList& nodes) const;
  /// How many of them differ.
  [[nodiscard]] int DifferencesBelow(const QModelIndexList& nodes) const;
  [[nodiscard]] std::vector<document::Difference> AllRows() const;
  /// The first differing field behind the node, or before it; invalid when there is none.
  [[nodiscard]] QModelIndex NextDifference(const QModelIndex& from, bool forward) const;

  /// What stays the same while a node stands for the same field, channel or group. Never 0.
  [[nodiscard]] quint64 IdOf(const QModelIndex& node) const;
  [[nodiscard]] QModelIndex NodeOf(quint64 id) const;  ///< invalid when there is no such node
  /// Of all nodes, from top to bottom.
  [[nodiscard]] std::vector<quint64> Ids() const;

  [[nodiscard]] QModelIndex index(int row, int column,
                                  const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  /// A field, or memory that belongs to none.
  struct Row {
    document::ComparedField field;
    int memory = -1;  ///< which of memory_
  };
  struct Item {
    quint64 id = 0;
    QString caption{};  ///< of a group or channel
    int parent = -1;    ///< -1 for a group
    int row = 0;        ///< among its siblings
    int source = -1;    ///< which of rows_; -1 for a group or channel
    int differing = 0;  ///< fields at and below it
    std::vector<int> children{};
  };
  using Items = std::vector<Item>;
  class Builder;

  void List();
  void Rebuild();
  [[nodiscard]] Items Build() const;
  void TakeTexts(Items fresh);
  [[nodiscard]] bool IsListed(int source, const ComparisonPlace& place) const;
  [[nodiscard]] document::Difference TextsOf(int source) const;
  [[nodiscard]] QModelIndex IndexOfItem(int item, int column = 0) const;
  [[nodiscard]] const std::vector<int>& ChildrenOf(const QModelIndex& parent) const;
  /// The fields among and below the nodes, from top to bottom.
  [[nodiscard]] std::vector<int> FieldsBelow(const QModelIndexList& nodes) const;
  [[nodiscard]] QString Caption(const Item& item) const;
  [[nodiscard]] QString Text(const Item& item, int column) const;

  Data left_;
  Data right_;
  bool same_ = false;  ///< of one model
  std::array<QString, kColumns> titles_;
  std::array<QString, kColumns> abouts_;
  document::Listed listed_ = document::Listed::kDifferences;
  QStringList words_;
  std::vector<Row> rows_;
  std::vector<document::Difference> memory_;
  int differing_ = 0;
  mutable std::vector<QString> columns_;  ///< what the filter looks at, by row; made when needed
  Items items_;                           ///< each before those below it
  std::vector<int> roots_;
  QHash<quint64, int> by_id_;
};

}  // namespace orvane::editor
