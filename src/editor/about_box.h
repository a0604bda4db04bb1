#pragma once

#include <QDialog>

#include "core/radio_data.h"

namespace orvane::editor {

/// `frmAbout`: the program's title, version and a notice.
class AboutBox : public QDialog {
  Q_OBJECT

 public:
  AboutBox(const core::RadioData& radio_data, QWidget* parent);
};

}  // namespace orvane::editor
