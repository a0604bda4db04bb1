#pragma once

#include <QDialog>

#include "files/sheet_edits.h"

namespace orvane::editor {

/// `frmRefused`: the cells that a command on a table cannot change, each with the reason. Accepted
/// when the rest shall be done.
class RefusedCells : public QDialog {
  Q_OBJECT

 public:
  RefusedCells(const files::SheetEdit& edit, const QString& title, QWidget* parent);
};

}  // namespace orvane::editor
