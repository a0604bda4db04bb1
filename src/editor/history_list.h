#pragma once

#include <QAbstractListModel>
#include <QDockWidget>
#include <cstddef>

#include "document/document.h"
#include "editor/quiet_list_view.h"

namespace orvane::editor {

/// The steps of the history, oldest first, behind a row for the data before all of them. Steps
/// that were taken back stay until another edit takes their place.
class HistoryModel : public QAbstractListModel {
  Q_OBJECT

 public:
  HistoryModel(const document::Document& document, QObject* parent)
      : QAbstractListModel(parent), document_(document) {}

  void Refresh();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  const document::Document& document_;
};

/// The list of steps beside the page. A click or Enter goes to the step.
class HistoryList : public QDockWidget {
  Q_OBJECT

 public:
  HistoryList(const document::Document& document, QWidget* parent);

  /// The history changed.
  void Refresh();

 signals:
  /// The user wants that many steps done.
  void StepAsked(std::size_t done);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  const document::Document& document_;
  HistoryModel* model_;
  QuietListView* view_;
};

}  // namespace orvane::editor
