#pragma once

#include <QAbstractListModel>
#include <QAction>
#include <QDockWidget>
#include <QIcon>
#include <array>
#include <vector>

#include "document/problem_rows.h"
#include "editor/problem_watch.h"
#include "editor/quiet_list_view.h"

namespace orvane::editor {

/// Rows that stay keep their place while others come and go.
class ProblemModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  void Take(const std::vector<document::ProblemRow>& rows);
  /// One drawing for each severity.
  void SetIcons(const QPalette& palette);
  /// Null beyond the rows.
  [[nodiscard]] const document::ProblemRow* At(int row) const;
  [[nodiscard]] const std::vector<document::ProblemRow>& Rows() const { return rows_; }
  /// How many of the kind have a remedy.
  [[nodiscard]] int RemediesFor(document::ProblemKind kind) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  void Remove(int first, int count);
  void Insert(int row, const document::ProblemRow* begin, const document::ProblemRow* end);

  std::vector<document::ProblemRow> rows_;
  std::array<QIcon, 3> icons_;
};

/// What is wrong with the data, beside the page. A double click or Enter goes to the field, and
/// lists what a row stands for that stands for several; the remedy of the row, and that of all
/// alike, stand below the list. The watch outlives it.
class ProblemList : public QDockWidget {
  Q_OBJECT

 public:
  ProblemList(const ProblemWatch& watch, QWidget* parent);

  /// Other problems were found.
  void Refresh();

 signals:
  void FieldAsked(core::FieldRef at);
  void MendAsked(const document::Problem& problem);
  /// That many rows have the same kind of problem, with a remedy.
  void MendAllAsked(const document::Problem& like, int count);
  void FocusGained();

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QAction* AddCommand(const char* name, const QString& caption);
  void BuildCommands();
  void AddFoldingKey(Qt::Key key, bool unfold);
  /// The current row; null without one.
  [[nodiscard]] const document::ProblemRow* Current() const;
  void FollowRow();
  void FollowRowInShow(const document::ProblemRow* row);
  void ShowOrUnfold();
  /// Unfolds the current row or gathers it again; from below it, gathering only goes to it.
  void Unfold(bool unfold);

  const ProblemWatch& watch_;
  ProblemModel* model_;
  QuietListView* view_;
  std::vector<document::Problem> unfolded_;  ///< one for each head that is
  QAction* show_ = nullptr;
  QAction* mend_ = nullptr;
  QAction* mend_all_ = nullptr;
};

}  // namespace orvane::editor
