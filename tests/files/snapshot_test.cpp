#include "files/snapshot.h"

#include <gtest/gtest.h>

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

TEST(SnapshotHeading, SaysMoreOnlyWhereThereIsMore) {
  SnapshotHeading heading = Heading();
  const RadioData data = NewData(5);
  const std::size_t least = SnapshotText(data, heading).size();
  heading.print = "17";
  EXPECT_EQ(ParseSnapshot(SnapshotText(data, heading)).heading.print, "17");
  heading.edited = "usa/16/name weather/1/name";
  const std::string text = SnapshotText(data, heading);
  EXPECT_EQ(ParseSnapshot(text).heading.edited, heading.edited);
  EXPECT_EQ(ParseSnapshotHeading(text).heading.print, "17");
  EXPECT_EQ(text.size(), least + std::string("file print: \"17\"\n").size() +
                             std::string("edited: \"\"\n").size() + heading.edited.size());
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
    EXPECT_EQ(ParseSnapshotHeading(text).heading.checksum, snapshot.heading.checksum);
  }
}

// What no notation shows and no limit allows: any byte in texts and memory, the ends of numbers.
TEST_P(SnapshotOf, AnyValueComesBack) {
  RandomData random(static_cast<unsigned>(GetParam()));
  RadioData data = NewData(GetParam());
  for (std::uint8_t& byte : data.Image.All()) byte = static_cast<std::uint8_t>(random.Below(256));
  data.Image.SetLastIndex(random.Below(core::MemoryImage::kSize));
  std::string bytes = " \r\n\t=\"\\ ";
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  for (int i = 0; i < 3000; ++i) {
    const core::FieldRef at = random.AnyField();
    if (core::TableOf(at).kind == core::TableKind::kMemory) continue;
    core::Value value = core::Get(data, at);
    if (std::holds_alternative<std::string>(value)) value = bytes + ' ';
    if (std::holds_alternative<double>(value)) value = i % 2 == 0 ? 1.0 / 3 - 1e-300 : -1e300;
    if (std::holds_alternative<std::int32_t>(value)) value = i % 2 == 0 ? INT32_MIN : INT32_MAX - 7;
    core::Set(data, at, value);
  }
  const Snapshot snapshot = ParseSnapshot(SnapshotText(data, Heading()));
  ASSERT_EQ(snapshot.error, "");
  EXPECT_TRUE(*snapshot.data == data);
}

void ExpectRefusedOrTheSame(const std::string& bad, const RadioData& data) {
  const Snapshot snapshot = ParseSnapshot(bad);
  ASSERT_EQ(snapshot.data == nullptr, !snapshot.error.empty());
  ASSERT_TRUE(snapshot.data == nullptr || *snapshot.data == data) << snapshot.heading.model_type;
}

// A byte changed, a line left out, an end cut off: refused, or the same data where only the heading
// was hit. The first lines, of which each byte counts, are hit everywhere.
TEST_P(SnapshotOf, DamageIsNeverTakenForOtherData) {
  RandomData random(static_cast<unsigned>(GetParam()));
  RadioData data = NewData(GetParam());
  random.Scatter(data, 40);
  const std::string good = SnapshotText(data, Heading());
  for (std::size_t place = 0; place < good.find("[image]"); ++place) {
    for (const char byte : {'0', '6', '\n', '\xFF'}) {
      std::string bad = good;
      bad[place] = byte;
      ExpectRefusedOrTheSame(bad, data);
    }
  }
  for (int round = 0; round < 100; ++round) {
    std::string bad = good;
    bad[static_cast<std::size_t>(random.Below(static_cast<int>(bad.size())))] =
        static_cast<char>(random.Below(256));
    ExpectRefusedOrTheSame(bad, data);
  }
  // Reading it takes too long to cut each of some thousand lines for each model.
  int number = GetParam();
  for (std::size_t line = 0, next = 0; line < good.size(); line = next) {
    next = good.find('\n', line) + 1;
    if (line > good.find("[image]") && next < good.size() && ++number % 17 != 0) continue;
    ExpectRefusedOrTheSame(good.substr(0, line) + good.substr(next), data);
    EXPECT_EQ(ParseSnapshot(good.substr(0, line)).data, nullptr) << line;
    EXPECT_EQ(ParseSnapshot(good.substr(0, next - 1)).data, nullptr) << line;
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
      {"model: 5", "model: 7", "line 7, column 8: there is no such model"},
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
