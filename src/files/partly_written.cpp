#include "files/partly_written.h"

#include <algorithm>
#include <array>

#include "core/number_text.h"

namespace orvane::files {
namespace {

constexpr std::string_view kMark = ".partly_written.orvsnap";
constexpr std::string_view kBefore = ".before.orvsnap";
constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// "24 November at 14:02" of "2026-11-24 14:02:12"; the text itself when it is no time.
std::string DayAndTime(const std::string& time) {
  constexpr std::size_t kLength = 19;
  constexpr std::size_t kMonth = 5;
  constexpr std::size_t kDay = 8;
  constexpr std::size_t kHour = 11;
  if (time.size() != kLength) return time;
  const auto month = core::ParseInt16(time.substr(kMonth, 2));
  const auto day = core::ParseInt16(time.substr(kDay, 2));
  if (!month || !day || *month < 1 || *month > static_cast<int>(kMonths.size())) return time;
  return std::to_string(*day) + ' ' + std::string(kMonths[static_cast<std::size_t>(*month) - 1]) +
         " at " + time.substr(kHour, 5);
}

/// A device's path as part of a file name.
std::string InName(std::string port) {
  std::replace_if(
      port.begin(), port.end(), [](char c) { return c == '/' || c == '\\' || c == ':'; }, '%');
  return port;
}

}  // namespace

std::string PartlyWritten::Text() const {
  const std::string when = began.made.empty() ? "" : " on " + DayAndTime(began.made);
  return "The radio on " + port + " was left partly written" + when + ".";
}

std::optional<core::SystemError> PartlyWrittenMarks::Begin(const std::string& port,
                                                           const SnapshotHeading& run,
                                                           const core::RadioData& sent,
                                                           const core::RadioData* before) {
  if (auto failure = store_.MakeFolder(folder_)) return failure;
  const std::optional<PartlyWritten> mark = At(port);
  const std::string path_before = PathOf(port, kBefore);
  const bool damaged = mark && mark->began.made.empty();
  const bool is_mixed = mark && (damaged || mark->began.model_type == sent.MODELTYPE);
  if (!is_mixed) {
    if (auto failure = store_.RemoveFile(path_before)) return failure;
    if (before != nullptr) {
      if (auto failure = store_.WriteFile(path_before, SnapshotText(*before, run))) return failure;
    }
  }
  return store_.WriteFile(PathOf(port, kMark), SnapshotText(sent, run));
}

void PartlyWrittenMarks::Settle(const std::string& port) {
  // The mark last: without it nobody looks for the other.
  static_cast<void>(store_.RemoveFile(PathOf(port, kBefore)));
  static_cast<void>(store_.RemoveFile(PathOf(port, kMark)));
}

std::optional<PartlyWritten> PartlyWrittenMarks::At(const std::string& port) const {
  const core::FileBytes file = store_.ReadFile(PathOf(port, kMark));
  if (file.error) return std::nullopt;
  // A mark that cannot be read is one all the same.
  return PartlyWritten{port, ParseSnapshotHeading(file.bytes).heading,
                       store_.FileSize(PathOf(port, kBefore)).has_value()};
}

std::vector<PartlyWritten> PartlyWrittenMarks::All() const {
  std::vector<PartlyWritten> marks;
  for (std::string name : store_.ListFolder(folder_)) {
    if (!name.ends_with(kMark)) continue;
    name.resize(name.size() - kMark.size());
    std::replace(name.begin(), name.end(), '%', '/');
    if (std::optional<PartlyWritten> mark = At(name)) marks.push_back(std::move(*mark));
  }
  std::sort(marks.begin(), marks.end(),
            [](const PartlyWritten& a, const PartlyWritten& b) { return a.port < b.port; });
  return marks;
}

Snapshot PartlyWrittenMarks::Sent(const PartlyWritten& mark) const {
  return Load(PathOf(mark.port, kMark));
}

Snapshot PartlyWrittenMarks::Before(const PartlyWritten& mark) const {
  return Load(PathOf(mark.port, kBefore));
}

Snapshot PartlyWrittenMarks::Load(const std::string& path) const {
  const core::FileBytes file = store_.ReadFile(path);
  if (!file.error) return ParseSnapshot(file.bytes);
  Snapshot failed;
  failed.error = file.error->description;
  return failed;
}

std::string PartlyWrittenMarks::PathOf(const std::string& port, std::string_view ending) const {
  return folder_ + '/' + InName(port) + std::string(ending);
}

}  // namespace orvane::files
