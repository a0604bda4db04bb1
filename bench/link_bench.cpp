#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>

#include "bench_data.h"
#include "link/simulated_port.h"
#include "link/transfer_session.h"

namespace orvane::bench {
namespace {

class JumpingClock : public core::Clock {
 public:
  [[nodiscard]] double Now() const override { return now; }
  [[nodiscard]] core::Date Today() const override { return kToday; }
  [[nodiscard]] std::string Timestamp() const override { return "2026-06-15 12:00:00"; }
  void Pause(double seconds) override { now += seconds; }
  double now = 0;
};

class JumpingPump : public core::EventPump {
 public:
  JumpingPump(JumpingClock& clock, link::SimulatedPort& port) : clock_(clock), port_(port) {}
  void WaitForEvents(double deadline) override {
    clock_.now = std::max(clock_.now, port_.NextWake(deadline).value_or(deadline + 1));
  }
  void ProcessEvents() override {}

 private:
  JumpingClock& clock_;
  link::SimulatedPort& port_;
};

class Nobody : public core::Prompts, public core::ErrorLog, public link::TransferView {
 public:
  core::Answer Show(const core::Message& /*message*/) override { return core::Answer::kOk; }
  void Write(std::string_view /*routine*/, std::string_view /*message*/) override {}
  void Monitor(std::string_view /*text*/) override {}
  void ShowProgress(int /*percent*/) override {}
  void BlockDone(int /*address*/, std::size_t /*so_far*/, std::size_t /*total*/) override {}
  void NothingComesBack() override {}
};

/// Both sides of a whole session, without the time on the wire.
void WholeSession(benchmark::State& state, link::SessionKind kind) {
  const core::RadioData used = UsedRadio();
  const auto memory = link::RadioMemory(core::ProfileOf(used), used.Image.Used());
  Nobody nobody;
  for (auto _ : state) {
    core::RadioData data = used;
    link::SimulatedRadio radio(memory);
    JumpingClock clock;
    link::SimulatedPort port(radio, clock);
    JumpingPump pump(clock, port);
    core::RunState run_state;
    link::TransferSession session(data, run_state, {port, clock, pump, nobody, nobody}, nobody);
    if (session.Run(kind).ending != link::Ending::kDone) std::abort();
  }
}
BENCHMARK_CAPTURE(WholeSession, Read, link::SessionKind::kRead)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeSession, Program, link::SessionKind::kProgram)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvane::bench
