#pragma once

#include <functional>

#include "editor/field_box.h"

namespace orvane::editor {

/// A field whose value must be right before the user may leave it. Switching to another window or
/// opening a menu is not leaving. Escape brings back the value from before the edit.
class FrequencyBox : public FieldBox {
  Q_OBJECT

 public:
  explicit FrequencyBox(const FieldRule& rule, QWidget* parent = nullptr);

  /// Whether the user changed the text since the value was last taken over.
  [[nodiscard]] bool IsEdited() const { return edited_; }
  void SetEdited(bool edited) { edited_ = edited; }
  bool UndoTyping() override;
  /// Takes the value over and clears the edited flag, or returns false and shows nothing. Asked
  /// each time an edited box is about to lose the focus.
  void SetAcceptor(std::function<bool()> acceptor) { acceptor_ = std::move(acceptor); }

 signals:
  /// The user tried to leave with a wrong value; the focus is still, or again, in the box.
  void Refused();
  /// The focus was taken away without asking, with a changed text in the box.
  void Abandoned();

 protected:
  [[nodiscard]] bool TakesUndo() const override { return edited_; }
  [[nodiscard]] bool TakesRedo() const override { return isRedoAvailable(); }
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool MayLeave() { return !edited_ || acceptor_(); }
  void RefuseLater();

  std::function<bool()> acceptor_;
  bool edited_ = false;
  bool returning_ = false;      ///< the focus comes back after a refusal
  bool swallow_press_ = false;  ///< the mouse press that wanted the focus must have no effect
};

}  // namespace orvane::editor
