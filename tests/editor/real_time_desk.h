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

  RealTimeDesk(const char* model, MakePort make_port) {
    settings.Write("ModelPath", "ModelNum", model);
    used_clock = &real_clock;
    used_pump = &real_pump;
    real_commands = std::make_unique<editor::WindowCommands>(
        Services(), editor::WindowCommands::Devices{
                        .make_port = [this, make_port = std::move(make_port)](
                                         int /*number*/) { return make_port(real_clock); },
                        .printer = printer,
                        .help = nullptr,
                        .interrupts = &interrupts});
    used_commands = real_commands.get();
  }

  platform::QtClock real_clock;
  platform::QtEventPump real_pump{real_clock};
  ScriptedPrinter printer;
  platform::DesktopInterrupts interrupts;
  std::unique_ptr<editor::WindowCommands> real_commands;
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
