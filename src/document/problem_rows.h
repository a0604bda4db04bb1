#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "document/problems.h"

/// The rows of a list of problems. New data have well over a hundred problems of one kind, which
/// would hide what else is wrong: those that read alike stand in one row, which can be unfolded.
namespace orvane::document {

struct ProblemRow {
  enum class Shape : std::uint8_t {
    kSingle,
    kHead,   ///< stands for all that read alike; `problem` is the first of them
    kMember  ///< one of those, below its head
  };

  [[nodiscard]] bool IsHead() const { return shape == Shape::kHead; }

  Problem problem;
  Shape shape = Shape::kSingle;
  int count = 1;  ///< how many problems the row stands for
  bool unfolded = false;
};

/// How many must read alike to be gathered.
inline constexpr std::size_t kGatheredFrom = 4;

/// They differ in nothing but their place, and in what mends each, if something does.
[[nodiscard]] bool ReadAlike(const Problem& a, const Problem& b);

/// The same row, whatever it says by now.
[[nodiscard]] bool IsSameRow(const ProblemRow& a, const ProblemRow& b);

/// In the order of the problems, a head where its first one stands. A head is unfolded when one of
/// `unfolded` reads like it.
[[nodiscard]] std::vector<ProblemRow> GatherProblems(const std::vector<Problem>& problems,
                                                     const std::vector<Problem>& unfolded);

/// Which row to stay on after another look, when it was `was` with the number `row`: the same row;
/// the same problem, gathered by now or no longer; the nearest one. 0 where there are none.
[[nodiscard]] int RowToStayOn(const std::vector<ProblemRow>& now,
                              const std::optional<ProblemRow>& was, int row);

}  // namespace orvane::document
