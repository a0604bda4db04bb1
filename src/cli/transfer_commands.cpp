#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/progress_view.h"
#include "core/app_settings.h"
#include "core/messages.h"
#include "link/transfer_session.h"
#include "platform/qt_port_finder.h"

namespace orvane::cli {
namespace {

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

bool Transfer(Workplace& place, core::RadioData& data, link::SessionKind kind) {
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
    outcome = session.Run(kind);
  }
  place.err.Finish();
  if (outcome.ending == link::Ending::kDone) return true;
  if (outcome.ending != link::Ending::kDeclined) TellEnding(place, kind, outcome, label);
  return false;
}

}  // namespace

bool RunRead(Workplace& place) {
  const Options& options = place.options;
  core::RadioData data = place.documents.Fresh(*options.model);
  if (!place.documents.CheckOutput(options.output, data)) return false;
  if (!options.base.empty() && !place.documents.Load(options.base, options.model, data)) {
    return false;
  }
  if (!Transfer(place, data, link::SessionKind::kRead)) return false;
  if (Extension(options.output) == files::kSnapshotEnding) {
    return place.documents.SaveSnapshot(options.output, data,
                                        {place.services.clock.Timestamp(), "read",
                                         LabelOf(options.port, place.services.ports).Text()});
  }
  return options.raw ? place.documents.SaveImage(options.output, data)
                     : place.documents.Save(options.output, data);
}

bool RunProgram(Workplace& place) {
  core::RadioData data;
  return place.documents.Load(place.options.input, place.options.model, data) &&
         Transfer(place, data, link::SessionKind::kProgram);
}

}  // namespace orvane::cli
