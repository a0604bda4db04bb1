#pragma once

/// Texts of the radio and of text files are Windows-1252 bytes; these are their characters.
namespace orvane::core {

/// The five bytes that Windows-1252 leaves undefined stand for the control characters of the same
/// number, so that every byte survives the way there and back.
[[nodiscard]] char32_t AnsiCodePoint(char byte);
/// "?" for a character that Windows-1252 does not have.
[[nodiscard]] char AnsiByte(char32_t code_point);

}  // namespace orvane::core
