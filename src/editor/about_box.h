#pragma once

#include <QDialog>

namespace orvane::editor {

/// `frmAbout`: the program's title, version and a notice.
class AboutBox : public QDialog {
  Q_OBJECT

 public:
  explicit AboutBox(QWidget* parent);
};

}  // namespace orvane::editor
