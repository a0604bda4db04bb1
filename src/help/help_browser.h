#pragma once

#include <QEvent>
#include <QTextBrowser>

#include "help/help_library.h"

namespace orvane::help {

/// Shows pages of the library and follows the links between them.
class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  /// The library outlives the browser.
  HelpBrowser(const HelpLibrary& library, QWidget* parent);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  const HelpLibrary& library_;
};

}  // namespace orvane::help
