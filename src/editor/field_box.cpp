#include "editor/field_box.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QValidator>
#include <algorithm>
#include <memory>
#include <utility>

namespace orvane::editor {
namespace {

bool IsTyped(const QKeyEvent& event) {
  const Qt::KeyboardModifiers command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  // Both together are the third level of a keyboard.
  const bool plain = !command || command == (Qt::ControlModifier | Qt::AltModifier);
  return plain && !event.text().isEmpty() && event.text().front().isPrint();
}

}  // namespace

/// Finds what an edit inserted by comparing the new text with the one before, and drops from it
/// what the rule does not pass.
class FieldBox::Filter : public QValidator {
 public:
  Filter(const FieldRule& rule, QObject* parent) : QValidator(parent), rule_(rule) {}

  void Accept(const QString& text) { accepted_ = text; }
  [[nodiscard]] const QString& Accepted() const { return accepted_; }

  State validate(QString& input, int& cursor) const override {
    if (input == accepted_) return Acceptable;
    const auto [head_in, head_before] =
        std::mismatch(input.cbegin(), input.cend(), accepted_.cbegin(), accepted_.cend());
    const auto head = static_cast<int>(head_in - input.cbegin());
    const QString rest = input.mid(head);
    const QString rest_before = accepted_.mid(head);
    const auto tail_in =
        std::mismatch(rest.crbegin(), rest.crend(), rest_before.crbegin(), rest_before.crend())
            .first;
    const auto tail = static_cast<int>(tail_in - rest.crbegin());

    const QString inserted = rest.chopped(tail);
    const QString passed = PassedText(rule_, inserted, head);
    if (passed.isEmpty() && !inserted.isEmpty()) {
      input = accepted_;  // nothing came in, so nothing that was selected goes either
      cursor = std::min(cursor, static_cast<int>(input.size()));
      return Acceptable;
    }
    const QString swept = SweptText(rule_, input.left(head) + passed + rest.right(tail));
    if (swept != input) {
      input = swept;
      cursor = std::min(head + static_cast<int>(passed.size()), static_cast<int>(swept.size()));
    }
    return Acceptable;
  }

 private:
  const FieldRule& rule_;
  QString accepted_;
};

FieldBox::FieldBox(const FieldRule& rule, QWidget* parent)
    : QLineEdit(parent), rule_(rule), filter_(new Filter(rule, this)) {
  setObjectName(QLatin1String(rule.control));
  setMaxLength(rule.max_length);
  setAcceptDrops(false);  // a file let go here is meant for the window
  setValidator(filter_);
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (!showing_ && (IsLocked() || !isEnabled())) {
      // An assistive technology writes where the keyboard cannot.
      setText(filter_->Accepted());
      return;
    }
    filter_->Accept(text);
    if (!showing_) emit Edited();
  });
}

void FieldBox::ShowText(const QString& text) {
  const bool before = std::exchange(showing_, true);
  // Shown again under the user's hands, it keeps cursor and selection.
  const bool again = hasFocus() && text == this->text();
  const int cursor = cursorPosition();
  const int start = selectionStart();
  const int selected = static_cast<int>(selectedText().size());
  shown_ = text;
  filter_->Accept(text.left(maxLength()));
  setText(text);
  if (again) {
    setCursorPosition(cursor);
    if (start >= 0) setSelection(start, selected);
  }
  showing_ = before;
}

void FieldBox::SetLocked(bool locked) {
  setReadOnly(locked);
  ApplyColour();
}

bool FieldBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.matches(QKeySequence::Undo) && !TakesUndo()) return false;
    if (key.matches(QKeySequence::Redo) && !TakesRedo()) return false;
  }
  const bool taken = QLineEdit::event(event);
  if (event->type() == QEvent::ApplicationPaletteChange) ApplyColour();
  if (event->type() == QEvent::FocusIn && IsLocked()) deselect();
  return taken;
}

void FieldBox::keyPressEvent(QKeyEvent* event) {
  if (!IsLocked()) {
    if (event->key() == Qt::Key_Backspace && !rule_.backspace) return;
    if (event->matches(QKeySequence::Paste)) return PasteFromClipboard();
    if (IsTyped(*event)) return InsertPassed(event->text());
  }
  QLineEdit::keyPressEvent(event);
}

void FieldBox::contextMenuEvent(QContextMenuEvent* event) {
  const std::unique_ptr<QMenu> menu(createStandardContextMenu());
  for (QAction* action : menu->actions()) {
    // The one that pastes is told by what it is connected to.
    if (!disconnect(action, SIGNAL(triggered(bool)), this, SLOT(paste()))) continue;
    connect(action, &QAction::triggered, this, &FieldBox::PasteFromClipboard);
  }
  menu->exec(event->globalPos());
}

// Filtered before the length limit cuts it, so that blanks around a value cost no digits.
void FieldBox::PasteFromClipboard() {
  InsertPassed(QApplication::clipboard()->text());
}

void FieldBox::InsertPassed(const QString& text) {
  const int position = hasSelectedText() ? selectionStart() : cursorPosition();
  const QString passed = PassedText(rule_, text, position);
  if (!passed.isEmpty()) insert(passed);
}

void FieldBox::ApplyColour() {
  QPalette own;
  if (IsLocked()) {
    const QColor colour = QApplication::palette(this).color(QPalette::Disabled, QPalette::Base);
    own.setColor(QPalette::Base, colour);
  }
  setPalette(own);
}

}  // namespace orvane::editor
