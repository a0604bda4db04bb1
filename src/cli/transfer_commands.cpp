#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/progress_view.h"
#include "core/app_settings.h"
#include "link/transfer_session.h"
#include "platform/qt_port_finder.h"

namespace orvane::cli {
namespace {

// Ctrl-C is the transfer dialog's Cancel button while this lives.
class CancelByInterrupt {
 public:
  CancelByInterrupt(platform::Interrupts& interrupts, core::RadioData& data, bool& cancelled)
      : interrupts_(interrupts) {
    interrupts_.Start([&data, &cancelled] {
      data.Flags.Cancel = true;
      cancelled = true;
    });
  }
  CancelByInterrupt(const CancelByInterrupt&) = delete;
  CancelByInterrupt& operator=(const CancelByInterrupt&) = delete;
  ~CancelByInterrupt() { interrupts_.Stop(); }

 private:
  platform::Interrupts& interrupts_;
};

std::string DeviceToOpen(const PortChoice& choice, link::PortFinder& finder) {
  if (const int* const number = std::get_if<int>(&choice)) {
    return platform::DeviceOfPort(finder, *number);
  }
  return std::get<std::string>(choice);
}

// A cancelled session shows no message of its own.
void TellCancelled(Workplace& place, link::SessionKind kind, bool partly_written) {
  core::Message message{std::string(link::ModeTitle(kind)), "cancelled"};
  if (partly_written) message.details = link::kPartlyWrittenNote;
  place.prompts.Show(message);
}

bool Transfer(Workplace& place, core::RadioData& data, link::SessionKind kind) {
  const std::unique_ptr<link::SerialPort> port =
      place.services.make_port(DeviceToOpen(place.options.port, place.services.ports));
  ProgressView view(place.err, place.prompts, place.services.clock, place.services.terminals.err);
  link::TransferSession session(
      data, {*port, place.services.clock, place.services.pump, place.log, view}, place.prompts);
  bool cancelled = false;
  const int shown_before = place.prompts.ShownCount();
  {
    const CancelByInterrupt cancel(place.services.interrupts, data, cancelled);
    static_cast<void>(session.Run(kind));
  }
  place.err.Finish();
  if (session.TransferDone()) return true;
  if (cancelled) {
    TellCancelled(place, kind, session.PartlyWritten());
  } else if (place.prompts.ShownCount() == shown_before) {
    // A radio that cannot be synchronised: the window's dialog stays open and shows nothing.
    place.prompts.Show({std::string(link::ModeTitle(kind)), "the radio does not answer"});
  }
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
  return options.raw ? place.documents.SaveImage(options.output, data)
                     : place.documents.Save(options.output, data);
}

bool RunProgram(Workplace& place) {
  core::RadioData data;
  return place.documents.Load(place.options.input, place.options.model, data) &&
         Transfer(place, data, link::SessionKind::kProgram);
}

}  // namespace orvane::cli
