#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The program's own texts are Windows-1252; files and terminals speak UTF-8.
namespace orvane::core {

/// Stands for bytes that are no character.
inline constexpr char32_t kNoCharacter = 0xFFFD;

/// Takes the first character off. Bytes that are none (cut off, too long a form, a surrogate) give
/// kNoCharacter, one for each byte. REQUIRES: not empty.
[[nodiscard]] char32_t TakeUtf8(std::string_view& bytes);
void AppendUtf8(std::string& text, char32_t code_point);
[[nodiscard]] bool IsUtf8(std::string_view bytes);

[[nodiscard]] std::string AnsiToUtf8(std::string_view ansi);
/// Nothing when a character has no place in Windows-1252.
[[nodiscard]] std::optional<std::string> Utf8ToAnsi(std::string_view utf8);

}  // namespace orvane::core
