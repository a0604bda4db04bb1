#include "document/problem_rows.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::document {
namespace {

using Shape = ProblemRow::Shape;

/// One letter for each problem says what it reads; its place in the word is the channel.
std::vector<Problem> Problems(std::string_view word) {
  std::vector<Problem> problems;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (word[i] == '-') continue;
    Problem problem;
    problem.kind = ProblemKind::kNameCut;
    problem.text = word[i];
    problem.at.entry = static_cast<std::uint16_t>(i);
    problems.push_back(problem);
  }
  return problems;
}

/// "a0" a single, "[a0 5]" a head of 5, "{a0 5}" an unfolded one, "a0'" a member.
std::string Told(const std::vector<ProblemRow>& rows) {
  std::string told;
  for (const ProblemRow& row : rows) {
    const std::string name = row.problem.text + std::to_string(row.problem.at.entry);
    if (row.IsHead()) {
      const std::string inner = name + " " + std::to_string(row.count);
      told += row.unfolded ? "{" + inner + "} " : "[" + inner + "] ";
    } else {
      told += name + (row.shape == Shape::kMember ? "' " : " ");
    }
  }
  return told;
}

TEST(GatherProblems, FourThatReadAlikeStandInOneRow) {
  const struct {
    const char* problems;
    const char* unfolded;
    const char* rows;
  } cases[] = {
      {"", "", ""},
      {"aaab", "", "a0 a1 a2 b3 "},
      {"aaaa", "", "[a0 4] "},
      {"cabababac", "", "c0 [a1 4] b2 b4 b6 c8 "},
      {"cababaBac", "a", "c0 {a1 4} a1' a3' a5' a7' b2 b4 B6 c8 "},
      {"babababaab", "ca", "[b0 5] {a1 5} a1' a3' a5' a7' a8' "},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(Told(GatherProblems(Problems(one.problems), Problems(one.unfolded))), one.rows)
        << one.problems;
  }
}

TEST(GatherProblems, OnlyThePlaceAndTheWayOfMendingMayDiffer) {
  const Problem base = Problems("a").front();
  Problem kind = base;
  kind.kind = ProblemKind::kValue;
  Problem severity = base;
  severity.severity = Severity::kNote;
  Problem mends = base;
  mends.remedy = "Change it";
  Problem mends_otherwise = base;
  mends_otherwise.remedy = "Take it off";
  Problem place = base;
  place.at.entry = 7;
  place.slot = 3;
  EXPECT_FALSE(ReadAlike(base, kind));
  EXPECT_FALSE(ReadAlike(base, severity));
  EXPECT_FALSE(ReadAlike(base, mends));
  EXPECT_TRUE(ReadAlike(mends, mends_otherwise));
  EXPECT_TRUE(ReadAlike(base, place));
}

TEST(GatherProblems, TheCurrentRowIsKeptOrItsNearest) {
  const struct {
    const char* before;
    const char* unfolded_before;
    int row;
    const char* now;
    const char* unfolded_now;
    int stays_on;
  } cases[] = {
      {"abc", "", 2, "-bc", "", 1},          // one above it went
      {"abc", "", 1, "a-c", "", 1},          // it went: the next
      {"abc", "", 2, "ab-", "", 1},          // it was the last
      {"abc", "", 1, "", "", 0},             // all went
      {"", "", -1, "ab", "", 0},             // there was none
      {"baaa", "", 2, "baaaa", "", 1},       // gathered by now
      {"baaaa", "", 1, "ba-aa", "", 1},      // no longer: the first that it stood for
      {"baaaa", "a", 5, "baa-a", "", 3},     // unfolded, then no longer gathered
      {"baaaa", "a", 4, "caaaac", "a", 4},   // another above it
      {"baaaaa", "a", 3, "ba-aaa", "a", 3},  // the next below an unfolded head
      {"baaaa", "a", 3, "baaaa", "", 1},     // gathered again: its head
      {"baaaa", "", 1, "b-aaaaa", "", 1},    // the head's first went
  };
  for (const auto& one : cases) {
    const auto before = GatherProblems(Problems(one.before), Problems(one.unfolded_before));
    const auto now = GatherProblems(Problems(one.now), Problems(one.unfolded_now));
    const auto was =
        one.row < 0 ? std::nullopt : std::optional(before.at(static_cast<std::size_t>(one.row)));
    EXPECT_EQ(RowToStayOn(now, was, one.row), one.stays_on) << one.before << " " << one.now;
  }
}

}  // namespace
}  // namespace orvane::document
