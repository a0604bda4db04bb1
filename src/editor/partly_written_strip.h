#pragma once

#include <QFrame>
#include <QPushButton>
#include <string>

#include "editor/live_label.h"
#include "files/partly_written.h"

namespace orvane::editor {

/// `stripPartlyWritten`: in red, that a radio was left partly written, and the ways on. Hidden
/// while there is none.
class PartlyWrittenStrip : public QFrame {
  Q_OBJECT

 public:
  explicit PartlyWrittenStrip(QWidget* parent);

  void ShowMark(const files::PartlyWritten& mark);
  void HideMark() { hide(); }
  [[nodiscard]] const std::string& Port() const { return port_; }

 signals:
  void ProgramAgainAsked();
  void PutBackAsked();
  void SettledAsked();

 private:
  std::string port_;  ///< of the mark on show
  LiveLabel* text_;
  QPushButton* put_back_;
};

}  // namespace orvane::editor
