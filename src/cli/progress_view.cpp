#include "cli/progress_view.h"

#include <cmath>
#include <iomanip>
#include <sstream>
#include <utility>

#include "core/number_text.h"
#include "link/transfer_outcome.h"

namespace orvane::cli {

ProgressView::ProgressView(StatusLine& err, TerminalPrompts& prompts, const core::Clock& clock,
                           bool terminal, link::PortLabel port)
    : err_(err), prompts_(prompts), clock_(clock), terminal_(terminal), port_(std::move(port)) {
  if (terminal_) err_.Update("connecting on " + port_.Text() + "...");
}

void ProgressView::NothingComesBack() {
  if (!terminal_) return;
  err_.Lines() << link::SilenceText(port_,
                                    "press Ctrl-C and name another port with --port; "
                                    "\"orvane-cli ports\" lists them.")
               << std::endl;
}

void ProgressView::Monitor(std::string_view text) {
  if (!text.empty()) err_.Lines() << text << std::endl;
}

void ProgressView::BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) {
  prompts_.NoteProgress();
  if (!terminal_) return;
  std::ostringstream line;
  line << std::setw(3) << percent_ << " %  block "
       << core::HexText(static_cast<unsigned>(address), 4) << "  " << phase_;
  if (const auto figures = pace_.BlockDone(bytes_so_far, bytes_total, clock_.Now())) {
    line << "  " << std::lround(figures->bytes_per_second) << " bytes/s  "
         << link::MinutesAndSeconds(figures->seconds_left) << " left";
  }
  err_.Update(line.str());
}

}  // namespace orvane::cli
