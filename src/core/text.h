#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Small helpers for 8-bit texts. Only ASCII letters change case; other bytes pass unchanged.
namespace orvane::core {

[[nodiscard]] constexpr char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
[[nodiscard]] std::string UpperCase(std::string_view text);
[[nodiscard]] std::string LowerCase(std::string_view text);
/// Blanks removed at both ends.
[[nodiscard]] std::string_view Trim(std::string_view text);
[[nodiscard]] std::string_view TrimRight(std::string_view text);
[[nodiscard]] bool EqualsIgnoringCase(std::string_view a, std::string_view b);
/// The name of a file behind its folders; "/" and "\\" part them.
[[nodiscard]] std::string WithoutFolder(std::string_view path);
/// The extension of a path in lower case with its point, "" when it has none.
[[nodiscard]] std::string Extension(std::string_view path);
/// The pieces between the separators; one empty piece for an empty text.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text, char separator);

}  // namespace orvane::core
