#include "cli/terminal_prompts.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "core/text.h"

namespace orvane::cli {
namespace {

using core::Answer;
using core::Buttons;

constexpr int kMostAutomaticAnswers = 5;

// The first button is the one Enter presses, the last one the way out.
std::vector<Answer> AnswersTo(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOk:
      return {Answer::kOk};
    case Buttons::kOkCancel:
      return {Answer::kOk, Answer::kCancel};
    case Buttons::kYesNo:
      return {Answer::kYes, Answer::kNo};
    case Buttons::kYesNoCancel:
      return {Answer::kYes, Answer::kNo, Answer::kCancel};
    case Buttons::kRetryCancel:
      return {Answer::kRetry, Answer::kCancel};
    case Buttons::kOverwriteSaveAsCancel:
      return {Answer::kSaveAs, Answer::kOverwrite, Answer::kCancel};
    case Buttons::kRestoreKeepDiscard:
      return {Answer::kRestore, Answer::kKeep, Answer::kDiscard};
    case Buttons::kAgainReceiptClose:
      return {Answer::kProgramAgain, Answer::kSaveReceipt, Answer::kClose};
  }
  return {Answer::kOk};
}

std::string_view AnswerText(Answer answer) {
  switch (answer) {
    case Answer::kOk:
      return "OK";
    case Answer::kCancel:
      return "Cancel";
    case Answer::kYes:
      return "Yes";
    case Answer::kNo:
      return "No";
    case Answer::kRetry:
      return "Retry";
    case Answer::kOverwrite:
      return "Overwrite";
    case Answer::kSaveAs:
      return "Save As";
    case Answer::kRestore:
      return "Restore";
    case Answer::kKeep:
      return "Keep";
    case Answer::kDiscard:
      return "Discard";
    case Answer::kProgramAgain:
      return "Program Again";
    case Answer::kSaveReceipt:
      return "Save Receipt";
    case Answer::kClose:
      return "Close";
  }
  return {};
}

// Line breaks of a message box are CR LF, or CR alone; a terminal's are LF.
std::string TerminalText(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') lines += text[i];
    if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')) lines += '\n';
  }
  return lines;
}

// The whole word or its beginning, in either letter case.
std::optional<Answer> AnswerTyped(std::string_view typed, const std::vector<Answer>& answers) {
  const auto found = std::find_if(answers.begin(), answers.end(), [&](Answer answer) {
    const std::string_view text = AnswerText(answer);
    return typed.size() <= text.size() &&
           core::EqualsIgnoringCase(typed, text.substr(0, typed.size()));
  });
  return found == answers.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

Answer TerminalPrompts::Show(const core::Message& message) {
  err_.Lines() << TerminalText(message.title) << ": " << TerminalText(message.text) << '\n';
  if (!message.details.empty()) err_.Lines() << TerminalText(message.details) << '\n';
  err_.Lines() << std::flush;
  return message.buttons == Buttons::kOk ? Answer::kOk : AnswerForUser(message);
}

Answer TerminalPrompts::AnswerForUser(const core::Message& message) {
  if (manner_.ask && !manner_.yes) return AskUser(message);
  const std::vector<Answer> answers = AnswersTo(message.buttons);
  // With Yes, No and Cancel the way out is the second one.
  const Answer refusal = answers[1];
  // Trying a busy radio again is the user's to decide.
  const bool agree =
      manner_.yes && answers[0] != Answer::kRetry && automatic_answers_++ < kMostAutomaticAnswers;
  const Answer answer = agree ? answers[0] : refusal;
  err_.Lines() << "Answered " << AnswerText(answer)
               << (manner_.yes ? " (--yes)." : " (no terminal to ask at).") << std::endl;
  return answer;
}

Answer TerminalPrompts::AskUser(const core::Message& message) {
  const std::vector<Answer> answers = AnswersTo(message.buttons);
  const Answer enter = message.default_answer.value_or(answers.front());
  std::string choices;
  for (const Answer answer : answers) {
    choices += (choices.empty() ? "" : "/") + std::string(AnswerText(answer));
  }
  while (true) {
    err_.Lines() << choices << " [" << AnswerText(enter) << "]? " << std::flush;
    std::string typed;
    const bool buffered = in_.rdbuf()->in_avail() > 0;
    if (!buffered && !manner_.wait_for_input()) return answers.back();
    if (!std::getline(in_, typed)) return answers.back();
    const std::string_view word = core::Trim(typed);
    if (word.empty()) return enter;
    if (const std::optional<Answer> answer = AnswerTyped(word, answers)) return *answer;
  }
}

}  // namespace orvane::cli
