#pragma once

#include <QPointer>
#include <QWidget>

namespace orvane::editor {

/// While it lives, the window takes no input and the pointer is an hourglass. The focus returns to
/// where it was, or, when that is no longer shown, to the first control. May be nested.
class Working {
 public:
  explicit Working(QWidget& window);
  ~Working();
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  void GiveFocusBack();

  QWidget& window_;
  bool was_enabled_;
  QPointer<QWidget> focus_;
};

}  // namespace orvane::editor
