#include "link/transfer_outcome.h"

#include "core/message_facts.h"
#include "link/clone_frame.h"

namespace orvane::link {
namespace {

using core::MessageId;

core::Facts PlaceOf(const TransferOutcome& outcome) {
  if (!outcome.block) return core::PlaceFacts({});
  return core::PlaceFacts(AddressField(*outcome.block));
}

}  // namespace

std::string EndingText(const TransferOutcome& outcome, const PortLabel& port) {
  switch (outcome.ending) {
    case Ending::kDone:
      return core::TextOf(outcome.not_read_back ? MessageId::kNotReadBack
                                                : MessageId::kTransferEnded);
    case Ending::kDiffers:
      return core::TextOf(MessageId::kRadioDiffers);
    case Ending::kDeclined:
      return core::TextOf(MessageId::kNothingTransferred);
    case Ending::kCancelled:
      return core::TextOf(MessageId::kTransferCancelled, PlaceOf(outcome));
    case Ending::kFailed:
      break;
  }
  if (outcome.said) return core::TextOf(MessageId::kTransferFailed, PlaceOf(outcome));
  return core::TextOf(MessageId::kRadioSilent, {{"port", port.Text()}});
}

std::string SilenceText(const PortLabel& port, std::string_view other_port) {
  return core::TextOf(MessageId::kNothingComesBack,
                      {{"port", port.Text()}, {"way", std::string(other_port)}});
}

}  // namespace orvane::link
