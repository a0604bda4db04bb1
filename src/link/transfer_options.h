#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "core/catalogue.h"
#include "core/radio_data.h"
#include "core/services.h"

namespace orvane::link {

/// What a program run does beside writing. Each adds a phase of its own; with none of them the
/// exchange with the radio is the plain one. Other runs look at only_look alone.
struct TransferOptions {
  /// The radio's memory is read whole, after the model check and before anything is written, and
  /// handed to the witness.
  bool keep_copy = false;
  /// What was written is read again and compared before "Complete!!".
  bool read_back = false;
  /// The data came from a settings file: what such a file has no place for stays as the radio has
  /// it (see FillFromRadio). One reading serves keep_copy as well. Nothing is read for models whose
  /// settings file holds everything.
  bool fill_from_radio = false;
  /// Of what is filled in, fields that the user has set since the file was opened: they go as they
  /// are (core::Differences of the data as opened and now tells them).
  std::vector<core::FieldRef> edited{};
  /// With fill_from_radio: what the last run at this port, which did not complete, was writing;
  /// null when there was none. A radio that holds something else by now is not filled from: it may
  /// have stored a byte wrongly, which would pass for its own.
  std::shared_ptr<const core::RadioData> broken_run{};
  /// The data are a copy of a radio and go back as they stand: the image byte for byte, nothing
  /// encoded, repaired or asked, and the channels of every group whether available or not, as the
  /// run that is undone may have written them.
  bool put_back = false;
  /// A read that is only to be looked at: what the radio holds is left as it is, narrow or not, and
  /// no message tells that the run is complete. Program runs do not look at it.
  bool only_look = false;
};

/// Who keeps what a program run must not lose. Called in the middle of the run, with the port open:
/// nothing of it may take long or run the session's own events.
class ProgramWitness {
 public:
  virtual ~ProgramWitness() = default;
  /// With keep_copy: what the radio holds, decoded. Memory that no read covers is as in a new data
  /// set. A failure ends the run: the session tells it, and that nothing was written.
  [[nodiscard]] virtual std::optional<core::SystemError> RadioWasRead(
      const core::RadioData& radio) = 0;
  /// Directly before the first byte of memory is written: the data exactly as it will be written.
  virtual void WritingBegins(const core::RadioData& sent) = 0;
};

}  // namespace orvane::link
