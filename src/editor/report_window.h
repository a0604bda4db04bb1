#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTimer>
#include <string>

#include "editor/command_host.h"
#include "editor/window_services.h"

namespace orvane::editor {

/// `frmPrn`: the text report to look at, search, copy and save. It shows itself with a waiting
/// text first and builds the report from the data shortly after; until then it takes no input and
/// does not close.
class ReportWindow : public QDialog {
  Q_OBJECT

 public:
  ReportWindow(const WindowServices& services, CommandHost& host);

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QMenuBar* BuildMenus();
  QWidget* BuildFindBar();

  void BuildReport();
  /// Makes the window as wide as the report's lines.
  void FitWidth();
  /// The cancel flag tells of a cancelled dialog or a failure, the error flag of the latter.
  void SaveAs();
  void CopyAll();
  void ShowFindBar();
  void HideFindBar();
  void Find(QTextDocument::FindFlags direction);
  void ResetZoom();

  const WindowServices services_;
  core::RunState& state_;
  CommandHost& host_;
  /// As it is saved; the text box keeps neither its line ends nor every character.
  std::string report_;

  QPlainTextEdit* text_;
  QFont normal_font_;
  QWidget* find_bar_ = nullptr;
  QLineEdit* find_text_ = nullptr;
  QLabel* found_ = nullptr;  ///< "Not found", else empty
  QTimer* timer_;
};

}  // namespace orvane::editor
