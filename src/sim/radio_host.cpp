#include "sim/radio_host.h"

#include <algorithm>
#include <ostream>
#include <utility>
#include <vector>

#include "link/port_name.h"
#include "link/radio_program.h"

namespace orvane::sim {

RadioHost::RadioHost(link::SimulatedRadio& radio, const HostSettings& settings, Services services)
    : radio_(radio),
      settings_(settings),
      services_(std::move(services)),
      cable_(radio, settings.baud) {
  radio_.SetObserver([this](const link::Exchange& exchange) {
    if (services_.log) services_.log(link::ExchangeText(exchange));
    const bool stored = exchange.kind == link::ExchangeKind::kWrite && exchange.length > 0;
    if (stored && services_.save) save_at_ = services_.terminal.Now() + kSaveAfter;
  });
}

int RadioHost::Run() {
  if (!PutPlugIn()) return 1;
  do {
    TakeFromPc();
    DeliverToPc();
    const double now = services_.terminal.Now();
    if (save_at_ && *save_at_ <= now) Save();
    if (replug_at_ && *replug_at_ <= now && !PutPlugIn()) return 1;
  } while (services_.terminal.Wait(NextTime()));
  if (save_at_) Save();
  services_.registration.Withdraw();
  return save_failed_ ? 1 : 0;
}

bool RadioHost::PutPlugIn() {
  replug_at_.reset();
  if (const std::optional<core::SystemError> error = services_.terminal.Open()) {
    services_.err << "orvane-radio: no device can be made: " << error->description << std::endl;
    return false;
  }
  const std::string device = services_.terminal.Device();
  const std::string reason = services_.registration.Register(device);
  if (!reason.empty()) {
    services_.err << "orvane-radio: " << reason << std::endl;
    return false;
  }
  radio_.PlugIn();
  services_.out << link::RadioReadyLine(services_.registration.Number(), device) << std::endl;
  return true;
}

void RadioHost::TakeFromPc() {
  if (replug_at_) return;
  const std::vector<std::uint8_t> bytes = services_.terminal.Read();
  if (!bytes.empty()) cable_.Transmit(bytes, services_.terminal.Now());
}

void RadioHost::DeliverToPc() {
  std::vector<std::uint8_t> bytes;
  bool unplugged = false;
  while (const auto arrival = cable_.Take(services_.terminal.Now())) {
    if (arrival->byte) {
      bytes.push_back(*arrival->byte);
    } else {
      unplugged = true;
    }
  }
  if (!bytes.empty() && !replug_at_) services_.terminal.Write(bytes);
  if (unplugged) PullPlug();
}

void RadioHost::PullPlug() {
  services_.registration.Withdraw();
  services_.terminal.HangUp();
  services_.out << link::PortName(services_.registration.Number()) << " is unplugged" << std::endl;
  replug_at_ = services_.terminal.Now() + settings_.replug_seconds;
}

void RadioHost::Save() {
  const std::optional<core::SystemError> error = services_.save(radio_.Memory());
  save_at_.reset();
  save_failed_ = error.has_value();
  if (error) {
    services_.err << "orvane-radio: the memory cannot be saved: " << error->description
                  << std::endl;
  }
}

std::optional<double> RadioHost::NextTime() const {
  std::optional<double> next;
  for (const std::optional<double>& time : {cable_.NextArrival(), replug_at_, save_at_}) {
    if (time && (!next || *time < *next)) next = time;
  }
  return next;
}

}  // namespace orvane::sim
