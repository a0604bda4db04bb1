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

/// The main window, and a simulated radio at whichever port is opened.
struct CommandDesk : WindowDesk {
  explicit CommandDesk(core::FileStore* other_files = nullptr,
                       std::size_t history_bytes = document::Document::kHistoryBytes)
      : WindowDesk(other_files, history_bytes) {
    make_port = [this](int number) {
      opened_ports.push_back(number);
      return std::make_unique<PluggedPort>(*this);
    };
    pump.on_wait = [this](double deadline) {
      if (waiting) waiting();
      return plugged_ == nullptr ? std::nullopt : plugged_->NextWake(deadline);
    };
    Listen();
  }
  /// Another radio on the cable, with these contents and nothing asked of it.
  void PutRadio(core::RadioData contents) {
    sample = std::move(contents);
    radio = link::SimulatedRadio(
        link::RadioMemory(core::ProfileOf(sample), std::as_const(sample.Image).Used()));
    asked.clear();
    Listen();
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

 private:
  void Listen() {
    radio.SetObserver([this](const link::Exchange& exchange) {
      asked.push_back(exchange);
      if (on_exchange) on_exchange(exchange);
    });
  }

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
};

}  // namespace orvane::testing
