#pragma once

#include <QLineEdit>
#include <QString>

#include "editor/field_rules.h"

namespace orvane::editor {

/// A text field that lets in what its rule passes, whichever way it comes: typing, pasting,
/// an input method or an assistive technology. Text already in the box is left alone.
class FieldBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit FieldBox(const FieldRule& rule, QWidget* parent = nullptr);

  [[nodiscard]] const FieldRule& Rule() const { return rule_; }
  /// Puts a text from the data into the box, unfiltered. Edited is not emitted.
  void ShowText(const QString& text);
  /// The text last put in from the data.
  [[nodiscard]] const QString& ShownText() const { return shown_; }
  /// A locked box is read-only, looks it, and offers no hint.
  void SetLocked(bool locked);
  [[nodiscard]] bool IsLocked() const { return isReadOnly(); }
  /// Takes back the last thing typed; false when nothing was that is not taken over yet.
  virtual bool UndoTyping() { return false; }

 signals:
  /// The text changed otherwise than by ShowText.
  void Edited();

 protected:
  /// Undo and Redo mean what was typed here. Otherwise they are left to the window, whose history
  /// knows each letter that went into the data.
  [[nodiscard]] virtual bool TakesUndo() const { return false; }
  [[nodiscard]] virtual bool TakesRedo() const { return false; }
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  class Filter;

  void InsertPassed(const QString& text);
  void PasteFromClipboard();
  void ApplyColour();

  const FieldRule& rule_;
  Filter* filter_;
  QString shown_;
  bool showing_ = false;
};

}  // namespace orvane::editor
