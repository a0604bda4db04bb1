#include "cli/run.h"

#include <istream>
#include <ostream>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/options.h"
#include "cli/status_line.h"
#include "cli/terminal_prompts.h"

namespace orvane::cli {
namespace {

class NoLog : public core::ErrorLog {
 public:
  void Write(std::string_view /*routine*/, std::string_view /*message*/) override {}
};

bool Execute(Workplace& place) {
  switch (place.options.command) {
    case Command::kNew:
      return RunNew(place);
    case Command::kConvert:
      return RunConvert(place);
    case Command::kReport:
      return RunReport(place);
    case Command::kMap:
      return RunMap(place);
    case Command::kShow:
      return RunShow(place);
    case Command::kPorts:
      return RunPorts(place);
    case Command::kRead:
      return RunRead(place);
    case Command::kProgram:
      return RunProgram(place);
  }
  return false;
}

}  // namespace

int Run(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
        std::ostream& err, Services& services) {
  const Parsed parsed = ParseWords(words);
  if (!parsed.options) {
    out << parsed.help;
    err << parsed.error;
    return parsed.error.empty() ? kDone : kWrongUsage;
  }
  const Options& options = *parsed.options;
  StatusLine lines(err);
  // A question that nobody can read is not put.
  const bool ask = services.terminals.in && services.terminals.err;
  TerminalPrompts prompts(
      in, lines, {options.yes, ask, [&services] { return services.interrupts.WaitForInput(); }});
  NoLog no_log;
  core::ErrorLog& log = options.debug ? services.log : no_log;
  Documents documents(services, prompts, log, options.debug);
  Workplace place{options, services, out, lines, prompts, log, documents};
  const bool done = Execute(place);
  out.flush();
  return done && out.good() ? kDone : kFailed;
}

}  // namespace orvane::cli
