#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/radio_data.h"

/// What of a radio's memory travels, and in which pieces.
namespace orvane::link {

inline constexpr int kBlockSize = 16;
/// The first block that travels. What lies before it belongs to the radio alone.
inline constexpr int kFirstBlock = 64;

/// One command's worth of memory.
struct Piece {
  int address = 0;
  int length = 0;  ///< bytes: 16 or 1

  bool operator==(const Piece&) const = default;
};

/// Whether the block at that address is read from a radio.
[[nodiscard]] bool IsBlockRead(int block_address);
/// Bytes on the wire, command to answer, that it takes to read or write that many bytes of memory.
/// Short pieces cost more than their length tells: 1 byte 30, 16 bytes 60.
[[nodiscard]] std::size_t WireBytesOfRead(int length);
[[nodiscard]] std::size_t WireBytesOfWrite(int length);
/// Bytes on the wire of the blocks of a whole read.
[[nodiscard]] std::size_t BytesToRead(std::int32_t last_index);

/// What is written of the block at that address: nothing, the block, or chosen single bytes of it.
/// The channel regions of groups that are not available are left out.
[[nodiscard]] std::vector<Piece> PiecesToWrite(int block_address, const core::RadioData& data);
/// Bytes on the wire of everything that a whole program run writes.
[[nodiscard]] std::size_t BytesToWrite(const core::RadioData& data);

/// How far a run has come at an address, in percent.
[[nodiscard]] int PercentAt(int address, std::int32_t last_index);

}  // namespace orvane::link
