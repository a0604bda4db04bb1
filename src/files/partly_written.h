#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/radio_data.h"
#include "core/services.h"
#include "files/snapshot.h"

namespace orvane::files {

/// A radio that was left partly written: from the first byte written until a run at that port
/// completes, whatever becomes of the program meanwhile.
struct PartlyWritten {
  std::string port;         ///< "COM3"
  SnapshotHeading began;    ///< of the run: time, port with description, model and file
  bool has_before = false;  ///< what the radio held before is there

  /// "The radio on COM3 was left partly written on 24 November at 14:02."
  [[nodiscard]] std::string Text() const;
};

/// The marks of partly written radios in a folder of the user's, one for each port: the snapshot of
/// what was being written, and beside it that of what was there before, when it was kept. They
/// stand by themselves, so that no clearing up of backups takes them.
class PartlyWrittenMarks {
 public:
  /// The folder is made when the first mark is set. The store outlives this.
  PartlyWrittenMarks(core::FileStore& store, std::string folder)
      : store_(store), folder_(std::move(folder)) {}

  /// Sets the mark. `before` may be null. Where a mark of that port and model stands already, the
  /// radio holds a mixture: what was there before the first of the broken runs stays, if it was
  /// kept, and nothing takes its place.
  [[nodiscard]] std::optional<core::SystemError> Begin(const std::string& port,
                                                       const SnapshotHeading& run,
                                                       const core::RadioData& sent,
                                                       const core::RadioData* before);
  /// The radio has been programmed whole, or the user says that all is well.
  void Settle(const std::string& port);

  [[nodiscard]] std::optional<PartlyWritten> At(const std::string& port) const;
  /// In the order of the ports' names.
  [[nodiscard]] std::vector<PartlyWritten> All() const;
  /// What was being written. Without data, and with the reason, when it cannot be read.
  [[nodiscard]] Snapshot Sent(const PartlyWritten& mark) const;
  [[nodiscard]] Snapshot Before(const PartlyWritten& mark) const;

 private:
  [[nodiscard]] std::string PathOf(const std::string& port, std::string_view ending) const;
  [[nodiscard]] Snapshot Load(const std::string& path) const;

  core::FileStore& store_;
  std::string folder_;
};

}  // namespace orvane::files
