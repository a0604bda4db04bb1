#pragma once

#include <QDialog>
#include <QTreeWidget>
#include <string>

#include "document/compare.h"
#include "editor/window_services.h"

namespace orvane::editor {

/// `frmComparison`: how two data sets of one model differ, field by field, to look at, copy and
/// save.
class ComparisonWindow : public QDialog {
  Q_OBJECT

 public:
  /// The names head the columns of values: "On the screen", "In the radio".
  struct Names {
    QString ours;
    QString theirs;
    QString about_ours{};  ///< what the column holds exactly, as its tooltip
  };
  ComparisonWindow(const WindowServices& services, document::Comparison comparison,
                   const Names& names, QWidget* parent);

 private:
  void AddRows();
  /// Tab-separated lines, headings first.
  [[nodiscard]] QString Text() const;

  const WindowServices services_;
  const document::Comparison comparison_;
  QTreeWidget* rows_;
};

}  // namespace orvane::editor
