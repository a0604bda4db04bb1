#pragma once

#include <QWidget>

namespace orvane::editor {

/// One of the program's own drawings in the palette's colours, as high as a few lines of text and
/// sharp at every scale.
class Picture : public QWidget {
  Q_OBJECT

 public:
  /// name is that of a drawing in the resources, without folder and ".svg".
  Picture(const char* name, int text_lines, QWidget* parent = nullptr);

  /// Left and right change sides.
  void SetMirrored(bool mirrored);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const char* name_;
  int text_lines_;
  bool mirrored_ = false;
};

}  // namespace orvane::editor
