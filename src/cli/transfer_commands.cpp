#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/commands.h"
#include "cli/progress_view.h"
#include "cli/receipt_json.h"
#include "cli/same_file.h"
#include "core/app_settings.h"
#include "core/messages.h"
#include "core/product.h"
#include "core/text.h"
#include "files/partly_written.h"
#include "files/receipt_text.h"
#include "files/settings_file.h"
#include "link/fill_from_radio.h"
#include "link/transfer_session.h"
#include "platform/qt_port_finder.h"

namespace orvane::cli {

std::string DeviceToOpen(const PortChoice& choice, link::PortFinder& finder) {
  if (const int* const number = std::get_if<int>(&choice)) {
    return platform::DeviceOfPort(finder, *number);
  }
  return std::get<std::string>(choice);
}

link::PortLabel LabelOf(const PortChoice& choice, link::PortFinder& finder) {
  if (const int* const number = std::get_if<int>(&choice)) {
    return link::LabelOfPort(finder, *number);
  }
  return {std::get<std::string>(choice), {}};
}

namespace {

/// The name by which the window knows the port as well: a device that the system lists has its
/// number.
std::string NameOf(const PortChoice& choice, link::PortFinder& finder) {
  const link::PortLabel label = LabelOf(choice, finder);
  for (const link::FoundPort& port : finder.FindPorts()) {
    if (IsSameFile(port.device, label.name)) return port.name;
  }
  return label.name;
}

files::PartlyWrittenMarks MarksOf(Workplace& place) {
  return {place.services.files, place.services.marks_folder};
}

/// Of the radio at the port of the command, when an earlier run left it partly written.
std::optional<files::PartlyWritten> MarkHere(Workplace& place) {
  return MarksOf(place).At(NameOf(place.options.port, place.services.ports));
}

void TellMark(Workplace& place, link::SessionKind kind) {
  const std::optional<files::PartlyWritten> mark = MarkHere(place);
  if (!mark) return;
  core::Message message{std::string(link::ModeTitle(kind)), mark->Text()};
  if (kind == link::SessionKind::kRead) {
    message.details = "What comes in is mixed, partly of before and partly new.";
  }
  place.prompts.Show(message);
}

/// The file of an earlier --keep may be all that is left of what the radio held before the run that
/// did not complete: by now it holds a mixture.
bool MayKeep(Workplace& place) {
  const std::string& path = place.options.keep;
  if (path.empty() || !MarkHere(place) || !place.services.files.FileSize(path)) return true;
  place.prompts.Show(
      core::MakeMessage(core::MessageId::kKeptAlready, core::kProgramToRadio, {{"path", path}}));
  return false;
}

/// Writes the file of --keep, and marks the radio as partly written from the first byte on.
class CopyKeeper : public link::ProgramWitness {
 public:
  CopyKeeper(Workplace& place, files::SnapshotHeading heading)
      : place_(place), heading_(std::move(heading)) {}
  std::optional<core::SystemError> RadioWasRead(const core::RadioData& radio) override {
    before_ = std::make_unique<core::RadioData>(radio);
    const std::string& path = place_.options.keep;
    std::optional<core::SystemError> error = place_.documents.SaveCopy(path, radio, heading_);
    if (error) error->description = path + ": " + error->description;
    return error;
  }
  void WritingBegins(const core::RadioData& sent) override {
    const std::string port = NameOf(place_.options.port, place_.services.ports);
    const std::optional<core::SystemError> failure = MarksOf(place_).Begin(
        port, {heading_.made, files::kOriginProgrammed, heading_.port, place_.options.input}, sent,
        before_.get());
    // Programming goes on: what it writes is what was asked for.
    if (failure) {
      place_.err.Lines() << "Should it break off, this will not be remembered: "
                         << failure->description << '\n';
    }
  }

 private:
  Workplace& place_;
  files::SnapshotHeading heading_;
  std::unique_ptr<core::RadioData> before_;
};

void TellDifferences(Workplace& place, const link::Receipt& receipt) {
  constexpr std::size_t kMostLines = 100;
  const std::string lines = files::FieldLines(files::DifferingFields(receipt), kMostLines);
  place.prompts.Show(core::MakeMessage(core::MessageId::kRadioDiffers, core::kProgramToRadio,
                                       {{"fields", "\r\n" + lines}}));
}

// What a message of the session has said already, the block apart, is not said again.
void TellEnding(Workplace& place, link::SessionKind kind, const link::TransferOutcome& outcome,
                const link::PortLabel& port) {
  const bool cancelled = outcome.ending == link::Ending::kCancelled;
  if (!cancelled && outcome.said && !outcome.block) return;
  if (!cancelled && !outcome.said) {
    place.prompts.Show(core::MakeMessage(core::MessageId::kRadioSilent, link::ModeTitle(kind),
                                         {{"port", port.Text()}}));
    return;
  }
  core::Message message{std::string(link::ModeTitle(kind)), link::EndingText(outcome, port)};
  if (cancelled && outcome.partly_written) message.details = core::kPartlyWrittenText;
  place.prompts.Show(message);
}

link::TransferOutcome Transfer(Workplace& place, core::RadioData& data, link::SessionKind kind,
                               const link::TransferOptions& options = {},
                               link::ProgramWitness* witness = nullptr) {
  const PortChoice& choice = place.options.port;
  const link::PortLabel label = LabelOf(choice, place.services.ports);
  const std::unique_ptr<link::SerialPort> port =
      place.services.make_port(DeviceToOpen(choice, place.services.ports));
  ProgressView view(place.err, place.prompts, place.services.clock, place.services.terminals.err,
                    label);
  link::TransferSession session(
      data, place.state, {*port, place.services.clock, place.services.pump, place.log, view, label},
      place.prompts);
  link::TransferOutcome outcome;
  {
    const platform::WhileInterruptible cancel(place.services.interrupts,
                                              [&place] { place.state.Cancel = true; });
    outcome = session.Run(kind, options, witness);
  }
  place.err.Finish();
  switch (outcome.ending) {
    case link::Ending::kDone:
    case link::Ending::kDeclined:
      break;
    case link::Ending::kDiffers:
      TellDifferences(place, *outcome.receipt);
      break;
    default:
      TellEnding(place, kind, outcome, label);
  }
  return outcome;
}

// What the file to program does not hold comes from --base, or else from the radio.
bool LoadToProgram(Workplace& place, core::RadioData& data) {
  const Options& options = place.options;
  if (!place.documents.Load(options.input, options.model, data)) return false;
  if (options.base.empty()) return true;
  core::RadioData base;
  if (!place.documents.Load(options.base, data.MODELTYPE, base)) return false;
  link::FillFromRadio(data, base);
  return true;
}

bool SaveReceipt(Workplace& place, link::Receipt receipt) {
  receipt.file = place.options.input;
  const std::vector<files::DifferingField> fields = files::DifferingFields(receipt);
  const std::string& path = place.options.receipt;
  return place.documents.SaveText(path, Extension(path) == ".json"
                                            ? ReceiptJson(receipt, fields)
                                            : files::ReceiptText(receipt, fields));
}

}  // namespace

bool RunRead(Workplace& place) {
  const Options& options = place.options;
  core::RadioData data = place.documents.Fresh(*options.model);
  if (!place.documents.CheckOutput(options.output, data)) return false;
  if (!options.base.empty() && !place.documents.Load(options.base, options.model, data)) {
    return false;
  }
  TellMark(place, link::SessionKind::kRead);
  if (Transfer(place, data, link::SessionKind::kRead).ending != link::Ending::kDone) return false;
  if (Extension(options.output) == files::kSnapshotEnding) {
    return place.documents.SaveSnapshot(options.output, data,
                                        {place.services.clock.Timestamp(), files::kOriginRead,
                                         LabelOf(options.port, place.services.ports).Text()});
  }
  return options.raw ? place.documents.SaveImage(options.output, data)
                     : place.documents.Save(options.output, data);
}

bool RunProgram(Workplace& place) {
  const Options& options = place.options;
  core::RadioData data;
  if (!LoadToProgram(place, data)) return false;
  for (const std::string& path : {options.keep, options.receipt}) {
    if (!path.empty() && !place.documents.CheckOutput(path, data)) return false;
  }
  TellMark(place, link::SessionKind::kProgram);
  if (!MayKeep(place)) return false;
  const std::optional<files::PartlyWritten> mark = MarkHere(place);
  CopyKeeper keeper(place, {place.services.clock.Timestamp(), files::kOriginBefore,
                            LabelOf(options.port, place.services.ports).Text()});
  const link::TransferOutcome outcome =
      Transfer(place, data, link::SessionKind::kProgram,
               {.keep_copy = !options.keep.empty(),
                .read_back = options.verify,
                .fill_from_radio =
                    Extension(options.input) == files::kSettingsEnding && options.base.empty(),
                .broken_run = mark ? MarksOf(place).Sent(*mark).data : nullptr},
               &keeper);
  if (outcome.ending == link::Ending::kDone) {
    MarksOf(place).Settle(NameOf(options.port, place.services.ports));
  }
  const bool told =
      !outcome.receipt || options.receipt.empty() || SaveReceipt(place, *outcome.receipt);
  // Who asked for proof and got none is not done.
  return told && outcome.ending == link::Ending::kDone && !outcome.not_read_back;
}

}  // namespace orvane::cli
