#pragma once

#include <optional>
#include <string>

#include "core/services.h"

namespace orvane::platform {

/// Why a serial device could not be opened, in the system's words, and on the next line (CR LF)
/// what the user can do about it, in the words of link::VerdictRows(). `reported` is what the
/// opening itself said.
[[nodiscard]] core::SystemError ExplainOpenFailure(const std::string& device,
                                                   const core::SystemError& reported);

/// What the user can do when opening a device path failed with that number of the system; nothing
/// when no advice is known.
[[nodiscard]] std::optional<std::string> OpenRemedy(int number, const std::string& device);

}  // namespace orvane::platform
