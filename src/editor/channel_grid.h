#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <optional>
#include <vector>

#include "files/sheet_edits.h"

namespace orvane::editor {

/// The table `MSFlexGrid1`. Cells, rectangles and rows can be selected: a press on the first column
/// takes whole rows. One wheel notch scrolls one row, or with Shift about a column sideways.
class ChannelGrid : public QTableView {
  Q_OBJECT

 public:
  explicit ChannelGrid(QWidget* parent = nullptr);

  /// In the order of the rows.
  [[nodiscard]] std::vector<files::Cell> SelectedCells() const;
  /// Nothing when more or less than one rectangle is selected.
  [[nodiscard]] std::optional<files::Area> SelectedArea() const;
  void SelectRows();
  /// The user works in a cell's editor.
  [[nodiscard]] bool IsEditing() const { return state() == QAbstractItemView::EditingState; }

  void keyboardSearch(const QString& search) override;

 signals:
  void JumpAsked(int row);
  void EditAsked();
  void SwitchAsked();

 protected:
  bool viewportEvent(QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
      const QModelIndex& index, const QEvent* event) const override;

 private:
  [[nodiscard]] bool IsSearching() const;

  int wheel_rest_ = 0;      ///< eighths of a degree turned since the last row
  QElapsedTimer searched_;  ///< since the last letter of a search
};

}  // namespace orvane::editor
