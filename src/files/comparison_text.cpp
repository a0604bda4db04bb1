#include "files/comparison_text.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "core/catalogue.h"
#include "core/text.h"
#include "files/printed_pages.h"

namespace orvane::files {
namespace {

using Cells = std::array<std::string_view, 3>;

constexpr std::string_view kGap = "  ";
constexpr auto kLineLength =
    static_cast<std::size_t>((kPrintRightMm - kPrintLeftMm) / kPrintCharacterMm);
/// Names are of the program's making; values may be long.
constexpr std::size_t kNameLength = 40;
constexpr std::size_t kValueLength = (kLineLength - kNameLength - 2 * kGap.size()) / 2;
constexpr std::array<std::size_t, 3> kLengths = {kNameLength, kValueLength, kValueLength};

std::string_view TakeFront(std::string_view& text, std::size_t length) {
  const std::string_view front = text.substr(0, length);
  text.remove_prefix(front.size());
  return front;
}

void AddLines(std::string& listing, Cells cells) {
  do {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const std::string_view part = TakeFront(cells[i], kLengths[i]);
      line.append(part).append(kLengths[i] - part.size(), ' ').append(kGap);
    }
    listing.append(core::TrimRight(line)).append("\r\n");
  } while (!std::all_of(cells.begin(), cells.end(), [](const auto& cell) { return cell.empty(); }));
}

}  // namespace

std::string ComparisonListing(const std::array<std::string, 3>& headings,
                              std::span<const document::Difference> rows) {
  std::string listing;
  AddLines(listing, {headings[0], headings[1], headings[2]});
  const core::Table* table = nullptr;
  for (const document::Difference& row : rows) {
    if (&core::TableOf(row.at) != table) {
      table = &core::TableOf(row.at);
      listing.append("\r\n").append(table->label).append("\r\n");
    }
    AddLines(listing, {row.name, row.ours, row.theirs});
  }
  return listing;
}

}  // namespace orvane::files
