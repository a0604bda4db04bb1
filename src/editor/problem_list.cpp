#include "editor/problem_list.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "editor/drawn_icon.h"
#include "editor/menus.h"
#include "editor/node.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using document::Problem;

bool IsSame(const Problem& a, const Problem& b) {
  return a.kind == b.kind && a.at == b.at && a.slot == b.slot && a.group == b.group;
}

bool ReadsTheSame(const Problem& a, const Problem& b) {
  return a.severity == b.severity && a.text == b.text && a.remedy == b.remedy;
}

QString SeverityWord(document::Severity severity) {
  switch (severity) {
    case document::Severity::kError:
      return ProblemList::tr("Error");
    case document::Severity::kWarning:
      return ProblemList::tr("Warning");
    case document::Severity::kNote:
      break;
  }
  return ProblemList::tr("Note");
}

QString RowText(const Problem& problem) {
  const QString field = problem.kind == document::ProblemKind::kStoredNotInUse
                            ? ProblemList::tr("Memory")
                            : platform::FromUtf8(core::NameOf(problem.at));
  return QStringLiteral("%1: %2: %3")
      .arg(SeverityWord(problem.severity), field, platform::FromAnsi(problem.text));
}

}  // namespace

void ProblemModel::Take(const std::vector<Problem>& found) {
  const auto [old_end, new_end] =
      std::mismatch(problems_.begin(), problems_.end(), found.begin(), found.end(), IsSame);
  const auto head = static_cast<int>(new_end - found.begin());
  const auto [old_rest, new_rest] =
      std::mismatch(problems_.rbegin(), std::make_reverse_iterator(old_end), found.rbegin(),
                    std::make_reverse_iterator(new_end), IsSame);
  const auto tail = static_cast<int>(new_rest - found.rbegin());
  Remove(head, rowCount() - head - tail);
  Insert(head, found.data() + head, found.data() + found.size() - tail);
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (ReadsTheSame(problems_[i], found[i])) continue;
    problems_[i] = found[i];
    emit dataChanged(index(static_cast<int>(i)), index(static_cast<int>(i)));
  }
}

void ProblemModel::Remove(int first, int count) {
  if (count <= 0) return;
  beginRemoveRows({}, first, first + count - 1);
  problems_.erase(problems_.begin() + first, problems_.begin() + first + count);
  endRemoveRows();
}

void ProblemModel::Insert(int row, const Problem* begin, const Problem* end) {
  if (begin == end) return;
  beginInsertRows({}, row, row + static_cast<int>(end - begin) - 1);
  problems_.insert(problems_.begin() + row, begin, end);
  endInsertRows();
}

void ProblemModel::SetIcons(const QPalette& palette) {
  icons_ = {DrawnIcon("note", palette), DrawnIcon("warning", palette), DrawnIcon("error", palette)};
  if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
}

const Problem* ProblemModel::At(int row) const {
  return row < 0 || row >= rowCount() ? nullptr : &problems_[static_cast<std::size_t>(row)];
}

std::optional<int> ProblemModel::RowOf(const Problem& problem) const {
  const auto found = std::find_if(problems_.begin(), problems_.end(),
                                  [&](const Problem& other) { return IsSame(other, problem); });
  if (found == problems_.end()) return std::nullopt;
  return static_cast<int>(found - problems_.begin());
}

int ProblemModel::RemediesFor(document::ProblemKind kind) const {
  return static_cast<int>(std::count_if(
      problems_.begin(), problems_.end(),
      [kind](const Problem& problem) { return problem.kind == kind && !problem.remedy.empty(); }));
}

int ProblemModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(problems_.size());
}

QVariant ProblemModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Problem& problem = *At(index.row());
  if (role == Qt::DisplayRole) return RowText(problem);
  if (role == Qt::DecorationRole) return icons_[static_cast<std::size_t>(problem.severity)];
  if (role == Qt::AccessibleDescriptionRole && !problem.remedy.empty()) {
    return tr("Remedy: %1").arg(platform::FromAnsi(problem.remedy));
  }
  return {};
}

ProblemList::ProblemList(const ProblemWatch& watch, QWidget* parent)
    : QDockWidget(tr("Problems"), parent),
      watch_(watch),
      model_(new ProblemModel(this)),
      view_(new QuietListView(this)) {
  setObjectName(QStringLiteral("dockProblems"));
  setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea);
  model_->SetIcons(palette());
  view_->setObjectName(QStringLiteral("lstProblems"));
  view_->setAccessibleName(tr("Problems"));
  view_->setWordWrap(true);
  view_->setResizeMode(QListView::Adjust);
  view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  view_->setModel(model_);

  BuildCommands();
  connect(view_, &QListView::activated, show_, &QAction::trigger);
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &ProblemList::FollowRow);
  connect(view_, &QuietListView::FocusGained, this, &ProblemList::FocusGained);
  connect(&watch, &ProblemWatch::Found, this, &ProblemList::Refresh);
  Refresh();
}

void ProblemList::BuildCommands() {
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(view_);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  show_ = AddCommand("cmdShowProblem", tr("Show"));
  show_->setToolTip(tr("Goes to the field (Enter)"));
  mend_ = AddCommand("cmdMend", {});
  mend_->setShortcuts({Qt::ALT | Qt::Key_Return, Qt::ALT | Qt::Key_Enter});
  mend_->setShortcutContext(Qt::WidgetShortcut);
  mend_->setAutoRepeat(false);
  mend_all_ = AddCommand("cmdMendAll", {});
  for (QAction* command : view_->actions()) {
    auto* button = new QToolButton(content);
    button->setDefaultAction(command);
    button->setAutoRaise(true);
    row->addWidget(button);
  }
  row->addStretch();
  setWidget(content);
  connect(show_, &QAction::triggered, this, [this] { emit FieldAsked(Current()->at); });
  // What is asked for changes the rows.
  connect(mend_, &QAction::triggered, this, [this] { emit MendAsked(Problem(*Current())); });
  connect(mend_all_, &QAction::triggered, this, [this] {
    const Problem like = *Current();
    emit MendAllAsked(like, model_->RemediesFor(like.kind));
  });
}

QAction* ProblemList::AddCommand(const char* name, const QString& caption) {
  auto* command = new QAction(caption, this);
  command->setObjectName(QLatin1String(name));
  view_->addAction(command);
  return command;
}

const Problem* ProblemList::Current() const {
  return model_->At(view_->currentIndex().row());
}

void ProblemList::Refresh() {
  const int count = watch_.Count();
  setWindowTitle(count == 0 ? tr("Problems") : tr("Problems %1").arg(count));
  if (!isVisible()) return;
  const int row = view_->currentIndex().row();
  const std::optional<Problem> before =
      Current() == nullptr ? std::nullopt : std::optional(*Current());
  model_->Take(watch_.Problems());
  const int nearest = std::clamp(row, 0, std::max(model_->rowCount() - 1, 0));
  const int now = before ? model_->RowOf(*before).value_or(nearest) : nearest;
  if (view_->currentIndex().row() != now) view_->setCurrentIndex(model_->index(now));
  FollowRow();
}

void ProblemList::FollowRow() {
  const Problem* const problem = Current();
  const bool has_remedy = problem != nullptr && !problem->remedy.empty();
  const int alike = has_remedy ? model_->RemediesFor(problem->kind) : 0;
  // A button that is greyed would hand the focus on to the page.
  const QWidget* const focus = widget()->focusWidget();
  if (!has_remedy && focus != nullptr && focus != view_ && focus->hasFocus()) view_->setFocus();
  show_->setEnabled(problem != nullptr && problem->kind != document::ProblemKind::kStoredNotInUse);
  mend_->setEnabled(has_remedy);
  mend_->setText(has_remedy ? PlainCaption(platform::FromAnsi(problem->remedy)) : tr("Mend"));
  mend_->setToolTip(has_remedy ? tr("The remedy for this row, as one step (Alt+Enter)")
                               : tr("Only you can know what would be right here"));
  mend_all_->setEnabled(alike > 1);
  mend_all_->setText(alike > 1 ? tr("Mend All %1 Like This").arg(alike) : tr("Mend All Like This"));
  mend_all_->setToolTip(alike > 1 ? tr("The remedy for every problem of this kind, as one step")
                                  : tr("No other problem of this kind has a remedy"));
}

void ProblemList::changeEvent(QEvent* event) {
  QDockWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) model_->SetIcons(palette());
}

void ProblemList::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  Refresh();
}

}  // namespace orvane::editor
