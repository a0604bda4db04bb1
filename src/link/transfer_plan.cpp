#include "link/transfer_plan.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "core/number_text.h"
#include "image/layout_channels.h"
#include "link/clone_frame.h"
#include "link/serial_link.h"

namespace orvane::link {
namespace {

constexpr int kUnreadFirst = 13568;
constexpr int kUnreadEnd = 16304;

enum class Unit { kNothing, kBlock, kSingleBytes };

struct WriteRule {
  int first = 0;  ///< byte addresses, both inclusive
  int last = 0;
  Unit unit = Unit::kBlock;
  std::optional<std::size_t> group{};  ///< written only while this usable group is available
  std::uint16_t left_out = 0;  ///< single bytes: bit n is the byte at the block's address + n
};

constexpr std::uint16_t LeavingOut(std::initializer_list<int> addresses) {
  unsigned bits = 0;
  for (const int address : addresses) bits |= 1U << (address % kBlockSize);
  return static_cast<std::uint16_t>(bits);
}

/// The blocks of a channel table.
template <class Record>
constexpr WriteRule ChannelsOf(const image::Area<Record>& area, std::size_t group) {
  return {area.base, area.base + area.Size() - 1, Unit::kBlock, group};
}

constexpr auto kUsa = static_cast<std::size_t>(core::MarineGroup::kUsa);
constexpr auto kIntl = static_cast<std::size_t>(core::MarineGroup::kIntl);
constexpr auto kCanada = static_cast<std::size_t>(core::MarineGroup::kCanada);

namespace layout = image::layout;
// Blocks that no rule names are written whole. What is left out keeps the radio's own value; the
// model code is among it, and everything in the last quarter.
constexpr WriteRule kWriteTable[] = {
    {64, 79, Unit::kSingleBytes, {}, LeavingOut({64, 65, 74})},
    {80, 95, Unit::kSingleBytes, {}, LeavingOut({92})},
    {160, 175, Unit::kSingleBytes, {}, LeavingOut({169, 170, 171, 172, 174, 175})},
    {176, 255, Unit::kNothing},
    {512, 767, Unit::kNothing},
    ChannelsOf(layout::kMarineFlags[kUsa], kUsa),
    ChannelsOf(layout::kMarineFlags[kIntl], kIntl),
    ChannelsOf(layout::kMarineFlags[kCanada], kCanada),
    ChannelsOf(layout::kExtraRecords, core::kExtraGroup),
    ChannelsOf(layout::kMarineNames[kUsa], kUsa),
    ChannelsOf(layout::kMarineNames[kIntl], kIntl),
    ChannelsOf(layout::kMarineNames[kCanada], kCanada),
    ChannelsOf(layout::kExtraNames, core::kExtraGroup),
    {12432, core::MemoryImage::kSize - 1, Unit::kNothing},
};

constexpr std::size_t kOkLineBytes = kCommandOk.size() + 2;

std::size_t FrameBytes(std::string_view command, int length, int data_bytes) {
  const std::string data(2 * static_cast<std::size_t>(data_bytes), '0');
  return BuildFrame(command, AddressField(0), LengthField(length), data).size();
}

WriteRule RuleFor(int block_address) {
  const auto* rule =
      std::find_if(std::begin(kWriteTable), std::end(kWriteTable), [&](const WriteRule& candidate) {
        return block_address >= candidate.first && block_address <= candidate.last;
      });
  return rule == std::end(kWriteTable) ? WriteRule{} : *rule;
}

bool IsAvailable(std::optional<std::size_t> group, const core::RadioData& data) {
  if (!group || data.Usable[*group].Enable) return true;
  return *group == core::kExtraGroup && data.ExpPresent;
}

// The command and the closing line behind its reply.
void AddReadBlock(WireLoad& load) {
  load.bytes += WireBytesOfRead(kBlockSize);
  load.sendings += 2;
}

}  // namespace

bool IsBlockRead(int block_address) {
  return block_address < kUnreadFirst || block_address >= kUnreadEnd;
}

std::size_t WireBytesOfRead(int length) {
  return FrameBytes(kCommandRead, length, 0) + kOkLineBytes +
         FrameBytes(kCommandData, length, length) + kOkLineBytes;
}

std::size_t WireBytesOfWrite(int length) {
  return FrameBytes(kCommandWrite, length, length) + kOkLineBytes;
}

std::vector<Piece> PiecesToWrite(int block_address, const core::RadioData& data,
                                 Channels channels) {
  const WriteRule rule = RuleFor(block_address);
  if (rule.unit == Unit::kNothing) return {};
  if (channels == Channels::kOfAvailableGroups && !IsAvailable(rule.group, data)) return {};
  if (rule.unit == Unit::kBlock) return {{block_address, kBlockSize}};
  std::vector<Piece> pieces;
  for (int offset = 0; offset < kBlockSize; ++offset) {
    if ((rule.left_out >> offset & 1) == 0) pieces.push_back({block_address + offset, 1});
  }
  return pieces;
}

WireLoad LoadOfReading(std::int32_t last_index) {
  WireLoad load;
  for (int address = kFirstBlock; address <= last_index; address += kBlockSize) {
    if (IsBlockRead(address)) AddReadBlock(load);
  }
  return load;
}

WireLoad LoadOfWriting(const core::RadioData& data, Channels channels) {
  WireLoad load;
  for (int address = kFirstBlock; address <= data.Image.LastIndex(); address += kBlockSize) {
    for (const Piece& piece : PiecesToWrite(address, data, channels)) {
      load.bytes += WireBytesOfWrite(piece.length);
      ++load.sendings;
    }
  }
  return load;
}

WireLoad LoadOfReadingBack(const core::RadioData& data, Channels channels) {
  WireLoad load;
  for (int address = kFirstBlock; address <= data.Image.LastIndex(); address += kBlockSize) {
    if (!PiecesToWrite(address, data, channels).empty()) AddReadBlock(load);
  }
  return load;
}

double SecondsOnWire(const WireLoad& load) {
  constexpr double kSecondsPerByte = 10.0 / 9600;  // start bit, 8 data bits, stop bit
  return static_cast<double>(load.bytes) * kSecondsPerByte +
         static_cast<double>(load.sendings) * kPauseBeforeSending + kEndOfPhasePause;
}

int PercentAt(int address, std::int32_t last_index) {
  return static_cast<int>(core::RoundHalfEven(100.0 * address / last_index));
}

}  // namespace orvane::link
