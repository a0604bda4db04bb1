#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

#include "bench_data.h"
#include "core/field_ref.h"
#include "document/compare.h"
#include "document/document.h"
#include "document/find.h"
#include "document/problems.h"

namespace orvane::bench {
namespace {

constexpr std::size_t kSteps = 10'000;

std::unique_ptr<document::Contents> Used() {
  return std::make_unique<document::Contents>(document::Contents{.data = UsedRadio()});
}

/// A name of all its characters: the text of a step of its own.
void Rename(document::Document& document, std::size_t number) {
  const core::RadioData& data = document.Data();
  const core::ChannelRecord& channel = data.Marine[0][number % data.Marine[0].size()];
  std::string name = "NAME " + std::to_string(number);
  const auto at = core::RefTo<&core::ChannelRecord::ChTag>(data, channel);
  document.Edit(at, [&](core::RadioData& edited) { core::Set(edited, at, std::move(name)); });
}

void Edit(benchmark::State& state) {
  document::Document document(Used());
  std::size_t number = 0;
  for (auto _ : state) Rename(document, ++number);
}
BENCHMARK(Edit)->Unit(benchmark::kMicrosecond);

void UndoAndRedo(benchmark::State& state) {
  document::Document document(Used());
  Rename(document, 1);
  for (auto _ : state) {
    document.Undo();
    document.Redo();
  }
}
BENCHMARK(UndoAndRedo)->Unit(benchmark::kMicrosecond);

/// The memory of that many steps beside the time to make them.
void LongHistory(benchmark::State& state) {
  for (auto _ : state) {
    document::Document document(Used());
    for (std::size_t number = 1; number <= kSteps; ++number) Rename(document, number);
    if (document.Steps().size() != kSteps) std::abort();
    state.counters["bytes"] = static_cast<double>(document.HistorySize());
  }
}
BENCHMARK(LongHistory)->Unit(benchmark::kMillisecond)->Iterations(1);

void CompareWith(benchmark::State& state, const core::RadioData& theirs) {
  const core::RadioData ours = UsedRadio();
  for (auto _ : state) {
    const document::Comparison comparison = document::Compare(ours, theirs);
    state.counters["rows"] = static_cast<double>(comparison.rows.size());
  }
}
void CompareEqual(benchmark::State& state) {
  CompareWith(state, UsedRadio());
}
BENCHMARK(CompareEqual)->Unit(benchmark::kMicrosecond);

void CompareWithNew(benchmark::State& state) {
  CompareWith(state, document::NewContents(kModel, kToday).data);
}
BENCHMARK(CompareWithNew)->Unit(benchmark::kMicrosecond);

/// Three fields of every marine channel differ, and a byte of each run of the memory.
core::RadioData AllChannelsChanged() {
  core::RadioData theirs = UsedRadio();
  for (core::MarineTable& table : theirs.Marine) {
    for (core::ChannelRecord& channel : table) {
      channel.ChTag += "+";
      channel.TXPower ^= 1;
      channel.PowUp = !channel.PowUp;
    }
  }
  for (int at = 0; at < core::MemoryImage::kSize; at += core::kRunLength) theirs.Image[at] ^= 1;
  return theirs;
}
void CompareAllChannels(benchmark::State& state) {
  CompareWith(state, AllChannelsChanged());
}
BENCHMARK(CompareAllChannels)->Unit(benchmark::kMicrosecond);

/// Every field is listed, equal or not, as the window does it: by place, without the texts.
void ListAllFields(benchmark::State& state, const core::RadioData& theirs) {
  const core::RadioData ours = UsedRadio();
  for (auto _ : state) {
    const auto fields = document::CompareFields(ours, theirs, document::Listed::kAll);
    const auto memory = document::CompareMemory(ours, theirs);
    state.counters["rows"] = static_cast<double>(fields.size() + memory.size());
  }
}
void ListAllOfEqual(benchmark::State& state) {
  ListAllFields(state, UsedRadio());
}
BENCHMARK(ListAllOfEqual)->Unit(benchmark::kMicrosecond);

void ListAllOfAllChannelsChanged(benchmark::State& state) {
  ListAllFields(state, AllChannelsChanged());
}
BENCHMARK(ListAllOfAllChannelsChanged)->Unit(benchmark::kMicrosecond);

void ProblemsOf(benchmark::State& state, const core::RadioData& data) {
  for (auto _ : state) {
    state.counters["problems"] = static_cast<double>(document::FindProblems(data, kToday).size());
  }
}
void ProblemsOfAUsedRadio(benchmark::State& state) {
  ProblemsOf(state, UsedRadio());
}
BENCHMARK(ProblemsOfAUsedRadio)->Unit(benchmark::kMicrosecond);

void ProblemsOfANewDataSet(benchmark::State& state) {
  ProblemsOf(state, document::NewContents(kModel, kToday).data);
}
BENCHMARK(ProblemsOfANewDataSet)->Unit(benchmark::kMicrosecond);

/// Each marine channel is on, lets nothing out and has a name that comes back cut.
void ProblemsOfAllChannels(benchmark::State& state) {
  core::RadioData data = UsedRadio();
  for (core::MarineTable& table : data.Marine) {
    for (core::ChannelRecord& channel : table) {
      channel.Enable = channel.TxEnable = true;
      channel.LowPower = false;
      channel.TXPower = 0;
      channel.ChTag = "CH " + std::to_string(channel.Position) + ".A";
    }
  }
  ProblemsOf(state, data);
}
BENCHMARK(ProblemsOfAllChannels)->Unit(benchmark::kMicrosecond);

/// The whole search for what has been typed, by as many kinds of pieces as there are.
void FindTyped(benchmark::State& state, const char* typed) {
  const core::RadioData data = UsedRadio();
  for (auto _ : state) {
    state.counters["hits"] =
        static_cast<double>(document::Find(data, document::ParseQuery(typed)).size());
  }
}
BENCHMARK_CAPTURE(FindTyped, Number, "16")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(FindTyped, AllTransmit, "tx:yes")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(FindTyped, ManyPieces, "usa 156,8 distress scan:yes tx:yes")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orvane::bench
