#include "image/image_check.h"

namespace orvane::image {
namespace {

std::uint16_t BigEndian(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return static_cast<std::uint16_t>(bytes[offset] << 8 | bytes[offset + 1]);
}

}  // namespace

ModelCodes ReadModelCodes(std::span<const std::uint8_t> bytes) {
  constexpr auto kFirst = static_cast<std::size_t>(kModelCodeOffset);
  if (bytes.size() < kFirst + 2) return {};
  return {BigEndian(bytes, kFirst), BigEndian(bytes, bytes.size() - 2)};
}

ImageFaults CheckImage(std::span<const std::uint8_t> bytes, const core::ModelProfile& profile) {
  ImageFaults faults;
  if (!core::ImageLengthMatches(profile, bytes.size())) {
    faults.length = true;
    return faults;
  }
  const ModelCodes codes = ReadModelCodes(bytes);
  faults.model = !core::ModelCodeMatches(profile, codes.first, codes.second);
  constexpr auto kProduct = static_cast<std::size_t>(kProductOffset);
  if (kProduct < bytes.size()) faults.product = !core::ProductMatches(profile, bytes[kProduct]);
  return faults;
}

}  // namespace orvane::image
