#include "editor/splitter.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QChildEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QRubberBand>

namespace orvane::editor {
namespace {

constexpr int kStep = 16;  // pixels for one press of an arrow key

}  // namespace

/// The bar between the two sides. Its place is the width of the left one.
class Splitter::Border : public QSplitterHandle {
 public:
  explicit Border(Splitter& splitter)
      : QSplitterHandle(Qt::Horizontal, &splitter), splitter_(splitter) {
    setAccessibleName(Splitter::tr("Border of navigation and page"));
  }

  [[nodiscard]] int Place() const { return pos().x(); }
  [[nodiscard]] int Limit(bool right) {
    return closestLegalPosition(right ? splitter_.width() : 0);
  }
  void MoveTo(int place) {
    moveSplitter(place);
    QAccessibleValueChangeEvent event(this, Place());
    QAccessible::updateAccessibility(&event);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Left:
        return MoveTo(Place() - kStep);
      case Qt::Key_Right:
        return MoveTo(Place() + kStep);
      case Qt::Key_Home:
        return MoveTo(Limit(false));
      case Qt::Key_End:
        return MoveTo(Limit(true));
      case Qt::Key_Escape:
        MoveTo(place_before_);
        return splitter_.SwitchFocus();
      default:
        QSplitterHandle::keyPressEvent(event);
    }
  }
  void focusInEvent(QFocusEvent* event) override {
    QSplitterHandle::focusInEvent(event);
    place_before_ = Place();
    update();
    emit splitter_.BorderFocused();
  }
  void focusOutEvent(QFocusEvent* event) override {
    QSplitterHandle::focusOutEvent(event);
    update();
  }
  void paintEvent(QPaintEvent* event) override {
    if (!hasFocus()) return QSplitterHandle::paintEvent(event);
    QPainter(this).fillRect(rect(), palette().highlight());
  }

 private:
  Splitter& splitter_;
  int place_before_ = 0;  ///< when the border got the focus
};

class Splitter::BorderText : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit BorderText(Border& border)
      : QAccessibleWidget(&border, QAccessible::Splitter), border_(border) {}

  static QAccessibleInterface* Make(const QString& /*class_name*/, QObject* object) {
    auto* border = dynamic_cast<Border*>(object);
    return border == nullptr ? nullptr : new BorderText(*border);
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::ValueInterface) return QAccessibleWidget::interface_cast(type);
    return static_cast<QAccessibleValueInterface*>(this);
  }
  [[nodiscard]] QVariant currentValue() const override { return border_.Place(); }
  void setCurrentValue(const QVariant& value) override { border_.MoveTo(value.toInt()); }
  [[nodiscard]] QVariant maximumValue() const override { return border_.Limit(true); }
  [[nodiscard]] QVariant minimumValue() const override { return border_.Limit(false); }
  [[nodiscard]] QVariant minimumStepSize() const override { return kStep; }

 private:
  Border& border_;
};

Splitter::Splitter(QWidget* parent) : QSplitter(parent) {
  setOpaqueResize(false);
  QAccessible::installFactory(BorderText::Make);
}

void Splitter::SwitchFocus() {
  QSplitterHandle* const border = handle(1);
  if (!border->hasFocus()) {
    focus_before_ = window()->focusWidget();
    border->setFocus(Qt::OtherFocusReason);
  } else if (focus_before_ != nullptr) {
    focus_before_->setFocus(Qt::OtherFocusReason);
  }
}

void Splitter::childEvent(QChildEvent* event) {
  QSplitter::childEvent(event);
  if (event->type() == QEvent::ChildPolished && qobject_cast<QRubberBand*>(event->child())) {
    event->child()->setObjectName(QStringLiteral("picSplitter"));
  }
}

QSplitterHandle* Splitter::createHandle() {
  return new Border(*this);
}

}  // namespace orvane::editor
