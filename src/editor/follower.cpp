#include "editor/follower.h"

#include <QScopedValueRollback>

#include "core/model_profile.h"
#include "editor/field_box.h"
#include "editor/file_commands.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::editor {

Follower::Follower(document::Document& document, core::SettingsStore& settings, const Views& views)
    : document_(document),
      settings_(settings),
      views_(views),
      model_type_(document.Data().MODELTYPE) {
  document_.Watch(*this);
  connect(&views_.navigator, &Navigator::PageShown, &views_.heading, &PageHeading::Show);
}

Follower::~Follower() {
  document_.Unwatch(*this);
}

void Follower::EditByPage(core::FieldRef at, const document::Document::Body& edit,
                          document::Document::Manner manner) {
  const QScopedValueRollback<bool> quiet(quiet_, true);
  document_.Edit(at, edit, manner);
}

void Follower::EditByPage(const std::string& name, const document::Document::Body& edit) {
  const QScopedValueRollback<bool> quiet(quiet_, true);
  document_.Edit(name, edit);
}

void Follower::Undo() {
  if (auto* box = qobject_cast<FieldBox*>(views_.window.focusWidget())) {
    if (box->UndoTyping()) return;
  }
  if (document_.CanUndo()) GoTo(document_.DoneCount() - 1);
}

void Follower::Redo() {
  // A typed value that is taken over is an edit, after which there is nothing to take again.
  if (views_.navigator.TakePending() && document_.CanRedo()) GoTo(document_.DoneCount() + 1);
}

void Follower::GoTo(std::size_t done) {
  const std::size_t before = document_.DoneCount();
  if (done == before) return;
  const document::Step& last = document_.Steps()[done < before ? done : done - 1];
  const std::optional<core::FieldRef> at = FieldOf(last);
  // What was done to many fields at once is undone under the eyes of a user who sees them.
  const Page* const page = views_.area.Current();
  const bool stays = !last.at && at && page != nullptr && page->ControlOf(*at) != nullptr;
  {
    const QScopedValueRollback<bool> quiet(quiet_, true);
    replaced_ = false;
    document_.GoTo(done);
  }
  if (replaced_) FollowDestination();
  FollowModel();
  views_.tree.Rebuild();
  if (at && !stays) {
    ShowField(*at);
  } else {
    ShowCurrentPage();
  }
}

std::optional<core::FieldRef> Follower::FieldOf(const document::Step& step) const {
  if (step.at) return step.at;
  for (const core::Change& change : step.changes) {
    if (NodeOfField(document_.Data(), change.at)) return change.at;
  }
  return std::nullopt;
}

QString Follower::KeyOfField(core::FieldRef at) const {
  const std::optional<NodeRef> node = NodeOfField(document_.Data(), at);
  if (!node) return {};
  QString key = KeyOf(*node);
  // The forty places stand under two headings.
  NodeRef other = *node;
  if (node->kind == NodeKind::kLmrChannel) other.kind = NodeKind::kExpChannel;
  if (node->kind == NodeKind::kExpChannel) other.kind = NodeKind::kLmrChannel;
  if (KeyOf(other) == views_.navigator.CurrentKey() || !views_.tree.Contains(key)) {
    key = KeyOf(other);
  }
  return views_.tree.Contains(key) ? key : QString();
}

void Follower::ShowField(core::FieldRef at) {
  const QString key = KeyOfField(at);
  if (key.isEmpty()) return ShowCurrentPage();
  views_.navigator.Show(key);
  if (!views_.area.FocusField(at) && !views_.area.HasFocusInside()) views_.tree.setFocus();
}

bool Follower::VisitField(core::FieldRef at) {
  if (!ShowPageOf(at)) return false;
  ShowField(at);
  return true;
}

bool Follower::ShowPageOf(core::FieldRef at) {
  const QString key = KeyOfField(at);
  if (key == views_.navigator.CurrentKey()) return views_.navigator.TakePending();
  if (!views_.navigator.CheckPage()) return false;
  views_.navigator.Show(key);
  return true;
}

void Follower::ShowCurrentPage() {
  const QString& key = views_.navigator.CurrentKey();
  views_.navigator.Show(views_.tree.Contains(key) ? QString(key) : KeyOf({}));
}

// Which entry another data set came from is not kept; which destination it is for, it says itself.
void Follower::FollowDestination() {
  const core::RadioData& data = document_.Data();
  views_.destinations.ForgetSource();
  if (data.MODELTYPE != model_type_) views_.destinations.Rebuild(data.MODELTYPE);
  views_.destinations.CheckFor(data.Image);
}

void Follower::FollowModel() {
  const core::RadioData& data = document_.Data();
  views_.model_name.setText(platform::FromAnsi(image::ModelName(data)));
  if (data.MODELTYPE == model_type_) return;
  model_type_ = data.MODELTYPE;
  settings_.SetModelType(model_type_);
  for (Page* page : views_.area.Pages()) page->ModelChanged();
}

void Follower::Begin() {
  FollowModel();
  StatusChanged();
}

void Follower::Changed(std::span<const core::Change> /*changes*/) {
  if (quiet_) return;
  FollowModel();
  views_.tree.Rebuild();
  ShowCurrentPage();
}

void Follower::Replaced() {
  replaced_ = true;
  problem_count_ = 0;
  if (quiet_) return;
  views_.destinations.ForgetSource();
  if (document_.Data().MODELTYPE != model_type_) {
    views_.destinations.Rebuild(document_.Data().MODELTYPE);
  }
  FollowModel();
  views_.tree.Rebuild();
  // The page "General" shows no data: it need not be filled again.
  if (views_.navigator.CurrentKey() != KeyOf({})) views_.navigator.SelectUnchecked(KeyOf({}));
}

void Follower::StatusChanged() {
  views_.window.setWindowTitle(WindowTitle(document_.FileName()));
  views_.heading.Refresh();
  const std::span<const document::Step> steps = document_.Steps();
  const std::size_t done = document_.DoneCount();
  NameCommand(*views_.menus.undo, tr("Undo"), document_.CanUndo() ? &steps[done - 1] : nullptr);
  NameCommand(*views_.menus.redo, tr("Redo"), document_.CanRedo() ? &steps[done] : nullptr);
  if (!notice_shown_) ShowSaved();
  emit HistoryChanged();
}

void Follower::NameCommand(QAction& item, const QString& word, const document::Step* step) {
  const QString key = item.shortcut().toString(QKeySequence::NativeText);
  QString text = word;
  if (step != nullptr) text += QLatin1Char(' ') + platform::FromUtf8(step->name);
  item.setEnabled(step != nullptr);
  item.setText(QLatin1Char('&') + PlainCaption(text));
  item.setToolTip(step != nullptr ? tr("%1 (%2)").arg(text, key)
                                  : tr("%1: there is no step to take").arg(word));
}

void Follower::ShowNotice(const QString& notice) {
  notice_shown_ = true;
  views_.notice.clear();  // told again when it is the same
  views_.notice.Tell(notice);
}

void Follower::EndNotice() {
  if (!notice_shown_) return;
  notice_shown_ = false;
  ShowSaved();
}

void Follower::ShowCopyFailure(const QString& reason) {
  copy_failure_ = reason;
  if (!notice_shown_) ShowSaved();
}

void Follower::ShowBackupFailure(const QString& reason) {
  backup_failure_ = reason;
  if (!notice_shown_) ShowSaved();
}

// The count follows each edit: nobody wants to listen to that.
void Follower::ShowProblemCount(int count) {
  if (count == problem_count_) return;
  problem_count_ = count;
  if (!notice_shown_) views_.notice.setText(StatusText());
}

QString Follower::StatusText() const {
  QString text = platform::FromUtf8(document::SavedText(document_));
  if (problem_count_ == 1) text += tr("; 1 problem");
  if (problem_count_ > 1) text += tr("; %1 problems").arg(problem_count_);
  if (!copy_failure_.isEmpty()) text += tr("; no copies are being kept: ") + copy_failure_;
  if (!backup_failure_.isEmpty()) text += tr("; no backup was kept: ") + backup_failure_;
  return text;
}

// That something changed is said by whoever changed it.
void Follower::ShowSaved() {
  const QString text = StatusText();
  if (document_.IsSaved()) {
    views_.notice.Tell(text);
  } else {
    views_.notice.setText(text);
  }
}

}  // namespace orvane::editor
