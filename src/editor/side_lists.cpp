#include "editor/side_lists.h"

#include <algorithm>

#include "editor/node.h"
#include "editor/page.h"
#include "help/help_opener.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

// At first, the title included.
constexpr int kHistoryLines = 7;
constexpr int kProblemLines = 10;

constexpr const char* kProblemHint =
    "[Enter]:Show the field.  [Alt]+[Enter]:Remedy.  [Right]/[Left]:List/Gather.";

std::string NameOfRemedy(const document::Problem& problem) {
  return platform::AnsiToUtf8(problem.remedy);
}

}  // namespace

SideLists::SideLists(document::Document& document, core::Clock& clock, const Place& place)
    : document_(document), clock_(clock), place_(place), watch_(document, clock) {
  connect(place_.menus.problems, &QAction::triggered, this, &SideLists::ShowProblems);
  connect(place_.menus.history, &QAction::triggered, this, &SideLists::ShowHistory);
  connect(&watch_, &ProblemWatch::Found, this,
          [this] { place_.follower.ShowProblemCount(watch_.Count()); });
}

void SideLists::ShowProblems(bool shown) {
  if (problems_ == nullptr) {
    problems_ = new ProblemList(watch_, &place_.window);
    problems_->setProperty(kHelpContextProperty, help::kProblemsContext);
    Add(*problems_, *place_.menus.problems, kProblemLines);
    connect(problems_, &ProblemList::FieldAsked, &place_.follower, &Follower::VisitField);
    connect(problems_, &ProblemList::MendAsked, this, &SideLists::Mend);
    connect(problems_, &ProblemList::MendAllAsked, this, &SideLists::MendAll);
    connect(problems_, &ProblemList::FocusGained, this,
            [this] { place_.host.ShowHint(QLatin1String(kProblemHint)); });
  }
  Show(*problems_, shown);
}

void SideLists::ShowHistory(bool shown) {
  if (history_ == nullptr) {
    history_ = new HistoryList(document_, &place_.window);
    Add(*history_, *place_.menus.history, kHistoryLines);
    connect(history_, &HistoryList::StepAsked, &place_.follower, &Follower::GoTo);
    connect(&place_.follower, &Follower::HistoryChanged, history_, &HistoryList::Refresh);
  }
  Show(*history_, shown);
}

void SideLists::Add(QDockWidget& dock, QAction& item, int lines) {
  place_.window.addDockWidget(Qt::BottomDockWidgetArea, &dock);
  QDockWidget* const other = &dock == history_ ? static_cast<QDockWidget*>(problems_) : history_;
  if (other != nullptr && !other->isFloating() &&
      place_.window.dockWidgetArea(other) == Qt::BottomDockWidgetArea) {
    place_.window.tabifyDockWidget(other, &dock);
  } else {
    const int height = lines * place_.window.fontMetrics().lineSpacing();
    place_.window.resizeDocks({&dock}, {height}, Qt::Vertical);
  }
  // A list behind another one is not shown: the menu brings it to the front.
  connect(&dock, &QDockWidget::visibilityChanged, &item, &QAction::setChecked);
}

void SideLists::Show(QDockWidget& dock, bool shown) {
  dock.setVisible(shown);
  if (shown) dock.raise();
}

void SideLists::Mend(const document::Problem& problem) {
  const auto edit = [&](core::RadioData& data) { document::Mend(data, problem, clock_.Today()); };
  if (NodeOfField(document_.Data(), problem.at)) {
    document_.Edit(problem.at, edit);
  } else {
    document_.Edit(NameOfRemedy(problem), edit);
  }
  watch_.CatchUp();
}

void SideLists::MendAll(const document::Problem& like, int count) {
  const std::vector<document::Problem>& problems = watch_.Problems();
  const bool one_remedy = std::all_of(problems.begin(), problems.end(), [&](const auto& other) {
    return other.kind != like.kind || other.remedy.empty() || other.remedy == like.remedy;
  });
  const std::string name = one_remedy ? NameOfRemedy(like) : "Mend problems of one kind";
  document_.Edit(name + " (" + std::to_string(count) + ")", [&](core::RadioData& data) {
    document::MendAll(data, like.kind, clock_.Today());
  });
  watch_.CatchUp();
}

}  // namespace orvane::editor
