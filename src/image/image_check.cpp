#include "image/image_check.h"

#include <cstddef>

namespace orvane::image {
namespace {

std::uint16_t CodeAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return static_cast<std::uint16_t>(bytes[offset] << 8 | bytes[offset + 1]);
}

}  // namespace

ImageFaults CheckImage(std::span<const std::uint8_t> bytes, const core::ModelProfile& profile,
                       int first_code_offset) {
  if (!core::ImageLengthMatches(profile, bytes.size())) return {.length = true};
  ImageFaults faults;
  faults.codes = {CodeAt(bytes, static_cast<std::size_t>(first_code_offset)),
                  CodeAt(bytes, bytes.size() - 2)};
  faults.model = !core::ModelCodeMatches(profile, faults.codes);
  // An image that ends before the product byte is of a model without a product test.
  constexpr auto kProduct = static_cast<std::size_t>(kProductOffset);
  if (kProduct < bytes.size()) {
    faults.product_byte = bytes[kProduct];
    faults.product = !core::ProductMatches(profile, faults.product_byte);
  }
  return faults;
}

const core::ModelProfile* NamedModel(std::span<const std::uint8_t> bytes) {
  constexpr auto kFirst = static_cast<std::size_t>(kModelCodeOffset);
  if (bytes.size() < kFirst + 2) return nullptr;
  return core::FindProfileByCode(CodeAt(bytes, kFirst));
}

}  // namespace orvane::image
