#include "editor/recovery.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <utility>

#include "core/catalogue.h"
#include "core/messages.h"
#include "core/product.h"
#include "core/text.h"
#include "files/settings_file.h"
#include "files/snapshot.h"
#include "image/codec.h"

namespace orvane::editor {
namespace {

using core::Answer;

/// The image follows from the records when it is next encoded: nobody counts its bytes.
std::size_t CountedChanges(const core::RadioData& before, const core::RadioData& after) {
  const std::vector<core::Change> changes = core::Differences(before, after);
  return static_cast<std::size_t>(
      std::count_if(changes.begin(), changes.end(), [](const core::Change& change) {
        return core::TableOf(change.at).kind != core::TableKind::kMemory;
      }));
}

Answer Ask(const WindowServices& services, const files::Snapshot& snapshot) {
  const std::string& file = snapshot.heading.file;
  return services.prompts.Show(core::MakeMessage(
      core::MessageId::kRecovered, core::kProgramTitle,
      {{"time", snapshot.heading.made},
       {"loss", LossText(services, *snapshot.data, file)},
       {"file", file.empty() ? "It was in no file." : "Its file is " + file + "."}}));
}

}  // namespace

std::string LossText(const WindowServices& services, const core::RadioData& found,
                     const std::string& file) {
  const std::string model = image::ModelName(found);
  const core::FileBytes bytes =
      file.empty() ? core::FileBytes{core::SystemError{}, {}} : services.files.ReadFile(file);
  if (bytes.error) return "data of a " + model;
  // What the file does not hold counts as unchanged.
  auto saved = std::make_unique<core::RadioData>(found);
  if (!files::ApplySettingText(*saved, bytes.bytes, services.pump)) return "data of a " + model;
  const std::size_t changes = CountedChanges(*saved, found);
  return std::to_string(changes) + (changes == 1 ? " change" : " changes") + " since " +
         core::WithoutFolder(file) + " was saved";
}

namespace {

/// 0 where the heading names none.
std::size_t PrintIn(const files::SnapshotHeading& heading) {
  std::size_t print = 0;
  const char* const end = heading.print.data() + heading.print.size();
  std::from_chars(heading.print.data(), end, print);
  return print;
}

std::vector<core::FieldRef> EditedIn(const files::SnapshotHeading& heading) {
  std::vector<core::FieldRef> fields;
  for (const std::string_view path : core::Split(heading.edited, ' ')) {
    if (const std::optional<core::FieldRef> at = core::RefOf(path)) fields.push_back(*at);
  }
  return fields;
}

void OfferEach(const WindowServices& services, core::RecoveryStore& store, Autosave& autosave) {
  for (const core::RecoveryStore::Left& left : store.LeftBehind()) {
    files::Snapshot snapshot = files::ParseSnapshot(left.text);
    if (snapshot.data == nullptr) continue;  // stays where it is, for whoever can read it
    const Answer answer = Ask(services, snapshot);
    if (answer == Answer::kDiscard) store.Discard(left.path);
    if (answer != Answer::kRestore) continue;
    services.document.Replace("Recovered data",
                              {.data = std::move(*snapshot.data),
                               .file_name = snapshot.heading.file,
                               .origin = document::Origin::kRecovered,
                               .file_print = PrintIn(snapshot.heading),
                               .edited = EditedIn(snapshot.heading)},
                              false);
    services.document.NoteChange();
    // Only when the new copy is on the disk may the old one go.
    autosave.KeepNow();
    store.Discard(left.path);
    return;
  }
}

}  // namespace

void OfferRecovery(const WindowServices& services, core::RecoveryStore& store, Autosave& autosave) {
  OfferEach(services, store, autosave);
  store.Release();
}

}  // namespace orvane::editor
