#include <gtest/gtest.h>

#include "image/sample_radio.h"
#include "link/transfer_session.h"
#include "support/golden.h"
#include "support/image_fixtures.h"
#include "support/scripted_port.h"
#include "support/simulated_bench.h"

namespace orvane::link {
namespace {

// All that the PC sends, byte for byte, single bytes as they are and lines without their end.
std::string Sent(std::int16_t model, SessionKind kind) {
  core::RadioData data = image::MakeSampleRadio(model, testing::kAfterCutOver);
  testing::SimulatedBench bench(RadioMemory(core::ProfileOf(model), data.Image.Used()));
  data.Common.SCAN = !data.Common.SCAN;
  data.Usable[1].Enable = false;
  std::string sent;
  bench.radio.SetObserver([&](const Exchange& exchange) {
    if (exchange.kind == ExchangeKind::kHandshake) sent += "P";
    if (exchange.kind == ExchangeKind::kConfirm) sent += "0";
    sent += exchange.line + "\n";
  });
  core::RunState state;
  testing::RecordingLog log;
  testing::RecordingView view;
  testing::ScriptedPrompts prompts;
  TransferSession session(data, state, {bench.port, bench.clock, bench.pump, log, view}, prompts);
  EXPECT_EQ(session.Run(kind).ending, Ending::kDone);
  return sent;
}

// Recorded before there were options.
TEST(Exchange, WithoutOptionsARunSendsWhatItAlwaysSent) {
  testing::ExpectGolden("exchange_read_model1.txt", Sent(1, SessionKind::kRead));
  testing::ExpectGolden("exchange_program_model5.txt", Sent(5, SessionKind::kProgram));
}

}  // namespace
}  // namespace orvane::link
