#pragma once

#include <QStackedWidget>
#include <vector>

#include "editor/page.h"

namespace orvane::editor {

/// The right side of the window: one page at a time is visible and enabled. A page too large for
/// the area scrolls.
class PageArea : public QStackedWidget {
  Q_OBJECT

 public:
  explicit PageArea(QWidget* parent = nullptr);

  /// Takes the page over.
  void Add(Page* page);
  /// Fills the page for the node and brings it to the front.
  void Show(Page* page, const NodeRef& node);
  /// Null until a page was shown.
  [[nodiscard]] Page* Current() const { return current_; }
  [[nodiscard]] const std::vector<Page*>& Pages() const { return pages_; }
  [[nodiscard]] bool HasFocusInside() const;
  /// Gives the focus to the control that shows the field; false when it cannot take it.
  bool FocusField(core::FieldRef at);
  /// Gives the focus to the first control of the page; false when there is none.
  bool FocusFirstControl();

 private:
  std::vector<Page*> pages_;
  Page* current_ = nullptr;
};

}  // namespace orvane::editor
