#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/radio_data.h"
#include "core/services.h"
#include "files/snapshot.h"

namespace orvane::files {

/// One snapshot of the library, as its file's heading tells.
struct Backup {
  /// Checksum of the contents, "1A2B3C4D"; where several files have the same one, the newer of them
  /// count on: "1A2B3C4D-2".
  std::string id;
  std::string path;
  std::uint64_t size = 0;   ///< bytes
  SnapshotHeading heading;  ///< of a damaged file what its name says
  std::string damage{};     ///< why the heading cannot be read; "" when it can
};

/// Snapshots in a folder of the user's, one file each, written once and never changed: so several
/// programs may use the folder at once. Files of other endings are left alone; one whose heading
/// cannot be read is listed as damaged, not hidden. A file that vanishes meanwhile is no failure.
///
/// A name is "20261124-234012-before_programming-5-1A2B3C4D.orvsnap": time, origin, model,
/// checksum; a number follows where that name was taken by other data.
class BackupLibrary {
 public:
  /// Below this sum of file sizes nothing is removed.
  static constexpr std::uint64_t kLimit = std::uint64_t{200} * 1024 * 1024;

  /// The folder is made when the first backup is kept. The store outlives the library.
  BackupLibrary(core::FileStore& store, std::string folder, std::uint64_t limit = kLimit)
      : store_(store), folder_(std::move(folder)), limit_(limit) {}

  struct Kept {
    std::optional<core::SystemError> error;  ///< set: the data is not in the library
    std::string path{};                      ///< the file that holds the data
    bool anew = false;                       ///< false: it held them already
  };
  /// Equal data are kept once, whatever the heading. A file counts as holding them only after it
  /// was read whole.
  [[nodiscard]] Kept Keep(const core::RadioData& data, const SnapshotHeading& heading);

  /// Newest first.
  [[nodiscard]] std::vector<Backup> Entries() const;
  /// Those made at that time or later; the others are not even looked into.
  [[nodiscard]] std::vector<Backup> Since(std::string_view made) const;
  /// Those with that ID, or else those whose ID begins so, in either letter case. At least four
  /// characters are needed for a beginning.
  [[nodiscard]] std::vector<Backup> Find(std::string_view id) const;
  [[nodiscard]] Snapshot Load(const Backup& backup) const;
  [[nodiscard]] std::optional<core::SystemError> Delete(const Backup& backup);

  /// Removes the oldest until the limit is kept, and returns what went, oldest first. The first
  /// good one of each model stays, and so do the files at `spared` (those kept lately: old ones
  /// that held the same already, new ones that a wrong clock has made the oldest).
  [[nodiscard]] std::vector<Backup> Trim(const std::vector<std::string>& spared = {});

 private:
  [[nodiscard]] std::string PathOf(std::string_view name) const;
  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] std::optional<Backup> Look(const std::string& name) const;

  core::FileStore& store_;
  std::string folder_;
  std::uint64_t limit_;
};

}  // namespace orvane::files
