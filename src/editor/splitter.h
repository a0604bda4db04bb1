#pragma once

#include <QChildEvent>
#include <QRubberBand>
#include <QSplitter>

namespace orvane::editor {

/// A splitter whose bar follows the mouse; the sides change when the button is released.
class Splitter : public QSplitter {
  Q_OBJECT

 public:
  explicit Splitter(QWidget* parent) : QSplitter(parent) { setOpaqueResize(false); }

 protected:
  void childEvent(QChildEvent* event) override {
    QSplitter::childEvent(event);
    if (event->type() == QEvent::ChildPolished && qobject_cast<QRubberBand*>(event->child())) {
      event->child()->setObjectName(QStringLiteral("picSplitter"));
    }
  }
};

}  // namespace orvane::editor
