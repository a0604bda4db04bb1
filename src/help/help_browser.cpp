#include "help/help_browser.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>

namespace orvane::help {
namespace {

// The text on the mark must stay as easy to read as beside it.
constexpr float kMarkStrength = 0.3F;

}  // namespace

HelpBrowser::HelpBrowser(const HelpLibrary& library, QWidget* parent)
    : QTextBrowser(parent), library_(library) {
  setObjectName(QStringLiteral("txtHelp"));
  setAccessibleName(tr("Help page"));
  connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::ShowTopic);
}

QVariant HelpBrowser::loadResource(int /*type*/, const QUrl& name) {
  return library_.File(source().resolved(name));
}

void HelpBrowser::ShowTopic() {
  topic_place_ = -1;
  setExtraSelections({});
  const QTextCursor topic = FindTopic();
  if (!topic.isNull()) {
    ExtraSelection mark;
    mark.cursor = topic;
    QColor tint = palette().color(QPalette::Highlight);
    tint.setAlphaF(kMarkStrength);
    mark.format.setBackground(tint);
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    setExtraSelections({mark});
  }
  ScrollToTopic();
}

/// The whole paragraph or heading that holds the anchor.
QTextCursor HelpBrowser::FindTopic() const {
  const QString anchor = source().fragment();
  if (anchor.isEmpty()) return {};
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      if (!part.fragment().charFormat().anchorNames().contains(anchor)) continue;
      QTextCursor cursor(block);
      cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
      return cursor;
    }
  }
  return {};
}

void HelpBrowser::ScrollToTopic() {
  const bool has_topic = !extraSelections().isEmpty();
  // Room below the last line, so that it can stand at the top as well.
  QTextFrameFormat page = document()->rootFrame()->frameFormat();
  page.setBottomMargin(has_topic ? viewport()->height() - fontMetrics().height() : 0);
  document()->rootFrame()->setFrameFormat(page);
  if (!has_topic) return;
  scrollToAnchor(source().fragment());
  topic_place_ = verticalScrollBar()->value();
}

// The topic stays at the top until the user scrolls.
void HelpBrowser::resizeEvent(QResizeEvent* event) {
  const bool at_topic = topic_place_ >= 0 && verticalScrollBar()->value() == topic_place_;
  QTextBrowser::resizeEvent(event);
  if (at_topic) ScrollToTopic();
}

// The colors of a page are fixed when it is laid out.
void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange && !source().isEmpty()) reload();
}

}  // namespace orvane::help
