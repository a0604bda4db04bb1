#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "link/radio_faults.h"

/// The program that plays a radio at a serial port of its own.
namespace orvane::sim {

struct Options {
  std::string image;                  ///< file whose bytes the radio holds; "" for a sample radio
  std::optional<std::int16_t> model;  ///< MODELTYPE; the image's own when not given
  std::vector<int> ports{16};         ///< 1..16; the first that is free
  double baud = 9600;                 ///< 0: bytes take no time
  std::string keep;                   ///< file the memory is kept in; "" for none
  std::string log;                    ///< "" for standard output
  bool quiet = false;
  std::vector<link::Fault> faults;
  double fault_percent = 0;
  std::uint64_t seed = 1;
  double replug_seconds = 3;
  bool until_input_ends = false;  ///< else until a signal
};

/// The options of the command line's words, or the exit status when there is nothing to do: help
/// was asked for (0, text on out) or the words are wrong (2, sentence on err).
struct ParsedOptions {
  std::optional<Options> options;
  int exit_status = 0;
};
[[nodiscard]] ParsedOptions ParseOptions(const std::vector<std::string>& words, std::ostream& out,
                                         std::ostream& err);

}  // namespace orvane::sim
