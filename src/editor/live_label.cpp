#include "editor/live_label.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace orvane::editor {
namespace {

class LiveText : public QAccessibleWidget {
 public:
  explicit LiveText(LiveLabel& label)
      : QAccessibleWidget(&label, QAccessible::Notification), label_(label) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? label_.Spoken() : QAccessibleWidget::text(kind);
  }

 private:
  const LiveLabel& label_;
};

QAccessibleInterface* MakeLiveText(const QString& /*class_name*/, QObject* object) {
  auto* label = qobject_cast<LiveLabel*>(object);
  return label == nullptr ? nullptr : new LiveText(*label);
}

}  // namespace

LiveLabel::LiveLabel(QWidget* parent) : CutLabel(parent) {
  QAccessible::installFactory(MakeLiveText);  // once, however often it is asked for
  setTextFormat(Qt::PlainText);
}

void LiveLabel::Tell(const QString& text, const QString& also) {
  if (text == this->text() && also == also_) return;
  setText(text);
  told_ = text;
  also_ = also;
  if (!text.isEmpty()) Announce();
}

QString LiveLabel::Spoken() const {
  return also_.isEmpty() || text() != told_ ? text() : text() + QLatin1String(". ") + also_;
}

void LiveLabel::Announce() {
  emit Announced();
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent event(this, Spoken());
  QAccessible::updateAccessibility(&event);
#else
  // Screen readers speak a notice that appears; some of them, one that alerts.
  for (const QAccessible::Event kind : {QAccessible::ObjectShow, QAccessible::Alert}) {
    QAccessibleEvent event(this, kind);
    QAccessible::updateAccessibility(&event);
  }
#endif
}

}  // namespace orvane::editor
