#include "cli/same_file.h"

#include <filesystem>
#include <system_error>

namespace orvane::cli {

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code none;
  const auto whole = [&none](const std::string& path) {
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path, none), none);
  };
  return whole(a) == whole(b) || std::filesystem::equivalent(a, b, none);
}

}  // namespace orvane::cli
