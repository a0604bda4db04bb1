#include "editor/simulated_radio_strip.h"

#include <QHBoxLayout>
#include <QPalette>

#include "editor/dialog_parts.h"

namespace orvane::editor {
namespace {

// White on it has a contrast of 8; red is left to what is wrong.
const QColor kBlue(0x1F, 0x4E, 0x79);

}  // namespace

SimulatedRadioStrip::SimulatedRadioStrip(QAction& end, QWidget* parent)
    : QFrame(parent), text_(new LiveLabel(this)) {
  setObjectName(QStringLiteral("stripSimulatedRadio"));
  setAutoFillBackground(true);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, kBlue);
  colours.setColor(QPalette::WindowText, Qt::white);
  setPalette(colours);
  text_->setObjectName(QStringLiteral("lblSimulatedRadio"));
  text_->setAccessibleDescription(tr("Simulated radio"));
  text_->setWordWrap(true);

  auto* row = new QHBoxLayout(this);
  row->addWidget(text_, 1);
  QPushButton* const button = AddButton(*this, *row, "cmdEndSimulated", tr("End It"));
  button->setAccessibleName(tr("End the simulated radio"));
  button->setToolTip(tr("Takes its port away and chooses the one of before"));
  button->setPalette(QPalette());  // the desktop's own colours
  connect(button, &QPushButton::clicked, &end, &QAction::trigger);
}

void SimulatedRadioStrip::Tell(const QString& text) {
  show();
  text_->Tell(text);
}

}  // namespace orvane::editor
