#include "cli/terminal_prompts.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orvane::cli {
namespace {

using core::Answer;
using core::Buttons;

struct Shown {
  Answer answer;
  std::string err;
};

Shown Show(const core::Message& message, bool yes, bool ask, const std::string& typed = {},
           bool interrupted = false) {
  std::istringstream in(typed);
  std::ostringstream err;
  StatusLine line(err);
  if (interrupted) in.setstate(std::ios::eofbit);
  TerminalPrompts prompts(in, line, {yes, ask, [=] { return !interrupted; }});
  const Answer answer = prompts.Show(message);
  return {answer, err.str()};
}

core::Message Question(Buttons buttons) {
  return {"Title", "Text", core::Icon::kQuestion, buttons};
}

TEST(TerminalPrompts, WithoutATerminalTheAnswerIsNoUnlessYesWasGiven) {
  const struct {
    Buttons buttons;
    Answer silent;
    Answer with_yes;
  } cases[] = {{Buttons::kOk, Answer::kOk, Answer::kOk},
               {Buttons::kOkCancel, Answer::kCancel, Answer::kOk},
               {Buttons::kYesNo, Answer::kNo, Answer::kYes},
               {Buttons::kYesNoCancel, Answer::kNo, Answer::kYes},
               {Buttons::kRetryCancel, Answer::kCancel, Answer::kCancel}};
  for (const auto& expected : cases) {
    EXPECT_EQ(Show(Question(expected.buttons), false, false).answer, expected.silent);
    EXPECT_EQ(Show(Question(expected.buttons), true, false).answer, expected.with_yes);
    EXPECT_EQ(Show(Question(expected.buttons), true, true, "n\n").answer, expected.with_yes);
  }
}

TEST(TerminalPrompts, ATypedAnswerMayBeShortenedAndEnterTakesTheDefault) {
  const struct {
    const char* typed;
    Answer answer;
  } cases[] = {{"y\n", Answer::kYes},           {"No\n", Answer::kNo},
               {" CANCEL \n", Answer::kCancel}, {"\n", Answer::kYes},
               {"what\nn\n", Answer::kNo},      {"", Answer::kCancel},
               {"yess\n", Answer::kCancel}};
  for (const auto& expected : cases) {
    EXPECT_EQ(Show(Question(Buttons::kYesNoCancel), false, true, expected.typed).answer,
              expected.answer)
        << expected.typed;
  }
  core::Message busy = Question(Buttons::kRetryCancel);
  busy.default_answer = Answer::kCancel;
  const Shown shown = Show(busy, false, true, "\n");
  EXPECT_EQ(shown.answer, Answer::kCancel);
  EXPECT_EQ(shown.err, "Title: Text\nRetry/Cancel [Cancel]? ");
}

TEST(TerminalPrompts, AnInterruptWhileAskingIsTheWayOut) {
  EXPECT_EQ(Show(Question(Buttons::kOkCancel), false, true, "", true).answer, Answer::kCancel);
}

TEST(TerminalPrompts, LineBreaksAreThoseOfATerminal) {
  core::Message message{"T", "5\r\rInput/output error", core::Icon::kCritical};
  message.details = "one\r\ntwo";
  EXPECT_EQ(Show(message, false, false).err, "T: 5\n\nInput/output error\none\ntwo\n");
}

}  // namespace
}  // namespace orvane::cli
