#include "files/delimited_text.h"

#include <gtest/gtest.h>

#include <random>

namespace orvane::files {
namespace {

TEST(SplitText, TakesWhatSpreadsheetsWrite) {
  const struct {
    const char* what;
    std::string text;
    char separator;
    TextRows rows;
    std::vector<int> lines;
    bool open = false;
  } cases[] = {
      {"nothing", "", '\t', {}, {}},
      {"the last line end is no row", "a\tb\r\nc\td\r\n", '\t', {{"a", "b"}, {"c", "d"}}, {1, 2}},
      {"nor need there be one", "x\ny", '\t', {{"x"}, {"y"}}, {1, 2}},
      {"a lone CR", "k\rl\r", '\t', {{"k"}, {"l"}}, {1, 2}},
      {"empty cells and lines", "\t\n\n,", '\t', {{"", ""}, {""}, {","}}, {1, 2, 3}},
      {"one empty line", "\n", '\t', {{""}}, {1}},
      {"quotes", "\"p;q\";\"say \"\"hi\"\"\";r", ';', {{"p;q", "say \"hi\"", "r"}}, {1}},
      {"quotes inside stand for themselves", "5\" rod,6", ',', {{"5\" rod", "6"}}, {1}},
      {"line breaks in quotes", "\"m\r\nn\",o\nu", ',', {{"m\r\nn", "o"}, {"u"}}, {1, 3}},
      {"behind a closing quote", "\"v\"w,", ',', {{"vw", ""}}, {1}},
      {"cut off", "s,\"t\nu,", ',', {{"s", "t\nu,"}}, {1}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const DelimitedText split = SplitText(c.text, c.separator);
    EXPECT_EQ(split.rows, c.rows);
    EXPECT_EQ(split.lines, c.lines);
    EXPECT_EQ(split.quote_left_open, c.open);
  }
}

TEST(JoinText, QuotesWhatNeedsItAndNoMore) {
  EXPECT_EQ(JoinText({{"a b", "c,d"}, {"\"e", "f\"g"}, {"h\ni", ""}}, ','),
            "a b,\"c,d\"\r\n\"\"\"e\",f\"g\r\n\"h\ni\",\r\n");
}

TEST(JoinText, IsSplitIntoEqualRows) {
  std::minstd_rand random(17);
  const std::string signs = "ab \"\",;\t\r\n\xE4";
  for (const char separator : {',', ';', '\t'}) {
    for (int round = 0; round < 500; ++round) {
      TextRows rows(1 + random() % 4);
      for (std::vector<std::string>& row : rows) {
        row.resize(1 + random() % 4);
        for (std::string& cell : row) {
          for (std::size_t i = random() % 6; i > 0; --i) cell += signs[random() % signs.size()];
        }
      }
      const DelimitedText split = SplitText(JoinText(rows, separator), separator);
      ASSERT_EQ(split.rows, rows) << JoinText(rows, separator);
      ASSERT_FALSE(split.quote_left_open);
    }
  }
}

}  // namespace
}  // namespace orvane::files
