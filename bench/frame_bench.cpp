#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "bench_data.h"
#include "link/clone_frame.h"

namespace orvane::bench {
namespace {

constexpr int kAddress = 0x1234;

void BuildReadFrame(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        link::BuildFrame(link::kCommandRead, link::AddressField(kAddress), link::LengthField(16)));
  }
}
BENCHMARK(BuildReadFrame);

void BuildWriteFrame(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  const auto block = data.Image.Used().subspan(kAddress, 16);
  for (auto _ : state) {
    benchmark::DoNotOptimize(link::BuildFrame(link::kCommandWrite, link::AddressField(kAddress),
                                              link::LengthField(16), link::HexData(block)));
  }
}
BENCHMARK(BuildWriteFrame);

void VerifyDataLine(benchmark::State& state) {
  std::string line = link::BuildFrame(link::kCommandData, link::AddressField(kAddress),
                                      link::LengthField(16), std::string(32, 'A'));
  line.resize(line.size() - 2);  // CR LF
  for (auto _ : state) {
    if (!link::VerifyLineChecksum(line)) std::abort();
  }
}
BENCHMARK(VerifyDataLine);

}  // namespace
}  // namespace orvane::bench
