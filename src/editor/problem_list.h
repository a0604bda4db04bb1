#pragma once

#include <QAbstractListModel>
#include <QAction>
#include <QDockWidget>
#include <QIcon>
#include <array>
#include <optional>
#include <vector>

#include "document/problems.h"
#include "editor/problem_watch.h"
#include "editor/quiet_list_view.h"

namespace orvane::editor {

/// One problem a row. Rows that stay keep their place while others come and go.
class ProblemModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  void Take(const std::vector<document::Problem>& found);
  /// One drawing for each severity.
  void SetIcons(const QPalette& palette);
  /// Null beyond the rows.
  [[nodiscard]] const document::Problem* At(int row) const;
  /// The row of the same problem, whatever its text says by now.
  [[nodiscard]] std::optional<int> RowOf(const document::Problem& problem) const;
  /// How many of the kind have a remedy.
  [[nodiscard]] int RemediesFor(document::ProblemKind kind) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  void Remove(int first, int count);
  void Insert(int row, const document::Problem* begin, const document::Problem* end);

  std::vector<document::Problem> problems_;
  std::array<QIcon, 3> icons_;
};

/// What is wrong with the data, beside the page. A double click or Enter goes to the field; the
/// remedy of the row, and that of all rows alike, stand below the list. The watch outlives it.
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
  /// Of the current row; null without one.
  [[nodiscard]] const document::Problem* Current() const;
  void FollowRow();

  const ProblemWatch& watch_;
  ProblemModel* model_;
  QuietListView* view_;
  QAction* show_ = nullptr;
  QAction* mend_ = nullptr;
  QAction* mend_all_ = nullptr;
};

}  // namespace orvane::editor
