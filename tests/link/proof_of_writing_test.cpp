#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "support/program_bench.h"

/// What a program run must be proof against: a radio that lies, and a run that breaks off anywhere.
/// Some of the runs; with ORVANE_FAULT_RUNS in the environment all.
namespace orvane::link {
namespace {

using testing::ProgramBench;
using testing::RandomData;
using testing::TrueDifferences;

bool All() {
  return std::getenv("ORVANE_FAULT_RUNS") != nullptr;
}

TEST(RandomFaultsOfWriting, ReadingBackCatchesEveryLieAndAccusesNoHonestRadio) {
  const unsigned runs = All() ? 1000 : 140;
  int lies = 0;
  for (unsigned seed = 1; seed <= runs; ++seed) {
    SCOPED_TRACE(seed);
    RandomData random(seed);
    const core::RadioData desk = random.Of(static_cast<int>(seed % 7));
    const auto memory = RandomMemory(random, desk);
    ProgramBench honest(desk, memory);
    const TransferOutcome truth = honest.Run({.read_back = true});
    ASSERT_EQ(truth.ending, Ending::kDone) << "a false alarm";
    ASSERT_TRUE(truth.receipt->Verified());

    FaultPlan faults;
    for (int count = 1 + random.Below(3); count > 0; --count) {
      const int kind = kNoticedFaultKinds + random.Below(kFaultKinds - kNoticedFaultKinds);
      const int writes = static_cast<int>(honest.witness.Writes());
      Fault fault =
          MakeFault(static_cast<FaultKind>(kind), ExchangeKind::kWrite, 1 + random.Below(writes));
      if (fault.kind == FaultKind::kOtherStored) fault.value = 1 + random.Below(16);
      faults.Add(fault);
    }
    ProgramBench bench(desk, memory, 0, faults);
    const TransferOutcome outcome = bench.Run({.read_back = true});
    const auto differences = TrueDifferences(bench.data, bench.radio.radio.Memory());
    ASSERT_TRUE(outcome.receipt);
    ASSERT_EQ(outcome.receipt->mismatches, differences);
    ASSERT_EQ(outcome.ending, differences.empty() ? Ending::kDone : Ending::kDiffers);
    ASSERT_EQ(outcome.partly_written, !differences.empty());
    const std::vector<std::string> texts = bench.prompts.Texts();
    ASSERT_EQ(std::count(texts.begin(), texts.end(), "Complete!!"), differences.empty() ? 1 : 0);
    ASSERT_EQ(static_cast<bool>(bench.state.Error), !differences.empty());
    for (const Mismatch& mismatch : differences) {
      ASSERT_EQ(outcome.receipt->found[mismatch.address], mismatch.found);
    }
    lies += differences.empty() ? 0 : 1;
  }
  // A lie about what the radio held already is none.
  EXPECT_GT(lies, runs * 9 / 10);
  RecordProperty("lies", lies);
}

enum class Break { kUnplug, kCancel, kFault };

/// A run that breaks off at a write, counted from 1.
void BreakOff(ProgramBench& bench, Break how, int write, RandomData& random) {
  Fault fault = MakeFault(FaultKind::kUnplug, ExchangeKind::kWrite, write);
  fault.value = random.Below(70);
  if (how == Break::kFault) {
    fault = MakeFault(random.Below(2) == 0 ? FaultKind::kMissingReply : FaultKind::kUnknown,
                      ExchangeKind::kWrite, write);
  }
  if (how != Break::kCancel) bench.radio.radio.SetFaults(FaultPlan({fault}));
  bench.radio.radio.SetObserver([&, how, write, count = 0](const Exchange& exchange) mutable {
    if (exchange.kind != ExchangeKind::kWrite) return;
    if (++count == write && how == Break::kCancel) bench.state.Cancel = true;
  });
  const TransferOutcome outcome = bench.Run();
  ASSERT_NE(outcome.ending, Ending::kDiffers);
  ASSERT_EQ(outcome.partly_written, outcome.ending != Ending::kDone);
}

TEST(RandomFaultsOfWriting, AfterARunThatBrokeOffTheNewOrTheOldContentsComeBackWhole) {
  constexpr int kEach = 1;
  constexpr int kSample = 211;  // no divisor of what the loops count
  int next = 0;
  for (std::int16_t model = 0; model <= 6; ++model) {
    RandomData random(static_cast<unsigned>(model) + 100);
    const core::RadioData desk = random.Of(model);
    const auto old_memory = RandomMemory(random, desk);
    ProgramBench whole(desk, old_memory);
    ASSERT_EQ(whole.Run({.keep_copy = true}).ending, Ending::kDone);
    const auto new_memory = whole.Memory();
    const auto writes = static_cast<int>(whole.witness.Writes());
    for (const Break how : {Break::kUnplug, Break::kCancel, Break::kFault}) {
      for (int write = 1; write <= writes; ++write) {
        if (next++ % (All() ? kEach : kSample) != 0) continue;
        SCOPED_TRACE("model " + std::to_string(model) + ", way " +
                     std::to_string(static_cast<int>(how)) + ", write " + std::to_string(write));
        ProgramBench broken(desk, old_memory);
        BreakOff(broken, how, write, random);
        ProgramBench again(broken.data, broken.Memory());
        ASSERT_EQ(again.Run().ending, Ending::kDone);
        ASSERT_EQ(again.Memory(), new_memory);
        ProgramBench back(*whole.witness.kept, broken.Memory());
        ASSERT_EQ(back.Run({.put_back = true}).ending, Ending::kDone);
        ASSERT_EQ(back.Memory(), old_memory);
        ASSERT_TRUE(back.prompts.messages.size() == 1) << "a question about what was there before";
      }
    }
  }
  RecordProperty("places", next);
}

}  // namespace
}  // namespace orvane::link
