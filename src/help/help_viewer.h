#pragma once

#include <QPoint>
#include <QPointer>
#include <QString>
#include <string>

#include "help/help_opener.h"
#include "help/help_window.h"

namespace orvane::help {

/// Help from a compiled help file, in one window. The file is opened when help is first asked for.
class HelpViewer : public HelpOpener {
 public:
  /// Paths in UTF-8. There is no help where there is no such file. The cache folder is made when
  /// help is first asked for.
  HelpViewer(const std::string& help_file, const std::string& cache_folder);
  HelpViewer(const HelpViewer&) = delete;
  HelpViewer& operator=(const HelpViewer&) = delete;
  ~HelpViewer() override;

  [[nodiscard]] bool HasHelp() const override;
  /// Context 0 stands for no help and opens nothing. The help of a modal owner closes with it.
  [[nodiscard]] std::optional<std::string> Open(QWidget& owner, int context) override;
  void Close() override;
  void Reopen() override;

 private:
  [[nodiscard]] std::optional<std::string> MakeWindow();

  const QString help_file_;
  const QString cache_folder_;
  QPointer<HelpWindow> window_;  ///< null before the first request and after its owner has gone
  bool closed_open_ = false;     ///< Close() found the window open
  QPoint place_;                 ///< of the window, with its frame, when Close() found it open
};

}  // namespace orvane::help
