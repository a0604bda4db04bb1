#pragma once

#include <cstdint>

namespace orvane::core {

/// A truth value in the form the radio data keeps it: 16 bits, -1 for true and 0 for false.
/// It converts to and from bool, so that nothing can ever store a 1.
class Flag {
 public:
  constexpr Flag() = default;
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr Flag(bool on) : wire_(on ? std::int16_t{-1} : std::int16_t{0}) {}
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr operator bool() const { return wire_ != 0; }

  /// -1 or 0.
  [[nodiscard]] constexpr std::int16_t Wire() const { return wire_; }

 private:
  std::int16_t wire_ = 0;
};

}  // namespace orvane::core
