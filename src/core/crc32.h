#pragma once

#include <cstdint>
#include <string_view>

namespace orvane::core {

/// The checksum of ISO 3309, as zip files and Ethernet use it.
[[nodiscard]] std::uint32_t Crc32(std::string_view bytes);

}  // namespace orvane::core
