// Opening the largest statistics file the store takes, 6000 X and 6000 Y
// values, the way the calculator's abrirest does it: the file read and
// checked whole, then every datum entered as if typed, each writing its
// history line and moving the running sums. The reference reads the same
// numbers from the same file with nothing else; the ratio of the two is the
// price of the replayed entry.
#include <benchmark/benchmark.h>

#include <QByteArrayList>
#include <QFile>
#include <QTemporaryDir>
#include <random>

#include "calc/CalculatorEngine.h"
#include "calc/StatisticsFile.h"
#include "shell/ProgramState.h"
#include "shell/runtime/SequentialFile.h"

namespace {

const QString& dataFile() {
  static QTemporaryDir dir;
  static const QString path = [] {
    resetProgram();
    std::mt19937_64 gen(7);
    std::uniform_real_distribution<double> value(-1000, 1000);
    StatisticsStore& s = program().stats;
    for (int i = 0; i < StatisticsStore::kMaxData; ++i) {
      s.add(0, value(gen));
      s.add(1, value(gen));
    }
    const QString p = dir.filePath(QStringLiteral("bench.dat"));
    rt::writeWholeFile(p, writeDat(s));
    s.clearAll();
    return p;
  }();
  return path;
}

void BM_OpenDatFile6000(benchmark::State& state) {
  const QString path = dataFile();
  CalculatorEngine engine;
  for (auto _ : state) {
    engine.loadStatisticsFile(path);
    benchmark::DoNotOptimize(program().stats.sumXY);
  }
  state.counters["history"] = engine.Combo1.count();
  state.counters["values"] = program().stats.nx + program().stats.ny;
}
BENCHMARK(BM_OpenDatFile6000)->Unit(benchmark::kMillisecond);

void BM_PlainReadOfTheSameNumbers(benchmark::State& state) {
  const QString path = dataFile();
  for (auto _ : state) {
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    std::vector<double> numbers;
    numbers.reserve(2 * StatisticsStore::kMaxData);
    const QByteArrayList lines = f.readAll().split('\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
      if (!lines[i].trimmed().isEmpty()) numbers.push_back(lines[i].trimmed().toDouble());
    }
    benchmark::DoNotOptimize(numbers.data());
  }
}
BENCHMARK(BM_PlainReadOfTheSameNumbers)->Unit(benchmark::kMillisecond);

}  // namespace
