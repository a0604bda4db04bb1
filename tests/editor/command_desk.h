#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/window_commands.h"
#include "image/sample_radio.h"
#include "link/simulated_port.h"
#include "window_desk.h"

namespace orvane::testing {

class ScriptedPrinter : public platform::ReportPrinter {
 public:
  [[nodiscard]] bool HasPrinter() const override { return has_printer; }
  [[nodiscard]] bool Ask(QWidget& /*parent*/) override { return chosen; }
  [[nodiscard]] std::optional<core::SystemError> Print(const core::RadioData& /*data*/,
                                                       core::Date /*today*/) override {
    ++printed;
    return failure;
  }
  bool has_printer = true;
  bool chosen = true;
  std::optional<core::SystemError> failure;
  int printed = 0;
};

class RecordingHelp : public help::HelpOpener {
 public:
  [[nodiscard]] bool HasHelp() const override { return has_help; }
  [[nodiscard]] std::optional<std::string> Open(QWidget& owner, int context) override {
    opened << QStringLiteral("%1 %2").arg(owner.objectName()).arg(context);
    return failure;
  }
  void Close() override { opened << QStringLiteral("closed"); }
  void Reopen() override { opened << QStringLiteral("reopened"); }
  bool has_help = true;
  std::optional<std::string> failure;
  QStringList opened;
};

/// The main window with its real commands, and a simulated radio at whichever port is opened.
struct CommandDesk : WindowDesk {
  explicit CommandDesk(core::FileStore* other_files = nullptr) : WindowDesk(other_files) {
    used_commands = &real_commands_;
    pump.on_wait = [this](double deadline) {
      if (waiting) waiting();
      return plugged_ == nullptr ? std::nullopt : plugged_->NextWake(deadline);
    };
    radio.SetObserver([this](const link::Exchange& exchange) {
      asked.push_back(exchange);
      if (on_exchange) on_exchange(exchange);
    });
  }

  [[nodiscard]] int Asked(link::ExchangeKind kind) const {
    int count = 0;
    for (const link::Exchange& exchange : asked) count += exchange.kind == kind ? 1 : 0;
    return count;
  }

  core::RadioData sample = image::MakeSampleRadio(5, clock.today);
  link::SimulatedRadio radio{
      link::RadioMemory(core::ProfileOf(sample), std::as_const(sample.Image).Used())};
  std::vector<link::Exchange> asked;
  std::function<void(const link::Exchange&)> on_exchange;
  std::function<void()> waiting;  ///< called each time that a transfer waits
  std::vector<int> opened_ports;
  ScriptedPrinter printer;
  RecordingHelp help;

 private:
  /// Lets the pump know which port lives.
  class PluggedPort : public link::SimulatedPort {
   public:
    explicit PluggedPort(CommandDesk& desk)
        : SimulatedPort(desk.radio, desk.clock, 9600), slot_(desk.plugged_) {
      slot_ = this;
    }
    PluggedPort(const PluggedPort&) = delete;
    PluggedPort& operator=(const PluggedPort&) = delete;
    ~PluggedPort() override { slot_ = nullptr; }

   private:
    SimulatedPort*& slot_;
  };

  link::SimulatedPort* plugged_ = nullptr;
  editor::WindowCommands real_commands_{Services(),
                                        {.make_port =
                                             [this](int number) {
                                               opened_ports.push_back(number);
                                               return std::make_unique<PluggedPort>(*this);
                                             },
                                         .printer = printer,
                                         .help = &help}};
};

}  // namespace orvane::testing
