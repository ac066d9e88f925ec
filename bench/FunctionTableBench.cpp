// The function table's whole evaluation (Evaluate pressed, through to the
// last cell and the boxes written back) for the default F(x), and for F with
// G, over 1,000 and 1,000,000 points, beside a plain loop that evaluates the
// same formulas with muParser over the same x into an array of doubles, in
// the same run: the ratio is what to read.
//
//   Table          cmdResult_Click: the engine fed "<constants>: x= <x>" per
//                  point, the end correction, every cell stored
//   TableAndTexts  the same, then the texts of X, F and G written out row by
//                  row, as the copy and the CSV file read the table
//   MuParser       x accumulated the same way, Eval, the values kept
// Arguments: the number of points, then 1 with G(x).
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <cmath>
#include <vector>

#include "funcs/FunctionTable.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"

namespace {

// A table over 0..5 with the given number of points; by increment, which
// has no row limit.
void prepare(FunctionTable& t, int points, bool withG) {
  resetProgram(QLocale::c());
  t.Form_Load();
  t.Form_Activate();
  t.Option1_Click(1);
  t.Text1 = rt::Str(5.0 / (points - 1)).trimmed();
  if (withG) t.Check1_Click();
}

void tabulate(benchmark::State& state, bool readTexts) {
  const int points = static_cast<int>(state.range(0));
  const bool withG = state.range(1) != 0;
  ScriptedPresenter quiet;
  PresenterScope scope(&quiet);
  FunctionTable t;
  prepare(t, points, withG);
  qint64 characters = 0;
  for (auto _ : state) {
    const QString step = t.Text1;
    t.cmdResult_Click();
    if (readTexts) {
      QString line;
      for (int r = 1; r <= program().pointCount; ++r) {
        line.resize(0);  // keeps its room
        t.appendTextMatrix(r, 0, line);
        line += QLatin1Char('\t');
        t.appendTextMatrix(r, 1, line);
        if (withG) {
          line += QLatin1Char('\t');
          t.appendTextMatrix(r, 6, line);
        }
        characters += line.size();
      }
    }
    t.Text1 = step;  // the table writes back the increment it used
  }
  if (program().pointCount < points - 1 || !quiet.shown().empty()) state.SkipWithError("the table came out short");
  benchmark::DoNotOptimize(characters);
  state.counters["rows"] = program().pointCount;
  state.SetLabel(withG ? "F and G" : "F");
}

void BM_Table(benchmark::State& state) { tabulate(state, false); }
void BM_TableAndTexts(benchmark::State& state) { tabulate(state, true); }

void BM_MuParser(benchmark::State& state) {
  const int points = static_cast<int>(state.range(0));
  const bool withG = state.range(1) != 0;
  double x = 0;
  double a = 2;
  double b = 3;
  mu::Parser f;
  mu::Parser g;
  for (mu::Parser* p : {&f, &g}) {
    p->DefineVar("x", &x);
    p->DefineVar("A", &a);
    p->DefineVar("B", &b);
  }
  f.SetExpr("2.23*sin(A*x)*(cos(B*x))^2");
  g.SetExpr("x*cos(x^1.7)");
  const double step = 5.0 / (points - 1);
  std::vector<double> xs, fs, gs;
  for (auto _ : state) {
    xs.clear();
    fs.clear();
    gs.clear();
    for (x = 0; x <= 5 + step; x += step) {
      xs.push_back(x);
      fs.push_back(f.Eval());
    }
    if (withG) {
      for (double v : xs) {
        x = v;
        gs.push_back(g.Eval());
      }
    }
    benchmark::DoNotOptimize(fs.data());
    benchmark::DoNotOptimize(gs.data());
  }
  state.counters["rows"] = static_cast<double>(xs.size());
  state.SetLabel(withG ? "F and G" : "F");
}

void sizes(benchmark::internal::Benchmark* b) {
  b->Unit(benchmark::kMillisecond);
  for (int n : {1000, 1000000}) {
    for (int g : {0, 1}) b->Args({n, g});
  }
}

}  // namespace

BENCHMARK(BM_Table)->Apply(sizes);
BENCHMARK(BM_TableAndTexts)->Apply(sizes);
BENCHMARK(BM_MuParser)->Apply(sizes);
