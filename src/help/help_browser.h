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
  /// Brings the topic that the source names to the top, however near the page's end it is, and
  /// marks it.
  void ShowTopic();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QTextCursor FindTopic() const;
  void ScrollToTopic();

  const HelpLibrary& library_;
  int topic_place_ = -1;  ///< where the page was scrolled to for its topic; -1: it has none
};

}  // namespace orvane::help
