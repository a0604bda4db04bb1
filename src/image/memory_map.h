#pragma once

#include <string>
#include <vector>

#include "core/radio_data.h"

/// The layout tables as documentation: every field of a model's image with its place and value,
/// and every stretch that no field owns.
namespace orvane::image {

struct MapRow {
  int offset = 0;     ///< first byte
  int length = 0;     ///< bytes
  std::string bits;   ///< "7..4", first byte's to last byte's; "" when whole bytes
  std::string name;   ///< field name; "(not used)" style text for a stretch no field owns
  std::string bytes;  ///< hexadecimal
  std::string value;  ///< as decoded
};

/// Rows in address order for the model and image in the data.
[[nodiscard]] std::vector<MapRow> MemoryMap(const core::RadioData& data);
/// The rows as a table for a terminal, lines ended by LF.
[[nodiscard]] std::string MemoryMapText(const core::RadioData& data);

/// The page docs/memory-map.md: the fields of all models without values.
[[nodiscard]] std::string MemoryMapPage();

}  // namespace orvane::image
