#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/status_line.h"
#include "cli/terminal_prompts.h"
#include "core/services.h"
#include "link/monitor.h"
#include "link/port_list.h"
#include "link/transfer_pace.h"

namespace orvane::cli {

/// A transfer on standard error: in debug mode a line for each step; on a terminal that it
/// connects, then percent, phase, block, bytes a second and time left.
class ProgressView : public link::TransferView {
 public:
  ProgressView(StatusLine& err, TerminalPrompts& prompts, const core::Clock& clock, bool terminal,
               link::PortLabel port);

  void Monitor(std::string_view text) override;
  void Phase(std::string_view name) override { phase_ = name; }
  void ShowProgress(int percent) override { percent_ = percent; }
  void BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) override;
  void NothingComesBack() override;

 private:
  StatusLine& err_;
  TerminalPrompts& prompts_;
  const core::Clock& clock_;
  bool terminal_;
  link::PortLabel port_;
  std::string phase_;
  int percent_ = 0;
  link::TransferPace pace_;
};

}  // namespace orvane::cli
