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

/// Whose channels are written.
enum class Channels { kOfAvailableGroups, kOfAllGroups };

/// What is written of the block at that address: nothing, the block, or chosen single bytes of it.
[[nodiscard]] std::vector<Piece> PiecesToWrite(int block_address, const core::RadioData& data,
                                               Channels channels = Channels::kOfAvailableGroups);

/// What some of a run needs of the wire.
struct WireLoad {
  std::size_t bytes = 0;     ///< both ways, echoes not counted twice
  std::size_t sendings = 0;  ///< transmissions of the PC, before each of which it pauses
};
/// The blocks of a whole read.
[[nodiscard]] WireLoad LoadOfReading(std::int32_t last_index);
/// Everything that a program run writes.
[[nodiscard]] WireLoad LoadOfWriting(const core::RadioData& data,
                                     Channels channels = Channels::kOfAvailableGroups);
/// The same read again, by whole blocks.
[[nodiscard]] WireLoad LoadOfReadingBack(const core::RadioData& data,
                                         Channels channels = Channels::kOfAvailableGroups);
/// The time that a phase with that load takes at 9600 baud, its prescribed pauses included.
[[nodiscard]] double SecondsOnWire(const WireLoad& load);

/// What each phase of blocks ends with, seconds.
inline constexpr double kEndOfPhasePause = 0.500;

/// How far a run has come at an address, in percent.
[[nodiscard]] int PercentAt(int address, std::int32_t last_index);

}  // namespace orvane::link
