#include "link/transfer_outcome.h"

#include "link/clone_frame.h"

namespace orvane::link {
std::string PlaceText(const TransferOutcome& outcome) {
  if (!outcome.block) return "before the first block";
  return "at block " + AddressField(*outcome.block);
}

std::string EndingText(const TransferOutcome& outcome, const PortLabel& port) {
  switch (outcome.ending) {
    case Ending::kDone:
      return "Complete";
    case Ending::kDeclined:
      return "Nothing was transferred";
    case Ending::kCancelled:
      return core::TextOf(core::MessageId::kTransferCancelled, {{"place", PlaceText(outcome)}});
    case Ending::kFailed:
      break;
  }
  if (outcome.said) return "Failed " + PlaceText(outcome);
  return core::TextOf(core::MessageId::kRadioSilent, {{"port", port.Text()}});
}

std::string SilenceText(const PortLabel& port, std::string_view other_port) {
  return "Nothing comes back on " + port.Text() + ". Check the cable, or " +
         std::string(other_port);
}

}  // namespace orvane::link
