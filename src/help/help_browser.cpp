#include "help/help_browser.h"

namespace orvane::help {

HelpBrowser::HelpBrowser(const HelpLibrary& library, QWidget* parent)
    : QTextBrowser(parent), library_(library) {
  setObjectName(QStringLiteral("txtHelp"));
  setAccessibleName(tr("Help page"));
}

QVariant HelpBrowser::loadResource(int /*type*/, const QUrl& name) {
  return library_.File(source().resolved(name));
}

// The colors of a page are fixed when it is laid out.
void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange && !source().isEmpty()) reload();
}

}  // namespace orvane::help
