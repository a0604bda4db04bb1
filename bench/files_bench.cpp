#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bench_data.h"
#include "files/printed_pages.h"
#include "files/settings_file.h"
#include "files/snapshot.h"
#include "files/table_file.h"
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

const files::SnapshotHeading kHeading = {.made = "2026-11-24 23:40:12", .origin = "autosave"};

void WriteSnapshot(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  for (auto _ : state) benchmark::DoNotOptimize(files::SnapshotText(data, kHeading).size());
}
BENCHMARK(WriteSnapshot)->Unit(benchmark::kMicrosecond);

void ReadSnapshot(benchmark::State& state) {
  const std::string text = files::SnapshotText(UsedRadio(), kHeading);
  state.counters["bytes"] = static_cast<double>(text.size());
  for (auto _ : state) {
    if (!files::ParseSnapshot(text).data) std::abort();
  }
}
BENCHMARK(ReadSnapshot)->Unit(benchmark::kMicrosecond);

void ReadSnapshotHeading(benchmark::State& state) {
  const std::string text = files::SnapshotText(UsedRadio(), kHeading);
  for (auto _ : state) {
    if (!files::ParseSnapshotHeading(text).error.empty()) std::abort();
  }
}
BENCHMARK(ReadSnapshotHeading)->Unit(benchmark::kMicrosecond);

std::vector<std::uint8_t> MarineTables() {
  std::vector<std::uint8_t> tables;
  for (const std::uint8_t table : files::TextTables(core::ProfileOf(kModel))) {
    if (core::Catalogue()[table].kind == core::TableKind::kMarine) tables.push_back(table);
  }
  return tables;
}

void ExportTables(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  for (auto _ : state) {
    for (const std::uint8_t table : MarineTables()) {
      benchmark::DoNotOptimize(files::TableText(data, table).size());
    }
  }
}
BENCHMARK(ExportTables)->Unit(benchmark::kMillisecond);

// 720 channels, each of which gets another name and is enabled.
void ImportTables(benchmark::State& state) {
  const core::RadioData data = UsedRadio();
  core::RadioData changed = data;
  std::vector<std::string> texts;
  for (core::MarineTable& table : changed.Marine) {
    for (core::ChannelRecord& channel : table) {
      channel.ChTag = "BERTH " + std::to_string(channel.Position);
      channel.Enable = true;
    }
  }
  for (const std::uint8_t table : MarineTables()) texts.push_back(files::TableText(changed, table));
  std::size_t bytes = 0;
  for (const std::string& text : texts) bytes += text.size();
  state.counters["bytes"] = static_cast<double>(bytes);
  for (auto _ : state) {
    std::size_t text = 0;
    for (const std::uint8_t table : MarineTables()) {
      const files::ImportPlan plan = files::PlanImport(texts[text++], table, data, kToday);
      if (plan.Count(files::ImportPlan::Verdict::kChanges) != core::kMarineChannels) std::abort();
    }
  }
}
BENCHMARK(ImportTables)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvane::bench
