#pragma once

#include <QHelpSearchEngine>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QUrl>
#include <QWidget>

namespace orvane::help {

/// Full-text search: a line to type into, and the pages that hold all the words typed.
class HelpSearch : public QWidget {
  Q_OBJECT

 public:
  HelpSearch(QHelpSearchEngine& engine, QWidget* parent);

  /// Readies the line for typing.
  void Begin();

 signals:
  /// A page was chosen; it holds the word.
  void PageChosen(const QUrl& page, const QString& word);

 private:
  void Search();
  void ShowResults();
  void Choose(const QListWidgetItem* item);

  QHelpSearchEngine& engine_;
  QLineEdit* words_;
  QListWidget* results_;
  QLabel* outcome_;
  bool indexed_ = false;  ///< what is asked before the index is complete waits for it
};

}  // namespace orvane::help
