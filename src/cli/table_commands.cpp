#include <algorithm>
#include <string>

#include "cli/commands.h"
#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/product.h"
#include "files/table_file.h"

namespace orvane::cli {
namespace {

using files::ImportPlan;
using Verdict = ImportPlan::Verdict;

bool HasTable(Workplace& place, const core::RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const core::Table& table = core::Catalogue()[place.options.table];
  return core::Has(profile, table.when) ||
         Refuse(place, std::string(table.id),
                "A " + std::string(profile.model) + " has no such table.");
}

// A cell may hold line breaks.
std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char sign) { return static_cast<unsigned char>(sign) < ' '; },
      ' ');
  return text;
}

std::string LineOf(const ImportPlan::Cell& cell) {
  return core::PathOf(cell.at) + ": " + OneLine(cell.before) + " | " + OneLine(cell.after) +
         (cell.refusal.empty() ? "" : ": " + cell.refusal) + "\n";
}

std::string LinesOf(const ImportPlan::Line& line) {
  const std::string head = "line " + std::to_string(line.number) + ": " +
                           (line.verdict == Verdict::kRefused ? "refused: " : "");
  std::string text;
  if (!line.refusal.empty()) text = head + OneLine(line.entry) + ": " + line.refusal + "\n";
  for (const ImportPlan::Cell& cell : line.cells) text += head + LineOf(cell);
  return text;
}

void PrintUnused(std::ostream& out, const ImportPlan& plan) {
  for (const ImportPlan::UnusedColumn& column : plan.unused) {
    out << "column \"" << OneLine(column.heading) << "\": " << column.reason << '\n';
  }
}

void PrintLines(std::ostream& out, const ImportPlan& plan, Verdict verdict) {
  for (const ImportPlan::Line& line : plan.lines) {
    if (line.verdict == verdict) out << LinesOf(line);
  }
}

bool ShowPlan(Workplace& place, const ImportPlan& plan) {
  PrintUnused(place.out, plan);
  for (const ImportPlan::Line& line : plan.lines) place.out << LinesOf(line);
  for (const ImportPlan::Cell& cell : plan.elsewhere) place.out << "follows: " << LineOf(cell);
  place.out << files::SummaryOf(plan) << '\n';
  return plan.Count(Verdict::kRefused) == 0;
}

// Refused lines are told; whether the others are taken all the same is the user's to say.
bool MayTake(Workplace& place, const ImportPlan& plan) {
  PrintUnused(place.err.Lines(), plan);
  const int refused = plan.Count(Verdict::kRefused);
  if (refused == 0) return true;
  PrintLines(place.err.Lines(), plan, Verdict::kRefused);
  if (plan.changes.empty()) return false;
  core::Message question = core::MakeMessage(core::MessageId::kImportRest, core::kProgramTitle,
                                             {{"summary", files::SummaryOf(plan)}});
  question.default_answer = core::Answer::kNo;
  return place.prompts.Show(question) == core::Answer::kYes;
}

}  // namespace

bool RunExport(Workplace& place) {
  core::RadioData data;
  return place.documents.Load(place.options.input, std::nullopt, data) && HasTable(place, data) &&
         place.documents.SaveText(place.options.output,
                                  files::TableText(data, place.options.table));
}

bool RunImport(Workplace& place) {
  const Options& options = place.options;
  core::RadioData data;
  if (!place.documents.Load(options.input, std::nullopt, data) || !HasTable(place, data)) {
    return false;
  }
  const core::FileBytes file = place.services.files.ReadFile(options.other);
  if (file.error) {
    place.prompts.Show(core::MakeMessage(core::MessageId::kFileRead, core::kProgramTitle,
                                         core::FileFacts(options.other, *file.error)));
    return false;
  }
  const ImportPlan plan =
      files::PlanImport(file.bytes, options.table, data, place.services.clock.Today());
  if (!plan.unreadable.empty()) {
    place.prompts.Show(core::MakeMessage(core::MessageId::kTableUnreadable, options.other,
                                         {{"reason", plan.unreadable}}));
    return false;
  }
  if (options.dry_run) return ShowPlan(place, plan);
  if (!MayTake(place, plan)) return false;
  core::Apply(data, plan.changes);
  return place.documents.CheckOutput(options.output, data) &&
         place.documents.Save(options.output, data);
}

}  // namespace orvane::cli
