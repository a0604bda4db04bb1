#include "link/transfer_pace.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace orvane::link {

std::optional<TransferPace::Figures> TransferPace::BlockDone(std::size_t bytes_so_far,
                                                             std::size_t bytes_total, double now) {
  if (first_bytes_ == 0) {
    first_block_at_ = now;
    first_bytes_ = bytes_so_far;
  }
  const double elapsed = now - first_block_at_;
  if (elapsed <= 0 || bytes_so_far <= first_bytes_) return std::nullopt;
  const double speed = static_cast<double>(bytes_so_far - first_bytes_) / elapsed;
  return Figures{speed, static_cast<double>(bytes_total - bytes_so_far) / speed};
}

std::string MinutesAndSeconds(double seconds) {
  constexpr long kSecondsPerMinute = 60;
  const auto whole = static_cast<long>(std::ceil(seconds));
  std::ostringstream text;
  text << whole / kSecondsPerMinute << ':' << std::setw(2) << std::setfill('0')
       << whole % kSecondsPerMinute;
  return text.str();
}

}  // namespace orvane::link
