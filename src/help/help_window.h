#pragma once

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QTabWidget>
#include <QToolBar>
#include <QUrl>
#include <memory>

#include "help/help_browser.h"
#include "help/help_library.h"
#include "help/help_search.h"

namespace orvane::help {

/// `frmHelp`: contents, index and search on the left, the page on the right.
class HelpWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit HelpWindow(std::unique_ptr<HelpLibrary> library);
  HelpWindow(const HelpWindow&) = delete;
  HelpWindow& operator=(const HelpWindow&) = delete;
  ~HelpWindow() override;

  /// False when the help has no topic of that number; the page then stays.
  [[nodiscard]] bool ShowTopic(int context);
  void ComeToFront();

 private:
  void BuildToolBar();
  static QAction* AddTool(QToolBar& bar, const char* name, const QString& caption,
                          const QKeySequence& shortcut);
  QWidget* BuildContents();
  QWidget* BuildIndex();
  QWidget* BuildSearch();
  void BuildSizeKeys();

  void GoTo(const QUrl& page) { browser_->setSource(page); }
  /// The contents mark the page on show.
  void MarkPage();

  std::unique_ptr<HelpLibrary> library_;
  QTabWidget* tabs_;
  HelpBrowser* browser_;
  HelpSearch* search_ = nullptr;
};

}  // namespace orvane::help
