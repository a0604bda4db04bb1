#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane::files {

/// Some editors save a text in UTF-8 or UTF-16 and say so by a mark at its front. Returns such a
/// text as the program's own kind of text, Windows-1252 without a mark; nothing for a text that
/// has no mark. Never fails: what is no character becomes "?".
[[nodiscard]] std::optional<std::string> WithoutByteOrderMark(std::string_view bytes);

/// Any text as UTF-8 without a mark: as its mark says; without one it is UTF-8 if it can be, else
/// Windows-1252.
[[nodiscard]] std::string AsUtf8(std::string_view bytes);

}  // namespace orvane::files
