#pragma once

#include <QAction>
#include <QFrame>

#include "editor/live_label.h"

namespace orvane::editor {

/// `stripSimulatedRadio`: that the port chosen leads to no real radio, and the way out.
class SimulatedRadioStrip : public QFrame {
  Q_OBJECT

 public:
  /// end: the menu item that the button stands for.
  SimulatedRadioStrip(QAction& end, QWidget* parent);

  void Tell(const QString& text);

 private:
  LiveLabel* text_;
};

}  // namespace orvane::editor
