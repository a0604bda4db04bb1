#include "editor/finder.h"

#include <QApplication>

#include "editor/page.h"
#include "help/help_opener.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr const char* kFindHint =
    "[Up]/[Down]:Choose.  [Enter]:Go there.  [F3]:Go on.  [Esc]:Back.";

}  // namespace

Finder::Finder(document::Document& document, const Place& place)
    : document_(document), place_(place) {
  connect(place_.menus.find, &QAction::triggered, this, &Finder::Open);
  connect(place_.menus.find_next, &QAction::triggered, this, [this] { GoOn(1); });
  connect(place_.menus.find_previous, &QAction::triggered, this, [this] { GoOn(-1); });
  connect(qApp, &QApplication::focusChanged, this, &Finder::NoteFocus);
}

FindBox& Finder::Box() {
  if (box_ == nullptr) {
    box_ = new FindBox(document_, place_.tree.parentWidget());
    box_->setProperty(kHelpContextProperty, help::kFindContext);
    box_->hide();
    place_.column.insertWidget(0, box_);
    connect(box_, &FindBox::HitChosen, this, &Finder::GoToCurrent);
    connect(box_, &FindBox::Cancelled, this, &Finder::Return);
    connect(box_, &FindBox::CloseAsked, this, &Finder::Close);
    connect(box_, &FindBox::FocusGained, this,
            [this] { place_.host.ShowHint(QLatin1String(kFindHint)); });
  }
  return *box_;
}

void Finder::Open() {
  Box().Open();
}

void Finder::NoteFocus(QWidget* old, QWidget* now) {
  if (box_ == nullptr || old == nullptr || now == nullptr) return;
  if (!box_->isAncestorOf(now) || box_->isAncestorOf(old)) return;
  if (old->window() != box_->window()) return;
  key_before_ = place_.navigator.CurrentKey();
  focus_before_ = old;
}

void Finder::GoOn(int step) {
  const document::Hit* const found = Box().Step(step);
  if (found == nullptr) return Open();
  // What follows may look again.
  const document::Hit hit = *found;
  // Whoever is still typing goes on doing so, and Esc leads back.
  const bool stays = box_->HasFocusInside();
  if (stays ? !place_.follower.ShowPageOf(hit.at) : !Visit(hit)) return;
  place_.host.ShowNotice(tr("Find: %1").arg(box_->PlaceText()));
}

void Finder::GoToCurrent(bool by_enter) {
  const document::Hit* const found = box_->Current();
  if (found == nullptr) return;
  const document::Hit hit = *found;
  if (!Visit(hit)) return;
  if (by_enter) box_->hide();
  if (hit.use == document::Use::kGroupOff) {
    place_.host.ShowNotice(
        tr("%1 is not in use: this box puts it in use").arg(platform::FromAnsi(hit.group)));
  }
}

bool Finder::Visit(const document::Hit& hit) {
  if (!place_.follower.VisitField(hit.at)) return false;
  // The field may be one that cannot be set just now.
  if (!place_.area.HasFocusInside()) place_.follower.ShowField(hit.channel);
  if (!place_.area.HasFocusInside()) place_.area.FocusFirstControl();
  return true;
}

void Finder::Return() {
  if (key_before_ != place_.navigator.CurrentKey()) place_.navigator.Select(key_before_);
  const bool is_there = focus_before_ != nullptr && focus_before_->isEnabled() &&
                        focus_before_->isVisible() && place_.navigator.CurrentKey() == key_before_;
  (is_there ? focus_before_.data() : &place_.tree)->setFocus(Qt::OtherFocusReason);
  box_->hide();
}

void Finder::Close() {
  if (box_->HasFocusInside()) return Return();
  box_->hide();
}

}  // namespace orvane::editor
