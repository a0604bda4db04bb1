#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "link/port_list.h"
#include "link/receipt.h"

namespace orvane::link {

enum class Ending {
  kDone,       ///< everything travelled
  kDeclined,   ///< in good order, without a transfer: the user said no, or there was nothing to do
  kCancelled,  ///< by the user
  kFailed,
  /// Everything was written, but read back the radio does not hold it.
  kDiffers
};

/// How one run of a transfer session ended.
struct TransferOutcome {
  Ending ending = Ending::kFailed;
  /// The run began to write to the radio and did not complete, or the radio does not hold it.
  bool partly_written = false;
  /// A message has told the user of a failure. Where none has, EndingText does. Of kDiffers nobody
  /// has told: the caller names the fields, with MessageId::kRadioDiffers.
  bool said = false;
  /// Address of the block that the run had come to; nothing when it ended before its first block.
  std::optional<int> block{};
  /// Everything was written and acknowledged, but could not be read back as was asked; a message
  /// has said so. The ending is kDone, or kDiffers for what was read before that.
  bool not_read_back = false;
  /// Of a program run that wrote everything, whatever reading back has shown.
  std::optional<Receipt> receipt{};

  bool operator==(const TransferOutcome&) const = default;
};

/// The ending in a few words for a state line, with the block it came at: "Failed at block 0120".
[[nodiscard]] std::string EndingText(const TransferOutcome& outcome, const PortLabel& port);

/// What to show while nothing at all comes back from a port, not even the cable's echo. Ends in how
/// to choose another port, which differs from program to program.
[[nodiscard]] std::string SilenceText(const PortLabel& port, std::string_view other_port);

}  // namespace orvane::link
