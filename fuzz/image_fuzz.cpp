#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "hostile_world.h"
#include "image/image_check.h"
#include "image/memory_map.h"
#include "patched_image.h"

/// Any image of any model is decoded and encoded: decoding leaves the image alone, encoding leaves
/// the bits alone that no field owns, after the first rounds nothing changes any more, and what was
/// repaired once needs no second repair. Each input pays for one of these.
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
  static std::array<std::optional<Mask>, kModels> masks;
  std::optional<Mask>& mask = masks[static_cast<std::size_t>(data.MODELTYPE)];
  if (!mask) mask = MaskOf(data);
  return *mask;
}

/// Sixteen kilobytes in eights: byte by byte they take longer than the encoder.
bool SameUnder(const Mask& mask, const core::MemoryImage& a, const core::MemoryImage& b) {
  for (std::size_t i = 0; i < mask.size(); i += sizeof(std::uint64_t)) {
    std::array<std::uint64_t, 3> words{};
    std::memcpy(&words[0], &mask[i], sizeof(std::uint64_t));
    std::memcpy(&words[1], &a.All()[i], sizeof(std::uint64_t));
    std::memcpy(&words[2], &b.All()[i], sizeof(std::uint64_t));
    if (((words[1] ^ words[2]) & words[0]) != 0) return false;
  }
  return true;
}

void DecodeAndEncode(core::RadioData& data) {
  const core::MemoryImage before = data.Image;
  static_cast<void>(image::CheckImage(data.Image.Used(), core::ProfileOf(data)));
  image::DecodeAll(data);
  Require(data.Image == before);
  image::EncodeAll(data, kToday);
  Require(SameUnder(UnownedBits(data), data.Image, before));
}

void Settle(core::RadioData& data) {
  // Tone indexes beyond their list lose a bank with each of the first rounds. A blank inside a call
  // sign is written as a byte that the next round skips, which moves the rest together.
  const core::ModelProfile& profile = core::ProfileOf(data);
  const int settling_rounds = profile.HasTones() ? 3 : profile.has_call_signs ? 2 : 1;
  for (int round = 0; round <= settling_rounds; ++round) {
    const core::MemoryImage settled = data.Image;
    image::DecodeAll(data);
    image::EncodeAll(data, kToday);
    Require(round < settling_rounds || data.Image == settled);
  }
}

void Repair(core::RadioData& data) {
  image::ConsistencyPass(data);
  const core::MemoryImage consistent = data.Image;
  image::ConsistencyPass(data);
  Require(data.Image == consistent);
}

void Check(std::span<const std::uint8_t> input) {
  const Choice choice(input);
  constexpr std::array kImageStarts = {Start::kNew, Start::kUsed, Start::kErased};
  core::RadioData& data =
      PatchedImage(choice.model, kImageStarts[choice.rest % kImageStarts.size()], input);
  switch (choice.rest / kImageStarts.size()) {
    case 0:
      return DecodeAndEncode(data);
    case 1:
      return Settle(data);
    default:
      return choice.rest % 2 == 0 ? DecodeAndEncode(data) : Repair(data);
  }
}

}  // namespace
}  // namespace orvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::fuzz::Check({bytes, size});
  return 0;
}
