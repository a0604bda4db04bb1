#pragma once

#include <string_view>

#include "core/radio_data.h"
#include "core/services.h"
#include "link/serial_link.h"

namespace orvane::link {

enum class SessionKind { kRead = 0, kProgram = 1, kClear = 2 };

/// Caption of the transfer dialog and title of the protocol's messages.
[[nodiscard]] std::string_view ModeTitle(SessionKind kind);

/// One press of OK in the transfer dialog: connect, check that the radio is ready and is the
/// data's model, product and destination, then read, program or clear.
///
/// A read that fails or is cancelled leaves image and records exactly as they were. A failed or
/// cancelled program run leaves the radio with a partly written image and says so.
class TransferSession {
 public:
  TransferSession(core::RadioData& data, LinkServices services, core::Prompts& prompts);

  enum class End {
    kStay,  ///< failed: the dialog stays open and OK may be pressed again
    kClose  ///< done, or the user declined: the dialog closes
  };
  /// Runs the session to its end. Never throws. Busy flag set meanwhile.
  End Run(SessionKind kind);

  /// The last Run completed its job.
  [[nodiscard]] bool TransferDone() const { return transfer_done_; }

 private:
  core::RadioData& data_;
  LinkServices services_;
  core::Prompts& prompts_;
  bool transfer_done_ = false;
};

}  // namespace orvane::link
