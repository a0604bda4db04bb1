#pragma once

#include <vector>

#include "link/port_list.h"

namespace orvane::link {

/// Finds the cable by unplugging it and plugging it in again: its port is the one that goes and
/// comes back, whatever number it comes back with, or the one that is new when the cable was not
/// plugged in at first. A list counts when two looks in a row see it: a port that just appeared
/// may not be ready, and a hub brings its ports one by one.
class Replug {
 public:
  enum class Stage {
    kUnplug,  ///< all are there
    kPlugIn,  ///< one at least has gone
    kFound,
    kSeveral  ///< more than one came at once; nothing is looked for any more
  };

  explicit Replug(std::vector<PortEntry> ports);

  /// Takes the ports there are now.
  Stage Look(const std::vector<PortEntry>& ports);
  [[nodiscard]] Stage Where() const { return stage_; }
  /// The port found, or those that came at once.
  [[nodiscard]] const std::vector<PortEntry>& Came() const { return came_; }

 private:
  Stage stage_ = Stage::kUnplug;
  std::vector<PortEntry> there_;  ///< ports that cannot be the cable's, nor have gone
  std::vector<PortEntry> last_;   ///< seen by the last look
  std::vector<PortEntry> came_;
};

}  // namespace orvane::link
