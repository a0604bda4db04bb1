#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/messages.h"
#include "core/model_profile.h"

/// The facts of the refusals, in the words of their messages.
namespace orvane::core {

/// A message and what is known about its case.
struct MessageCase {
  MessageId id;
  Facts facts;
};

/// The radio's codes are not those of the profile.
[[nodiscard]] MessageCase OtherModelOfRadio(CodePair theirs, const ModelProfile& ours);
/// The image's codes are not those of the profile, or of any model when there is no profile.
[[nodiscard]] MessageCase OtherModelOfImage(CodePair theirs, const ModelProfile* ours);
/// A settings file names another MODELTYPE, or none.
[[nodiscard]] MessageCase OtherModelOfSettings(std::optional<double> theirs,
                                               const ModelProfile& ours);

/// Of kProductOfRadio and kProductOfImage.
[[nodiscard]] Facts ProductFacts(std::uint8_t theirs, const ModelProfile& ours);

/// The two destination bits of an image.
struct DestinationBits {
  bool sel1 = false;
  bool sel2 = false;

  bool operator==(const DestinationBits&) const = default;
};
[[nodiscard]] Facts DestinationFacts(DestinationBits theirs, DestinationBits ours);

/// Of kImageLength; without a profile no model's image has that length.
[[nodiscard]] Facts LengthFacts(std::uint64_t length, const ModelProfile* ours);

/// Of kWrongFrequency. The field is called as in the title of the message.
[[nodiscard]] Facts FrequencyFacts(std::string_view typed, std::string_view field,
                                   const ModelProfile& ours);

/// How else than by filling it in an incomplete channel can be left.
enum class WayOut {
  kSwitchOff,
  kSwitchOnAndOff,  ///< the box shows its groups, of which it has none
  kNone             ///< it is the last channel in use
};
/// Of kIncompleteChannel: what a channel in use does not have.
[[nodiscard]] Facts MissingFacts(bool no_frequency, bool short_display, WayOut way);

/// Of kTransferFailed and kTransferCancelled: the address of the block that the transfer had come
/// to, as it travels; nothing before the first.
[[nodiscard]] Facts PlaceFacts(const std::optional<std::string>& block);

/// Of the messages about files: which one, and the system's words.
[[nodiscard]] Facts FileFacts(std::string_view path, const SystemError& error);

}  // namespace orvane::core
