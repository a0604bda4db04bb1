#pragma once

#include <string_view>

/// What the program and its two main commands are called.
namespace orvane::core {

inline constexpr std::string_view kProductName = "Orvane";
inline constexpr std::string_view kProgramTitle = "PC Program for KT740 Series";

/// Caption of the command and its dialog, and title of every message that says whose image it is,
/// wherever the image came from.
inline constexpr std::string_view kReadFromRadio = "Read from Radio";
inline constexpr std::string_view kProgramToRadio = "Program to Radio";

}  // namespace orvane::core
