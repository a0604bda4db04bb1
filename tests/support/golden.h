#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace orvane::testing {

/// Compares a text with the golden file of that name, byte for byte. With ORVANE_UPDATE_GOLDEN=1
/// in the environment the file is written instead.
inline void ExpectGolden(const std::string& name, std::string_view text) {
  const std::string path = std::string(ORVANE_GOLDEN_DIR) + "/" + name;
  const char* update = std::getenv("ORVANE_UPDATE_GOLDEN");
  if (update != nullptr && std::string_view(update) == "1") {
    std::ofstream(path, std::ios::binary) << text;
    return;
  }
  std::ifstream file(path, std::ios::binary);
  ASSERT_TRUE(file) << "no golden file " << name;
  const std::string expected((std::istreambuf_iterator<char>(file)), {});
  EXPECT_EQ(text, expected) << "differs from golden file " << name
                            << "; ORVANE_UPDATE_GOLDEN=1 in the environment writes it anew";
}

}  // namespace orvane::testing
