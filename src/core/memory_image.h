#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane::core {

/// The radio's programmable memory, byte for byte. Always 16384 bytes; a model may use fewer of
/// them, and bytes beyond LastIndex() never travel to or from a radio or a file.
class MemoryImage {
 public:
  static constexpr int kSize = 16384;

  /// index 0..kSize - 1; anything else is a programming error.
  std::uint8_t& operator[](int index) { return bytes_[static_cast<std::size_t>(index)]; }
  const std::uint8_t& operator[](int index) const {
    return bytes_[static_cast<std::size_t>(index)];
  }

  [[nodiscard]] std::int32_t LastIndex() const { return last_index_; }
  void SetLastIndex(std::int32_t last_index) { last_index_ = last_index; }
  [[nodiscard]] int UsedSize() const { return last_index_ + 1; }

  /// Every byte, used or not.
  [[nodiscard]] std::span<std::uint8_t, kSize> All() { return bytes_; }
  [[nodiscard]] std::span<const std::uint8_t, kSize> All() const { return bytes_; }
  /// The bytes 0..LastIndex().
  [[nodiscard]] std::span<std::uint8_t> Used() {
    return All().first(static_cast<std::size_t>(UsedSize()));
  }
  [[nodiscard]] std::span<const std::uint8_t> Used() const {
    return All().first(static_cast<std::size_t>(UsedSize()));
  }

  bool operator==(const MemoryImage&) const = default;

 private:
  std::array<std::uint8_t, kSize> bytes_{};
  std::int32_t last_index_ = kSize - 1;
};

}  // namespace orvane::core
