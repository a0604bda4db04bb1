#include "editor/transfer_dialog.h"

#include <QAccessible>
#include <QCloseEvent>
#include <cmath>
#include <optional>
#include <utility>

#include "core/messages.h"
#include "core/number_text.h"
#include "editor/dialog_parts.h"
#include "editor/receipt_window.h"
#include "files/receipt_text.h"
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

TransferDialog::TransferDialog(const WindowServices& services, CommandHost& host,
                               files::PartlyWrittenMarks& marks, std::function<void()> find_cable,
                               TransferJob job)
    : QDialog(&host.Widget()),
      services_(services),
      host_(host),
      marks_(marks),
      find_cable_(std::move(find_cable)),
      job_(std::move(job)),
      run_state_(services.state),
      handheld_(new Picture("handheld", kPictureLines, this)),
      arrow_(new Picture("transfer", kPictureLines, this)),
      computer_(new Picture("computer", kPictureLines, this)) {
  setObjectName(QStringLiteral("frmRadio_102"));
  setWindowTitle(job_.only_looks ? tr("Compare with Radio")
                                 : platform::FromUtf8(link::ModeTitle(job_.kind)));
  setModal(true);
  new QVBoxLayout(this);

  AddLabel("lblmess", "Instructions")->setText(QLatin1String(kInstructions));
  AddFacts();
  AddPictures();
  progress_ = new ProgressBox(this);
  Column().addWidget(progress_);
  state_ = AddLabel("lblState", "State of the transfer");
  state_->setWordWrap(true);
  AddNote();
  monitor_ = AddLabel("lblmon", "Monitor");
  monitor_->setVisible(run_state_.Debug);
  Column().addStretch();
  AddButtons();
  ShowFacts();
  FollowPort();
  resize(sizeHint().expandedTo(kFirstSize));
  FitHeight();

  if (run_state_.Debug) {
    TransferDialog::Monitor("starting at debug mode..");
    services_.clock.Pause(kMonitorPause);
  }
}

void TransferDialog::AddNote() {
  note_ = AddLabel("lblNote", "Warning");
  note_->setText(platform::FromUtf8(core::kPartlyWrittenText));
  note_->setWordWrap(true);
  QFont bold = note_->font();
  bold.setBold(true);
  note_->setFont(bold);
  strip_ = new PartlyWrittenStrip(this);
  Column().addWidget(strip_);
  connect(strip_, &PartlyWrittenStrip::ProgramAgainAsked, this, [this] {
    if (const auto mark = marks_.At(port_.name); mark && TakeSent(*mark)) Run();
  });
  connect(strip_, &PartlyWrittenStrip::PutBackAsked, this, [this] {
    if (const auto mark = marks_.At(port_.name); mark && TakeBefore(*mark)) Run();
  });
  connect(strip_, &PartlyWrittenStrip::SettledAsked, this, &TransferDialog::Settle);
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

  pictures_ = new QHBoxLayout;
  pictures_->addStretch();
  for (Picture* picture : {computer_, arrow_, handheld_}) pictures_->addWidget(picture);
  pictures_->addStretch();
  Column().addLayout(pictures_);
  TurnPictures();
}

// Drawn with the cable on the computer's right and its socket on the radio's left.
void TransferDialog::TurnPictures() {
  const bool reading = !job_.Programs();
  computer_->SetMirrored(reading);
  handheld_->SetMirrored(reading);
  pictures_->setDirection(reading ? QBoxLayout::RightToLeft : QBoxLayout::LeftToRight);
}

void TransferDialog::AddButtons() {
  auto* row = new QHBoxLayout;
  row->addStretch();
  ok_ = AddButton(*this, *row, "cmdOK", tr("OK"));
  ok_->setDefault(true);
  QPushButton* const cancel = AddButton(*this, *row, "cmdCancel", tr("Cancel"));
  help_ = AddButton(*this, *row, "cmdHelp", tr("Help"));
  help_->setShortcut(Qt::Key_F1);
  Column().addLayout(row);
  connect(ok_, &QPushButton::clicked, this, &TransferDialog::Run);
  connect(cancel, &QPushButton::clicked, this, &TransferDialog::reject);
  connect(help_, &QPushButton::clicked, this,
          [this] { OpenTopic(*this, services_.help, services_.prompts, help::kTransferContext); });
  ok_->setFocus();
}

void TransferDialog::Monitor(std::string_view text) {
  monitor_->setText(platform::FromUtf8(text));
  // What follows is a pause without events.
  monitor_->repaint();
}

// A read is one phase, which the title names.
void TransferDialog::Phase(std::string_view name) {
  if (!job_.Programs()) return;
  phase_ = platform::FromUtf8(name);
  pace_ = {};
  ShowState(phase_ + QStringLiteral("..."));
}

void TransferDialog::BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) {
  QString text = platform::FromUtf8(port_.name + "     Block " +
                                    core::HexText(static_cast<unsigned>(address), kAddressDigits));
  if (const auto figures = pace_.BlockDone(bytes_so_far, bytes_total, services_.clock.Now())) {
    text += FiguresText(*figures);
  }
  if (!phase_.isEmpty()) text += QStringLiteral("     ") + phase_;
  state_->setText(text);  // several times a second: nobody could listen to it
}

void TransferDialog::FitHeight() {
  // Before the dialog is shown, nobody tells the layout that the facts have grown.
  facts_->updateGeometry();
  layout()->invalidate();
  layout()->activate();
  const int needed = layout()->totalHeightForWidth(width());
  if (needed > height()) resize(width(), needed);
}

void TransferDialog::ShowState(const QString& text) {
  state_->Tell(text);
}

void TransferDialog::NothingComesBack() {
  ShowState(platform::FromUtf8(
      link::SilenceText(port_, "press Cancel and choose another port under Options, SerialPort.")));
}

void TransferDialog::ShowNote() {
  const std::optional<files::PartlyWritten> mark = marks_.At(port_.name);
  const bool shown = mark || outcome_.partly_written;
  note_->setVisible(shown);
  if (mark) {
    strip_->ShowMark(*mark);
  } else {
    strip_->HideMark();
  }
  FitHeight();
  if (!shown) return;
  QAccessibleEvent alert(note_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void TransferDialog::SetRunning(bool running) {
  ok_->setEnabled(!running);
  help_->setEnabled(!running);
  facts_->setEnabled(!running);
  arrow_->setVisible(running);
  if (running) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
    ok_->setFocus();
  }
}

// Once more means the same data: those that were filled from the radio are whole, and what it has
// stored wrongly since must not be taken for its own.
void TransferDialog::Run() {
  if (!IsPortAsShown()) return;
  const bool fills = job_.fill_from_radio;
  do {
    RunOnce();
    job_.fill_from_radio = false;
  } while (outcome_.ending == link::Ending::kDiffers && TellDifferences() && IsPortAsShown());
  job_.fill_from_radio = fills;
  TakeOutcome();
}

// A plug that slipped out may have given its number to the adapter of another radio.
bool TransferDialog::IsPortAsShown() {
  const link::PortLabel now = link::LabelOfPort(services_.ports, host_.PortNumber());
  if (port_.device.empty() || now.device.empty() || now.device == port_.device) return true;
  FollowPort();
  ShowState(tr("%1 is another device by now. Press OK again when it is the right one.")
                .arg(platform::FromUtf8(now.Text())));
  return false;
}

void TransferDialog::RunOnce() {
  SetRunning(true);
  // The run that mends the radio ends in a message, which must not stand beside the warning.
  if (job_.Programs()) note_->hide();
  strip_->HideMark();
  port_ = link::LabelOfPort(services_.ports, host_.PortNumber());
  ShowState(tr("Connecting on %1...").arg(platform::FromUtf8(port_.Text())));
  pace_ = {};
  phase_.clear();
  const std::unique_ptr<link::SerialPort> port = services_.make_port(host_.PortNumber());
  link::TransferSession session(
      job_.data, run_state_, {*port, services_.clock, services_.pump, services_.log, *this, port_},
      services_.prompts);
  const std::optional<files::PartlyWritten> mark =
      job_.fill_from_radio ? marks_.At(port_.name) : std::nullopt;
  const link::TransferOptions options{.keep_copy = facts_->KeepsCopy(),
                                      .read_back = facts_->ReadsBack(),
                                      .fill_from_radio = job_.fill_from_radio,
                                      .edited = job_.edited,
                                      .broken_run = mark ? marks_.Sent(*mark).data : nullptr,
                                      .put_back = job_.put_back,
                                      .only_look = job_.only_looks};
  ProgramKeeper keeper(host_, marks_, services_.clock, port_, job_.file);
  if (services_.interrupts == nullptr) {
    outcome_ = session.Run(job_.kind, options, &keeper);
  } else {
    const platform::WhileInterruptible cancel(*services_.interrupts, [this] { reject(); });
    outcome_ = session.Run(job_.kind, options, &keeper);
  }
  SetRunning(false);
  mark_failure_ = keeper.MarkFailure();
  if (outcome_.receipt) {
    receipt_ = outcome_.receipt;
    receipt_->file = job_.file;
  }
}

void TransferDialog::TakeOutcome() {
  const bool done = outcome_.ending == link::Ending::kDone;
  data_moved_ = data_moved_ || done || outcome_.partly_written;
  // A radio that was read is no better than before.
  if (done && job_.Programs()) {
    marks_.Settle(port_.name);
    if (IsPortOfMark()) marks_.Settle(job_.settles);
  }
  if (!run_state_.Error) {
    accept();
    return;
  }
  QString ending = platform::FromUtf8(link::EndingText(outcome_, port_));
  if (outcome_.partly_written && !mark_failure_.empty()) {
    ending += tr("\nThis is not remembered once the program ends: %1")
                  .arg(platform::FromUtf8(mark_failure_));
  }
  ShowState(ending);
  ShowNote();
}

bool TransferDialog::TellDifferences() {
  constexpr std::size_t kMostFields = 12;
  core::Message message = core::MakeMessage(
      core::MessageId::kRadioDiffers, platform::ToUtf8(windowTitle()),
      {{"fields", "\r\n" + files::FieldLines(files::DifferingFields(*receipt_), kMostFields)}});
  message.buttons = core::Buttons::kAgainReceiptClose;
  core::Answer answer = services_.prompts.Show(message);
  while (answer == core::Answer::kSaveReceipt) {
    SaveReceipt(services_, *receipt_);
    answer = services_.prompts.Show(message);
  }
  return answer == core::Answer::kProgramAgain;
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

}  // namespace orvane::editor
