#include "core/text.h"

#include <algorithm>

namespace orvane::core {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string UpperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return UpperCase(c); });
  return result;
}

std::string LowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Lower);
  return result;
}

std::string_view Trim(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  return TrimRight(text);
}

std::string_view TrimRight(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  return std::equal(a.begin(), a.end(), b.begin(),
                    [](char x, char y) { return x == y || UpperCase(x) == UpperCase(y); });
}

std::string WithoutFolder(std::string_view path) {
  return std::string(path.substr(path.find_last_of("/\\") + 1));
}

std::string Extension(std::string_view path) {
  const std::size_t name = path.find_last_of("/\\");
  const std::size_t point = path.rfind('.');
  const bool in_name =
      point != std::string_view::npos && (name == std::string_view::npos || point > name);
  return in_name ? LowerCase(path.substr(point)) : std::string();
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator)) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  pieces.push_back(text);
  return pieces;
}

}  // namespace orvane::core
