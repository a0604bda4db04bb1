#pragma once

#include "core/flag.h"

namespace orvane::core {

/// What the operations of the program leave behind for their callers. One for the process, handed
/// on by reference; no part of what a radio holds.
struct RunState {
  Flag Error;   ///< the last operation failed or was refused
  Flag Cancel;  ///< the user cancelled, or a command has not completed
  Flag Debug;   ///< started with "/D"
  Flag Busy;    ///< a bulk fill or a transfer runs; editor handlers do nothing meanwhile
};

/// Sets the busy flag for its own lifetime.
class BusyScope {
 public:
  explicit BusyScope(RunState& state) : busy_(state.Busy), before_(busy_) { busy_ = true; }
  ~BusyScope() { busy_ = before_; }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  Flag& busy_;
  Flag before_;
};

}  // namespace orvane::core
