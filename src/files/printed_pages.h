#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/radio_data.h"

/// The printed report as placed text, before any printer is involved.
///
/// The layout is made for portrait pages of at least 210 mm width (A4, Letter) and a fixed-pitch
/// font of kPrintFontPoints whose characters are at most 0.6 of its size wide, as those of the
/// common typewriter faces are. With such a font no text reaches the next one on its line or
/// kPrintRightMm; longer ones are cut.
namespace orvane::files {

inline constexpr double kPrintFontPoints = 8;
inline constexpr double kPrintCharacterEm = 0.6;  ///< of the font's size
inline constexpr double kPrintCharacterMm = kPrintCharacterEm * kPrintFontPoints * 25.4 / 72;
inline constexpr double kPrintLineMm = 4;     ///< from line to line
inline constexpr double kPrintTopMm = 5;      ///< upper edge of line 0, from the page's upper edge
inline constexpr double kPrintLeftMm = 10;    ///< added to every position
inline constexpr double kPrintRightMm = 200;  ///< no text goes beyond, from the page's left edge
inline constexpr double kPrintBottomMm = 8;   ///< stays free but for the footer
inline constexpr double kPrintGapMm = 1;      ///< at least, between two texts of a line

inline constexpr double kFooterFontPoints = 6;
/// Upper edge of the footer, from the page's lower edge. Few printers reach the last 4 mm.
inline constexpr double kFooterUpMm = 7;
inline constexpr double kFooterNameMm = 120;  ///< room for the file's name

/// Whole lines on a page: 71 on A4 (297 mm), 66 on Letter (279.4 mm).
[[nodiscard]] constexpr int LinesPerPage(double page_height_mm) {
  return static_cast<int>((page_height_mm - kPrintTopMm - kPrintBottomMm) / kPrintLineMm);
}

struct PlacedText {
  double x_mm = 0;   ///< from the page's left edge
  int line = 0;      ///< 0 is the page header's line
  std::string text;  ///< never empty, no blanks at its end
};
struct PrintedPage {
  std::vector<PlacedText> texts;
  std::string footer_left;   ///< the file's name without its folder, UTF-8; at kPrintLeftMm
  std::string footer_right;  ///< date and page number; ends at kPrintRightMm
};

/// What the footers say of the report.
struct Imprint {
  std::string file;  ///< path of the data's file, UTF-8; "" when they are in none
  core::Date date;
};

/// lines_per_page bounds a page, see LinesPerPage(); fewer than 8 count as 8. What is longer goes
/// on with page header, title and column headings repeated, the title followed by "(continued)".
[[nodiscard]] std::vector<PrintedPage> BuildPrintedPages(const core::RadioData& data,
                                                         int lines_per_page,
                                                         const Imprint& imprint);

/// The same for a text; a line too long for the paper goes on in the next one.
[[nodiscard]] std::vector<PrintedPage> BuildTextPages(std::string_view text, int lines_per_page,
                                                      const Imprint& imprint);

}  // namespace orvane::files
