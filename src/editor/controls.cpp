#include "editor/controls.h"

#include <QEvent>
#include <QKeyEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <QVariant>
#include <QWheelEvent>
#include <utility>

namespace orvane::editor {
namespace {

constexpr const char* kHintProperty = "hint";

}  // namespace

PickBox::PickBox(QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
    picked_ = true;
    emit Picked(index);
  });
  // Told after a change as well, and alone when the choice stays.
  connect(this, &QComboBox::activated, this, [this](int index) {
    if (!std::exchange(picked_, true)) emit Picked(index);
  });
}

void PickBox::ShowItem(int index) {
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
  picked_ = false;
}

void PickBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void OptionButton::keyPressEvent(QKeyEvent* event) {
  const bool back = event->key() == Qt::Key_Up || event->key() == Qt::Key_Left;
  if (!back && event->key() != Qt::Key_Down && event->key() != Qt::Key_Right) {
    return QRadioButton::keyPressEvent(event);
  }
  const auto group = parentWidget()->findChildren<OptionButton*>(Qt::FindDirectChildrenOnly);
  OptionButton* const next = group.value(group.indexOf(this) + (back ? -1 : 1));
  if (next == nullptr || !next->isEnabled()) return;
  next->setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
  next->click();
}

void GreyableFrame::SetGrey(bool grey) {
  grey_ = grey;
  update();
}

void GreyableFrame::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  if (grey_) {
    option.state &= ~QStyle::State_Enabled;
    option.palette.setCurrentColorGroup(QPalette::Disabled);
    option.textColor = option.palette.color(QPalette::WindowText);
  }
  QStylePainter(this).drawComplexControl(QStyle::CC_GroupBox, option);
}

QCheckBox* ControlMaker::Check(const QString& name, const QString& caption, int help_context) {
  auto* box = new QCheckBox(caption, &page_);
  Adopt(*box, name, caption, kToggleHint, help_context);
  return box;
}

PickBox* ControlMaker::List(const QString& name, const QString& caption, const QStringList& items,
                            int help_context) {
  auto* list = new PickBox(&page_);
  list->addItems(items);
  Adopt(*list, name, caption, kListHint, help_context);
  return list;
}

QLabel* ControlMaker::Caption(const QString& caption, QWidget* buddy) {
  auto* label = new QLabel(caption, &page_);
  label->setBuddy(buddy);
  return label;
}

void ControlMaker::Adopt(QWidget& control, const QString& name, const QString& caption,
                         const char* hint, int help_context) {
  control.setObjectName(name);
  control.setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  control.setProperty(kHintProperty, QLatin1String(hint));
  if (help_context != 0) SetHelpContext(control, help_context);
  control.installEventFilter(this);
}

bool ControlMaker::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    const auto* field = qobject_cast<const QLineEdit*>(watched);
    const bool locked = field != nullptr && field->isReadOnly();
    host_.ShowHint(locked ? QString() : watched->property(kHintProperty).toString());
  }
  return QObject::eventFilter(watched, event);
}

QString MemberName(const char* array, int index) {
  return QStringLiteral("%1_%2").arg(QLatin1String(array)).arg(index);
}

void SetHelpContext(QWidget& control, int number) {
  control.setProperty(kHelpContextProperty, number);
}

void SetDigits(QLineEdit& box, int digits) {
  const int text_width = box.fontMetrics().horizontalAdvance(QString(digits, QLatin1Char('0')));
  const int frame = box.sizeHint().height();  // both margins and the cursor
  box.setFixedWidth(text_width + frame);
}

}  // namespace orvane::editor
