#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <set>

#include "image/codec.h"
#include "image/sample_radio.h"
#include "support/fault_runner.h"
#include "support/image_fixtures.h"

/// Every fault of the radio at every kind of place in a session, for every model, without time
/// passing. The random runs go on for ORVANE_FAULT_RUNS runs from ORVANE_FAULT_SEED.
namespace orvane::link {
namespace {

using testing::FaultCase;
using testing::FaultRunner;

std::vector<std::uint8_t> SampleMemory(std::int16_t model) {
  const core::RadioData sample = image::MakeSampleRadio(model, testing::kAfterCutOver);
  return RadioMemory(core::ProfileOf(model), sample.Image.Used());
}

// Contents that no radio holds. Without its channel groups a data set needs few blocks to program.
core::RadioData Desk(std::int16_t model, bool all_groups) {
  core::RadioData data = image::MakeSampleRadio(model, testing::kAfterCutOver);
  data.Common.SCAN = !data.Common.SCAN;
  data.Marine[0][20].ScanMemory = !data.Marine[0][20].ScanMemory;
  data.Marine[0][20].ChTag = "CHANGED";
  for (int i = 96; i < 160; ++i) data.Image[i] = static_cast<std::uint8_t>(data.Image[i] ^ 0x81);
  for (int i = 300; i < 310; ++i) data.Image[i] = static_cast<std::uint8_t>(data.Image[i] ^ 0x42);
  if (!all_groups) {
    for (core::UsableGroup& group : data.Usable) group.Enable = false;
    data.ExpPresent = false;
  }
  return data;
}

// What travels in an exchange without fault.
int SentBytes(const Exchange& exchange) {
  return exchange.line.empty() ? 1 : static_cast<int>(exchange.line.size()) + 2;
}
int AnswerBytes(const Exchange& exchange) {
  switch (exchange.kind) {
    case ExchangeKind::kHandshake:
      return 1;
    case ExchangeKind::kMode:
      return 4;
    case ExchangeKind::kSync:
    case ExchangeKind::kWrite:
      return 8;
    case ExchangeKind::kStatus:
      return 22;
    case ExchangeKind::kRead:
      return 28 + 2 * exchange.length;
    default:
      return 0;
  }
}

std::set<double> BytePlaces(int count) {
  std::set<double> places;
  for (const int place : {1, 2, 6, 7, 8, 9, count / 2, count - 2, count - 1, count}) {
    if (place >= 1 && place <= count) places.insert(place);
  }
  return places;
}

std::set<double> ValuesOf(FaultKind kind, const Exchange& exchange) {
  switch (kind) {
    case FaultKind::kWrongEcho:
    case FaultKind::kMissingEcho:
      return BytePlaces(SentBytes(exchange));
    case FaultKind::kGarbledReply:
      return BytePlaces(AnswerBytes(exchange));
    case FaultKind::kShortReply:
      return BytePlaces(AnswerBytes(exchange) - 1);
    case FaultKind::kUnplug: {
      std::set<double> places = BytePlaces(SentBytes(exchange) + AnswerBytes(exchange));
      places.insert(0);
      return places;
    }
    case FaultKind::kLateReply:
      return {0.5, 9.9, 15};
    case FaultKind::kOtherStatus:
      return {2, 16, 255};
    default:
      return {0};
  }
}

/// Indexes of the exchanges that stand for all: those before the bulk, and of each run of reads or
/// writes of one length without a gap the first, the middle and the last, with what follows them.
std::set<std::size_t> Places(const std::vector<Exchange>& exchanges) {
  std::set<std::size_t> places;
  std::vector<std::size_t> run;
  const auto close = [&] {
    if (run.empty()) return;
    for (const std::size_t i : {run.front(), run[run.size() / 2], run.back()}) {
      places.insert(i);
      if (exchanges[i].kind == ExchangeKind::kRead) places.insert(i + 1);
    }
    run.clear();
  };
  constexpr int kRowGap = 16;  // single bytes that are left out do not end a row
  for (std::size_t i = 0; i < exchanges.size(); ++i) {
    const Exchange& exchange = exchanges[i];
    const bool piece =
        exchange.kind == ExchangeKind::kRead || exchange.kind == ExchangeKind::kWrite;
    if (!piece) {
      if (exchange.kind != ExchangeKind::kClosing || run.empty()) places.insert(i);
      continue;
    }
    if (!run.empty()) {
      const Exchange& last = exchanges[run.back()];
      const bool joins =
          last.kind == exchange.kind && last.length == exchange.length &&
          (exchange.length > 1 ? exchange.address > last.address
                               : exchange.address / kRowGap == last.address / kRowGap);
      if (!joins) close();
    }
    run.push_back(i);
  }
  close();
  return places;
}

class FaultMatrix : public ::testing::TestWithParam<std::int16_t> {
 public:
  static FaultRunner MakeRunner(SessionKind kind, bool all_groups,
                                const TransferOptions& options = {}) {
    return {Desk(GetParam(), all_groups), SampleMemory(GetParam()), kind, options};
  }
  void TearDown() override { RecordProperty("runs", runs); }

  // Every fault that the exchange can show.
  void StrikeAt(const FaultRunner& runner, std::size_t index) {
    const Exchange& exchange = runner.Exchanges()[index];
    for (const FaultInfo& info : Faults()) {
      if (IsLie(info.kind) || !Affects(info.kind, exchange.kind)) continue;
      const bool asks = info.kind == FaultKind::kRefusal || info.kind == FaultKind::kBusy;
      for (const double value : ValuesOf(info.kind, exchange)) {
        for (const bool agree : asks ? std::vector{true, false} : std::vector{true}) {
          const FaultCase fault_case{
              .faults = {{.kind = info.kind, .number = exchange.number, .value = value}},
              .agree = agree};
          ++runs;
          ASSERT_EQ(runner.CheckSingle(fault_case, index), "") << CaseText(fault_case);
        }
      }
    }
  }
  void CancelAt(const FaultRunner& runner, std::size_t index) {
    constexpr double kLineSpeed = 9600;
    for (const int waits : {0, 1, 9, 30}) {
      const FaultCase fault_case{
          .cancel = testing::CancelPress{runner.Exchanges()[index].number, waits},
          .baud = kLineSpeed};
      ++runs;
      ASSERT_EQ(runner.Check(fault_case), "") << CaseText(fault_case);
    }
  }
  using Act = void (FaultMatrix::*)(const FaultRunner& runner, std::size_t index);
  void Everywhere(const FaultRunner& runner, Act act) {
    for (const std::size_t index : Places(runner.Exchanges())) {
      (this->*act)(runner, index);
      if (HasFatalFailure()) return;
    }
  }

  int runs = 0;
};

TEST_P(FaultMatrix, AFaultyReadEndsInTimeAndChangesNothing) {
  Everywhere(MakeRunner(SessionKind::kRead, true), &FaultMatrix::StrikeAt);
}

TEST_P(FaultMatrix, AFaultyProgramRunEndsInTimeAndCanBeRepeated) {
  Everywhere(MakeRunner(SessionKind::kProgram, false), &FaultMatrix::StrikeAt);
}

TEST_P(FaultMatrix, CancelEndsAReadAtAnyPlaceAndChangesNothing) {
  Everywhere(MakeRunner(SessionKind::kRead, true), &FaultMatrix::CancelAt);
}

TEST_P(FaultMatrix, CancelEndsAProgramRunAtAnyPlaceAndItCanBeRepeated) {
  Everywhere(MakeRunner(SessionKind::kProgram, false), &FaultMatrix::CancelAt);
}

std::optional<std::uint64_t> NumberFromEnvironment(const char* name) {
  const char* text = std::getenv(name);
  if (text == nullptr) return std::nullopt;
  return std::strtoull(text, nullptr, 10);
}

FaultCase RandomCase(std::uint64_t seed, const std::vector<Exchange>& exchanges) {
  std::mt19937_64 random(seed);
  const auto below = [&](std::uint64_t end) { return random() % end; };
  const auto exchange = [&] { return static_cast<int>(1 + below(exchanges.size())); };
  FaultCase fault_case{.seed = seed, .agree = below(2) == 0};
  if (below(2) == 0) fault_case.percent = std::array{0.1, 1.0, 10.0, 50.0}[below(4)];
  for (std::uint64_t count = below(4); count > 0; --count) {
    Fault fault = MakeFault(static_cast<FaultKind>(below(kNoticedFaultKinds)), exchange());
    if (InfoOf(fault.kind).max_value > 0) fault.value = static_cast<double>(below(70));
    if (below(8) == 0) fault.number = 0;  // every time
    fault_case.faults.push_back(fault);
  }
  if (below(4) == 0) {
    fault_case.cancel = testing::CancelPress{exchange(), static_cast<int>(below(40))};
  }
  if (below(8) == 0) fault_case.baud = 9600;
  return fault_case;
}

TEST_P(FaultMatrix, RandomFaultsKeepEveryPromise) {
  constexpr std::uint64_t kUsualRuns = 1400;
  const std::uint64_t all_runs = NumberFromEnvironment("ORVANE_FAULT_RUNS").value_or(kUsualRuns);
  const std::uint64_t first = NumberFromEnvironment("ORVANE_FAULT_SEED").value_or(1);
  constexpr std::uint64_t kModels = 7;
  const auto model = static_cast<std::uint64_t>(GetParam());
  const FaultRunner read = MakeRunner(SessionKind::kRead, true);
  const FaultRunner program = MakeRunner(SessionKind::kProgram, false);
  const FaultRunner program_all = MakeRunner(SessionKind::kProgram, true);
  const FaultRunner proven =
      MakeRunner(SessionKind::kProgram, false, {.keep_copy = true, .read_back = true});
  // Seeds are shared out among the models, so that a seed stands for its model too.
  for (std::uint64_t seed = first; seed < first + all_runs; ++seed) {
    if (seed % kModels != model) continue;
    const FaultRunner& runner = seed % 3 == 0    ? read
                                : seed % 10 == 1 ? program_all
                                : seed % 10 == 4 ? proven
                                                 : program;
    const FaultCase fault_case = RandomCase(seed, runner.Exchanges());
    ++runs;
    ASSERT_EQ(runner.Check(fault_case), "")
        << "ORVANE_FAULT_SEED=" << seed << " ORVANE_FAULT_RUNS=1: " << CaseText(fault_case);
  }
}

INSTANTIATE_TEST_SUITE_P(Models, FaultMatrix, ::testing::Range<std::int16_t>(0, 7));

}  // namespace
}  // namespace orvane::link
