// One history line, model and window list together, when the list holds a
// few lines and when it is nearly full (3900 to 3999 lines). The two figures
// should match: adding a line never touches the lines before it. The
// reference rebuilds a list of as many lines for each new line, which is what
// a view that copies the whole list would pay.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QListWidget>

#include "calc/CalculatorWindow.h"
#include "shell/ProgramState.h"

namespace {

constexpr int kBatch = 99;  // lines added between two refills, so 3900 stays below 4000

void fill(CalculatorWindow& w, int lines) {
  w.engine().Command63_Click();
  for (int i = 0; i < lines; ++i) w.engine().addHistoryValue(QString::number(i * 1.25));
  w.refresh();
}

void BM_HistoryLine(benchmark::State& state) {
  const int start = static_cast<int>(state.range(0));
  CalculatorWindow w;
  fill(w, start);
  int added = 0;
  for (auto _ : state) {
    if (added == kBatch) {
      state.PauseTiming();
      fill(w, start);
      added = 0;
      state.ResumeTiming();
    }
    w.engine().addHistoryValue(QStringLiteral("12345.678"));
    w.refresh();
    ++added;
  }
  state.counters["lines"] = w.engine().Combo1.count();
}

void BM_RebuildReference(benchmark::State& state) {
  QStringList lines;
  for (int i = 0; i < state.range(0); ++i) lines << QString::number(i * 1.25);
  QListWidget list;
  for (auto _ : state) {
    list.clear();
    list.addItems(lines);
    list.setCurrentRow(list.count() - 1);
    benchmark::DoNotOptimize(list.count());
  }
}

}  // namespace

BENCHMARK(BM_HistoryLine)->Arg(1)->Arg(3900)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RebuildReference)->Arg(1)->Arg(3900)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  resetProgram();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
