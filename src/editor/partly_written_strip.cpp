#include "editor/partly_written_strip.h"

#include <QHBoxLayout>
#include <QPalette>
#include <QVBoxLayout>

#include "editor/dialog_parts.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

// White on it has a contrast of 7.
const QColor kRed(0xA0, 0x10, 0x10);

}  // namespace

PartlyWrittenStrip::PartlyWrittenStrip(QWidget* parent)
    : QFrame(parent), text_(new LiveLabel(this)) {
  setObjectName(QStringLiteral("stripPartlyWritten"));
  setAutoFillBackground(true);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, kRed);
  colours.setColor(QPalette::WindowText, Qt::white);
  setPalette(colours);
  text_->setObjectName(QStringLiteral("lblPartlyWritten"));
  text_->setAccessibleDescription(tr("Warning"));
  text_->setWordWrap(true);

  auto* column = new QVBoxLayout(this);
  column->addWidget(text_);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  const auto add = [&](const char* name, const QString& caption, const QString& tip, auto asked) {
    QPushButton* const button = AddButton(*this, *row, name, caption);
    button->setToolTip(tip);
    button->setPalette(QPalette());  // the desktop's own colours
    connect(button, &QPushButton::clicked, this, asked);
    return button;
  };
  add("cmdProgramAgain", tr("Program A&gain"), tr("Writes once more what was being written"),
      &PartlyWrittenStrip::ProgramAgainAsked);
  put_back_ =
      add("cmdPutBack", tr("Put Back &What Was There"), {}, &PartlyWrittenStrip::PutBackAsked);
  add("cmdSettled", tr("It &Is Settled"), tr("Takes this warning away; the radio stays as it is"),
      &PartlyWrittenStrip::SettledAsked);
  row->addStretch();
  hide();
}

void PartlyWrittenStrip::ShowMark(const files::PartlyWritten& mark) {
  port_ = mark.port;
  put_back_->setEnabled(mark.has_before);
  put_back_->setToolTip(mark.has_before
                            ? tr("Writes what the radio held before, as it was kept then")
                            : tr("What the radio held before was not kept in that run; File, "
                                 "Backups has what was read earlier"));
  show();
  text_->Tell(platform::FromUtf8(mark.Text()));
}

}  // namespace orvane::editor
