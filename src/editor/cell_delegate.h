#pragma once

#include <QAbstractItemView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

#include "editor/controls.h"
#include "editor/grid_model.h"

namespace orvane::editor {

/// Object name of the editor in a cell, whatever it is.
inline constexpr const char* kCellEditorName = "txtCell";

/// Where the user goes on from a cell that was edited.
enum class GoOn { kStay, kDown, kUp, kNext, kBack };

/// Draws the cells of a grid and makes their editors: a text field with the filter and the length
/// of the channel page's, or a list. What an editor holds is taken by whoever hears TakeAsked.
/// One editor is open at a time. Grid,
/// model and maker outlive it.
class CellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  CellDelegate(const QAbstractItemView& grid, const GridModel& model, ControlMaker& maker,
               QObject* parent);

  /// The text that the editor holds, for files::Understand.
  [[nodiscard]] static QString TextOf(const QWidget& editor);
  /// The user changed what the editor began with.
  [[nodiscard]] static bool IsChanged(const QWidget& editor);
  /// The editor that is open; null when none is.
  [[nodiscard]] QWidget* Editor() const { return editor_; }
  /// Of the editor's cell.
  [[nodiscard]] QModelIndex Index() const { return index_; }
  /// Ends the editing; the cell shows what the data holds.
  void Close();

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  void setModelData(QWidget* /*editor*/, QAbstractItemModel* /*model*/,
                    const QModelIndex& /*index*/) const override {}

 signals:
  /// The user has finished, by a key or by working elsewhere (kStay).
  void TakeAsked(orvane::editor::GoOn go_on);
  /// An input began that is taken later.
  void Begun() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  [[nodiscard]] QWidget* MakeList(QWidget* parent, files::CellKind kind) const;
  bool TakeKey(const QKeyEvent& event);

  const QAbstractItemView& grid_;
  const GridModel& model_;
  ControlMaker& maker_;
  mutable QPointer<QWidget> editor_;
  mutable QPersistentModelIndex index_;
};

}  // namespace orvane::editor
