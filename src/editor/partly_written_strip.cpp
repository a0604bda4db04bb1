#include "editor/partly_written_strip.h"

#include <QHBoxLayout>
#include <QPalette>
#include <QVBoxLayout>

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
  row->addWidget(AddButton("cmdProgramAgain", tr("Program A&gain"),
                           tr("Writes once more what was being written")));
  put_back_ = AddButton("cmdPutBack", tr("Put Back &What Was There"), {});
  row->addWidget(put_back_);
  row->addWidget(AddButton("cmdSettled", tr("It &Is Settled"),
                           tr("Takes this warning away; the radio stays as it is")));
  row->addStretch();
  connect(findChild<QPushButton*>("cmdProgramAgain"), &QPushButton::clicked, this,
          &PartlyWrittenStrip::ProgramAgainAsked);
  connect(put_back_, &QPushButton::clicked, this, &PartlyWrittenStrip::PutBackAsked);
  connect(findChild<QPushButton*>("cmdSettled"), &QPushButton::clicked, this,
          &PartlyWrittenStrip::SettledAsked);
  hide();
}

QPushButton* PartlyWrittenStrip::AddButton(const char* name, const QString& caption,
                                           const QString& tip) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(QLatin1String(name));
  button->setToolTip(tip);
  button->setAutoDefault(false);
  // A button of the desktop's own colours.
  button->setPalette(QPalette());
  return button;
}

void PartlyWrittenStrip::ShowMark(const files::PartlyWritten& mark) {
  port_ = mark.port;
  put_back_->setEnabled(mark.has_before);
  put_back_->setToolTip(mark.has_before
                            ? tr("Writes what the radio held before, as it was kept then")
                            : tr("What the radio held before was not kept"));
  show();
  text_->Tell(platform::FromUtf8(mark.Text()));
}

}  // namespace orvane::editor
