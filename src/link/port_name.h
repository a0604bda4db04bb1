#pragma once

#include <string>
#include <string_view>

/// Serial ports go by the names COM1 .. COM16, whatever the system calls them.
namespace orvane::link {

inline constexpr std::string_view kPortWord = "COM";
inline constexpr int kFirstPortNumber = 1;
inline constexpr int kLastPortNumber = 16;

[[nodiscard]] constexpr bool IsPortNumber(int number) {
  return number >= kFirstPortNumber && number <= kLastPortNumber;
}
/// "COM16".
[[nodiscard]] inline std::string PortName(int number) {
  return std::string(kPortWord) + std::to_string(number);
}

}  // namespace orvane::link
