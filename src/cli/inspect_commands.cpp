#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "cli/commands.h"
#include "cli/data_tree.h"
#include "document/compare.h"
#include "document/problems.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::cli {
namespace {

using document::Problem;
using document::Severity;
using Json = nlohmann::ordered_json;

std::string_view WordOf(Severity severity) {
  static constexpr std::array<std::string_view, 3> kWords = {"note", "warning", "error"};
  return kWords[static_cast<std::size_t>(severity)];
}

Json ToJson(const Problem& problem) {
  return {{"severity", WordOf(problem.severity)},
          {"path", core::PathOf(problem.at)},
          {"name", platform::AnsiToUtf8(core::NameOf(problem.at))},
          {"text", platform::AnsiToUtf8(problem.text)},
          {"remedy", platform::AnsiToUtf8(problem.remedy)}};
}

Json ToJson(const document::Difference& row) {
  return {{"path", core::PathOf(row.at)},
          {"name", platform::AnsiToUtf8(row.name)},
          {"a", platform::AnsiToUtf8(row.ours)},
          {"b", platform::AnsiToUtf8(row.theirs)}};
}

// Memory has a name of its own beside the run in which it lies.
std::string LineOf(const document::Difference& row) {
  const std::string path = core::PathOf(row.at) + (row.IsMemory() ? " " + row.name : "");
  return path + ": " + platform::AnsiToUtf8(row.ours) + " | " + platform::AnsiToUtf8(row.theirs);
}

void PrintComparison(Workplace& place, const document::Comparison& comparison,
                     const std::array<std::string, 2>& models) {
  if (place.options.json) {
    Json rows = Json::array();
    for (const document::Difference& row : comparison.rows) rows.push_back(ToJson(row));
    PrintJson(place.out, {{"equal", comparison.AreEqual()},
                          {"model_a", models[0]},
                          {"model_b", models[1]},
                          {"differences", rows}});
    return;
  }
  if (comparison.different_models) {
    place.out << "different models: " << models[0] << " | " << models[1] << '\n';
  }
  for (const document::Difference& row : comparison.rows) place.out << LineOf(row) << '\n';
}

bool LoadCompared(Workplace& place, const std::string& word, core::RadioData& data) {
  return IsBackupId(word) ? LoadBackup(place, word, data)
                          : place.documents.Load(word, std::nullopt, data);
}

}  // namespace

bool RunCheck(Workplace& place) {
  core::RadioData data;
  if (!place.documents.Load(place.options.input, std::nullopt, data)) return false;
  const std::vector<Problem> problems = document::FindProblems(data, place.services.clock.Today());
  if (place.options.json) {
    Json list = Json::array();
    for (const Problem& problem : problems) list.push_back(ToJson(problem));
    PrintJson(place.out, list);
  } else {
    for (const Problem& problem : problems) {
      place.out << WordOf(problem.severity) << ": " << core::PathOf(problem.at) << ": "
                << platform::AnsiToUtf8(problem.text) << '\n';
    }
  }
  return std::all_of(problems.begin(), problems.end(),
                     [](const Problem& problem) { return problem.severity == Severity::kNote; });
}

ExitStatus RunDiff(Workplace& place) {
  core::RadioData a;
  core::RadioData b;
  if (!LoadCompared(place, place.options.input, a) ||
      !LoadCompared(place, place.options.other, b)) {
    return kTrouble;
  }
  const document::Comparison comparison = document::Compare(a, b);
  PrintComparison(place, comparison, {image::ModelName(a), image::ModelName(b)});
  return comparison.AreEqual() ? kDone : kDifferent;
}

}  // namespace orvane::cli
