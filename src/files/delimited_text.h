#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Tables as text, as spreadsheets write them into files and onto the clipboard: a line for each
/// row, cells parted by a separator. A cell that holds a separator, a line break or a leading quote
/// stands in quotes, and its own quotes are doubled. Bytes of any character set pass unchanged.
namespace orvane::files {

using TextRows = std::vector<std::vector<std::string>>;

struct DelimitedText {
  TextRows rows;  ///< as they come: rows need not have the same number of cells
  std::vector<int>
      lines;  ///< by row: the line it begins in, from 1; a quoted cell may hold several
  /// The text ends inside quotes, as one that was cut off does; all of it stands in the last cell.
  bool quote_left_open = false;
};

/// Takes CR LF, LF and CR for the end of a line. The last one begins no row; an empty line in
/// between is a row of one empty cell. What follows a closing quote belongs to the cell as well.
[[nodiscard]] DelimitedText SplitText(std::string_view text, char separator);

/// The cell in quotes where it needs them. SplitText gives it back unchanged.
[[nodiscard]] std::string QuotedCell(std::string_view cell, char separator);
/// Each row ends with CR LF. SplitText gives back equal rows, unless one has no cell at all.
[[nodiscard]] std::string JoinText(const TextRows& rows, char separator);

}  // namespace orvane::files
