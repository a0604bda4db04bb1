#include "editor/page_area.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

namespace orvane::editor {
namespace {

// The area that scrolls a page: the parent of its viewport's child.
QScrollArea* ScrollerOf(const Page& page) {
  return qobject_cast<QScrollArea*>(page.parentWidget()->parentWidget());
}

bool TakesTab(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isEnabled() && widget.isVisible();
}

}  // namespace

PageArea::PageArea(QWidget* parent) : QStackedWidget(parent) {}

void PageArea::Add(Page* page) {
  auto* scroller = new QScrollArea(this);
  scroller->setFrameShape(QFrame::NoFrame);
  scroller->setFocusPolicy(Qt::NoFocus);
  scroller->setWidgetResizable(true);
  scroller->setWidget(page);
  page->setEnabled(false);
  addWidget(scroller);
  pages_.push_back(page);
}

void PageArea::Show(Page* page, const NodeRef& node) {
  const bool had_focus = HasFocusInside();
  // A page that is filled anew stays enabled, so that its control keeps the focus.
  for (Page* other : pages_) {
    if (other != page || page != current_) other->setEnabled(false);
  }
  page->Fill(node);
  QScrollArea* scroller = ScrollerOf(*page);
  if (page != current_) scroller->verticalScrollBar()->setValue(0);
  current_ = page;
  setCurrentWidget(scroller);
  page->setEnabled(true);
  if (had_focus && !HasFocusInside()) FocusFirstControl();
}

bool PageArea::HasFocusInside() const {
  // That of the window, which a dialog on top of it does not change.
  const QWidget* focus = window()->focusWidget();
  return focus != nullptr && isAncestorOf(focus);
}

bool PageArea::FocusField(core::FieldRef at) {
  QWidget* const control = current_ == nullptr ? nullptr : current_->ControlOf(at);
  if (control == nullptr || !TakesTab(*control)) return false;
  control->setFocus(Qt::TabFocusReason);
  return true;
}

bool PageArea::FocusFirstControl() {
  if (current_ == nullptr) return false;
  for (QWidget* widget = current_->nextInFocusChain(); widget != current_;
       widget = widget->nextInFocusChain()) {
    if (!current_->isAncestorOf(widget) || !TakesTab(*widget)) continue;
    widget->setFocus(Qt::TabFocusReason);
    return true;
  }
  return false;
}

}  // namespace orvane::editor
