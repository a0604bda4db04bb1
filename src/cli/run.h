#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "cli/services.h"

namespace orvane::cli {

enum ExitStatus {
  kDone = 0,
  kFailed = 1,
  kWrongUsage = 2,
  kDifferent = 1,  ///< diff
  kTrouble = 2     ///< diff: nothing could be compared
};

/// The whole program: words of the command line without the program's name, UTF-8. Results go to
/// out, messages and progress to err; answers to questions come from in. Returns the exit status.
[[nodiscard]] int Run(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                      std::ostream& err, Services& services);

}  // namespace orvane::cli
