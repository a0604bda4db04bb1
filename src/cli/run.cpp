#include "cli/run.h"

#include <cerrno>
#include <istream>
#include <ostream>
#include <system_error>

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

ExitStatus StatusOf(bool done) {
  return done ? kDone : kFailed;
}

ExitStatus Execute(Workplace& place) {
  switch (place.options.command) {
    case Command::kNew:
      return StatusOf(RunNew(place));
    case Command::kConvert:
      return StatusOf(RunConvert(place));
    case Command::kReport:
      return StatusOf(RunReport(place));
    case Command::kMap:
      return StatusOf(RunMap(place));
    case Command::kShow:
      return StatusOf(RunShow(place));
    case Command::kGet:
      return StatusOf(RunGet(place));
    case Command::kSet:
      return StatusOf(RunSet(place));
    case Command::kPorts:
      return StatusOf(RunPorts(place));
    case Command::kRead:
      return StatusOf(RunRead(place));
    case Command::kProgram:
      return StatusOf(RunProgram(place));
    case Command::kBackups:
      return StatusOf(RunBackups(place));
    case Command::kDoctor:
      return StatusOf(RunDoctor(place));
    case Command::kCheck:
      return StatusOf(RunCheck(place));
    case Command::kDiff:
      return RunDiff(place);
    case Command::kExport:
      return StatusOf(RunExport(place));
    case Command::kImport:
      return StatusOf(RunImport(place));
  }
  return kFailed;
}

/// Says why when the output has not been taken whole: the disk is full, the reader is gone.
bool FlushOutput(std::ostream& out, std::ostream& err) {
  out.flush();
  if (out.good()) return true;
  const int number = errno;
  err << "The output could not be written";
  if (number != 0) err << ": " << std::generic_category().message(number);
  err << '\n' << std::flush;
  return false;
}

}  // namespace

bool Refuse(Workplace& place, const std::string& what, std::string sentence) {
  place.prompts.Show({.title = what, .text = std::move(sentence), .icon = core::Icon::kCritical});
  return false;
}

int Run(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
        std::ostream& err, Services& services) {
  const Parsed parsed = ParseWords(words);
  if (!parsed.options) {
    out << parsed.help;
    err << parsed.error;
    if (!parsed.error.empty()) return kWrongUsage;
    return FlushOutput(out, err) ? kDone : kFailed;
  }
  const Options& options = *parsed.options;
  StatusLine lines(err);
  // A question that nobody can read is not put.
  const bool ask = services.terminals.in && services.terminals.err;
  TerminalPrompts prompts(
      in, lines, {options.yes, ask, [&services] { return services.interrupts.WaitForInput(); }});
  NoLog no_log;
  core::ErrorLog& log = options.debug ? services.log : no_log;
  core::RunState state;
  state.Debug = options.debug;
  Documents documents(services, prompts, log, state);
  Workplace place{options, services, out, lines, prompts, log, state, documents};
  errno = 0;
  const ExitStatus status = Execute(place);
  if (FlushOutput(out, err)) return status;
  return options.command == Command::kDiff ? kTrouble : kFailed;
}

}  // namespace orvane::cli
