// Smoothing method B (n = 20,000) of a noisy column of 10^4, 10^5 and 10^6
// rows, worked through the grid's cells as the plot does it, beside a plain
// moving average of the same width over a std::vector in the same run. The
// time per row (items_per_second) should stay flat as the rows grow: the
// window slides, it is not summed again for each row.
//
//   SmoothB        plot::Smoothing, method B, cells read and written
//   MovingAverage  a running-sum moving average of a vector, clamped ends
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "funcs/CellGrid.h"
#include "funcs/PlotSmoothing.h"
#include "shell/ProgramState.h"

namespace {

constexpr int kWidth = 20000;

std::vector<double> noisy(int rows) {
  std::mt19937 gen(11);
  std::normal_distribution<double> noise(0, 0.3);
  std::vector<double> y(static_cast<size_t>(rows));
  for (int i = 0; i < rows; ++i) y[static_cast<size_t>(i)] = std::sin(i * 1e-4) + noise(gen);
  return y;
}

void BM_SmoothB(benchmark::State& state) {
  resetProgram(QLocale::c());
  const int rows = static_cast<int>(state.range(0));
  const std::vector<double> y = noisy(rows);
  CellGrid grid(7);
  grid.setRowCount(rows + 1);
  for (int i = 0; i < rows; ++i) grid.setNumber(i + 1, 1, y[static_cast<size_t>(i)]);
  const int n = std::min(kWidth, rows / 2);
  for (auto _ : state) {
    plot::Smoothing s(grid, plot::Smoothing::Method::B, n, rows);
    s.step(rows);
    benchmark::DoNotOptimize(s.done());
  }
  state.SetItemsProcessed(state.iterations() * rows);
}

void BM_MovingAverage(benchmark::State& state) {
  const int rows = static_cast<int>(state.range(0));
  const std::vector<double> y = noisy(rows);
  std::vector<double> out(static_cast<size_t>(rows));
  const int h = std::min(kWidth, rows / 2) / 2;
  auto at = [&y, rows](int j) { return y[static_cast<size_t>(std::clamp(j, 0, rows - 1))]; };
  for (auto _ : state) {
    double sum = 0;
    for (int j = -h; j <= h; ++j) sum += at(j);
    for (int i = 0; i < rows; ++i) {
      out[static_cast<size_t>(i)] = sum / (2 * h + 1);
      sum += at(i + h + 1) - at(i - h);
    }
    benchmark::DoNotOptimize(out.data());
  }
  state.SetItemsProcessed(state.iterations() * rows);
}

}  // namespace

BENCHMARK(BM_SmoothB)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MovingAverage)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
