#include "files/comparison_text.h"

#include <gtest/gtest.h>

#include "core/field_ref.h"
#include "core/text.h"
#include "files/printed_pages.h"

namespace orvane::files {
namespace {

TEST(ComparisonListing, StandsInColumnsUnderTheNamesOfTheGroupsAndCutsNothing) {
  const core::RadioData data;
  const core::FieldRef sql = core::RefTo<&core::CommonSettings::SQL>(data, data.Common);
  const core::FieldRef name = core::RefTo<&core::ChannelRecord::ChTag>(data, data.EXP[3]);
  const document::Difference rows[] = {
      {sql, "Common Setup SQL", "5", "9"},
      {name, "EXP/LMR 3 CH Name", "left value of seventy signs " + std::string(42, 'l'),
       "right value of forty signs " + std::string(13, 'r')},
      {name, "EXP/LMR 3 CH Name of more than forty letters", "", "last"}};
  const std::string listing = ComparisonListing({"Field", "One", "Two"}, rows);
  EXPECT_EQ(listing,
            "Field                                     One                                 Two\r\n"
            "\r\n"
            "Common Setup\r\n"
            "Common Setup SQL                          5                                   9\r\n"
            "\r\n"
            "EXP/LMR\r\n"
            "EXP/LMR 3 CH Name                         left value of seventy signs llllll  right "
            "value of forty signs rrrrrrr\r\n"
            "                                          llllllllllllllllllllllllllllllllll  "
            "rrrrrr\r\n"
            "                                          ll\r\n"
            "EXP/LMR 3 CH Name of more than forty let                                      last\r\n"
            "ters\r\n");
  const std::vector<PrintedPage> pages = BuildTextPages(listing, 70, {});
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages[0].texts.back().line, 10) << "no line is too long for the paper";
}

}  // namespace
}  // namespace orvane::files
