#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/memory_image.h"

namespace orvane::link {

/// A byte of the radio that is not what was written.
struct Mismatch {
  int address = 0;
  std::uint8_t written = 0;
  std::uint8_t found = 0;

  bool operator==(const Mismatch&) const = default;
};

/// The account of a program run that wrote everything.
///
/// Differing fields are named by decoding `sent` and `found`, which differ in the mismatches alone.
struct Receipt {
  std::string began{};  ///< local time, "2026-11-24 23:40:12"
  std::string ended{};
  std::string port{};  ///< "COM3 USB serial adapter"
  std::int16_t model_type = 0;
  std::string model{};        ///< as displayed
  std::string destination{};  ///< "KT740-usa"
  std::string file{};         ///< of the data; the session does not know it, its caller fills it in

  std::size_t bytes_written = 0;
  std::size_t blocks_written = 0;  ///< of 16 bytes, in whole or in part
  /// Fewer than were written also when all were compared: the byte that is the radio's own is not.
  std::size_t bytes_compared = 0;
  std::size_t blocks_compared = 0;
  bool compared_all = false;
  std::vector<Mismatch> mismatches{};  ///< by address

  /// CRC-32 of the radio's memory, the bytes that no read covers as 255. Before: when it was read
  /// whole. After: as found where it was read back, else as sent; what was not written is the
  /// radio's when it was read whole, else the data's.
  std::optional<std::uint32_t> crc_before{};
  std::uint32_t crc_after = 0;

  core::MemoryImage sent{};
  core::MemoryImage found{};  ///< `sent` where nothing was compared

  /// The radio holds what was sent.
  [[nodiscard]] bool Verified() const { return compared_all && mismatches.empty(); }

  bool operator==(const Receipt&) const = default;
};

/// As Receipt::crc_before has it.
[[nodiscard]] std::uint32_t MemoryCrc(const core::MemoryImage& image);

/// The bits of a byte that belong to the radio: they are taken over from it before writing and are
/// not compared. 0 for all bytes but two.
[[nodiscard]] std::uint8_t RadioOwnBits(int address);

}  // namespace orvane::link
