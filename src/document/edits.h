#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/calendar.h"
#include "core/catalogue.h"
#include "core/radio_data.h"

/// What the user's actions do to the data beyond the field they touch. Window, command line and
/// import call the same rules; each is the body of a Document::Edit. Dates decide about the
/// narrowband rule.
namespace orvane::document {

/// Where a channel is edited: a marine table, or the EXP/LMR table under one of its two headings.
struct ChannelPlace {
  enum class Kind : std::uint8_t { kUsa, kIntl, kCanada, kLmr, kExp };
  Kind kind = Kind::kUsa;
  int number = 0;  ///< marine: table index 0..239; EXP/LMR: 1..40

  [[nodiscard]] bool IsMarine() const { return kind <= Kind::kCanada; }
  [[nodiscard]] bool IsLmr() const { return kind == Kind::kLmr; }
};
[[nodiscard]] const core::ChannelRecord& ChannelAt(const core::RadioData& data, ChannelPlace place);

/// A group in use must keep one channel: whether this is the last enabled one of its group.
[[nodiscard]] bool IsLastEnabled(const core::RadioData& data, ChannelPlace place);
/// Why the last channel cannot be switched off.
inline constexpr std::string_view kLastChannelRefusal =
    "It is the last channel of its group, and a group in use keeps one. Switch on another one "
    "first, or switch the group off.";

/// Enabling makes an EXP/LMR channel one of its heading's kind, sets the power code from the
/// transmit switches and applies the narrowband rule. False, and nothing changed, when the last
/// channel of a group was to be switched off.
[[nodiscard]] bool EnableChannel(core::RadioData& data, ChannelPlace place, bool on,
                                 core::Date today);

struct GroupMembership {
  bool usa = false;
  bool intl = false;
  bool canada = false;

  [[nodiscard]] bool Any() const { return usa || intl || canada; }
  bool operator==(const GroupMembership&) const = default;
};
/// What the channel's group boxes show: none for a channel of the other heading's kind.
[[nodiscard]] GroupMembership GroupsOf(const core::RadioData& data, ChannelPlace place);
/// Joining a group enables an EXP channel, leaving the last one disables it. False, and nothing
/// changed, as with EnableChannel.
[[nodiscard]] bool SetGroups(core::RadioData& data, ChannelPlace place, GroupMembership groups,
                             core::Date today);

/// Transmit switches and the power code that follows from them.
void SetTransmit(core::RadioData& data, ChannelPlace place, bool enabled, bool low_power);

enum class Way : std::uint8_t { kTransmit, kReceive };
/// A tone switches the code of its way off, and a code the tone. 0 is off.
void SetCtcss(core::RadioData& data, ChannelPlace place, Way way, int index);
void SetDcs(core::RadioData& data, ChannelPlace place, Way way, int index);

/// MHz, 0 for none. The narrowband rule follows a transmit frequency.
void SetFrequency(core::RadioData& data, ChannelPlace place, Way way, double mhz, core::Date today);
/// An EXP/LMR channel that the rule keeps narrow, whatever the user chooses.
[[nodiscard]] bool MustBeNarrow(const core::RadioData& data, ChannelPlace place, core::Date today);

/// Availability of a channel group (core::kExtraGroup for LMR). A marine group whose channels the
/// memory has all switched off gets its second one, as the radio offers no group without channels.
void SwitchGroup(core::RadioData& data, std::size_t group, bool on);
/// Availability of the EXP channels. Switching them on enables those that belong to a group.
void SwitchExp(core::RadioData& data, bool on);

/// Marine channels of destinations without a scrambler, and the distress channels 16 and 70 of any,
/// stay in the clear; EXP/LMR channels follow the destination.
[[nodiscard]] bool MayScramble(const core::RadioData& data, ChannelPlace place);

/// What an enabled EXP/LMR channel needs and does not have.
struct Missing {
  bool frequency = false;  ///< Rx Frequency
  bool display = false;    ///< two characters on the left of CH Display

  [[nodiscard]] bool Any() const { return frequency || display; }
};
[[nodiscard]] Missing MissingOf(const core::RadioData& data, ChannelPlace place);

/// One field by its path, as the command line and an import set it: by the rule above that belongs
/// to the field, or the field alone. The refusal is a sentence, and nothing changed; "" when the
/// value was taken.
[[nodiscard]] std::string SetField(core::RadioData& data, core::FieldRef at, std::string_view text,
                                   core::Date today);
/// The same for a member of a channel (see core::Field) as it is edited under the place's heading,
/// of whose kind an EXP/LMR channel becomes when it is switched on.
[[nodiscard]] std::string SetField(core::RadioData& data, ChannelPlace place, const char* member,
                                   std::string_view text, core::Date today);
/// The value as SetField keeps it: channel names and displays in capitals.
[[nodiscard]] core::Value AsKept(core::FieldRef at, core::Value value);
/// The place of a channel field; an EXP/LMR channel stands under the heading of its kind. Nothing
/// for a field of another table and for weather channels.
[[nodiscard]] std::optional<ChannelPlace> PlaceOf(const core::RadioData& data, core::FieldRef at);

}  // namespace orvane::document
