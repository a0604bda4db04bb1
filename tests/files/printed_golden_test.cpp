#include <gtest/gtest.h>

#include <iomanip>
#include <map>
#include <sstream>

#include "files/printed_pages.h"
#include "support/full_data.h"
#include "support/golden.h"

namespace orvane::files {
namespace {

/// One line of text for each printed line: its number, then each text behind its position in
/// millimetres.
std::string PagesText(const std::vector<PrintedPage>& pages) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(1);
  for (std::size_t number = 0; number < pages.size(); ++number) {
    text << "page " << number + 1 << '\n';
    std::map<int, std::map<double, std::string>> lines;
    for (const PlacedText& placed : pages[number].texts) {
      lines[placed.line][placed.x_mm] = placed.text;
    }
    for (const auto& [line, cells] : lines) {
      text << std::setw(2) << line;
      for (const auto& [x_mm, cell] : cells) text << " |" << x_mm << ' ' << cell;
      text << '\n';
    }
  }
  return text.str();
}

TEST(PrintedPages, GoldenPagesOfAFullDataSet) {
  testing::ExpectGolden("printed_model5.txt", PagesText(BuildPrintedPages(
                                                  testing::FullData(5), LinesPerPage(297))));  // A4
}

}  // namespace
}  // namespace orvane::files
