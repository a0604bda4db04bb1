#include <benchmark/benchmark.h>

#include <cstdlib>

#include "bench_data.h"
#include "files/printed_pages.h"
#include "files/settings_file.h"
#include "files/text_report.h"

namespace orvane::bench {
namespace {

class IdlePump : public core::EventPump {
 public:
  void WaitForEvents(double /*deadline*/) override {}
  void ProcessEvents() override {}
};

void TextReport(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  for (auto _ : state) benchmark::DoNotOptimize(files::BuildTextReport(data).size());
}
BENCHMARK(TextReport)->Unit(benchmark::kMicrosecond);

void PrintedPages(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  constexpr double kA4Height = 297;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        files::BuildPrintedPages(data, files::LinesPerPage(kA4Height), {{}, kToday}).size());
  }
}
BENCHMARK(PrintedPages)->Unit(benchmark::kMicrosecond);

void WriteSettings(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  IdlePump pump;
  for (auto _ : state) benchmark::DoNotOptimize(files::SettingFileText(data, pump).size());
}
BENCHMARK(WriteSettings)->Unit(benchmark::kMicrosecond);

void ReadSettings(benchmark::State& state) {
  core::RadioData data = UsedRadio();
  IdlePump pump;
  const std::string text = files::SettingFileText(data, pump);
  for (auto _ : state) {
    if (!files::ApplySettingText(data, text, pump)) std::abort();
  }
}
BENCHMARK(ReadSettings)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orvane::bench
