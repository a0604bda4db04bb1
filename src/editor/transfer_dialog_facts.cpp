#include "core/app_settings.h"
#include "core/messages.h"
#include "editor/transfer_dialog.h"
#include "image/codec.h"
#include "link/radio_program.h"
#include "link/transfer_plan.h"
#include "platform/ansi_text.h"

/// What the dialog tells before it runs: port, data, problems, options, and what an earlier run has
/// left behind.
namespace orvane::editor {

void TransferDialog::AddFacts() {
  facts_ = new TransferFacts(this);
  Column().addWidget(facts_);
  connect(facts_, &TransferFacts::PortChosen, this, [this](int number) {
    host_.ChoosePort(number);
    FollowPort();
  });
  connect(facts_, &TransferFacts::FindCableAsked, this, [this] {
    find_cable_();
    FollowPort();
  });
  connect(facts_, &TransferFacts::ShowAsked, this, [this](core::FieldRef at) {
    field_to_show_ = at;
    reject();
  });
  connect(facts_, &TransferFacts::MendAsked, this, &TransferDialog::Mend);
  connect(facts_, &TransferFacts::CopyChosen, this, [this](bool keeps) {
    keeps_copy_ = keeps;
    core::AppSettings(services_.settings).SetKeepsCopyFirst(keeps);
  });
  connect(facts_, &TransferFacts::ReadBackChosen, this,
          [this](bool reads) { core::AppSettings(services_.settings).SetReadsBack(reads); });
}

// Another port is another radio.
void TransferDialog::FollowPort() {
  port_ = link::LabelOfPort(services_.ports, host_.PortNumber());
  facts_->ShowPorts(link::PortsNow(services_.ports), host_.PortNumber(), port_);
  ShowState(tr("Port: %1").arg(platform::FromUtf8(port_.Text())));
  ShowSubject();
  ShowOptions();
  ShowNote();
}

void TransferDialog::ShowFacts() {
  ShowSubject();
  ShowOptions();
  facts_->ShowProblems(job_.mend ? document::ProblemsForSending(job_.data, services_.clock.Today())
                                 : std::vector<document::SendingProblem>());
}

void TransferDialog::ShowSubject() {
  const bool simulated = link::IsSimulatedRadio(port_);
  const bool mixed = marks_.At(port_.name).has_value();
  if (job_.only_looks) {
    return facts_->ShowSubject({}, tr("Nothing is changed, neither here nor in the radio."));
  }
  if (!job_.Programs()) {
    QString text = tr("This replaces what is on the screen; Undo brings it back.");
    if (mixed) text += tr(" What comes in is mixed, partly of before and partly new.");
    if (simulated) text += tr(" It comes from the simulated radio, not from yours.");
    return facts_->ShowSubject({}, text);
  }
  const core::RadioData& sent = job_.data;
  QString text = simulated
                     ? tr("This replaces what the simulated radio holds. No real radio is written.")
                     : tr("This replaces what the radio holds.");
  if (!job_.settles.empty() && !IsPortOfMark()) {
    text += tr(" The radio that was left partly written was on %1.")
                .arg(platform::FromUtf8(job_.settles));
  }
  facts_->ShowSubject(
      (simulated ? tr("To the simulated radio: %1, model %2, destination %3")
                 : tr("To the radio: %1, model %2, destination %3"))
          .arg(platform::FromUtf8(job_.what), platform::FromAnsi(image::ModelName(sent)),
               platform::FromUtf8(core::BuiltInDestination(image::Sel1(sent.Image)))),
      text);
}

bool TransferDialog::IsPortOfMark() const {
  return !job_.settles.empty() && (job_.settles == port_.name || job_.settles == port_.device);
}

void TransferDialog::ShowOptions() {
  if (!job_.Programs()) return;
  const core::AppSettings settings(services_.settings);
  const std::string kept = host_.CopyWithinTheHour(job_.data.MODELTYPE);
  facts_->ShowOptions(
      link::SecondsOnWire(link::LoadOfReading(job_.data.Image.LastIndex())),
      link::SecondsOnWire(link::LoadOfReadingBack(job_.data)), platform::FromUtf8(kept),
      keeps_copy_.value_or(settings.KeepsCopyFirst() && kept.empty()), settings.ReadsBack());
}

void TransferDialog::Mend(document::ProblemKind kind) {
  job_.data = job_.mend(kind);
  ShowFacts();
  FitHeight();
}

bool TransferDialog::Take(const files::PartlyWritten& mark, files::Snapshot snapshot,
                          const char* what, bool put_back) {
  if (snapshot.data == nullptr) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kBackupDamaged,
                                             platform::ToUtf8(windowTitle()),
                                             {{"reason", snapshot.error}}));
    return false;
  }
  job_ = {.kind = link::SessionKind::kProgram,
          .data = std::move(*snapshot.data),
          .what = what,
          .file = snapshot.heading.file,
          .put_back = put_back,
          .settles = mark.port};
  setWindowTitle(platform::FromUtf8(link::ModeTitle(job_.kind)));
  TurnPictures();
  ShowFacts();
  FitHeight();
  return true;
}

bool TransferDialog::TakeSent(const files::PartlyWritten& mark) {
  return Take(mark, marks_.Sent(mark), "what was being written", false);
}

bool TransferDialog::TakeBefore(const files::PartlyWritten& mark) {
  return Take(mark, marks_.Before(mark), "what the radio held before", true);
}

void TransferDialog::Settle() {
  if (services_.prompts.Show(core::MakeMessage(
          core::MessageId::kSettle, platform::ToUtf8(windowTitle()))) != core::Answer::kYes) {
    return;
  }
  marks_.Settle(port_.name);
  outcome_.partly_written = false;
  ShowNote();
  ShowSubject();
}

}  // namespace orvane::editor
