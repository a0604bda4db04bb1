#include "document/problem_rows.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>

namespace orvane::document {
namespace {

using Wording = std::tuple<ProblemKind, Severity, std::string_view, bool>;

Wording WordingOf(const Problem& problem) {
  return {problem.kind, problem.severity, problem.text, !problem.remedy.empty()};
}

bool IsSamePlace(const Problem& a, const Problem& b) {
  return a.kind == b.kind && a.at == b.at && a.slot == b.slot && a.group == b.group;
}

}  // namespace

bool ReadAlike(const Problem& a, const Problem& b) {
  return WordingOf(a) == WordingOf(b);
}

bool IsSameRow(const ProblemRow& a, const ProblemRow& b) {
  if (a.shape != b.shape) return false;
  return a.IsHead() ? ReadAlike(a.problem, b.problem) : IsSamePlace(a.problem, b.problem);
}

std::vector<ProblemRow> GatherProblems(const std::vector<Problem>& problems,
                                       const std::vector<Problem>& unfolded) {
  using Shape = ProblemRow::Shape;
  std::map<Wording, std::vector<const Problem*>> alike;
  for (const Problem& problem : problems) alike[WordingOf(problem)].push_back(&problem);
  std::vector<ProblemRow> rows;
  for (const Problem& problem : problems) {
    const std::vector<const Problem*>& members = alike[WordingOf(problem)];
    if (members.size() < kGatheredFrom) {
      rows.push_back({.problem = problem});
      continue;
    }
    if (members.front() != &problem) continue;
    const bool open = std::any_of(unfolded.begin(), unfolded.end(),
                                  [&](const Problem& one) { return ReadAlike(one, problem); });
    rows.push_back({.problem = problem,
                    .shape = Shape::kHead,
                    .count = static_cast<int>(members.size()),
                    .unfolded = open});
    if (!open) continue;
    for (const Problem* member : members) {
      rows.push_back({.problem = *member, .shape = Shape::kMember});
    }
  }
  return rows;
}

int RowToStayOn(const std::vector<ProblemRow>& now, const std::optional<ProblemRow>& was, int row) {
  if (now.empty()) return 0;
  const auto place_of = [&now](const auto& fits) {
    const auto found = std::find_if(now.begin(), now.end(), fits);
    return found == now.end() ? -1 : static_cast<int>(found - now.begin());
  };
  const auto last = static_cast<int>(now.size()) - 1;
  const int nearest = std::clamp(row, 0, last);
  if (!was) return nearest;
  int place = place_of([&](const ProblemRow& other) { return IsSameRow(other, *was); });
  if (place >= 0) return place;
  place = place_of([&](const ProblemRow& other) {
    if (!other.IsHead()) return IsSamePlace(other.problem, was->problem);
    return !other.unfolded && ReadAlike(other.problem, was->problem);
  });
  return place >= 0 ? place : nearest;
}

}  // namespace orvane::document
