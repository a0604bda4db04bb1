#pragma once

#include <ostream>
#include <string>

namespace orvane::cli {

/// Standard error with a last line that is written over in place while something is under way.
class StatusLine {
 public:
  explicit StatusLine(std::ostream& err) : err_(err) {}

  /// Replaces the line. Call it only on a terminal.
  void Update(const std::string& text);
  /// Ends the line, if there is one, so that what follows starts on its own.
  void Finish();
  /// The stream, ready for whole lines.
  std::ostream& Lines() {
    Finish();
    return err_;
  }

 private:
  std::ostream& err_;
  std::size_t shown_ = 0;  ///< characters of the line on show
};

}  // namespace orvane::cli
