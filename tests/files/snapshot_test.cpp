#include "files/snapshot.h"

#include <gtest/gtest.h>

#include <random>

#include "core/crc32.h"
#include "support/random_data.h"

namespace orvane::files {
namespace {

using core::RadioData;
using testing::NewData;
using testing::RandomData;

SnapshotHeading Heading() {
  return {.made = "2026-11-24 23:40:12",
          .origin = "autosave",
          .port = "COM3 Cable",
          .file = "/home/me/B\xC3\xB6otchen \"1\"\\\n.dat"};
}

TEST(Crc32, IsTheUsualOne) {
  EXPECT_EQ(core::Crc32("123456789"), 0xCBF43926U);
}

class SnapshotOf : public ::testing::TestWithParam<int> {};

TEST_P(SnapshotOf, AnyDataComesBackWhole) {
  RandomData random(static_cast<unsigned>(GetParam()));
  for (int round = 0; round < 20; ++round) {
    RadioData data = round == 0 ? NewData(GetParam()) : random.Of(GetParam());
    if (round % 3 == 1) random.Scatter(data, 200);
    const std::string text = SnapshotText(data, Heading());
    const Snapshot snapshot = ParseSnapshot(text);
    ASSERT_EQ(snapshot.error, "");
    ASSERT_TRUE(*snapshot.data == data) << round;
    EXPECT_EQ(snapshot.heading.file, Heading().file);
    EXPECT_EQ(snapshot.heading.made + snapshot.heading.origin + snapshot.heading.port,
              "2026-11-24 23:40:12autosaveCOM3 Cable");
    EXPECT_EQ(snapshot.heading.model_type, GetParam());
    EXPECT_EQ(ParseSnapshotHeading(text).heading.body, snapshot.heading.body);
  }
}

// A byte changed, a line left out, an end cut off: refused, or the same data where only the heading
// was hit.
TEST_P(SnapshotOf, DamageIsNeverTakenForOtherData) {
  RandomData random(static_cast<unsigned>(GetParam()));
  const RadioData data = random.Of(GetParam());
  const std::string good = SnapshotText(data, Heading());
  std::mt19937 chance(static_cast<unsigned>(GetParam()));
  for (int round = 0; round < 150; ++round) {
    std::string bad = good;
    const std::size_t place = chance() % bad.size();
    switch (round % 3) {
      case 0:
        bad[place] = static_cast<char>(chance());
        break;
      case 1:
        bad.resize(place);
        break;
      default:
        const std::size_t line = good.rfind('\n', place) + 1;
        bad.erase(line, good.find('\n', line) + 1 - line);
    }
    const Snapshot snapshot = ParseSnapshot(bad);
    ASSERT_EQ(snapshot.data == nullptr, !snapshot.error.empty());
    ASSERT_TRUE(snapshot.data == nullptr || *snapshot.data == data);
  }
}

INSTANTIATE_TEST_SUITE_P(Models, SnapshotOf, ::testing::Range(0, 7));

TEST(Snapshot, IsRefusedByLineAndColumn) {
  const std::string good = SnapshotText(NewData(5), Heading());
  const struct {
    const char* part;
    const char* replaced_by;
    const char* error;
  } cases[] = {
      {"ORVANE", "[MAIN]", "line 1, column 1: this is no snapshot"},
      {"SNAPSHOT 1", "SNAPSHOT 2",
       "line 1, column 17: this version of the program does not know such snapshots"},
      {"origin: ", "origins ", "line 3, column 1: \"origin: \" is missing"},
      {"\"autosave\"", "\"auto\tsave\"", "line 3, column 14: the text is damaged"},
      {"model: 5", "model: 7", "line 6, column 8: there is no such model"},
      {"[image]", "[images]", "line 9, column 1: [image] is missing"},
      {"\n0040 ", "\n0041 ", "line 10, column 1: no row of the memory begins there"},
      {"\n0040 02", "\n0040 0G", "line 10, column 6: two hexadecimal digits are missing"},
      {"usa/00/duplex_allowed", "usa/00/duplex", nullptr},
      {"[end]", "[END]", nullptr},
      {"[end]\n", "[end]\n\n", nullptr},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.part);
    std::string bad = good;
    const std::size_t at = bad.find(c.part);
    ASSERT_NE(at, std::string::npos);
    bad.replace(at, std::string(c.part).size(), c.replaced_by);
    const Snapshot snapshot = ParseSnapshot(bad);
    EXPECT_EQ(snapshot.data, nullptr);
    EXPECT_TRUE(c.error == nullptr || snapshot.error == c.error) << snapshot.error;
  }
}

}  // namespace
}  // namespace orvane::files
