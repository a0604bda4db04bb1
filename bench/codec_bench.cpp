#include <benchmark/benchmark.h>

#include "bench_data.h"
#include "image/codec.h"
#include "image/memory_map.h"

namespace orvane::bench {
namespace {

void DecodeAndEncode(benchmark::State& state) {
  core::RadioData data = UsedRadio();
  for (auto _ : state) {
    image::DecodeAll(data);
    image::EncodeAll(data, kToday);
    benchmark::DoNotOptimize(data.Image.Used().data());
  }
}
BENCHMARK(DecodeAndEncode)->Unit(benchmark::kMicrosecond);

void ConsistencyPass(benchmark::State& state) {
  core::RadioData data = UsedRadio();
  for (auto _ : state) image::ConsistencyPass(data);
}
BENCHMARK(ConsistencyPass)->Unit(benchmark::kMicrosecond);

void CopyDataSet(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  for (auto _ : state) {
    core::RadioData copy = data;
    benchmark::DoNotOptimize(copy.Image.Used().data());
  }
}
BENCHMARK(CopyDataSet)->Unit(benchmark::kMicrosecond);

void MemoryMap(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  for (auto _ : state) benchmark::DoNotOptimize(image::MemoryMap(data).size());
}
BENCHMARK(MemoryMap)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvane::bench
