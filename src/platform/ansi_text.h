#pragma once

#include <QString>
#include <string>
#include <string_view>

/// Texts at the edge between Qt and the rest: radio data and text files are Windows-1252 bytes,
/// paths, messages and the system's words are UTF-8.
namespace orvane::platform {

/// The five bytes that Windows-1252 leaves undefined become the control characters of the same
/// number, so that every byte survives the way there and back.
[[nodiscard]] QString FromAnsi(std::string_view bytes);
/// Characters that Windows-1252 does not have become "?".
[[nodiscard]] std::string ToAnsi(const QString& text);

[[nodiscard]] QString FromUtf8(std::string_view bytes);
[[nodiscard]] std::string ToUtf8(const QString& text);
[[nodiscard]] std::string AnsiToUtf8(std::string_view bytes);

}  // namespace orvane::platform
