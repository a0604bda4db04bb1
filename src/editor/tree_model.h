#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QString>
#include <vector>

#include "core/radio_data.h"
#include "editor/node.h"

namespace orvane::editor {

/// The navigation tree as an item model over the data set. It is rebuilt from the data as a whole;
/// while the set of nodes stays the same only the texts that differ are announced, otherwise the
/// model is reset.
class TreeModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  static constexpr int kKeyRole = Qt::UserRole;  ///< QString, see NodeRef

  explicit TreeModel(const core::RadioData& data, QObject* parent = nullptr);

  /// True when nodes came or went: every index handed out before is void then.
  bool Rebuild();

  /// Invalid for a key that names no node of the tree; letter case is ignored.
  [[nodiscard]] QModelIndex IndexOfKey(const QString& key) const;
  [[nodiscard]] QModelIndex IndexOf(const NodeRef& node) const { return IndexOfKey(KeyOf(node)); }
  /// The node of a valid index.
  [[nodiscard]] const NodeRef& NodeAt(const QModelIndex& index) const;

  [[nodiscard]] QModelIndex index(int row, int column,
                                  const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  struct Item {
    NodeRef node;
    QString key;
    QString text;
    int parent = -1;  ///< -1 for a root
    int row = 0;
    std::vector<int> children;
  };
  class Builder;

  [[nodiscard]] const std::vector<int>& ChildrenOf(const QModelIndex& parent) const;
  [[nodiscard]] QModelIndex IndexOfItem(int item) const;

  [[nodiscard]] static QVariant Description(const Item& item);

  const core::RadioData& data_;
  std::vector<Item> items_;
  std::vector<int> roots_;
  QHash<QString, int> by_key_;  ///< upper-case key to item
};

}  // namespace orvane::editor
