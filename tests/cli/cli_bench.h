#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "cli/run.h"
#include "image/sample_radio.h"
#include "support/scripted_devices.h"
#include "support/simulated_bench.h"

namespace orvane::cli {

class OnePort : public link::PortFinder {
 public:
  [[nodiscard]] std::vector<link::FoundPort> FindPorts() override { return ports; }
  std::vector<link::FoundPort> ports = {{"COM16", "Simulated radio (COM16)", "/dev/radio"}};
};

class ScriptedInterrupts : public platform::Interrupts {
 public:
  void Start(std::function<void()> on_interrupt) override { press = std::move(on_interrupt); }
  void Stop() override { press = nullptr; }
  [[nodiscard]] bool WaitForInput() override { return input_comes; }

  std::function<void()> press;  ///< set while a transfer runs
  bool input_comes = true;
};

/// The command line over files in memory and a simulated radio of model 5.
class CliBench : public ::testing::Test {
 protected:
  int Run(const std::vector<std::string>& words, const std::string& typed = {}) {
    std::istringstream in(typed);
    std::ostringstream out;
    std::ostringstream err;
    const int status = cli::Run(words, in, out, err, services);
    out_ = out.str();
    err_ = err.str();
    return status;
  }
  [[nodiscard]] bool ErrHas(const std::string& text) const {
    return err_.find(text) != std::string::npos;
  }

  /// A port to the radio, which the clock follows from now on.
  std::unique_ptr<link::SerialPort> MakePort(const std::string& device) {
    opened.push_back(device);
    auto port = std::make_unique<link::SimulatedPort>(bench.radio, bench.clock, 0);
    bench.pump.on_wait = [cable = port.get()](double deadline) {
      return cable->NextWake(deadline);
    };
    return port;
  }

  core::RadioData sample = image::MakeSampleRadio(5, testing::ManualClock().Today());
  testing::SimulatedBench bench{link::RadioMemory(core::ProfileOf(5), sample.Image.Used())};
  testing::MemoryFiles files;
  testing::RecordingLog log;
  OnePort ports;
  ScriptedInterrupts interrupts;
  testing::ScriptedDevices devices;
  std::vector<std::string> opened;  ///< devices that ports were made for
  core::FileBytes pdf = {std::nullopt, "%PDF-"};
  Services services{files,
                    bench.clock,
                    bench.pump,
                    log,
                    ports,
                    interrupts,
                    [this](const std::string& device) { return MakePort(device); },
                    [this](const core::RadioData&) { return pdf; },
                    {},
                    "/backups",
                    &devices,
                    "/marks"};
  std::string out_;
  std::string err_;
};

}  // namespace orvane::cli
