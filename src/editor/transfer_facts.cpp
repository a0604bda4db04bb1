#include "editor/transfer_facts.h"

#include <QHBoxLayout>

#include "editor/dialog_parts.h"
#include "link/transfer_pace.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

QLabel* MakeLabel(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QString About(double seconds) {
  return platform::FromUtf8(link::MinutesAndSeconds(seconds));
}

}  // namespace

TransferFacts::TransferFacts(QWidget* parent)
    : QWidget(parent),
      ports_(new QComboBox(this)),
      subject_(MakeLabel("lblSubject", this)),
      consequence_(MakeLabel("lblConsequence", this)),
      column_(new QVBoxLayout(this)),
      copy_(new QCheckBox(this)),
      read_back_(new QCheckBox(this)) {
  column_->setContentsMargins({});
  AddPortRow();
  QFont bold = consequence_->font();
  bold.setBold(true);
  consequence_->setFont(bold);
  copy_->setObjectName(QStringLiteral("chkKeepCopy"));
  read_back_->setObjectName(QStringLiteral("chkReadBack"));
  copy_->setToolTip(
      tr("The radio is read whole before anything is written, and kept among the backups"));
  read_back_->setToolTip(
      tr("What was written is read from the radio again, and each byte is compared"));
  for (QWidget* widget :
       std::initializer_list<QWidget*>{subject_, consequence_, copy_, read_back_}) {
    column_->addWidget(widget);
  }
  connect(copy_, &QCheckBox::clicked, this, &TransferFacts::CopyChosen);
  connect(read_back_, &QCheckBox::clicked, this, &TransferFacts::ReadBackChosen);
  HideOptions();
}

void TransferFacts::AddPortRow() {
  auto* row = new QHBoxLayout;
  auto* caption = new QLabel(tr("&Port:"), this);
  caption->setBuddy(ports_);
  ports_->setObjectName(QStringLiteral("lstPort"));
  ports_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  row->addWidget(caption);
  row->addWidget(ports_);
  QPushButton* const find = AddButton(*this, *row, "cmdFindCable", tr("&Find my Cable..."));
  column_->addLayout(row);
  connect(ports_, &QComboBox::activated, this,
          [this](int index) { emit PortChosen(ports_->itemData(index).toInt()); });
  connect(find, &QPushButton::clicked, this, &TransferFacts::FindCableAsked);
}

void TransferFacts::ShowPorts(const std::vector<link::PortEntry>& ports, int chosen,
                              const link::PortLabel& label) {
  ports_->clear();
  for (const link::PortEntry& port : ports) {
    ports_->addItem(platform::FromUtf8(link::LabelOf(port).Text()).trimmed(), port.port_number);
  }
  if (ports_->findData(chosen) < 0) {
    ports_->addItem(tr("%1 (not connected)").arg(platform::FromUtf8(label.name)), chosen);
  }
  ports_->setCurrentIndex(ports_->findData(chosen));
}

void TransferFacts::ShowSubject(const QString& subject, const QString& consequence) {
  subject_->setText(subject);
  subject_->setVisible(!subject.isEmpty());
  consequence_->setText(consequence);
}

void TransferFacts::ShowProblems(const std::vector<document::SendingProblem>& problems) {
  delete problems_;
  problems_ = new QWidget(this);
  problems_->setObjectName(QStringLiteral("boxProblems"));
  auto* column = new QVBoxLayout(problems_);
  column->setContentsMargins({});
  column_->insertWidget(column_->indexOf(copy_), problems_);
  for (const document::SendingProblem& problem : problems) AddProblem(problem);
  problems_->setVisible(!problems.empty());
}

void TransferFacts::AddProblem(const document::SendingProblem& problem) {
  auto& column = *static_cast<QVBoxLayout*>(problems_->layout());
  QLabel* const text = MakeLabel("lblProblem", problems_);
  text->setText(QChar(0x26A0) + QLatin1Char(' ') + platform::FromAnsi(problem.text));
  column.addWidget(text);
  auto* row = new QHBoxLayout;
  row->addStretch();
  column.addLayout(row);
  if (!problem.at.empty()) {
    connect(AddButton(*problems_, *row, "cmdShow", tr("Show")), &QPushButton::clicked, this,
            [this, at = problem.at.front()] { emit ShowAsked(at); });
  }
  if (!problem.remedy.empty()) {
    // The list is made anew when it is mended: not while its own button is at work.
    connect(
        AddButton(*problems_, *row, "cmdMend", platform::FromAnsi(problem.remedy)),
        &QPushButton::clicked, this, [this, kind = problem.kind] { emit MendAsked(kind); },
        Qt::QueuedConnection);
  }
}

void TransferFacts::ShowOptions(double copy_seconds, double read_back_seconds, const QString& kept,
                                bool keeps_copy, bool reads_back) {
  QString copy = tr("&Keep a copy of what the radio holds first (%1)").arg(About(copy_seconds));
  if (!kept.isEmpty()) copy += tr(": it was read and kept at %1").arg(kept);
  copy_->setText(copy);
  copy_->setChecked(keeps_copy);
  read_back_->setText(
      tr("&Read back and compare what was written (%1)").arg(About(read_back_seconds)));
  read_back_->setChecked(reads_back);
  copy_->show();
  read_back_->show();
}

void TransferFacts::HideOptions() {
  copy_->hide();
  read_back_->hide();
}

}  // namespace orvane::editor
