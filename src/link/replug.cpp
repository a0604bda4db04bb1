#include "link/replug.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvane::link {
namespace {

// By device: when one of two adapters goes, the other may take its number.
bool Holds(const std::vector<PortEntry>& ports, const PortEntry& port) {
  return std::any_of(ports.begin(), ports.end(),
                     [&](const PortEntry& other) { return other.device == port.device; });
}

bool SameDevices(const std::vector<PortEntry>& a, const std::vector<PortEntry>& b) {
  return a.size() == b.size() &&
         std::all_of(a.begin(), a.end(), [&](const PortEntry& port) { return Holds(b, port); });
}

}  // namespace

Replug::Replug(std::vector<PortEntry> ports) : there_(std::move(ports)), last_(there_) {}

Replug::Stage Replug::Look(const std::vector<PortEntry>& ports) {
  const bool settled = SameDevices(ports, last_);
  last_ = ports;
  if (!settled || stage_ == Stage::kFound || stage_ == Stage::kSeveral) return stage_;
  std::copy_if(ports.begin(), ports.end(), std::back_inserter(came_),
               [&](const PortEntry& port) { return !Holds(there_, port); });
  if (!came_.empty()) {
    stage_ = came_.size() == 1 ? Stage::kFound : Stage::kSeveral;
    return stage_;
  }
  // All that is there now was there before: what is missing may come back as the cable's.
  if (ports.size() < there_.size()) {
    there_ = ports;
    stage_ = Stage::kPlugIn;
  }
  return stage_;
}

}  // namespace orvane::link
