#include "editor/about_box.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "editor/file_commands.h"
#include "editor/picture.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(375, 251);
constexpr int kIconLines = 4;
constexpr int kFrameMargin = 100 / 15;  // on each side, in device-independent pixels
constexpr int kButtonDistance = 70 / 15;

constexpr const char* kNotice =
    "Reads, edits and programs the memory of handheld marine VHF radios over a serial cable.\n\n"
    "A marine radio is safety equipment. After programming, check on the radio that the channels "
    "you rely on are there and transmit as they should. Which channels, frequencies and powers you "
    "may use is for you to know.\n\n"
    "This program comes without any warranty.";

QLabel* NamedLabel(const char* name, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("Version Infomation"));
  setModal(true);

  auto* icon = new Picture("handheld", kIconLines, this);
  icon->setObjectName(QStringLiteral("picIcon"));
  auto* title = NamedLabel("lblTitle", WindowTitle({}), this);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  auto* version =
      NamedLabel("lblVersion", QStringLiteral("Version ") + QLatin1String(ORVANE_VERSION), this);

  auto* frame = new QFrame(this);
  frame->setObjectName(QStringLiteral("Frame1"));
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  auto* description = NamedLabel("lblDescription", QLatin1String(kNotice), frame);
  description->setWordWrap(true);
  description->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  (new QVBoxLayout(frame))->addWidget(description);

  auto* ok = new QPushButton(tr("OK"), this);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);

  auto* words = new QVBoxLayout;
  words->addStretch();
  words->addWidget(title);
  words->addWidget(version);
  words->addStretch();
  auto* head = new QHBoxLayout;
  head->addWidget(icon);
  head->addLayout(words, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kFrameMargin, kFrameMargin, kFrameMargin, kFrameMargin);
  all->setSpacing(kButtonDistance);
  all->addLayout(head);
  all->addWidget(frame, 1);
  all->addWidget(ok, 0, Qt::AlignHCenter);
  const int wide = std::max(kFirstSize.width(), all->totalMinimumSize().width());
  resize(wide, std::max(kFirstSize.height(), all->totalHeightForWidth(wide)));
}

}  // namespace orvane::editor
