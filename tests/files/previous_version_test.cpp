#include "files/previous_version.h"

#include <gtest/gtest.h>

#include "support/fakes.h"

namespace orvane::files {
namespace {

TEST(PreviousVersion, AFailedSaveCostsNoOlderOne) {
  testing::MemoryFiles files;
  const std::string kept = PreviousVersionPath("/previous", "/out/boat.dat");
  const auto save = [&](const char* bytes, bool fails) {
    PreviousVersion previous(files, "/previous", "/out/boat.dat");
    EXPECT_FALSE(previous.Keep(bytes)) << bytes;
    if (fails) return previous.TakeBack();
    files.files["/out/boat.dat"] = bytes;
  };
  save("one", false);
  EXPECT_FALSE(files.files.contains(kept)) << "nothing was there";
  save("two", false);
  EXPECT_EQ(files.files[kept], "one");
  save("three", true);
  EXPECT_EQ(files.files[kept], "one");
  save("two", true);
  EXPECT_EQ(files.files[kept], "one");
  save("four", false);
  EXPECT_EQ(files.files[kept], "two");
}

}  // namespace
}  // namespace orvane::files
