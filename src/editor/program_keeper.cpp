#include "editor/program_keeper.h"

namespace orvane::editor {

std::optional<core::SystemError> ProgramKeeper::RadioWasRead(const core::RadioData& radio) {
  before_ = std::make_unique<core::RadioData>(radio);
  return host_.KeepBackup(radio, marks_.At(port_.name) ? files::kOriginMixed : files::kOriginBefore,
                          {});
}

// Kept before it goes out: a PC that dies in the middle has it too.
void ProgramKeeper::WritingBegins(const core::RadioData& sent) {
  static_cast<void>(host_.KeepBackup(sent, files::kOriginProgrammed, file_));
  const std::optional<core::SystemError> failure = marks_.Begin(port_.name,
                                                                {.made = clock_.Timestamp(),
                                                                 .origin = files::kOriginProgrammed,
                                                                 .port = port_.Text(),
                                                                 .file = file_},
                                                                sent, before_.get());
  if (failure) mark_failure_ = failure->description;
}

}  // namespace orvane::editor
