#include <benchmark/benchmark.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <vector>

#include "bench_data.h"
#include "editor/window_desk.h"

/// The real main window, a radio with every group in use, painted offscreen unless the environment
/// says otherwise. Each round ends when everything is painted; it must stay below one frame.
namespace orvane::bench {
namespace {

struct UsedWindow : testing::WindowDesk {
  UsedWindow() {
    Start();
    data = UsedRadio();
    for (core::UsableGroup& group : data.Usable) group.Enable = true;
    data.ExpPresent = true;
    ShowArranged();
    Tree().expandAll();
    Settle();
  }
  static void Settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
  }
  void Show(const char* key) const {
    window->SelectNode(QLatin1String(key));
    Settle();
    if (Tree().CurrentKey().compare(QLatin1String(key), Qt::CaseInsensitive) != 0) std::abort();
  }
};

/// Tells beside the mean how long 95 of 100 rounds took at most.
class Rounds {
 public:
  explicit Rounds(benchmark::State& state) : state_(state) {}
  Rounds(const Rounds&) = delete;
  Rounds& operator=(const Rounds&) = delete;
  ~Rounds() {
    if (milliseconds_.empty()) return;
    const auto at = milliseconds_.begin() +
                    static_cast<std::ptrdiff_t>(kShare * static_cast<double>(milliseconds_.size()));
    std::nth_element(milliseconds_.begin(), at, milliseconds_.end());
    state_.counters["p95_ms"] = *at;
  }
  template <class Round>
  void Measure(Round round) {
    const auto began = std::chrono::steady_clock::now();
    round();
    const std::chrono::duration<double, std::milli> lasted =
        std::chrono::steady_clock::now() - began;
    milliseconds_.push_back(lasted.count());
  }

 private:
  static constexpr double kShare = 0.95;
  benchmark::State& state_;
  std::vector<double> milliseconds_;
};

/// A channel was enabled or disabled: one text of the tree changes.
void TreeMarks(benchmark::State& state) {
  UsedWindow desk;
  Rounds rounds(state);
  for (auto _ : state) {
    rounds.Measure([&] {
      core::Flag& enable = desk.data.Table(core::MarineGroup::kUsa)[2].Enable;
      enable = !enable;
      desk.window->RefreshMarks();
      UsedWindow::Settle();
    });
  }
}
BENCHMARK(TreeMarks)->Unit(benchmark::kMillisecond);

/// A group was switched on or off: nodes come and go.
void TreeRebuild(benchmark::State& state) {
  UsedWindow desk;
  Rounds rounds(state);
  for (auto _ : state) {
    rounds.Measure([&] {
      core::Flag& enable = desk.data.Usable[2].Enable;
      enable = !enable;
      desk.window->RebuildTree();
      UsedWindow::Settle();
    });
  }
}
BENCHMARK(TreeRebuild)->Unit(benchmark::kMillisecond);

/// From one node to another, and back with the next round.
void PageChange(benchmark::State& state, const char* from, const char* to) {
  UsedWindow desk;
  desk.Show(from);
  Rounds rounds(state);
  bool there = false;
  for (auto _ : state) {
    there = !there;
    rounds.Measure([&] { desk.Show(there ? to : from); });
  }
}
BENCHMARK_CAPTURE(PageChange, GroupsAndCommon, "Usable", "Common")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PageChange, TableAndChannel, "PU", "PU32")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PageChange, ChannelToChannel, "PU32", "PI7")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PageChange, MarineAndExtraTable, "PU", "ExpChannel")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PageChange, WeatherAndExtraChannel, "PW", "E1")->Unit(benchmark::kMillisecond);

/// A letter typed into a name: a step, the tree untouched. The heading follows.
void Letter(benchmark::State& state) {
  UsedWindow desk;
  desk.Show("PU32");
  auto* box = desk.Find<QLineEdit>("txtCTag");
  box->setFocus();
  Rounds rounds(state);
  bool longer = false;
  for (auto _ : state) {
    longer = !longer;
    rounds.Measure([&] {
      QTest::keyClick(box, longer ? Qt::Key_X : Qt::Key_Backspace);
      UsedWindow::Settle();
    });
  }
}
BENCHMARK(Letter)->Unit(benchmark::kMillisecond);

/// A step on another page is taken back, or made again: tree and page follow.
void UndoAndShow(benchmark::State& state) {
  UsedWindow desk;
  desk.Show("PU32");
  QTest::keyClick(desk.Find<QWidget>("chkCScan"), Qt::Key_Space);
  if (!desk.document.CanUndo()) std::abort();
  Rounds rounds(state);
  for (auto _ : state) {
    desk.Show("PI7");
    rounds.Measure([&] {
      desk.Item(desk.document.CanUndo() ? "mnuEditUndo" : "mnuEditRedo").trigger();
      UsedWindow::Settle();
    });
  }
}
BENCHMARK(UndoAndShow)->Unit(benchmark::kMillisecond);

/// A letter typed into Find: the channels found are listed anew. Each round begins from the list of
/// what stands before the letter.
void FindLetter(benchmark::State& state, const char* before, Qt::Key letter) {
  UsedWindow desk;
  desk.Show("PU32");
  desk.Item("mnuEditFind").trigger();
  QWidget* const line = desk.window->focusWidget();
  QTest::keyClicks(line, QLatin1String(before));
  UsedWindow::Settle();
  const auto* const rows = desk.Find<QAbstractItemView>("lstFind")->model();
  Rounds rounds(state);
  for (auto _ : state) {
    rounds.Measure([&] {
      QTest::keyClick(line, letter);
      UsedWindow::Settle();
    });
    state.counters["rows"] = rows->rowCount();
    QTest::keyClick(line, Qt::Key_Backspace);
    UsedWindow::Settle();
  }
}
BENCHMARK_CAPTURE(FindLetter, Number, "1", Qt::Key_6)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindLetter, MostChannels, "15", Qt::Key_6)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindLetter, AllChannels, "used:no scan:", Qt::Key_N)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvane::bench

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
