#pragma once

#include <functional>
#include <istream>
#include <string>

#include "cli/status_line.h"
#include "core/services.h"

namespace orvane::cli {

/// Messages as lines: title, ": ", text. Questions are put on a terminal; without one the answer
/// is No or Cancel. With --yes it is Yes or OK, and nobody is asked.
class TerminalPrompts : public core::Prompts {
 public:
  struct Manner {
    bool yes = false;
    bool ask = false;  ///< a person sits at the terminal
    /// Blocks until an answer has been typed; false when the user interrupted instead.
    std::function<bool()> wait_for_input;
  };
  TerminalPrompts(std::istream& in, StatusLine& err, Manner manner)
      : in_(in), err_(err), manner_(std::move(manner)) {}

  core::Answer Show(const core::Message& message) override;
  /// The work goes on. A question that --yes answers again and again without any progress in
  /// between is answered No or Cancel in the end, so that a radio that refuses for ever ends a run.
  void NoteProgress() { automatic_answers_ = 0; }

 private:
  [[nodiscard]] core::Answer AnswerForUser(const core::Message& message);
  [[nodiscard]] core::Answer AskUser(const core::Message& message);

  std::istream& in_;
  StatusLine& err_;
  Manner manner_;
  int automatic_answers_ = 0;
};

}  // namespace orvane::cli
