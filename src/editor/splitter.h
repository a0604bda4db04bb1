#pragma once

#include <QPointer>
#include <QSplitter>

namespace orvane::editor {

/// A splitter whose bar follows the mouse; the sides change when the button is released. By
/// keyboard its border is moved with the arrow keys, Home and End while it has the focus.
class Splitter : public QSplitter {
  Q_OBJECT

 public:
  explicit Splitter(QWidget* parent);

  /// Gives the focus to the border, or back to where it came from.
  void SwitchFocus();

 signals:
  /// The border got the focus.
  void BorderFocused();

 protected:
  void childEvent(QChildEvent* event) override;
  [[nodiscard]] QSplitterHandle* createHandle() override;

 private:
  class Border;
  class BorderText;

  QPointer<QWidget> focus_before_;
};

}  // namespace orvane::editor
