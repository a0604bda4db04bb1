#include "core/crc32.h"

#include <array>
#include <cstddef>

namespace orvane::core {
namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;

constexpr std::array<std::uint32_t, 256> MakeTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    std::uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
    table[byte] = value;
  }
  return table;
}

constexpr std::array<std::uint32_t, 256> kTable = MakeTable();

}  // namespace

std::uint32_t Crc32(std::string_view bytes) {
  std::uint32_t value = 0xFFFFFFFF;
  for (const char c : bytes) {
    value = (value >> 8) ^ kTable[(value ^ static_cast<unsigned char>(c)) & 0xFF];
  }
  return ~value;
}

}  // namespace orvane::core
