#pragma once

#include <memory>
#include <string>

#include "core/radio_data.h"
#include "core/services.h"
#include "editor/command_host.h"
#include "files/partly_written.h"
#include "link/port_list.h"
#include "link/transfer_options.h"

namespace orvane::editor {

/// Keeps for a program run what the radio held and what it is given, and marks the radio as partly
/// written from the first byte on. For one run.
class ProgramKeeper : public link::ProgramWitness {
 public:
  ProgramKeeper(CommandHost& host, files::PartlyWrittenMarks& marks, core::Clock& clock,
                link::PortLabel port, std::string file)
      : host_(host), marks_(marks), clock_(clock), port_(std::move(port)), file_(std::move(file)) {}

  [[nodiscard]] std::optional<core::SystemError> RadioWasRead(
      const core::RadioData& radio) override;
  void WritingBegins(const core::RadioData& sent) override;

  /// Why the mark could not be set, "" when it was.
  [[nodiscard]] const std::string& MarkFailure() const { return mark_failure_; }

 private:
  CommandHost& host_;
  files::PartlyWrittenMarks& marks_;
  core::Clock& clock_;
  const link::PortLabel port_;
  const std::string file_;
  std::unique_ptr<core::RadioData> before_;
  std::string mark_failure_;
};

}  // namespace orvane::editor
