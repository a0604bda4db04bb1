#pragma once

#include <QTableView>

#include "editor/grid_model.h"
#include "editor/page.h"

namespace orvane::editor {

/// The table `MSFlexGrid1`. One wheel notch scrolls one row, or with Shift about a column sideways.
class ChannelGrid : public QTableView {
  Q_OBJECT

 public:
  explicit ChannelGrid(QWidget* parent = nullptr);

 signals:
  void JumpAsked(int row);

 protected:
  bool viewportEvent(QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  int wheel_rest_ = 0;  ///< eighths of a degree turned since the last row
};

/// `pictB`: the channels of a group, to look at and to jump from.
class GridPage : public Page {
  Q_OBJECT

 public:
  explicit GridPage(PageServices services, QWidget* parent = nullptr);
  void Fill(const NodeRef& node) override;

 private:
  void FitColumns();

  GridModel* model_;
  ChannelGrid* grid_;
  NodeRef shown_;
};

}  // namespace orvane::editor
