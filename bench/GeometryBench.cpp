// The geometry module's two hot paths, each beside a reference in the same
// run, so the ratio is what to read:
//
//   Geometry_Catalogue        every row of the catalogue worked out once
//                             through computeFigure (limits, runtime roots)
//   Geometry_CatalogueNative  a hand-written loop of the same volumes in C++
//   Geometry_InlineLine       a fresh line through the inline calculator:
//                             the lg/comma rewrite, Eval and the number text
//   Geometry_InlineMuParser   the same line parsed and evaluated by muParser
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <cmath>

#include "geometry/FigureCatalogue.h"
#include "geometry/InlineCalculator.h"
#include "shell/ProgramState.h"
#include "shell/runtime/NumberText.h"

namespace {

void Geometry_Catalogue(benchmark::State& state) {
  resetProgram();
  const std::array<double, geometry::kMaxParameters> values{7, 5, 4, 3, 2, 1};
  const auto& rows = geometry::catalogue();
  for (auto _ : state) {
    double sum = 0;
    for (const geometry::FigureRow& row : rows) {
      try {
        const geometry::FigureOutcome out = geometry::computeFigure(row, values);
        sum += out.values[0] + out.values[1] + out.values[2];
      } catch (...) {
      }
    }
    benchmark::DoNotOptimize(sum);
  }
  state.counters["ns/figure"] = benchmark::Counter(static_cast<double>(state.iterations() * rows.size()),
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(Geometry_Catalogue);

void Geometry_CatalogueNative(benchmark::State& state) {
  const double pi = 4 * std::atan(1.0);
  const double a = 7, b = 5, c = 4, d = 3;
  for (auto _ : state) {
    double sum = 0;
    // 54 rows of similar work: three lines each, roots and products.
    for (int i = 0; i < 54; ++i) {
      const double g = std::sqrt(a * a + b * b + i);
      sum += pi * a * g + pi * a * (a + g) + pi * a * a * b / 3 + std::sqrt(c * d * (c + d)) * (i + 1);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.counters["ns/figure"] = benchmark::Counter(static_cast<double>(state.iterations() * 54),
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(Geometry_CatalogueNative);

// Lines that differ each time, as a user types them.
QString line(int i) { return QStringLiteral("2^2*3,5*(sin(0,25*pi)+cos(0,25*pi))+lg(%1)").arg(i % 997 + 1); }

void Geometry_InlineLine(benchmark::State& state) {
  resetProgram();
  InlineCalculator calc;
  QString result, error;
  int i = 0;
  for (auto _ : state) {
    calc.evaluate(line(i++), result, error);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(Geometry_InlineLine);

void Geometry_InlineMuParser(benchmark::State& state) {
  mu::Parser parser;
  double pi = 3.14159265358979;
  parser.DefineVar("pi", &pi);
  int i = 0;
  for (auto _ : state) {
    QString text = line(i++);
    text.replace(QLatin1String("lg"), QLatin1String("(1/ln(10))*ln")).replace(u',', u'.');
    parser.SetExpr(text.toStdString());
    const QString result = rt::NumberToText(parser.Eval());
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(Geometry_InlineMuParser);

}  // namespace
