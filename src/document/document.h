#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/catalogue.h"
#include "core/radio_data.h"

namespace orvane::document {

/// Where a data set came from.
enum class Origin { kNew, kOpened, kRead, kTemplate, kImage, kRecovered, kBackup };

/// A data set and the file it belongs to.
struct Contents {
  core::RadioData data;
  std::string file_name{};  ///< full path, "" for one without a file
  Origin origin = Origin::kNew;
  /// When it was read, last saved or backed up, as the user sees it ("14:02"); of a simulated radio
  /// also that.
  std::string time{};
  /// PrintOf the file's bytes when it was last read or written here; 0 when it was not.
  std::size_t file_print = 0;
  /// Of recovered data: fields that the user had set before, since the file was opened.
  std::vector<core::FieldRef> edited{};
};

/// Tells one file's contents from another's. Never 0.
[[nodiscard]] std::size_t PrintOf(std::string_view bytes);

/// A data set of the model as it is after New.
[[nodiscard]] Contents NewContents(std::int16_t model_type, core::Date today);

/// What one command of the user did. Undo takes it back whole.
struct Step {
  std::string name;                   ///< "CH16 CH Name", "Open boat.dat", "Read from Radio"
  std::vector<core::Change> changes;  ///< an edit; empty for a replacement
  /// The field that the user set; nothing where a step is about more than one.
  std::optional<core::FieldRef> at{};
  /// A replacement (New, Open, Read from Radio and the like): the data set on the other side of
  /// the step. So no command that replaces the data loses work, although none of them asks.
  std::unique_ptr<Contents> other;
  bool by_program = false;   ///< an adjustment
  bool saved_after = false;  ///< with this step done, and none after it, the file holds the data
};

/// Told after the data changed. Called from Edit, Undo, Redo, GoTo and Replace, and may not call
/// them.
class Watcher {
 public:
  virtual ~Watcher() = default;
  /// An edit was made, taken back or made again. The befores and afters are the edit's own, which
  /// way soever it went.
  virtual void Changed(std::span<const core::Change> changes) = 0;
  /// Another data set stands in the place of the old one.
  virtual void Replaced() = 0;
  /// File name, saved mark or history changed; sent after the others as well.
  virtual void StatusChanged() = 0;
};

/// The data set being worked on, its history and what of it is not on disk yet. Everybody reads
/// Data(), whose address stays; nobody but this class writes to it.
///
/// A step keeps differences, not copies: some 90 bytes a field and the text beyond 15 characters,
/// against 150 kB for a data set. The oldest steps go when the history outgrows its bound.
class Document {
 public:
  static constexpr std::size_t kHistoryBytes = std::size_t{16} * 1024 * 1024;

  explicit Document(std::unique_ptr<Contents> contents, std::size_t history_bytes = kHistoryBytes);
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  [[nodiscard]] const Contents& Current() const { return *contents_; }
  [[nodiscard]] const core::RadioData& Data() const { return contents_->data; }
  [[nodiscard]] const std::string& FileName() const { return contents_->file_name; }
  [[nodiscard]] Origin ComesFrom() const { return contents_->origin; }
  [[nodiscard]] std::size_t FilePrint() const { return contents_->file_print; }
  [[nodiscard]] const std::string& Time() const { return contents_->time; }

  using Body = std::function<void(core::RadioData&)>;

  /// The one door. Runs the edit on a copy and takes it over; the differences become a step. False,
  /// and no step, when the edit changed nothing. An edit that throws changes nothing.
  bool Edit(std::string name, const Body& edit);
  /// The same for one field that the user set, which names the step. What follows from it belongs
  /// to the step. Typing: edits of the same field that follow each other become one step, as the
  /// letters of a name do, until EndTyping.
  enum class Manner : std::uint8_t { kChoice, kTyping };
  bool Edit(core::FieldRef at, const Body& edit, Manner manner = Manner::kChoice);
  void EndTyping() { typing_.reset(); }
  /// What the program does to the data on its own, as encoding does: a step like any other, that
  /// leaves HasChanged alone. saved: the file still holds what it would be written with now.
  bool Adjust(std::string name, const Body& edit, bool saved = false);

  /// The first data set: there is no step back from it.
  void Begin(Contents contents);
  /// New, Open, Read from Radio, a destination, another model: another data set, as one step of
  /// the history. `saved`: it is what a file holds.
  void Replace(std::string name, Contents contents, bool saved);

  void Undo();                  ///< REQUIRES: CanUndo()
  void Redo();                  ///< REQUIRES: CanRedo()
  void GoTo(std::size_t done);  ///< until that many steps are done; at most all of them
  [[nodiscard]] bool CanUndo() const { return done_ > 0; }
  [[nodiscard]] bool CanRedo() const { return done_ < steps_.size(); }
  /// Oldest first; the first DoneCount() of them are done, the others undone.
  [[nodiscard]] std::span<const Step> Steps() const { return steps_; }
  [[nodiscard]] std::size_t DoneCount() const { return done_; }
  /// What the history takes in memory, about.
  [[nodiscard]] std::size_t HistorySize() const { return bytes_; }

  /// The data is what the file on disk holds.
  [[nodiscard]] bool IsSaved() const { return IsSavedAt(done_); }
  /// Nothing was edited since the data set came.
  [[nodiscard]] bool IsAsItCame() const { return IsAsItCameAt(done_); }
  /// The data set that the last step replaced, when it was in no file and can be had from nowhere
  /// else; null otherwise.
  [[nodiscard]] const Contents* ReplacedUnsaved() const;
  /// The fields that edits changed since the data set came, those of adjustments left out; as far
  /// back as the history reaches.
  [[nodiscard]] std::vector<core::FieldRef> EditedFields() const;
  void MarkSaved(std::string file_name, std::string time, std::size_t file_print = 0);

  /// What the question on exit asks about: set by every edit, undo and redo and by input not yet
  /// taken over, cleared where New, reading and loading an image clear it, and never by saving.
  [[nodiscard]] bool HasChanged() const { return changed_; }
  void NoteChange() { changed_ = true; }
  void ForgetChange() { changed_ = false; }

  void Watch(Watcher& watcher) { watchers_.push_back(&watcher); }  ///< Unwatch before it ends
  void Unwatch(Watcher& watcher);

 private:
  /// With that many steps done.
  [[nodiscard]] bool IsSavedAt(std::size_t done) const {
    return done == 0 ? saved_at_start_ : steps_[done - 1].saved_after;
  }
  [[nodiscard]] bool IsAsItCameAt(std::size_t done) const {
    return done == 0 ? at_start_as_it_came_ : steps_[done - 1].other != nullptr;
  }
  /// The changes that the edit made, taken over; empty when it made none.
  std::vector<core::Change> TakeOver(const Body& edit);
  [[nodiscard]] bool JoinStep(core::FieldRef at, std::span<const core::Change> changes);
  /// The step's changes are those that the edit makes. False when it makes none.
  bool Do(Step step, const Body& edit);
  void Record(Step step);
  void DropUndone();
  void DropOldest();
  void Swap(Step& step);
  void TellChanged(std::span<const core::Change> changes) const;
  void TellReplaced() const;
  void TellStatus() const;

  std::unique_ptr<Contents> contents_;
  std::vector<Step> steps_;
  std::size_t done_ = 0;
  std::size_t history_bytes_;
  std::size_t bytes_ = 0;
  std::optional<core::FieldRef> typing_;
  bool saved_at_start_ = false;  ///< before the first step kept, the file held the data
  bool at_start_as_it_came_ = true;
  bool changed_ = false;
  std::vector<Watcher*> watchers_;
};

/// How the data stands to its file, in a few words: "Saved 14:02", "Changed, not saved",
/// "Read 13:58, not saved", "Backup of 2026-11-24 14:02, not saved", "New".
[[nodiscard]] std::string SavedText(const Document& document);

}  // namespace orvane::document
