#pragma once

#include <string>

#include "core/calendar.h"
#include "core/catalogue.h"
#include "core/radio_data.h"
#include "document/edits.h"

/// What of a channel may be changed as things stand.
namespace orvane::document {

/// What CH Enable shows under the place's heading: an EXP channel is in use when it belongs to a
/// group, one of the other heading's kind is not in use here.
[[nodiscard]] bool ShowsEnabled(const core::RadioData& data, ChannelPlace place);

/// The member decides whether the channel is in use: CH Enable and its groups.
[[nodiscard]] bool PutsInUse(const char* member);

/// Why the channel's page greys the control of the field, as a sentence; "" when it does not. A
/// channel that is not in use has nothing to be worked but CH Enable and its groups.
[[nodiscard]] std::string LockOf(const core::RadioData& data, ChannelPlace place,
                                 const core::Field& field, core::Date today);

/// Why nobody may choose the value, whoever sets it. Off, and what a rule enforces, go always.
[[nodiscard]] std::string RefusalOfChoice(const core::RadioData& data, ChannelPlace place,
                                          const core::Field& field, const core::Value& value,
                                          core::Date today);

}  // namespace orvane::document
