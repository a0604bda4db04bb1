#pragma once

#include <QFrame>
#include <QLabel>

namespace orvane::editor {

/// `pictProgress`: a box through which the bar `lblPercent` slides in from the left, with the
/// percentage in its middle.
class ProgressBox : public QFrame {
  Q_OBJECT

 public:
  explicit ProgressBox(QWidget* parent = nullptr);

  /// 0 hides the bar, 100 fills the box; more counts as 100.
  void ShowPercent(int percent);
  [[nodiscard]] int Percent() const { return percent_; }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PlaceBar();

  QLabel* bar_;
  int percent_ = 0;
};

}  // namespace orvane::editor
