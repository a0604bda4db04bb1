#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// What a new image holds besides 255.
namespace orvane::image::layout {

/// Bytes written one after the other.
struct FreshRun {
  int offset = 0;
  int length = 0;
  std::array<std::uint8_t, 16> bytes{};
};

template <class... Values>
constexpr FreshRun Run(int offset, Values... values) {
  return {offset, sizeof...(Values), {static_cast<std::uint8_t>(values)...}};
}

constexpr FreshRun TextRun(int offset, std::string_view text) {
  FreshRun run{offset, static_cast<int>(text.size()), {}};
  for (std::size_t i = 0; i < text.size(); ++i) {
    run.bytes[i] = static_cast<std::uint8_t>(text[i]);
  }
  return run;
}

inline constexpr std::array kFreshRuns = {
    Run(66, 0, 0, 0, 0),
    Run(70, 1, 0, 0, 0),
    Run(74, 255, 0, 48),
    Run(80, 0, 30, 0, 30),
    Run(84, 0, 32, 0, 32, 0, 32),
    Run(90, 242, 206, 0, 191, 0),
    Run(161, 96, 16, 16, 172, 254, 255),
    Run(170, 7, 7, 7, 7, 7, 7),
    Run(176, 188, 188),
    Run(178, 7, 7, 7, 7, 7, 7),
    Run(184, 0, 0, 0, 0, 0, 0),
    Run(450, 0, 0, 0, 0, 0),
    Run(466, 0, 0, 0, 0, 0),
    Run(501, 0),
    TextRun(512, "Radio"),
    TextRun(528, "Ram1"),
    TextRun(544, "Ram2"),
    Run(560, 0x00, 0x00, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x70, 0x80, 0x90, 0xA0, 0xB0, 0xC0,
        0xD0, 0xFF),
    Run(576, 0x00, 0x00, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x70, 0x80, 0x90, 0xA0, 0xB0, 0xC0,
        0xD0, 0xFF),
    Run(592, 0x00, 0x00, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x70, 0x80, 0x90, 0xA0, 0xB0, 0xC0,
        0xD0, 0xFF),
    Run(608, 0x00, 0x93, 0xAE, 0xC0, 0xC8, 0xD2, 0xDB, 0xE1, 0xE4, 0xEA, 0xED, 0xF0, 0xF6, 0xF9,
        0xFC, 0xFF),
    Run(624, 0x00, 0x08, 0x1C, 0x30, 0x43, 0x57, 0x6B, 0x7B, 0x8C, 0x9C, 0xAA, 0xBC, 0xCB, 0xD8,
        0xE0, 0xFF),
    Run(752, 0x44, 0x50, 0x5C, 0x65, 0x6E, 0x77, 0x80, 0x89, 0x92, 0x9B, 0xA4, 0xAA, 0xB3, 0xB6,
        0xBB, 0xC1),
};

/// Bytes whose bits outside `keep` take those of `set`.
struct FreshFill {
  std::uint8_t models = 0xFF;  ///< bit n: MODELTYPE n
  int offset = 0;
  int length = 0;
  std::uint8_t keep = 0;
  std::uint8_t set = 0;
};

inline constexpr std::uint8_t kRb6100s = 1U << 0;
inline constexpr std::uint8_t kKt520 = 1U << 4;
inline constexpr std::uint8_t kKt740s = 1U << 5 | 1U << 6;

/// After the runs, in this order.
inline constexpr std::array kFreshFills = {
    FreshFill{.offset = 2304, .length = 640},
    FreshFill{.models = kRb6100s, .offset = 77, .length = 1, .set = 15},
    FreshFill{.models = kKt740s, .offset = 160, .length = 8, .set = 255},
    FreshFill{.models = kKt520 | kKt740s, .offset = 168, .length = 1, .keep = 0xFB},
    FreshFill{.models = kKt520 | kKt740s, .offset = 174, .length = 2},
};

}  // namespace orvane::image::layout
