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
  void Tell(const QString& text);
  /// Has the text on show spoken.
  void Announce();

 signals:
  /// The text on show was handed over to be spoken.
  void Announced();
};

}  // namespace orvane::editor
