#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <QObject>

#include "core/services.h"
#include "document/document.h"
#include "editor/command_host.h"
#include "editor/follower.h"
#include "editor/history_list.h"
#include "editor/menus.h"
#include "editor/problem_list.h"
#include "editor/problem_watch.h"

namespace orvane::editor {

/// The lists that can be shown beside the page, one behind the other: problems and history. Each
/// is made when it is first asked for. The problems are counted all the time, for the status bar.
class SideLists : public QObject {
  Q_OBJECT

 public:
  /// Everything outlives this object, which must go before the window's children do.
  struct Place {
    QMainWindow& window;
    CommandHost& host;
    Follower& follower;
    const Menus& menus;
  };
  SideLists(document::Document& document, core::Clock& clock, const Place& place);

  /// Looks for problems from now on.
  void BeginWork() { watch_.Begin(); }

 private:
  void ShowProblems(bool shown);
  void ShowHistory(bool shown);
  void Add(QDockWidget& dock, QAction& item, int lines);
  static void Show(QDockWidget& dock, bool shown);
  void Mend(const document::Problem& problem);
  void MendAll(const document::Problem& like, int count);

  document::Document& document_;
  core::Clock& clock_;
  const Place place_;
  ProblemWatch watch_;
  ProblemList* problems_ = nullptr;
  HistoryList* history_ = nullptr;
};

}  // namespace orvane::editor
