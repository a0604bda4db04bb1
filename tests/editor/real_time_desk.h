#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "command_desk.h"
#include "platform/interrupts.h"
#include "platform/qt_clock.h"
#include "platform/qt_event_pump.h"

namespace orvane::testing {

/// The main window with its real commands, the program's own clock and its event loop.
struct RealTimeDesk : WindowDesk {
  using MakePort = std::function<std::unique_ptr<link::SerialPort>(const core::Clock& clock)>;

  RealTimeDesk(const char* model, MakePort make_real_port) {
    settings.Write("ModelPath", "ModelNum", model);
    used_clock = &real_clock;
    used_pump = &real_pump;
    interrupts = &real_interrupts;
    help.has_help = false;
    make_port = [this, make = std::move(make_real_port)](int /*number*/) {
      return make(real_clock);
    };
  }

  platform::QtClock real_clock;
  platform::QtEventPump real_pump{real_clock};
  platform::DesktopInterrupts real_interrupts;
};

/// That with a simulated radio of the smallest model whose bytes take no time on the wire.
struct RealTimeRadioDesk : RealTimeDesk {
  RealTimeRadioDesk()
      : RealTimeDesk("1", [this](const core::Clock& used) {
          return std::make_unique<link::SimulatedPort>(radio, used);
        }) {}

  core::RadioData sample = image::MakeSampleRadio(1, clock.today);
  link::SimulatedRadio radio{
      link::RadioMemory(core::ProfileOf(sample), std::as_const(sample.Image).Used())};
};

}  // namespace orvane::testing
