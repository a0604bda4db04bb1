#include "cli/status_line.h"

#include <algorithm>

namespace orvane::cli {

void StatusLine::Update(const std::string& text) {
  err_ << '\r' << text;
  if (shown_ > text.size()) err_ << std::string(shown_ - text.size(), ' ');
  err_ << std::flush;
  shown_ = std::max(shown_, text.size());
}

void StatusLine::Finish() {
  if (shown_ > 0) err_ << '\n';
  shown_ = 0;
}

}  // namespace orvane::cli
