#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace orvane::link {

/// How fast a transfer runs and how long it will take, for whoever shows it. The time counts from
/// the end of the first block: how long that one took is not known.
class TransferPace {
 public:
  struct Figures {
    double bytes_per_second;
    double seconds_left;
  };
  /// To be called after each block, with bytes on the wire and a clock's seconds; nothing until two
  /// blocks are done.
  [[nodiscard]] std::optional<Figures> BlockDone(std::size_t bytes_so_far, std::size_t bytes_total,
                                                 double now);

 private:
  std::size_t first_bytes_ = 0;  ///< done when the time began to count
  double first_block_at_ = 0;
};

/// "1:05"; a part of a second counts as a whole one.
[[nodiscard]] std::string MinutesAndSeconds(double seconds);

}  // namespace orvane::link
