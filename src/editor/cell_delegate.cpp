#include "editor/cell_delegate.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <optional>

#include "core/rendering.h"
#include "core/tones.h"
#include "editor/contrast.h"
#include "editor/field_box.h"
#include "editor/field_rules.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr float kCurrentRow = 0.12F;  // of the highlight's colour

/// The text field in a cell. Undo and Redo are its own while it has something to take back.
class CellBox : public FieldBox {
 public:
  using FieldBox::FieldBox;

  bool UndoTyping() override {
    if (!isUndoAvailable()) return false;
    undo();
    return true;
  }

 protected:
  [[nodiscard]] bool TakesUndo() const override { return isUndoAvailable(); }
  [[nodiscard]] bool TakesRedo() const override { return isRedoAvailable(); }
};

/// The page's rule of the cell; nothing for cells that are picked from a list.
std::optional<Field> FieldOfCell(files::CellKind kind, int column, const GridModel& model) {
  if (kind == files::CellKind::kName) return Field::kChannelName;
  if (kind == files::CellKind::kDisplay) return Field::kDisplayCell;
  if (kind != files::CellKind::kFrequency) return std::nullopt;
  const bool receives =
      files::ColumnOf(model.Sheet(), core::kFieldAt<&core::ChannelRecord::Rxfreq>) == column;
  return receives ? Field::kReceiveFrequency : Field::kTransmitFrequency;
}

QStringList ListItems(files::CellKind kind) {
  QStringList items = {platform::FromAnsi(core::OnOffText(false))};
  if (kind == files::CellKind::kCode) {
    for (const char* code : {"0", "1", "2", "3"}) items << QLatin1String(code);
    return items;
  }
  for (int tone = 1; tone <= core::kLastCtcss; ++tone) {
    items << platform::FromAnsi(core::CtcssText(tone));
  }
  for (int code = 1; code <= 2 * core::kLastDcs; ++code) {
    items << platform::FromAnsi(core::DcsText(code));
  }
  return items;
}

QColor Blended(const QColor& ground, const QColor& colour, float share) {
  const auto mix = [share](float a, float b) { return a + share * (b - a); };
  return QColor::fromRgbF(mix(ground.redF(), colour.redF()), mix(ground.greenF(), colour.greenF()),
                          mix(ground.blueF(), colour.blueF()));
}

void DrawPicture(QPainter& painter, const QRect& cell, bool checked, const QColor& colour) {
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

}  // namespace

CellDelegate::CellDelegate(const QAbstractItemView& grid, const GridModel& model,
                           ControlMaker& maker, QObject* parent)
    : QStyledItemDelegate(parent), grid_(grid), model_(model), maker_(maker) {}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const QVariant state = index.data(Qt::CheckStateRole);
  if (!state.isValid()) return;
  QStyleOptionViewItem drawn = option;
  initStyleOption(&drawn, index);
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  const bool checked = state.toInt() == Qt::Checked;
  QColor colour = drawn.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
  // An empty box steps back, where that leaves it contrast enough.
  if (!checked && !selected) colour.setAlphaF(0.45F);
  DrawPicture(*painter, option.rect, checked, colour);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
  QPalette& palette = option->palette;
  const QColor base = palette.color(QPalette::Base);
  if (index.row() == grid_.currentIndex().row()) {
    option->backgroundBrush = Blended(base, palette.color(QPalette::Highlight), kCurrentRow);
  }
  if (model_.IsInUse(index.row())) return;
  palette.setColor(QPalette::Text, FaintText(palette));
}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
  const files::CellKind kind = model_.KindOf(index);
  const char* hint = kListHint;
  if (const std::optional<Field> field = FieldOfCell(kind, index.column(), model_)) {
    auto* box = new CellBox(RuleOf(*field), parent);
    connect(box, &FieldBox::Edited, this, &CellDelegate::Begun);
    hint = box->Rule().hint;
    editor_ = box;
  } else {
    editor_ = MakeList(parent, kind);
  }
  maker_.Adopt(*editor_, QLatin1String(kCellEditorName), model_.NameOf(index), hint);
  index_ = index;
  return editor_;
}

QWidget* CellDelegate::MakeList(QWidget* parent, files::CellKind kind) const {
  auto* list = new PickBox(parent);
  list->addItems(ListItems(kind));
  connect(list, &PickBox::Picked, this, &CellDelegate::Begun);
  return list;
}

// What the user has begun is left alone when the data changes underneath it.
void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  if (editor->property("begun").toBool() && IsChanged(*editor)) return;
  editor->setProperty("begun", true);
  const QString text = model_.TextToEdit(index);
  if (auto* box = qobject_cast<FieldBox*>(editor)) return box->ShowText(text);
  auto* list = static_cast<PickBox*>(editor);
  const int item = text.isEmpty() ? 0 : list->findText(text);
  list->ShowItem(item);
  list->setProperty("shown", item);
}

// A frame needs more height than a row has, and a list more width than a tone.
void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& /*index*/) const {
  QRect place = option.rect;
  const QSize needed = editor->sizeHint();
  const bool list = qobject_cast<const PickBox*>(editor) != nullptr;
  place.setSize(place.size().expandedTo({list ? needed.width() : 0, needed.height()}));
  place.moveCenter(option.rect.center());
  if (place.top() < 0) place.moveTop(0);
  const int beyond = place.right() - editor->parentWidget()->width();
  if (beyond > 0) place.translate(-beyond - 1, 0);
  editor->setGeometry(place);
}

QString CellDelegate::TextOf(const QWidget& editor) {
  if (const auto* box = qobject_cast<const FieldBox*>(&editor)) return box->text();
  return static_cast<const PickBox&>(editor).currentText();
}

bool CellDelegate::IsChanged(const QWidget& editor) {
  if (const auto* box = qobject_cast<const FieldBox*>(&editor)) {
    return box->text() != box->ShownText();
  }
  return static_cast<const PickBox&>(editor).currentIndex() != editor.property("shown").toInt();
}

void CellDelegate::Close() {
  QWidget* const editor = editor_;
  editor_ = nullptr;  // the focus that it loses now asks for nothing
  if (editor != nullptr) emit closeEditor(editor);
}

bool CellDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (editor_ == nullptr || watched != editor_) return false;
  if (event->type() == QEvent::KeyPress) return TakeKey(static_cast<const QKeyEvent&>(*event));
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(*event).reason();
    const bool leaves = reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason &&
                        reason != Qt::ActiveWindowFocusReason;
    if (leaves) emit TakeAsked(GoOn::kStay);
  }
  return false;
}

bool CellDelegate::TakeKey(const QKeyEvent& event) {
  const bool back = (event.modifiers() & Qt::ShiftModifier) != 0;
  switch (event.key()) {
    case Qt::Key_Escape:
      Close();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit TakeAsked(back ? GoOn::kUp : GoOn::kDown);
      return true;
    case Qt::Key_Tab:
      emit TakeAsked(GoOn::kNext);
      return true;
    case Qt::Key_Backtab:
      emit TakeAsked(GoOn::kBack);
      return true;
    default:
      return false;
  }
}

}  // namespace orvane::editor
