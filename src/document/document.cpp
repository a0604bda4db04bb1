#include "document/document.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>

#include "document/step_name.h"
#include "image/codec.h"

namespace orvane::document {
namespace {

constexpr std::size_t kOwnText = 15;  // characters that a string keeps without memory of its own

std::size_t SizeOf(const core::Value& value) {
  const auto* const text = std::get_if<std::string>(&value);
  return text != nullptr && text->size() > kOwnText ? text->capacity() + 1 : 0;
}

std::size_t SizeOf(const Step& step) {
  std::size_t size = sizeof(Step) + step.name.capacity();
  size += step.changes.capacity() * sizeof(core::Change);
  for (const core::Change& change : step.changes)
    size += SizeOf(change.before) + SizeOf(change.after);
  return size + (step.other != nullptr ? sizeof(Contents) : 0);
}

}  // namespace

Contents NewContents(std::int16_t model_type, core::Date today) {
  Contents contents;
  contents.data.MODELTYPE = model_type;
  image::ResetToDefaults(contents.data, today);
  return contents;
}

std::size_t PrintOf(std::string_view bytes) {
  return std::max<std::size_t>(std::hash<std::string_view>()(bytes), 1);
}

Document::Document(std::unique_ptr<Contents> contents, std::size_t history_bytes)
    : contents_(std::move(contents)), history_bytes_(history_bytes) {}

std::vector<core::Change> Document::TakeOver(const Body& edit) {
  const auto edited = std::make_unique<core::RadioData>(contents_->data);
  edit(*edited);
  std::vector<core::Change> changes = core::Differences(contents_->data, *edited);
  core::Apply(contents_->data, changes);
  return changes;
}

bool Document::Edit(std::string name, const Body& edit) {
  return Do({.name = std::move(name), .changes = {}, .other = nullptr}, edit);
}

bool Document::Edit(core::FieldRef at, const Body& edit, Manner manner) {
  const std::vector<core::Change> changes = TakeOver(edit);
  if (changes.empty()) return false;
  changed_ = true;
  if (manner == Manner::kChoice || typing_ != at || !JoinStep(at, changes)) {
    Record({.name = StepName(contents_->data, at), .changes = changes, .at = at, .other = nullptr});
  }
  typing_ = manner == Manner::kTyping ? std::optional(at) : std::nullopt;
  TellChanged(changes);
  return true;
}

bool Document::Adjust(std::string name, const Body& edit, bool saved) {
  return Do({.name = std::move(name),
             .changes = {},
             .other = nullptr,
             .by_program = true,
             .saved_after = saved},
            edit);
}

bool Document::Do(Step step, const Body& edit) {
  typing_.reset();
  const std::vector<core::Change> changes = TakeOver(edit);
  if (changes.empty()) return false;
  if (!step.by_program) changed_ = true;
  step.changes = changes;
  Record(std::move(step));
  TellChanged(changes);
  return true;
}

void Document::Begin(Contents contents) {
  *contents_ = std::move(contents);
  TellReplaced();
}

// A step that the file holds stays as it is, so that undo comes back to it.
bool Document::JoinStep(core::FieldRef at, std::span<const core::Change> changes) {
  if (done_ == 0 || done_ != steps_.size() || IsSaved()) return false;
  Step& step = steps_.back();
  if (step.at != at) return false;
  bytes_ -= SizeOf(step);
  for (const core::Change& change : changes) {
    const auto same = std::find_if(step.changes.begin(), step.changes.end(),
                                   [&](const core::Change& c) { return c.at == change.at; });
    if (same == step.changes.end()) {
      step.changes.push_back(change);
    } else {
      same->after = change.after;
    }
  }
  bytes_ += SizeOf(step);
  return true;
}

void Document::Replace(std::string name, Contents contents, bool saved) {
  typing_.reset();
  auto other = std::make_unique<Contents>(std::move(contents));
  std::swap(*contents_, *other);
  Record({.name = std::move(name), .changes = {}, .other = std::move(other), .saved_after = saved});
  TellReplaced();
}

void Document::Record(Step step) {
  DropUndone();
  bytes_ += SizeOf(step);
  steps_.push_back(std::move(step));
  ++done_;
  DropOldest();
}

void Document::DropUndone() {
  while (steps_.size() > done_) {
    bytes_ -= SizeOf(steps_.back());
    steps_.pop_back();
  }
}

// The newest step stays, whatever it takes.
void Document::DropOldest() {
  std::size_t count = 0;
  while (bytes_ > history_bytes_ && count + 1 < done_) {
    const Step& step = steps_[count++];
    bytes_ -= SizeOf(step);
    saved_at_start_ = step.saved_after;
    at_start_as_it_came_ = step.other != nullptr;
  }
  steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(count));
  done_ -= count;
}

void Document::Swap(Step& step) {
  std::swap(*contents_, *step.other);
  TellReplaced();
}

void Document::Undo() {
  typing_.reset();
  Step& step = steps_[--done_];
  changed_ = true;
  if (step.other != nullptr) return Swap(step);
  core::Revert(contents_->data, step.changes);
  TellChanged(step.changes);
}

void Document::Redo() {
  typing_.reset();
  Step& step = steps_[done_++];
  changed_ = true;
  if (step.other != nullptr) return Swap(step);
  core::Apply(contents_->data, step.changes);
  TellChanged(step.changes);
}

void Document::GoTo(std::size_t done) {
  while (done_ > done) Undo();
  while (done_ < done && CanRedo()) Redo();
}

const Contents* Document::ReplacedUnsaved() const {
  const Contents* const before = done_ == 0 ? nullptr : steps_[done_ - 1].other.get();
  if (before == nullptr || IsSavedAt(done_ - 1)) return nullptr;
  const bool can_be_had_again = IsAsItCameAt(done_ - 1) && before->origin != Origin::kRecovered;
  return can_be_had_again ? nullptr : before;
}

std::vector<core::FieldRef> Document::EditedFields() const {
  std::vector<core::FieldRef> fields = contents_->edited;
  for (std::size_t place = done_; place > 0 && steps_[place - 1].other == nullptr; --place) {
    const Step& step = steps_[place - 1];
    if (step.by_program) continue;
    for (const core::Change& change : step.changes) {
      if (std::find(fields.begin(), fields.end(), change.at) == fields.end()) {
        fields.push_back(change.at);
      }
    }
  }
  return fields;
}

// Every place of the history whose file was this one no longer holds what the file holds.
void Document::MarkSaved(std::string file_name, std::string time, std::size_t file_print) {
  typing_.reset();
  contents_->file_name = std::move(file_name);
  contents_->time = std::move(time);
  contents_->file_print = file_print;
  const std::string& file = contents_->file_name;
  const auto is_other = [&](const Step& step) {
    return step.other != nullptr && step.other->file_name != file;
  };
  // Away from the present on either side; behind a replacement stands the data set that it keeps.
  bool same = true;
  for (std::size_t place = done_; place > 0; --place) {
    Step& step = steps_[place - 1];
    if (same) step.saved_after = false;
    if (step.other != nullptr) same = !is_other(step);
  }
  if (same) saved_at_start_ = false;
  same = true;
  for (std::size_t place = done_; place < steps_.size(); ++place) {
    Step& step = steps_[place];
    if (step.other != nullptr) same = !is_other(step);
    if (same) step.saved_after = false;
  }
  (done_ == 0 ? saved_at_start_ : steps_[done_ - 1].saved_after) = true;
  TellStatus();
}

void Document::Unwatch(Watcher& watcher) {
  std::erase(watchers_, &watcher);
}

void Document::TellChanged(std::span<const core::Change> changes) const {
  for (Watcher* watcher : watchers_) watcher->Changed(changes);
  TellStatus();
}

void Document::TellReplaced() const {
  for (Watcher* watcher : watchers_) watcher->Replaced();
  TellStatus();
}

void Document::TellStatus() const {
  for (Watcher* watcher : watchers_) watcher->StatusChanged();
}

std::string SavedText(const Document& document) {
  const std::string& time = document.Time();
  if (document.IsSaved()) return time.empty() ? "Saved" : "Saved " + time;
  if (!document.IsAsItCame()) return "Changed, not saved";
  if (document.ComesFrom() == Origin::kRead) return "Read " + time + ", not saved";
  if (document.ComesFrom() == Origin::kBackup) return "Backup of " + time + ", not saved";
  return document.ComesFrom() == Origin::kRecovered ? "Recovered, not saved" : "New";
}

}  // namespace orvane::document
