#pragma once

#include <string>

namespace orvane::cli {

/// One file, by whatever ways it is named: folders that lead back, links of both kinds. It need not
/// be there.
[[nodiscard]] bool IsSameFile(const std::string& a, const std::string& b);

}  // namespace orvane::cli
