#include "link/transfer_plan.h"

#include <algorithm>
#include <initializer_list>

#include "core/number_text.h"

namespace orvane::link {
namespace {

constexpr int kUnreadFirst = 13568;
constexpr int kUnreadEnd = 16304;

enum class Unit { kNothing, kBlock, kSingleBytes };
/// Availability that a stretch depends on.
enum class Group { kAlways, kUsa, kIntl, kCanada, kExtra };

struct WriteRule {
  int first = 0;  ///< byte addresses, both inclusive
  int last = 0;
  Unit unit = Unit::kBlock;
  Group group = Group::kAlways;
  std::uint16_t left_out = 0;  ///< single bytes: bit n is the byte at the block's address + n
};

constexpr std::uint16_t LeavingOut(std::initializer_list<int> addresses) {
  unsigned bits = 0;
  for (const int address : addresses) bits |= 1U << (address % kBlockSize);
  return static_cast<std::uint16_t>(bits);
}

// Blocks that no rule names are written whole. What is left out keeps the radio's own value; the
// model code is among it, and everything in the last quarter.
constexpr WriteRule kWriteTable[] = {
    {64, 79, Unit::kSingleBytes, Group::kAlways, LeavingOut({64, 65, 74})},
    {80, 95, Unit::kSingleBytes, Group::kAlways, LeavingOut({92})},
    {160, 175, Unit::kSingleBytes, Group::kAlways, LeavingOut({169, 170, 171, 172, 174, 175})},
    {176, 255, Unit::kNothing},
    {512, 767, Unit::kNothing},
    {768, 1247, Unit::kBlock, Group::kUsa},
    {1280, 1759, Unit::kBlock, Group::kIntl},
    {1792, 2271, Unit::kBlock, Group::kCanada},
    {2304, 2943, Unit::kBlock, Group::kExtra},
    {3072, 5951, Unit::kBlock, Group::kUsa},
    {5952, 8831, Unit::kBlock, Group::kIntl},
    {8832, 11711, Unit::kBlock, Group::kCanada},
    {11840, 12319, Unit::kBlock, Group::kExtra},
    {12432, core::MemoryImage::kSize - 1, Unit::kNothing},
};

WriteRule RuleFor(int block_address) {
  const auto* rule =
      std::find_if(std::begin(kWriteTable), std::end(kWriteTable), [&](const WriteRule& candidate) {
        return block_address >= candidate.first && block_address <= candidate.last;
      });
  return rule == std::end(kWriteTable) ? WriteRule{} : *rule;
}

bool IsAvailable(Group group, const core::RadioData& data) {
  switch (group) {
    case Group::kAlways:
      return true;
    case Group::kUsa:
      return data.Usable[static_cast<std::size_t>(core::MarineGroup::kUsa)].Enable;
    case Group::kIntl:
      return data.Usable[static_cast<std::size_t>(core::MarineGroup::kIntl)].Enable;
    case Group::kCanada:
      return data.Usable[static_cast<std::size_t>(core::MarineGroup::kCanada)].Enable;
    case Group::kExtra:
      return data.Usable[core::kExtraGroup].Enable || data.ExpPresent;
  }
  return false;
}

}  // namespace

bool IsBlockRead(int block_address) {
  return block_address < kUnreadFirst || block_address >= kUnreadEnd;
}

std::size_t BytesToRead(std::int32_t last_index) {
  std::size_t bytes = 0;
  for (int address = kFirstBlock; address <= last_index; address += kBlockSize) {
    if (IsBlockRead(address)) bytes += kBlockSize;
  }
  return bytes;
}

std::vector<Piece> PiecesToWrite(int block_address, const core::RadioData& data) {
  const WriteRule rule = RuleFor(block_address);
  if (rule.unit == Unit::kNothing || !IsAvailable(rule.group, data)) return {};
  if (rule.unit == Unit::kBlock) return {{block_address, kBlockSize}};
  std::vector<Piece> pieces;
  for (int offset = 0; offset < kBlockSize; ++offset) {
    if ((rule.left_out >> offset & 1) == 0) pieces.push_back({block_address + offset, 1});
  }
  return pieces;
}

std::size_t BytesToWrite(const core::RadioData& data) {
  std::size_t bytes = 0;
  for (int address = kFirstBlock; address <= data.Image.LastIndex(); address += kBlockSize) {
    for (const Piece& piece : PiecesToWrite(address, data)) {
      bytes += static_cast<std::size_t>(piece.length);
    }
  }
  return bytes;
}

int PercentAt(int address, std::int32_t last_index) {
  return static_cast<int>(core::RoundHalfEven(100.0 * address / last_index));
}

}  // namespace orvane::link
