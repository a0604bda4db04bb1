#include "editor/transfer_dialog.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <cmath>
#include <optional>

#include "core/messages.h"
#include "core/number_text.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(465, 290);
constexpr int kPictureLines = 6;
constexpr double kMonitorPause = 0.5;
constexpr int kAddressDigits = 4;

constexpr const char* kInstructions =
    "1.Connect the KIV cable between the PC serial port and the radio.\n"
    "2.On the radio, press and hold the [PRESET]+[DOWN]+[SQL] keys\n"
    "   while turning on.\n"
    "3.Press the [OK] button to start.";

QString FiguresText(const link::TransferPace::Figures& figures) {
  return QStringLiteral("     %1 bytes/s     %2 left")
      .arg(std::lround(figures.bytes_per_second))
      .arg(platform::FromUtf8(link::MinutesAndSeconds(figures.seconds_left)));
}

}  // namespace

TransferDialog::TransferDialog(const TransferServices& services, link::SessionKind kind,
                               QWidget* parent)
    : QDialog(parent),
      services_(services),
      run_state_(services.state),
      kind_(kind),
      handheld_(new Picture("handheld", kPictureLines, this)),
      arrow_(new Picture("transfer", kPictureLines, this)),
      computer_(new Picture("computer", kPictureLines, this)) {
  setObjectName(QStringLiteral("frmRadio_102"));
  setWindowTitle(platform::FromUtf8(link::ModeTitle(kind)));
  setModal(true);
  auto* all = new QVBoxLayout(this);

  AddLabel("lblmess", "Instructions")->setText(QLatin1String(kInstructions));
  AddPictures();
  progress_ = new ProgressBox(this);
  layout()->addWidget(progress_);
  state_ = AddLabel("lblState", "State of the transfer");
  state_->setWordWrap(true);
  note_ = AddLabel("lblNote", "Warning");
  note_->setText(platform::FromUtf8(core::kPartlyWrittenText));
  note_->setWordWrap(true);
  QFont bold = note_->font();
  bold.setBold(true);
  note_->setFont(bold);
  note_->setVisible(services_.radio_partly_written);
  monitor_ = AddLabel("lblmon", "Monitor");
  monitor_->setVisible(run_state_.Debug);
  all->addStretch();
  AddButtons();
  port_ = services_.port_label();
  ShowState(tr("Port: %1").arg(platform::FromUtf8(port_.Text())));
  resize(sizeHint().expandedTo(kFirstSize));

  if (run_state_.Debug) {
    TransferDialog::Monitor("starting at debug mode..");
    services_.clock.Pause(kMonitorPause);
  }
}

LiveLabel* TransferDialog::AddLabel(const char* name, const char* description) {
  auto* label = new LiveLabel(this);
  label->setObjectName(QLatin1String(name));
  label->setAccessibleDescription(tr(description));
  layout()->addWidget(label);
  return label;
}

// Data travel from left to right: the computer stands where they come from or go to.
void TransferDialog::AddPictures() {
  handheld_->setObjectName(QStringLiteral("pictHandy"));
  arrow_->setObjectName(QStringLiteral("pictA"));
  computer_->setObjectName(QStringLiteral("pictB"));
  QSizePolicy keeps_room = arrow_->sizePolicy();
  keeps_room.setRetainSizeWhenHidden(true);
  arrow_->setSizePolicy(keeps_room);
  arrow_->hide();

  const bool reading = kind_ == link::SessionKind::kRead;
  // Drawn with the cable on the computer's right and its socket on the radio's left.
  computer_->SetMirrored(reading);
  handheld_->SetMirrored(reading);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(reading ? handheld_ : computer_);
  row->addWidget(arrow_);
  row->addWidget(reading ? computer_ : handheld_);
  row->addStretch();
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void TransferDialog::AddButtons() {
  auto* row = new QHBoxLayout;
  row->addStretch();
  const auto add = [&](const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    row->addWidget(button);
    return button;
  };
  ok_ = add("cmdOK", tr("OK"));
  ok_->setDefault(true);
  QPushButton* const cancel = add("cmdCancel", tr("Cancel"));
  help_ = add("cmdHelp", tr("Help"));
  help_->setShortcut(Qt::Key_F1);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  connect(ok_, &QPushButton::clicked, this, &TransferDialog::Run);
  connect(cancel, &QPushButton::clicked, this, &TransferDialog::reject);
  connect(help_, &QPushButton::clicked, this, &TransferDialog::OpenHelp);
  ok_->setFocus();
}

void TransferDialog::Monitor(std::string_view text) {
  monitor_->setText(platform::FromUtf8(text));
  // What follows is a pause without events.
  monitor_->repaint();
}

void TransferDialog::BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) {
  QString text = platform::FromUtf8(port_.name + "     Block " +
                                    core::HexText(static_cast<unsigned>(address), kAddressDigits));
  if (const auto figures = pace_.BlockDone(bytes_so_far, bytes_total, services_.clock.Now())) {
    text += FiguresText(*figures);
  }
  state_->setText(text);  // several times a second: nobody could listen to it
}

void TransferDialog::ShowState(const QString& text) {
  state_->Tell(text);
}

void TransferDialog::NothingComesBack() {
  ShowState(platform::FromUtf8(
      link::SilenceText(port_, "press Cancel and choose another port under Options, SerialPort.")));
}

void TransferDialog::ShowNote() {
  note_->setVisible(services_.radio_partly_written);
  if (!services_.radio_partly_written) return;
  QAccessibleEvent alert(note_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void TransferDialog::SetRunning(bool running) {
  ok_->setEnabled(!running);
  help_->setEnabled(!running);
  arrow_->setVisible(running);
  if (running) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
    ok_->setFocus();
  }
}

void TransferDialog::Run() {
  SetRunning(true);
  // The run that mends the radio ends in a message, which must not stand beside the warning.
  if (kind_ == link::SessionKind::kProgram) note_->hide();
  port_ = services_.port_label();
  ShowState(tr("Connecting on %1...").arg(platform::FromUtf8(port_.Text())));
  pace_ = {};
  const std::unique_ptr<link::SerialPort> port = services_.make_port();
  link::TransferSession session(
      services_.data, run_state_,
      {*port, services_.clock, services_.pump, services_.log, *this, port_}, services_.prompts);
  if (services_.interrupts == nullptr) {
    outcome_ = session.Run(kind_);
  } else {
    const platform::WhileInterruptible cancel(*services_.interrupts, [this] { reject(); });
    outcome_ = session.Run(kind_);
  }
  SetRunning(false);
  TakeOutcome();
}

void TransferDialog::TakeOutcome() {
  const bool done = outcome_.ending == link::Ending::kDone;
  data_moved_ = data_moved_ || done || outcome_.partly_written;
  // A radio that was read is no better than before.
  if (done && kind_ == link::SessionKind::kProgram) services_.radio_partly_written = false;
  if (outcome_.partly_written) services_.radio_partly_written = true;
  if (!run_state_.Error) {
    accept();
    return;
  }
  ShowState(platform::FromUtf8(link::EndingText(outcome_, port_)));
  ShowNote();
}

void TransferDialog::reject() {
  if (!run_state_.Busy) {
    QDialog::reject();
    return;
  }
  run_state_.Cancel = true;
  ShowState(tr("Cancelling..."));
}

void TransferDialog::closeEvent(QCloseEvent* event) {
  if (run_state_.Busy) {
    event->ignore();
    return;
  }
  QDialog::closeEvent(event);
}

void TransferDialog::OpenHelp() {
  const std::string title = platform::ToUtf8(windowTitle());
  if (services_.help == nullptr || !services_.help->HasHelp()) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kNoHelp, title));
    return;
  }
  if (const std::optional<std::string> failure =
          services_.help->Open(*this, help::kTransferContext)) {
    services_.prompts.Show(
        core::MakeMessage(core::MessageId::kHelpFailed, title, {{"failure", *failure}}));
  }
}

}  // namespace orvane::editor
