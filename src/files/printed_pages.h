#pragma once

#include <string>
#include <vector>

#include "core/radio_data.h"

/// The printed report as placed text, before any printer is involved.
namespace orvane::files {

struct PlacedText {
  double x_mm = 0;  ///< from the page's left edge
  int line = 0;     ///< 0 is the page header's line
  std::string text;
};
struct PrintedPage {
  std::vector<PlacedText> texts;
};

/// lines_per_page bounds a page; longer tables continue on the next page with header and heading
/// repeated.
[[nodiscard]] std::vector<PrintedPage> BuildPrintedPages(const core::RadioData& data,
                                                         int lines_per_page);

}  // namespace orvane::files
