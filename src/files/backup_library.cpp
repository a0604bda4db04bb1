#include "files/backup_library.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <tuple>

#include "core/crc32.h"
#include "core/number_text.h"
#include "core/text.h"

namespace orvane::files {
namespace {

constexpr char kSeparator = '-';
constexpr std::size_t kDateDigits = 8;   // YYYYMMDD
constexpr std::size_t kTimeDigits = 14;  // and HHMMSS
constexpr std::size_t kChecksumDigits = 8;
constexpr std::size_t kMostOfOrigin = 24;
// Two names of 4096 bytes, each written as four characters, fit in with the rest.
constexpr std::size_t kHeadingBytes = std::size_t{40} * 1024;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string TimeInName(std::string_view made) {
  std::string digits;
  std::copy_if(made.begin(), made.end(), std::back_inserter(digits), IsDigit);
  digits.resize(kTimeDigits, '0');
  return digits.insert(kDateDigits, 1, kSeparator);
}

std::string OriginInName(std::string_view origin) {
  std::string word = core::LowerCase(origin.substr(0, kMostOfOrigin));
  for (char& c : word) {
    if (!IsDigit(c) && (c < 'a' || c > 'z')) c = '_';
  }
  return word;
}

/// The end of the name of a file that holds such data.
std::string ContentsInName(const SnapshotHeading& heading) {
  return kSeparator + std::to_string(heading.model_type) + kSeparator +
         ChecksumText(heading.checksum);
}

std::string WithoutEnding(std::string_view name) {
  return std::string(name.substr(0, name.size() - kSnapshotEnding.size()));
}

/// The name's own words, as far as it has them.
SnapshotHeading HeadingInName(const std::string& name) {
  const std::string stem = WithoutEnding(name);
  const std::vector<std::string_view> parts = core::Split(stem, kSeparator);
  enum Part { kDate, kTime, kOrigin, kModel, kChecksum, kParts };
  SnapshotHeading heading;
  heading.checksum = core::Crc32(name);
  if (parts.size() < kParts || parts[kDate].size() != kDateDigits ||
      parts[kDate].size() + parts[kTime].size() != kTimeDigits ||
      parts[kChecksum].size() != kChecksumDigits) {
    return heading;
  }
  std::string made = std::string(parts[kDate]) + ' ' + std::string(parts[kTime]);
  constexpr std::size_t kMonth = 4;
  for (const std::size_t place : {kMonth, kMonth + 3}) made.insert(place, 1, '-');
  for (const std::size_t place : {kMonth + 9, kMonth + 12}) made.insert(place, 1, ':');
  heading.made = made;
  heading.origin = parts[kOrigin];
  heading.model_type = core::ParseInt16(parts[kModel]).value_or(0);
  heading.checksum = core::ParseHex(parts[kChecksum]).value_or(heading.checksum);
  return heading;
}

bool MayHold(const std::string& name, const std::string& contents) {
  const std::string stem = WithoutEnding(name);
  return stem.ends_with(contents) || stem.find(contents + kSeparator) != std::string::npos;
}

bool IsOlder(const Backup& a, const Backup& b) {
  return std::tie(a.heading.made, a.path) < std::tie(b.heading.made, b.path);
}

/// In the order of their age.
void NumberIds(std::vector<Backup>& backups) {
  std::map<std::uint32_t, int> seen;
  for (Backup& backup : backups) {
    const int count = ++seen[backup.heading.checksum];
    backup.id = ChecksumText(backup.heading.checksum);
    if (count > 1) backup.id += kSeparator + std::to_string(count);
  }
}

}  // namespace

BackupLibrary::Kept BackupLibrary::Keep(const core::RadioData& data,
                                        const SnapshotHeading& heading) {
  if (std::optional<core::SystemError> error = store_.MakeFolder(folder_)) return {error};
  const std::string text = SnapshotText(data, heading);
  const std::string contents = ContentsInName(ParseSnapshotHeading(text).heading);
  for (const std::string& name : Names()) {
    if (!MayHold(name, contents)) continue;
    const Snapshot there = ParseSnapshot(store_.ReadFile(PathOf(name)).bytes);
    if (there.data && *there.data == data) return {{}, PathOf(name), false};
  }
  const std::string stem =
      TimeInName(heading.made) + kSeparator + OriginInName(heading.origin) + contents;
  std::string path = PathOf(stem + std::string(kSnapshotEnding));
  for (int number = 2; store_.FileSize(path); ++number) {
    path = PathOf(stem + kSeparator + std::to_string(number) + std::string(kSnapshotEnding));
  }
  if (std::optional<core::SystemError> error = store_.WriteFile(path, text)) return {error};
  return {{}, path, true};
}

std::vector<Backup> BackupLibrary::Entries() const {
  std::vector<Backup> backups;
  for (const std::string& name : Names()) {
    if (std::optional<Backup> backup = Look(name)) backups.push_back(std::move(*backup));
  }
  std::sort(backups.begin(), backups.end(), &IsOlder);
  NumberIds(backups);
  std::reverse(backups.begin(), backups.end());
  return backups;
}

std::vector<Backup> BackupLibrary::Since(std::string_view made) const {
  const std::string first = TimeInName(made);
  std::vector<Backup> backups;
  for (const std::string& name : Names()) {
    if (name < first) continue;
    if (std::optional<Backup> backup = Look(name)) backups.push_back(std::move(*backup));
  }
  std::sort(backups.begin(), backups.end(), &IsOlder);
  std::reverse(backups.begin(), backups.end());
  return backups;
}

std::vector<Backup> BackupLibrary::Find(std::string_view id) const {
  constexpr std::size_t kFewest = 4;
  const std::string wanted = core::UpperCase(id);
  std::vector<Backup> beginning;
  for (Backup& backup : Entries()) {
    if (backup.id == wanted) return {std::move(backup)};
    if (wanted.size() >= kFewest && backup.id.starts_with(wanted)) {
      beginning.push_back(std::move(backup));
    }
  }
  return beginning;
}

Snapshot BackupLibrary::Load(const Backup& backup) const {
  const core::FileBytes file = store_.ReadFile(backup.path);
  if (!file.error) return ParseSnapshot(file.bytes);
  return {backup.heading, nullptr, file.error->description};
}

std::optional<core::SystemError> BackupLibrary::Delete(const Backup& backup) {
  return store_.RemoveFile(backup.path);
}

std::vector<Backup> BackupLibrary::Trim(const std::vector<std::string>& spared) {
  std::uint64_t total = 0;
  for (const std::string& name : Names()) total += store_.FileSize(PathOf(name)).value_or(0);
  std::vector<Backup> gone;
  if (total <= limit_) return gone;
  std::vector<Backup> backups = Entries();
  std::reverse(backups.begin(), backups.end());
  std::set<std::int16_t> models;
  for (Backup& backup : backups) {
    if (total <= limit_) break;
    const bool first = !models.contains(backup.heading.model_type) && Load(backup).data != nullptr;
    if (first) models.insert(backup.heading.model_type);
    const bool kept_lately = std::find(spared.begin(), spared.end(), backup.path) != spared.end();
    if (first || kept_lately || store_.RemoveFile(backup.path)) continue;
    total -= std::min(total, backup.size);
    gone.push_back(std::move(backup));
  }
  return gone;
}

std::string BackupLibrary::PathOf(std::string_view name) const {
  return folder_ + '/' + std::string(name);
}

std::vector<std::string> BackupLibrary::Names() const {
  std::vector<std::string> names = store_.ListFolder(folder_);
  std::erase_if(names, [](const std::string& name) { return !name.ends_with(kSnapshotEnding); });
  return names;
}

std::optional<Backup> BackupLibrary::Look(const std::string& name) const {
  Backup backup;
  backup.path = PathOf(name);
  const core::FileBytes start = store_.ReadStart(backup.path, kHeadingBytes);
  const std::optional<std::uint64_t> size = store_.FileSize(backup.path);
  if (!size) return std::nullopt;
  backup.size = *size;
  Snapshot snapshot = ParseSnapshotHeading(start.bytes);
  backup.damage = start.error ? start.error->description : snapshot.error;
  backup.heading = backup.damage.empty() ? std::move(snapshot.heading) : HeadingInName(name);
  return backup;
}

}  // namespace orvane::files
