#include "editor/simulated_radio.h"

#include <QBoxLayout>
#include <optional>
#include <string>
#include <vector>

#include "core/messages.h"
#include "core/model_profile.h"
#include "core/product.h"
#include "editor/working.h"
#include "link/port_name.h"
#include "link/radio_program.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr double kTimeToStart = 10;  // seconds; it takes a tenth of one on an idle computer

QString NameOf(int number) {
  return platform::FromUtf8(link::PortName(number));
}

}  // namespace

SimulatedRadio::SimulatedRadio(const WindowServices& services, CommandHost& host,
                               const Menus& menus, SerialPortMenu& ports, QBoxLayout& column)
    : services_(services),
      host_(host),
      menus_(menus),
      ports_(ports),
      marks_(services.files, services.marks_folder),
      column_(column) {
  const QString why_not = services_.radio == nullptr
                              ? tr("This program comes without a simulated radio")
                              : platform::FromUtf8(services_.radio->WhyNone());
  menus_.simulated_radio->setEnabled(why_not.isEmpty());
  if (!why_not.isEmpty()) menus_.simulated_radio->setToolTip(why_not);
  connect(menus_.simulated_radio, &QAction::triggered, this, &SimulatedRadio::Try);
  connect(menus_.end_simulated, &QAction::triggered, this, &SimulatedRadio::End);
  if (services_.radio != nullptr) services_.radio->WhenLost([this] { TellThatItIsLost(); });
}

SimulatedRadio::~SimulatedRadio() {
  if (services_.radio == nullptr) return;
  services_.radio->WhenLost({});
  EndProcess();
}

void SimulatedRadio::Try() {
  if (services_.radio == nullptr || !host_.CheckPage()) return;
  const std::int16_t model_type = services_.document.Data().MODELTYPE;
  const bool runs = services_.radio->PortNumber() && model_type == model_type_;
  if (!runs || !ports_.Borrow(number_)) return Run(model_type);
  host_.ShowNotice(tr("The simulated radio runs already, on %1.").arg(NameOf(number_)));
}

void SimulatedRadio::Run(std::int16_t model_type) {
  GiveBack();
  const std::string failure = Start(model_type);
  if (!failure.empty()) {
    GiveBack();
    if (strip_ != nullptr) strip_->hide();
    services_.prompts.Show(core::MakeMessage(core::MessageId::kSimulatedRadioFailed,
                                             core::kProgramTitle, {{"reason", failure}}));
    return;
  }
  TellThatItRuns();
}

// The reason why it did not come up, "" when it did.
std::string SimulatedRadio::Start(std::int16_t model_type) {
  link::RadioProcess& radio = *services_.radio;
  const std::vector<int> numbers = link::NumbersForSimulatedRadio(
      link::PortsNow(services_.ports),
      [this](int number) { return marks_.At(link::PortName(number)).has_value(); });
  if (numbers.empty()) return "Each port number from COM1 to COM16 has a port.";
  {
    const Working working(host_.Widget());
    radio.Start(model_type, numbers);
    const double deadline = services_.clock.Now() + kTimeToStart;
    while (radio.IsRunning() && !radio.PortNumber() && services_.clock.Now() < deadline) {
      services_.pump.WaitForEvents(deadline);
    }
  }
  if (!radio.PortNumber()) {
    return radio.IsRunning() ? "It had no port after ten seconds." : radio.WhyEnded();
  }
  number_ = *radio.PortNumber();
  model_type_ = model_type;
  return ports_.Borrow(number_) ? std::string() : "Its port is not among the ports there are.";
}

void SimulatedRadio::TellThatItRuns() {
  menus_.end_simulated->setEnabled(true);
  menus_.end_simulated->setToolTip(tr("Takes its port away and chooses the one of before"));
  const QString model = platform::FromUtf8(core::ProfileOf(services_.document.Data()).model);
  Strip().Tell(tr("%1 is the simulated radio, a %2. No real radio is read or written there, and "
                  "what it holds is gone when it ends.")
                   .arg(NameOf(number_), model));
  host_.ShowNotice(tr("%1 is the simulated radio.").arg(NameOf(number_)));
}

// The port stays chosen: under an open dialog it must not turn into another radio's.
void SimulatedRadio::TellThatItIsLost() {
  Strip().Tell(tr("The simulated radio on %1 has ended by itself: %2")
                   .arg(NameOf(number_), platform::FromUtf8(services_.radio->WhyEnded())));
}

void SimulatedRadio::End() {
  if (number_ == 0) return;
  GiveBack();
  host_.ShowPartlyWritten();
  Strip().hide();
  host_.ShowNotice(
      tr("The simulated radio has ended. The port is %1.").arg(NameOf(ports_.PortNumber())));
}

void SimulatedRadio::EndProcess() {
  services_.radio->Stop();
  if (number_ != 0) marks_.Settle(link::PortName(number_));
  number_ = 0;
}

void SimulatedRadio::GiveBack() {
  EndProcess();
  ports_.GiveBack();
  menus_.end_simulated->setEnabled(false);
  menus_.end_simulated->setToolTip(tr("No simulated radio runs"));
}

SimulatedRadioStrip& SimulatedRadio::Strip() {
  if (strip_ == nullptr) {
    strip_ = new SimulatedRadioStrip(*menus_.end_simulated, &host_.Widget());
    column_.insertWidget(0, strip_);
  }
  return *strip_;
}

}  // namespace orvane::editor
