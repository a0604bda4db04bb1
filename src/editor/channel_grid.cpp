#include "editor/channel_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <cstdlib>

#include "editor/tool_tips.h"

namespace orvane::editor {
namespace {

constexpr int kNotch = 120;  // eighths of a degree

}  // namespace

ChannelGrid::ChannelGrid(QWidget* parent) : QTableView(parent) {
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& index) { emit JumpAsked(index.row()); });
}

std::vector<files::Cell> ChannelGrid::SelectedCells() const {
  std::vector<files::Cell> cells;
  for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
    cells.push_back({index.row(), index.column()});
  }
  std::sort(cells.begin(), cells.end(), [](const files::Cell& a, const files::Cell& b) {
    return a.row != b.row ? a.row < b.row : a.column < b.column;
  });
  return cells;
}

std::optional<files::Area> ChannelGrid::SelectedArea() const {
  const std::vector<files::Cell> cells = SelectedCells();
  if (cells.empty()) return std::nullopt;
  files::Area area{cells.front().row, cells.front().column};
  int last_column = 0;
  for (const files::Cell& cell : cells) {
    area.column = std::min(area.column, cell.column);
    last_column = std::max(last_column, cell.column);
  }
  area.rows = cells.back().row - area.row + 1;
  area.columns = last_column - area.column + 1;
  const bool whole =
      cells.size() == static_cast<std::size_t>(area.rows) * static_cast<std::size_t>(area.columns);
  return whole ? std::optional(area) : std::nullopt;
}

void ChannelGrid::SelectRows() {
  const QItemSelection selection = selectionModel()->selection();
  selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

QItemSelectionModel::SelectionFlags ChannelGrid::selectionCommand(const QModelIndex& index,
                                                                  const QEvent* event) const {
  // Where the program goes, keys that happen to be held down extend nothing.
  if (event == nullptr) return QItemSelectionModel::ClearAndSelect;
  QItemSelectionModel::SelectionFlags command = QTableView::selectionCommand(index, event);
  const bool by_mouse =
      event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove;
  if (by_mouse && index.column() == 0) command |= QItemSelectionModel::Rows;
  return command;
}

void ChannelGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  viewport()->update();  // the row of the current cell is marked
  // The table view tells assistive technologies that its cell has the focus now.
  if (hasFocus()) return QTableView::currentChanged(current, previous);
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
}

bool ChannelGrid::IsSearching() const {
  return searched_.isValid() && !searched_.hasExpired(QApplication::keyboardInputInterval());
}

void ChannelGrid::keyboardSearch(const QString& search) {
  searched_.start();
  QTableView::keyboardSearch(search);
}

void ChannelGrid::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers keys = event->modifiers() & ~Qt::KeypadModifier;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (currentIndex().isValid()) emit JumpAsked(currentIndex().row());
      return;
    case Qt::Key_F2:
      if (keys != Qt::NoModifier) break;
      return emit EditAsked();
    case Qt::Key_Space:
      if (keys == Qt::ShiftModifier) return SelectRows();
      if (keys != Qt::NoModifier) break;
      // A blank may stand in what is being searched for.
      if (IsSearching()) return keyboardSearch(event->text());
      return emit SwitchAsked();
    default:
      break;
  }
  QTableView::keyPressEvent(event);
}

bool ChannelGrid::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  ShowItemToolTip(*this, static_cast<const QHelpEvent&>(*event));
  return true;
}

// A wheel that tells less than a notch at a time is added up; one that was turned fast still
// scrolls a single row.
void ChannelGrid::wheelEvent(QWheelEvent* event) {
  const int turned = event->angleDelta().y();
  if (turned == 0 || std::abs(event->angleDelta().x()) > std::abs(turned)) {
    return QTableView::wheelEvent(event);
  }
  if ((event->modifiers() & Qt::ShiftModifier) != 0) {
    QScrollBar& sideways = *horizontalScrollBar();
    sideways.setValue(sideways.value() - sideways.singleStep() * turned / kNotch);
    return event->accept();
  }
  if ((turned > 0) != (wheel_rest_ > 0)) wheel_rest_ = 0;
  wheel_rest_ += turned;
  event->accept();
  if (std::abs(wheel_rest_) < kNotch) return;
  verticalScrollBar()->setValue(verticalScrollBar()->value() + (turned > 0 ? -1 : 1));
  wheel_rest_ = 0;
}

}  // namespace orvane::editor
