#pragma once

#include <array>
#include <span>
#include <string>

#include "document/compare.h"

namespace orvane::files {

/// A comparison as it is printed, in three columns of a fixed-pitch font that fit on the paper. The
/// rows of one group of fields stand under its name. What is too long for its column goes on below;
/// nothing is cut. Windows-1252 throughout; lines end in CR LF.
///
/// headings: of the columns.
[[nodiscard]] std::string ComparisonListing(const std::array<std::string, 3>& headings,
                                            std::span<const document::Difference> rows);

}  // namespace orvane::files
