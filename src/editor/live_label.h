#pragma once

#include "editor/tool_tips.h"

namespace orvane::editor {

/// A label whose changes a screen reader speaks although it never has the focus. Its name there is
/// the text it shows.
class LiveLabel : public CutLabel {
  Q_OBJECT

 public:
  explicit LiveLabel(QWidget* parent);

  /// Shows the text and has it spoken; a text that is on show already, or none, stays unspoken.
  /// QLabel::setText changes the text in silence, for what changes too often to be listened to.
  /// also: what is spoken behind it, for which there is no room.
  void Tell(const QString& text, const QString& also = {});
  /// Has the text on show spoken.
  void Announce();
  /// What a screen reader says.
  [[nodiscard]] QString Spoken() const;

 signals:
  /// The text on show was handed over to be spoken.
  void Announced();

 private:
  QString told_;  ///< the text that was told last, which also_ goes with
  QString also_;
};

}  // namespace orvane::editor
