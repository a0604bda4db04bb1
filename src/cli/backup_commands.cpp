#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "cli/commands.h"
#include "cli/data_tree.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "files/backup_library.h"
#include "files/image_file.h"
#include "files/settings_file.h"

namespace orvane::cli {
namespace {

using files::Backup;

constexpr std::string_view kGap = "  ";

// A heading may hold what would steer a terminal.
std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(),
      [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, '?');
  return text.empty() ? "-" : text;
}

std::string ModelOf(const files::SnapshotHeading& heading) {
  return core::ModelDisplayName(heading.model_type, true);
}

std::string LineOf(const Backup& backup) {
  const files::SnapshotHeading& heading = backup.heading;
  const std::string start =
      backup.id + std::string(kGap) + OneLine(heading.made) + std::string(kGap);
  if (!backup.damage.empty()) {
    return start + "damaged: " + OneLine(backup.path + ": " + backup.damage) + '\n';
  }
  const std::string file = core::WithoutFolder(heading.file);
  std::string line = start + ModelOf(heading);
  for (const std::string& part : {heading.origin, heading.port, file}) {
    line += std::string(kGap) + OneLine(part);
  }
  return line + '\n';
}

std::string HeadingText(const Backup& backup) {
  const files::SnapshotHeading& heading = backup.heading;
  return "made: " + OneLine(heading.made) + "\norigin: " + OneLine(heading.origin) +
         "\nmodel: " + ModelOf(heading) + "\nport: " + OneLine(heading.port) +
         "\nfile: " + OneLine(heading.file) + "\nkept in: " + OneLine(backup.path) + '\n';
}

// The one that the ID means, with its data; a refusal has been told when there are none.
struct Found {
  Backup backup;
  files::Snapshot snapshot;
};
Found FindBackup(Workplace& place, const files::BackupLibrary& library, const std::string& id) {
  std::vector<Backup> backups = library.Find(id);
  if (backups.size() != 1) {
    static_cast<void>(Refuse(place, id,
                             backups.empty()
                                 ? "There is no such backup. \"backups list\" lists them."
                                 : "Several backups begin so. Give more of the ID."));
    return {};
  }
  Found found{std::move(backups.front()), {}};
  found.snapshot = library.Load(found.backup);
  if (!found.snapshot.data) {
    static_cast<void>(Refuse(place, id, OneLine(found.backup.path + ": " + found.snapshot.error)));
  }
  return found;
}

files::BackupLibrary LibraryOf(Workplace& place) {
  return files::BackupLibrary(place.services.files, place.services.backups_folder);
}

bool List(Workplace& place, const files::BackupLibrary& library) {
  const std::vector<Backup> backups = library.Entries();
  for (const Backup& backup : backups) place.out << LineOf(backup);
  if (backups.empty()) {
    place.err.Lines() << "There are no backups in " << place.services.backups_folder << ".\n";
  }
  return true;
}

bool ShowOne(Workplace& place, const files::BackupLibrary& library) {
  const Found found = FindBackup(place, library, place.options.id);
  if (!found.snapshot.data) return false;
  place.out << HeadingText(found.backup) << TreeText(DataTree(*found.snapshot.data));
  return true;
}

bool Restore(Workplace& place, const files::BackupLibrary& library) {
  const Found found = FindBackup(place, library, place.options.id);
  if (!found.snapshot.data) return false;
  core::RadioData& data = *found.snapshot.data;
  const std::string& output = place.options.output;
  if (!place.documents.CheckOutput(output, data)) return false;
  const std::string extension = Extension(output);
  if (extension == files::kSettingsEnding) return place.documents.Save(output, data);
  if (extension != files::kImageEnding) {
    return place.documents.SaveSnapshot(output, data, found.snapshot.heading);
  }
  files::PrepareKeptImage(data, place.services.clock.Today());
  return place.documents.SaveImage(output, data);
}

}  // namespace

bool LoadBackup(Workplace& place, const std::string& id, core::RadioData& data) {
  const Found found = FindBackup(place, LibraryOf(place), id);
  if (found.snapshot.data) data = *found.snapshot.data;
  return found.snapshot.data != nullptr;
}

bool RunBackups(Workplace& place) {
  const files::BackupLibrary library = LibraryOf(place);
  if (place.options.action == "list") return List(place, library);
  return place.options.action == "show" ? ShowOne(place, library) : Restore(place, library);
}

}  // namespace orvane::cli
