#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "cli/documents.h"
#include "cli/options.h"
#include "cli/run.h"
#include "cli/services.h"
#include "cli/status_line.h"
#include "cli/terminal_prompts.h"
#include "core/run_state.h"
#include "core/services.h"

namespace orvane::cli {

/// What every command works with.
struct Workplace {
  const Options& options;
  Services& services;
  std::ostream& out;
  StatusLine& err;
  TerminalPrompts& prompts;
  core::ErrorLog& log;
  core::RunState& state;
  Documents& documents;
};

/// Tells what is wrong with what was asked for. Always false.
bool Refuse(Workplace& place, const std::string& what, std::string sentence);

/// The backup with that ID, or the only one whose ID begins so. False when there is none such or it
/// is damaged, which has been told.
[[nodiscard]] bool LoadBackup(Workplace& place, const std::string& id, core::RadioData& data);

/// What a port is opened by.
[[nodiscard]] std::string DeviceToOpen(const PortChoice& choice, link::PortFinder& finder);
[[nodiscard]] link::PortLabel LabelOf(const PortChoice& choice, link::PortFinder& finder);

/// Each command returns whether it did its work; a failure has been told.
[[nodiscard]] bool RunNew(Workplace& place);
[[nodiscard]] bool RunConvert(Workplace& place);
[[nodiscard]] bool RunReport(Workplace& place);
[[nodiscard]] bool RunMap(Workplace& place);
[[nodiscard]] bool RunShow(Workplace& place);
[[nodiscard]] bool RunGet(Workplace& place);
[[nodiscard]] bool RunSet(Workplace& place);
[[nodiscard]] bool RunPorts(Workplace& place);
[[nodiscard]] bool RunRead(Workplace& place);
[[nodiscard]] bool RunProgram(Workplace& place);
[[nodiscard]] bool RunBackups(Workplace& place);
[[nodiscard]] bool RunDoctor(Workplace& place);
/// Whether nothing worse than a note was found.
[[nodiscard]] bool RunCheck(Workplace& place);
[[nodiscard]] ExitStatus RunDiff(Workplace& place);
[[nodiscard]] bool RunExport(Workplace& place);
/// Of a dry run: whether no line would be refused.
[[nodiscard]] bool RunImport(Workplace& place);

}  // namespace orvane::cli
