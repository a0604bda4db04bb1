#include "editor/program_keeper.h"

#include "editor/backup_keeper.h"

namespace orvane::editor {

std::optional<core::SystemError> ProgramKeeper::RadioWasRead(const core::RadioData& radio) {
  before_ = std::make_unique<core::RadioData>(radio);
  return host_.KeepBackup(radio, marks_.At(port_.name) ? "partly written" : kBeforeProgramming);
}

// Kept before it goes out: a PC that dies in the middle has it too.
void ProgramKeeper::WritingBegins(const core::RadioData& sent) {
  static_cast<void>(host_.KeepBackup(sent, "programmed"));
  const std::optional<core::SystemError> failure = marks_.Begin(
      port_.name,
      {.made = clock_.Timestamp(), .origin = "programmed", .port = port_.Text(), .file = file_},
      sent, before_.get());
  if (failure) mark_failure_ = failure->description;
}

}  // namespace orvane::editor
