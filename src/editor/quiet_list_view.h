#pragma once

#include <QListView>

namespace orvane::editor {

/// A list that follows the document while the user works elsewhere: its current row may change
/// without assistive technologies being told that it has the focus.
class QuietListView : public QListView {
  Q_OBJECT

 public:
  using QListView::QListView;

 signals:
  void FocusGained();

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  bool viewportEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace orvane::editor
