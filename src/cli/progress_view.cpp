#include "cli/progress_view.h"

#include <cmath>
#include <iomanip>
#include <sstream>

#include "core/number_text.h"

namespace orvane::cli {
namespace {

constexpr int kSecondsPerMinute = 60;

std::string MinutesAndSeconds(double seconds) {
  const auto whole = static_cast<long>(std::ceil(seconds));
  std::ostringstream text;
  text << whole / kSecondsPerMinute << ':' << std::setw(2) << std::setfill('0')
       << whole % kSecondsPerMinute;
  return text.str();
}

}  // namespace

void ProgressView::Monitor(std::string_view text) {
  if (!text.empty()) err_.Lines() << text << std::endl;
}

void ProgressView::BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) {
  prompts_.NoteProgress();
  if (!terminal_) return;
  const double now = clock_.Now();
  // How long the first block took is not known; speed counts from its end.
  if (first_bytes_ == 0) {
    first_block_at_ = now;
    first_bytes_ = bytes_so_far;
  }
  std::ostringstream line;
  line << std::setw(3) << percent_ << " %  block "
       << core::HexText(static_cast<unsigned>(address), 4);
  const double elapsed = now - first_block_at_;
  if (elapsed > 0) {
    const double speed = static_cast<double>(bytes_so_far - first_bytes_) / elapsed;
    const auto left = static_cast<double>(bytes_total - bytes_so_far);
    line << "  " << std::lround(speed) << " bytes/s";
    if (speed > 0) line << "  " << MinutesAndSeconds(left / speed) << " left";
  }
  err_.Update(line.str());
}

}  // namespace orvane::cli
