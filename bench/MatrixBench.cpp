// The matrix panel's hot paths on a 50 x 50 matrix, the largest system the
// calculator takes: the determinant, the Gauss-Jordan inverse and the
// solution of a 50-equation system, each from the cell texts as the panel
// reads them. The reference is a plain Gaussian elimination in long double
// over the same numbers, measured in the same run; the ratio is the price of
// the panel's own routine (and of reading the texts).
#include <benchmark/benchmark.h>

#include <random>

#include "calc/CalculatorEngine.h"
#include "calc/MatrixAlgebra.h"
#include "shell/ProgramState.h"
#include "shell/runtime/NumberText.h"

namespace {

constexpr int kOrder = 50;

Matrix benchMatrix(int cols) {
  std::mt19937 gen(50);
  std::uniform_real_distribution<double> d(-100, 100);
  Matrix m(kOrder, cols);
  for (double& v : m.cells) v = d(gen);
  return m;
}

QList<QStringList> asCells(const Matrix& m) {
  QList<QStringList> rows;
  for (int r = 0; r < m.rows; ++r) {
    QStringList row;
    for (int c = 0; c < m.cols; ++c) row << rt::NumberToText(m.at(r, c));
    rows << row;
  }
  return rows;
}

// Forward elimination with partial pivoting in long double; back substitution
// when a right-hand column is present.
long double plainElimination(const Matrix& m, std::vector<long double>* x) {
  const int n = m.rows;
  const int w = m.cols;
  std::vector<long double> a(m.cells.begin(), m.cells.end());
  long double det = 1;
  for (int i = 0; i < n; ++i) {
    int p = i;
    for (int r = i + 1; r < n; ++r) {
      if (std::fabs(a[r * w + i]) > std::fabs(a[p * w + i])) p = r;
    }
    if (p != i) {
      for (int c = 0; c < w; ++c) std::swap(a[i * w + c], a[p * w + c]);
      det = -det;
    }
    det *= a[i * w + i];
    for (int r = i + 1; r < n; ++r) {
      const long double f = a[r * w + i] / a[i * w + i];
      for (int c = i; c < w; ++c) a[r * w + c] -= f * a[i * w + c];
    }
  }
  if (x) {
    x->assign(static_cast<std::size_t>(n), 0);
    for (int i = n - 1; i >= 0; --i) {
      long double s = a[i * w + n];
      for (int c = i + 1; c < n; ++c) s -= a[i * w + c] * (*x)[static_cast<std::size_t>(c)];
      (*x)[static_cast<std::size_t>(i)] = s / a[i * w + i];
    }
  }
  return det;
}

void BM_PanelDeterminant50(benchmark::State& state) {
  resetProgram();
  CalculatorEngine engine;
  engine.matrices.setGrid(0, asCells(benchMatrix(kOrder)));
  engine.matrices.clickedGrid = 0;
  for (auto _ : state) {
    engine.matrices.MatrizOp_Click(5);
    benchmark::DoNotOptimize(engine.numero.text());
  }
}
BENCHMARK(BM_PanelDeterminant50)->Unit(benchmark::kMillisecond);

void BM_PanelInverseGaussJordan50(benchmark::State& state) {
  resetProgram();
  CalculatorEngine engine;
  engine.matrices.setGrid(0, asCells(benchMatrix(kOrder)));
  engine.matrices.clickedGrid = 0;
  for (auto _ : state) {
    engine.matrices.MatrizOp_Click(4);
    benchmark::DoNotOptimize(engine.matrices.MSFlexGrid2[2].cells);
  }
}
BENCHMARK(BM_PanelInverseGaussJordan50)->Unit(benchmark::kMillisecond);

void BM_Solve50Equations(benchmark::State& state) {
  const Matrix ak = benchMatrix(kOrder + 1);
  std::vector<double> x;
  for (auto _ : state) {
    matrix::solve(ak, x);
    benchmark::DoNotOptimize(x.data());
  }
}
BENCHMARK(BM_Solve50Equations)->Unit(benchmark::kMillisecond);

void BM_Determinant50(benchmark::State& state) {
  const Matrix a = benchMatrix(kOrder);
  for (auto _ : state) benchmark::DoNotOptimize(matrix::determinant(a));
}
BENCHMARK(BM_Determinant50)->Unit(benchmark::kMillisecond);

void BM_ReferenceEliminationLongDouble50(benchmark::State& state) {
  const Matrix a = benchMatrix(kOrder);
  for (auto _ : state) benchmark::DoNotOptimize(plainElimination(a, nullptr));
}
BENCHMARK(BM_ReferenceEliminationLongDouble50)->Unit(benchmark::kMillisecond);

void BM_ReferenceSolveLongDouble50(benchmark::State& state) {
  const Matrix ak = benchMatrix(kOrder + 1);
  std::vector<long double> x;
  for (auto _ : state) {
    plainElimination(ak, &x);
    benchmark::DoNotOptimize(x.data());
  }
}
BENCHMARK(BM_ReferenceSolveLongDouble50)->Unit(benchmark::kMillisecond);

}  // namespace
