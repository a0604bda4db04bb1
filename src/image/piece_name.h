#pragma once

#include <string>
#include <string_view>

#include "core/channel_plan.h"
#include "image/row.h"

/// How a piece of the memory is called.
namespace orvane::image {

/// "7..4" or "3" within the first byte and the last; "" for whole bytes.
[[nodiscard]] inline std::string BitsText(Bits bits) {
  if (bits.first % 8 == 0 && bits.count % 8 == 0) return {};
  const int high = 7 - bits.first % 8;
  const int low = 7 - (bits.first + bits.count - 1) % 8;
  if (bits.count == 1) return std::to_string(high);
  return std::to_string(high) + ".." + std::to_string(low);
}

/// "USA 22A ChTag", "INTL 3 stored channel".
template <class Record>
std::string EntryName(const Area<Record>& area, int index, const Row<Record>& row) {
  std::string name(area.name);
  const auto append = [&name](std::string_view word) {
    if (!name.empty() && !word.empty()) name += ' ';
    name += word;
  };
  if (area.label == Label::kPlan) append(core::PlanLabel(index));
  if (area.label == Label::kFromOne) append(std::to_string(index + 1));
  append(row.of);
  append(row.name);
  return name;
}

}  // namespace orvane::image
