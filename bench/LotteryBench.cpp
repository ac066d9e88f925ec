// Analysing 500 selected bets against a 5,000-draw history: the analysis as
// the model runs it (numbers read once, a membership table per bet) beside the
// naive triple loop over the grid's text cells, Val on every comparison.
// The draw statistics over the same 5,000 rows beside a plain count of the
// drawn numbers (no filter, no lists), and beside the count over the text
// cells with Val.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>

#include "lottery/DrawAnalysis.h"
#include "lottery/DrawStatistics.h"
#include "shell/ProgramState.h"
#include "shell/runtime/NumberText.h"

namespace {

std::uint32_t next(std::uint32_t& s) {
  s = 1664525u * s + 1013904223u;
  return s >> 8;
}

// Seven different numbers 1-49 from a fixed generator.
QList<int> pick(std::uint32_t& s, int count) {
  QList<int> pool;
  for (int x = 1; x <= 49; ++x) pool << x;
  QList<int> out;
  for (int i = 0; i < count; ++i) out << pool.takeAt(static_cast<int>(next(s) % pool.size()));
  return out;
}

struct Data {
  DrawTable draws;
  QList<QList<int>> bets;
  Data() {
    resetProgram();
    std::uint32_t s = 7;
    QList<QStringList> rows;
    for (int r = 0; r < 5000; ++r) {
      QStringList row{QString::number(r + 1), QStringLiteral("01/01/2000")};
      for (int x : pick(s, 7)) row << QString::number(x);
      row << QStringLiteral("3") << QString() << QString(QLatin1Char("PBG"[r % 3]));
      rows << row;
    }
    draws.setRows(rows);
    for (int b = 0; b < 500; ++b) {
      QList<int> bet = pick(s, 5 + b % 7);
      std::sort(bet.begin(), bet.end());
      bets << bet;
    }
  }
};

const Data& data() {
  static const Data d;
  return d;
}

void BM_AnalyseAllBetsModel(benchmark::State& state) {
  const Data& d = data();
  for (auto _ : state) {
    int premiados = 0;
    for (const QList<int>& bet : d.bets) premiados += analyseBet(bet, 3, true, d.draws).premiados;
    benchmark::DoNotOptimize(premiados);
  }
}
BENCHMARK(BM_AnalyseAllBetsModel)->Unit(benchmark::kMillisecond);

void BM_AnalyseAllBetsNaiveCells(benchmark::State& state) {
  const Data& d = data();
  for (auto _ : state) {
    int premiados = 0;
    for (const QList<int>& bet : d.bets) {
      for (const QStringList& row : d.draws.rows) {
        int aciertos = 0, comp = 0;
        for (int c = 2; c <= 7; ++c) {
          for (int x : bet) {
            if (rt::Val(row.at(c)) == x) ++aciertos;
            if (rt::Val(row.at(8)) == x) comp = 1;
          }
        }
        if (aciertos >= 3 || (aciertos == 2 && bet.size() == 5)) ++premiados;
        benchmark::DoNotOptimize(comp);
      }
    }
    benchmark::DoNotOptimize(premiados);
  }
}
BENCHMARK(BM_AnalyseAllBetsNaiveCells)->Unit(benchmark::kMillisecond);

void BM_DrawStatisticsModel(benchmark::State& state) {
  const Data& d = data();
  for (auto _ : state) {
    const DrawStatistics s = drawStatistics(d.draws, 0, [](int) { return true; });
    benchmark::DoNotOptimize(s.sorteosBase);
  }
}
BENCHMARK(BM_DrawStatisticsModel)->Unit(benchmark::kMicrosecond);

void BM_DrawStatisticsPlainCount(benchmark::State& state) {
  const Data& d = data();
  for (auto _ : state) {
    std::array<int, 50> counts{};
    for (const auto& n : d.draws.numbers) {
      for (int c = 0; c < 6; ++c) ++counts[n[c]];
    }
    benchmark::DoNotOptimize(counts);
  }
}
BENCHMARK(BM_DrawStatisticsPlainCount)->Unit(benchmark::kMicrosecond);

void BM_DrawStatisticsTextCells(benchmark::State& state) {
  const Data& d = data();
  for (auto _ : state) {
    std::array<float, 50> counts{};
    for (const QStringList& row : d.draws.rows) {
      if (row.at(11) != QLatin1String("P")) continue;
      for (int c = 2; c <= 7; ++c) counts[static_cast<int>(rt::Val(row.at(c)))] += 1;
    }
    benchmark::DoNotOptimize(counts);
  }
}
BENCHMARK(BM_DrawStatisticsTextCells)->Unit(benchmark::kMicrosecond);

}  // namespace
