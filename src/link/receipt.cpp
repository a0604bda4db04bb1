#include "link/receipt.h"

#include <algorithm>

#include "core/crc32.h"
#include "image/layout_places.h"
#include "link/transfer_plan.h"

namespace orvane::link {

std::uint32_t MemoryCrc(const core::MemoryImage& image) {
  constexpr char kUnread = '\xFF';
  const auto used = image.Used();
  std::string bytes(used.begin(), used.end());
  for (std::size_t i = 0; i < bytes.size(); i += kBlockSize) {
    const auto address = static_cast<int>(i);
    if (address >= kFirstBlock && IsBlockRead(address)) continue;
    std::fill_n(bytes.begin() + address, kBlockSize, kUnread);
  }
  return core::Crc32(bytes);
}

std::uint8_t RadioOwnBits(int address) {
  unsigned bits = 0;
  for (const image::Bits& own : {image::places::kRadioOwnByte, image::places::kRadioOwnBit}) {
    for (int bit = own.first; bit < own.first + own.count; ++bit) {
      if (bit / 8 == address) bits |= 0x80U >> (bit % 8);
    }
  }
  return static_cast<std::uint8_t>(bits);
}

}  // namespace orvane::link
