#include <array>
#include <cstddef>
#include <cstdint>

#include "hostile_world.h"
#include "image/image_check.h"
#include "image/memory_map.h"
#include "patched_image.h"

/// Any image of any model is decoded and encoded: decoding leaves the image alone, encoding leaves
/// the bits alone that no field owns, and after the first rounds nothing changes any more.
namespace orvane::fuzz {
namespace {

using Mask = std::array<std::uint8_t, core::MemoryImage::kSize>;

/// "7..5" or "3"; "" is all eight.
std::uint8_t BitsOf(const std::string& bits) {
  if (bits.empty()) return 0xFF;
  const int high = bits.front() - '0';
  const int low = bits.back() - '0';
  return static_cast<std::uint8_t>((1 << (high + 1)) - (1 << low));
}

/// Bits that no field owns.
Mask MaskOf(const core::RadioData& data) {
  Mask mask{};
  for (int i = data.Image.UsedSize(); i < core::MemoryImage::kSize; ++i) {
    mask[static_cast<std::size_t>(i)] = 0xFF;
  }
  for (const image::MapRow& row : image::MemoryMap(data)) {
    if (row.name != "(not used)") continue;
    for (int i = row.offset; i < row.offset + row.length; ++i) {
      mask[static_cast<std::size_t>(i)] |= BitsOf(row.bits);
    }
  }
  return mask;
}

const Mask& UnownedBits(const core::RadioData& data) {
  static std::array<std::optional<Mask>, 7> masks;
  std::optional<Mask>& mask = masks[static_cast<std::size_t>(data.MODELTYPE)];
  if (!mask) mask = MaskOf(data);
  return *mask;
}

void RoundTrip(core::RadioData data) {
  const Mask& unowned = UnownedBits(data);
  const core::MemoryImage before = data.Image;
  static_cast<void>(image::CheckImage(data.Image.Used(), core::ProfileOf(data)));
  image::DecodeAll(data);
  Require(data.Image == before);
  image::EncodeAll(data, kToday);
  for (int i = 0; i < core::MemoryImage::kSize; ++i) {
    Require(((data.Image[i] ^ before[i]) & unowned[static_cast<std::size_t>(i)]) == 0);
  }

  // Tone indexes beyond their list lose a bank with each of the first rounds.
  const int settling_rounds = core::ProfileOf(data).HasTones() ? 2 : 0;
  for (int round = 0; round <= settling_rounds; ++round) {
    const core::MemoryImage settled = data.Image;
    image::DecodeAll(data);
    image::EncodeAll(data, kToday);
    Require(round < settling_rounds || data.Image == settled);
  }

  image::ConsistencyPass(data);
  const core::MemoryImage consistent = data.Image;
  image::ConsistencyPass(data);
  Require(data.Image == consistent);
}

}  // namespace
}  // namespace orvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::fuzz::RoundTrip(orvane::fuzz::PatchedImage({bytes, size}));
  return 0;
}
