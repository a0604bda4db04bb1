#include "editor/problem_list.h"

#include <QEvent>
#include <QFont>
#include <QHBoxLayout>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "editor/drawn_icon.h"
#include "editor/menus.h"
#include "editor/node.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr QLatin1String kIndent("        ");

using document::Problem;
using document::ProblemRow;

bool ReadsTheSame(const ProblemRow& a, const ProblemRow& b) {
  return document::ReadAlike(a.problem, b.problem) && a.problem.remedy == b.problem.remedy &&
         a.problem.at == b.problem.at && a.count == b.count && a.unfolded == b.unfolded;
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

QString FieldName(const Problem& problem) {
  return problem.kind == document::ProblemKind::kStoredNotInUse
             ? ProblemList::tr("Memory")
             : platform::FromUtf8(core::NameOf(problem.at));
}

QString RowText(const ProblemRow& row) {
  const QString field = FieldName(row.problem);
  const QString place =
      row.IsHead() ? ProblemList::tr("%1 fields, %2 and others").arg(row.count).arg(field) : field;
  return QStringLiteral("%1: %2: %3")
      .arg(SeverityWord(row.problem.severity), place, platform::FromAnsi(row.problem.text));
}

/// What to do with a row, for who cannot see the buttons.
QString Description(const ProblemRow& row) {
  if (row.IsHead()) {
    return row.unfolded ? ProblemList::tr("Unfolded; Left gathers them")
                        : ProblemList::tr("Gathered; Right lists them");
  }
  if (row.problem.remedy.empty()) return {};
  return ProblemList::tr("Remedy: %1").arg(platform::FromAnsi(row.problem.remedy));
}

}  // namespace

void ProblemModel::Take(const std::vector<ProblemRow>& rows) {
  const auto [old_end, new_end] =
      std::mismatch(rows_.begin(), rows_.end(), rows.begin(), rows.end(), document::IsSameRow);
  const auto head = static_cast<int>(new_end - rows.begin());
  const auto [old_rest, new_rest] =
      std::mismatch(rows_.rbegin(), std::make_reverse_iterator(old_end), rows.rbegin(),
                    std::make_reverse_iterator(new_end), document::IsSameRow);
  const auto tail = static_cast<int>(new_rest - rows.rbegin());
  Remove(head, rowCount() - head - tail);
  Insert(head, rows.data() + head, rows.data() + rows.size() - tail);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (ReadsTheSame(rows_[i], rows[i])) continue;
    rows_[i] = rows[i];
    emit dataChanged(index(static_cast<int>(i)), index(static_cast<int>(i)));
  }
}

void ProblemModel::Remove(int first, int count) {
  if (count <= 0) return;
  beginRemoveRows({}, first, first + count - 1);
  rows_.erase(rows_.begin() + first, rows_.begin() + first + count);
  endRemoveRows();
}

void ProblemModel::Insert(int row, const ProblemRow* begin, const ProblemRow* end) {
  if (begin == end) return;
  beginInsertRows({}, row, row + static_cast<int>(end - begin) - 1);
  rows_.insert(rows_.begin() + row, begin, end);
  endInsertRows();
}

void ProblemModel::SetIcons(const QPalette& palette) {
  icons_ = {DrawnIcon("note", palette), DrawnIcon("warning", palette), DrawnIcon("error", palette)};
  if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
}

const ProblemRow* ProblemModel::At(int row) const {
  return row < 0 || row >= rowCount() ? nullptr : &rows_[static_cast<std::size_t>(row)];
}

int ProblemModel::RemediesFor(document::ProblemKind kind) const {
  int count = 0;
  for (const ProblemRow& row : rows_) {
    const bool told_by_head = row.shape == ProblemRow::Shape::kMember;
    if (!told_by_head && row.problem.kind == kind && !row.problem.remedy.empty()) {
      count += row.count;
    }
  }
  return count;
}

int ProblemModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ProblemModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const ProblemRow& row = *At(index.row());
  const bool member = row.shape == ProblemRow::Shape::kMember;
  if (role == Qt::DisplayRole) return member ? kIndent + FieldName(row.problem) : RowText(row);
  if (role == Qt::DecorationRole && !member) {
    return icons_[static_cast<std::size_t>(row.problem.severity)];
  }
  if (role == Qt::AccessibleTextRole) return RowText(row);
  if (role == Qt::AccessibleDescriptionRole) return Description(row);
  if (role == Qt::FontRole && row.IsHead()) {
    QFont bold;
    bold.setBold(true);
    return bold;
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
  AddFoldingKey(Qt::Key_Right, true);
  AddFoldingKey(Qt::Key_Left, false);
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
  connect(show_, &QAction::triggered, this, &ProblemList::ShowOrUnfold);
  // What is asked for changes the rows.
  connect(mend_, &QAction::triggered, this,
          [this] { emit MendAsked(Problem(Current()->problem)); });
  connect(mend_all_, &QAction::triggered, this, [this] {
    const Problem like = Current()->problem;
    emit MendAllAsked(like, model_->RemediesFor(like.kind));
  });
}

QAction* ProblemList::AddCommand(const char* name, const QString& caption) {
  auto* command = new QAction(caption, this);
  command->setObjectName(QLatin1String(name));
  view_->addAction(command);
  return command;
}

void ProblemList::AddFoldingKey(Qt::Key key, bool unfold) {
  auto* shortcut = new QShortcut(key, view_);
  shortcut->setContext(Qt::WidgetShortcut);
  shortcut->setAutoRepeat(false);
  connect(shortcut, &QShortcut::activated, this, [this, unfold] { Unfold(unfold); });
}

const ProblemRow* ProblemList::Current() const {
  return model_->At(view_->currentIndex().row());
}

void ProblemList::Refresh() {
  const int count = watch_.Count();
  setWindowTitle(count == 0 ? tr("Problems") : tr("Problems %1").arg(count));
  if (!isVisible()) return;
  const int row = view_->currentIndex().row();
  const std::optional<ProblemRow> was =
      Current() == nullptr ? std::nullopt : std::optional(*Current());
  model_->Take(document::GatherProblems(watch_.Problems(), unfolded_));
  const int now = document::RowToStayOn(model_->Rows(), was, row);
  if (view_->currentIndex().row() != now) view_->setCurrentIndex(model_->index(now));
  FollowRow();
}

void ProblemList::ShowOrUnfold() {
  const ProblemRow& row = *Current();
  if (row.IsHead()) return Unfold(!row.unfolded);
  emit FieldAsked(row.problem.at);
}

void ProblemList::Unfold(bool unfold) {
  if (Current() == nullptr) return;
  if (Current()->shape == ProblemRow::Shape::kMember && !unfold) {
    int head = view_->currentIndex().row();
    while (!model_->At(head)->IsHead()) --head;
    view_->setCurrentIndex(model_->index(head));
    return;
  }
  if (!Current()->IsHead()) return;
  const Problem like = Current()->problem;
  std::erase_if(unfolded_, [&](const Problem& one) { return document::ReadAlike(one, like); });
  if (unfold) unfolded_.push_back(like);
  Refresh();
}

void ProblemList::FollowRow() {
  const ProblemRow* const row = Current();
  const bool head = row != nullptr && row->IsHead();
  const QString remedy = row == nullptr ? QString() : platform::FromAnsi(row->problem.remedy);
  const bool has_remedy = !remedy.isEmpty() && !head;
  const int alike = remedy.isEmpty() ? 0 : model_->RemediesFor(row->problem.kind);
  // A button that is greyed would hand the focus on to the page.
  const QWidget* const focus = widget()->focusWidget();
  if (!has_remedy && focus != nullptr && focus != view_ && focus->hasFocus()) view_->setFocus();
  FollowRowInShow(row);
  mend_->setEnabled(has_remedy);
  mend_->setText(has_remedy ? PlainCaption(remedy) : tr("Mend"));
  mend_->setToolTip(has_remedy         ? tr("The remedy for this row, as one step (Alt+Enter)")
                    : remedy.isEmpty() ? tr("Only you can know what would be right here")
                                       : tr("The row stands for several: mend all, or list them"));
  mend_all_->setEnabled(alike > 1);
  mend_all_->setText(alike > 1 ? tr("Mend All %1 Like This").arg(alike) : tr("Mend All Like This"));
  mend_all_->setToolTip(alike > 1 ? tr("The remedy for every problem of this kind, as one step")
                                  : tr("No other problem of this kind has a remedy"));
}

void ProblemList::FollowRowInShow(const ProblemRow* row) {
  if (row != nullptr && row->IsHead()) {
    show_->setEnabled(true);
    show_->setText(row->unfolded ? tr("Gather") : tr("List All %1").arg(row->count));
    show_->setToolTip(row->unfolded ? tr("Puts them into one row again (Enter, Left)")
                                    : tr("Lists them one by one (Enter, Right)"));
    return;
  }
  const bool has_field =
      row != nullptr && row->problem.kind != document::ProblemKind::kStoredNotInUse;
  show_->setEnabled(has_field);
  show_->setText(tr("Show"));
  show_->setToolTip(tr("Goes to the field (Enter)"));
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
