#include "editor/history_list.h"

#include <QGuiApplication>
#include <QPalette>

#include "platform/ansi_text.h"

namespace orvane::editor {
void HistoryModel::Refresh() {
  beginResetModel();
  endResetModel();
}

int HistoryModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(document_.Steps().size()) + 1;
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const bool undone = row > document_.DoneCount();
  if (role == Qt::DisplayRole) {
    if (row == 0) return tr("(before)");
    return platform::FromUtf8(document_.Steps()[row - 1].name);
  }
  if (role == Qt::AccessibleDescriptionRole && undone) return tr("taken back");
  // Greyed like what cannot be used just now; still there to go to.
  if (role == Qt::ForegroundRole && undone) {
    return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
  }
  return {};
}

HistoryList::HistoryList(const document::Document& document, QWidget* parent)
    : QDockWidget(tr("History"), parent),
      document_(document),
      model_(new HistoryModel(document, this)),
      view_(new QuietListView(this)) {
  setObjectName(QStringLiteral("dockHistory"));
  setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea);
  view_->setObjectName(QStringLiteral("lstHistory"));
  view_->setAccessibleName(tr("History"));
  view_->setUniformItemSizes(true);
  view_->setModel(model_);
  setWidget(view_);
  for (const auto chosen : {&QListView::activated, &QListView::clicked}) {
    connect(view_, chosen, this, [this](const QModelIndex& index) {
      emit StepAsked(static_cast<std::size_t>(index.row()));
    });
  }
}

void HistoryList::Refresh() {
  if (!isVisible()) return;
  model_->Refresh();
  const QModelIndex current = model_->index(static_cast<int>(document_.DoneCount()));
  view_->setCurrentIndex(current);
  view_->scrollTo(current);
}

void HistoryList::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  Refresh();
}

}  // namespace orvane::editor
