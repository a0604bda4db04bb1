#include "editor/problem_watch.h"

#include <algorithm>

namespace orvane::editor {

ProblemWatch::ProblemWatch(document::Document& document, core::Clock& clock)
    : document_(document), clock_(clock) {
  timer_.setSingleShot(true);
  timer_.setInterval(0);
  connect(&timer_, &QTimer::timeout, this, &ProblemWatch::Look);
}

ProblemWatch::~ProblemWatch() {
  document_.Unwatch(*this);
}

void ProblemWatch::Begin() {
  document_.Watch(*this);
  timer_.start();
}

void ProblemWatch::CatchUp() {
  if (!timer_.isActive()) return;
  timer_.stop();
  Look();
}

int ProblemWatch::Count() const {
  return static_cast<int>(
      std::count_if(problems_.begin(), problems_.end(), [](const document::Problem& problem) {
        return problem.severity != document::Severity::kNote;
      }));
}

void ProblemWatch::Look() {
  problems_ = document::FindProblems(document_.Data(), clock_.Today());
  emit Found();
}

}  // namespace orvane::editor
