#include "editor/grid_page.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>

#include "editor/controls.h"
#include "editor/tool_tips.h"

namespace orvane::editor {
namespace {

constexpr const char* kGridHint = "[Double click],[Enter]:Jump the Setting screen.";
constexpr int kNotch = 120;  // eighths of a degree

/// Draws a check mark or an empty box in cells that have a check state.
class PictureDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant state = index.data(Qt::CheckStateRole);
    if (!state.isValid()) return;
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const bool checked = state.toInt() == Qt::Checked;
    QColor colour = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    // An empty box steps back, where that leaves it contrast enough.
    if (!checked && !selected) colour.setAlphaF(0.45F);
    DrawPicture(*painter, option.rect, checked, colour);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
  }

 private:
  static void DrawPicture(QPainter& painter, const QRect& cell, bool checked,
                          const QColor& colour) {
    const qreal side = 0.55 * cell.height();
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(cell).center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (checked) {
      QPainterPath mark(box.topLeft() + QPointF(0.05, 0.55) * side);
      mark.lineTo(box.topLeft() + QPointF(0.38, 0.9) * side);
      mark.lineTo(box.topLeft() + QPointF(0.98, 0.1) * side);
      painter.setPen(QPen(colour, 0.16 * side, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter.drawPath(mark);
    } else {
      painter.setPen(QPen(colour, 1));
      painter.drawRect(box.adjusted(1, 1, -1, -1));
    }
    painter.restore();
  }
};

}  // namespace

ChannelGrid::ChannelGrid(QWidget* parent) : QTableView(parent) {
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setItemDelegate(new PictureDelegate(this));
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& index) { emit JumpAsked(index.row()); });
}

void ChannelGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  // The table view tells assistive technologies that its cell has the focus now.
  if (hasFocus()) return QTableView::currentChanged(current, previous);
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
}

void ChannelGrid::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) return QTableView::keyPressEvent(event);
  if (currentIndex().isValid()) emit JumpAsked(currentIndex().row());
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

GridPage::GridPage(PageServices services, QWidget* parent)
    : Page(services, parent), model_(new GridModel(Data(), this)), grid_(new ChannelGrid(this)) {
  setObjectName(QStringLiteral("pictB"));
  setAccessibleName(tr("Channels"));
  grid_->setModel(model_);
  auto* maker = new ControlMaker(*this, Host());
  maker->Adopt(*grid_, QStringLiteral("MSFlexGrid1"), tr("Channels"), kGridHint);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(grid_);
  connect(grid_, &ChannelGrid::JumpAsked, this, [this](int row) {
    if (isEnabled()) Host().SelectNode(KeyOf(model_->ChannelOf(row)));
  });
}

// The current row stays with its channel as long as the same grid is shown.
void GridPage::Fill(const NodeRef& node) {
  const QModelIndex current = grid_->currentIndex();
  const int number =
      node == shown_ && current.isValid() ? model_->ChannelOf(current.row()).number : -1;
  shown_ = node;
  model_->SetNode(node);
  FitColumns();
  const int row = std::max(model_->RowOf(number), 0);
  grid_->setCurrentIndex(model_->index(row, 0));
  if (row == 0) grid_->scrollToTop();
}

void GridPage::FitColumns() {
  const QFontMetrics metrics = grid_->fontMetrics();
  const int margin = 2 * metrics.averageCharWidth();
  for (int column = 0; column < model_->columnCount(); ++column) {
    int text = grid_->horizontalHeader()->sectionSizeHint(column) - margin;
    for (int row = 0; row < model_->rowCount(); ++row) {
      text = std::max(text, metrics.horizontalAdvance(model_->CellText(row, column)));
    }
    grid_->setColumnWidth(column, std::max(model_->ColumnWidth(column), text + margin));
  }
  const int height = metrics.height() + metrics.height() / 3;
  grid_->verticalHeader()->setMinimumSectionSize(height);
  grid_->verticalHeader()->setDefaultSectionSize(height);
}

}  // namespace orvane::editor
