#pragma once

#include "core/messages.h"

/// The rows of the messages, in the order of MessageId: first those of transfers, then the others.
namespace orvane::core {

inline constexpr std::string_view kStartAgain =
    "Switch the radio off, put it into [clone mode](connect.html) again and repeat the transfer.";

[[nodiscard]] std::span<const MessageRow> TransferMessageRows();
[[nodiscard]] std::span<const MessageRow> EditorMessageRows();

}  // namespace orvane::core
