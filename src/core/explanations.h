#pragma once

#include <span>
#include <string_view>

/// What the short words on the screen mean, in plain English. The tooltips of controls and of table
/// headings come from this one table.
namespace orvane::core {

struct Explanation {
  std::string_view word;     ///< as the screen shows it
  std::string_view control;  ///< object name, of an array of controls without the member; or ""
  std::string_view column;   ///< caption in the channel tables; or ""
  std::string_view text;
};

[[nodiscard]] std::span<const Explanation> Explanations();

/// Each returns "" where there is nothing to explain. A member of an array ("chkUsable_2") takes
/// the row of the array where it has none of its own.
[[nodiscard]] std::string_view ExplainControl(std::string_view object_name);
[[nodiscard]] std::string_view ExplainColumn(std::string_view caption);
[[nodiscard]] std::string_view ExplainWord(std::string_view word);

}  // namespace orvane::core
