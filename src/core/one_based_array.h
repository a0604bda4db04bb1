#pragma once

#include <array>
#include <cstddef>

namespace orvane::core {

/// A fixed table numbered 1..N, as the radio numbers its extra channels and directories.
/// An index outside 1..N is a programming error, as with std::array.
template <class T, std::size_t N>
class OneBasedArray {
 public:
  static constexpr int kFirst = 1;
  static constexpr int kLast = static_cast<int>(N);

  constexpr T& operator[](int number) { return items_[static_cast<std::size_t>(number - kFirst)]; }
  constexpr const T& operator[](int number) const {
    return items_[static_cast<std::size_t>(number - kFirst)];
  }

  [[nodiscard]] static constexpr bool Contains(int number) {
    return number >= kFirst && number <= kLast;
  }
  [[nodiscard]] static constexpr std::size_t size() { return N; }

  /// The entries in order, the one numbered 1 at index 0.
  constexpr std::array<T, N>& Items() { return items_; }
  constexpr const std::array<T, N>& Items() const { return items_; }

  constexpr auto begin() { return items_.begin(); }
  constexpr auto end() { return items_.end(); }
  constexpr auto begin() const { return items_.begin(); }
  constexpr auto end() const { return items_.end(); }

  constexpr bool operator==(const OneBasedArray&) const = default;

 private:
  std::array<T, N> items_{};
};

}  // namespace orvane::core
