// The expression evaluator against muParser and plain C++ on the same
// formulas, each over a million changing values of x, in the same run: the
// ratios are what to read, whatever the machine's load.
//
//   Calvix_Compiled  the plot's way: a compiled formula, x set as a number
//   Calvix_Eval      Eval(text) again and again, x set as a number
//   Calvix_TextFeed  the function table's way: AddCode("<vars>: x= " + Str(x)), then Eval,
//                    the statement kept in one text and its number rewritten
//   Calvix_FeedText  the texts of the text feed alone ("<vars>: x= " + Str(x)),
//                    without the engine: TextFeed minus this and Compiled is
//                    the engine's own share of the feed
//   MuParser         the same formula in muParser (the reference)
//   Lambda           the formula written in C++
// The "ns" counter is the time of one evaluation.
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include "funcs/AddInFunctions.h"
#include "funcs/Evaluator.h"
#include "funcs/ExprCompiler.h"
#include "funcs/LanguageFunctions.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"

namespace {

constexpr int kCount = 1'000'000;
const double kDegree = 4 * std::atan(1.0) / 180;

const std::vector<double>& xs() {
  static const std::vector<double> v = [] {
    std::mt19937_64 gen(7);
    std::uniform_real_distribution<double> d(0.1, 10.0);
    std::vector<double> out(kCount);
    for (double& x : out) x = d(gen);
    return out;
  }();
  return v;
}

struct Case {
  const char* formula;      // as Calvix reads it
  const char* muFormula;    // as muParser reads it
  const char* vars;         // constants, as the table's constants box holds them
  const char* variable;     // the name that changes
  double (*native)(double);
};

const Case kCases[] = {
    {"2.23*sin(A*x)*(cos(B*x))^2", "2.23*sin(A*x)*(cos(B*x))^2", "A=2:B=3", "x",
     [](double x) { return 2.23 * std::sin(2 * x) * std::pow(std::cos(3 * x), 2); }},
    {"x*cos(x^1.7)", "x*cos(x^1.7)", "", "x", [](double x) { return x * std::cos(std::pow(x, 1.7)); }},
    {"(x+1)^2/Sqr(x+2)", "(x+1)^2/Sqr(x+2)", "", "x",
     [](double x) { return std::pow(x + 1, 2) / std::sqrt(x + 2); }},
    {"a+b*c", "a+b*c", "b=2:c=3", "a", [](double a) { return a + 2 * 3.0; }},
    {"sinf(x)+lg(x+1)", "sinf(x)+lg(x+1)", "", "x",
     [](double x) { return std::sin(kDegree * x) + std::log(x + 1) / std::log(10.0); }},
};

void perEvaluation(benchmark::State& state) {
  state.counters["ns"] = benchmark::Counter(static_cast<double>(state.iterations()) * kCount,
                                            benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// An engine as the function table sets it up, with the constants assigned.
struct Engine {
  AddInFunctions library;
  Evaluator engine;
  explicit Engine(const Case& c) {
    resetProgram(QLocale::c());
    engine.AddObject(QStringLiteral("MathFunction"), &library, true);
    if (*c.vars) engine.AddCode(QString::fromLatin1(c.vars));
  }
};

void BM_Calvix_Compiled(benchmark::State& state) {
  const Case& c = kCases[state.range(0)];
  Engine e(c);
  const Evaluator::Expression f = e.engine.compile(QString::fromLatin1(c.formula));
  const int slot = e.engine.variableSlot(QString::fromLatin1(c.variable));
  for (auto _ : state) {
    double sum = 0;
    for (double x : xs()) {
      e.engine.setNumber(slot, x);
      sum += e.engine.evaluateNumber(f);
    }
    benchmark::DoNotOptimize(sum);
  }
  perEvaluation(state);
  state.SetLabel(c.formula);
}

void BM_Calvix_Eval(benchmark::State& state) {
  const Case& c = kCases[state.range(0)];
  Engine e(c);
  const QString formula = QString::fromLatin1(c.formula);
  const int slot = e.engine.variableSlot(QString::fromLatin1(c.variable));
  for (auto _ : state) {
    double sum = 0;
    for (double x : xs()) {
      e.engine.setNumber(slot, x);
      sum += e.engine.Eval(formula).toDouble();
    }
    benchmark::DoNotOptimize(sum);
  }
  perEvaluation(state);
  state.SetLabel(c.formula);
}

void BM_Calvix_TextFeed(benchmark::State& state) {
  const Case& c = kCases[state.range(0)];
  Engine e(c);
  const QString formula = QString::fromLatin1(c.formula);
  const QString head = QString::fromLatin1(c.vars) + QStringLiteral(": ") + QString::fromLatin1(c.variable) +
                       QStringLiteral("= ");
  QString text = head;
  for (auto _ : state) {
    double sum = 0;
    for (double x : xs()) {
      text.truncate(head.size());  // the statement's text, kept and rewritten
      rt::appendStr(text, x);
      e.engine.AddCode(text);
      sum += e.engine.Eval(formula).toDouble();
    }
    benchmark::DoNotOptimize(sum);
  }
  perEvaluation(state);
  state.SetLabel(c.formula);
}

void BM_Calvix_FeedText(benchmark::State& state) {
  const Case& c = kCases[state.range(0)];
  const QString head = QString::fromLatin1(c.vars) + QStringLiteral(": ") + QString::fromLatin1(c.variable) +
                       QStringLiteral("= ");
  QString text = head;
  for (auto _ : state) {
    qsizetype length = 0;
    for (double x : xs()) {
      text.truncate(head.size());  // built as AddCode gets it
      rt::appendStr(text, x);
      length += text.size();
    }
    benchmark::DoNotOptimize(length);
  }
  perEvaluation(state);
  state.SetLabel(c.formula);
}

// The library functions the formulas use, with the same guards, for muParser.
double muSinf(double x) {
  if (std::fabs(x) > 1e15 || std::fabs(x) < 1e-15) return 0;
  return std::sin(kDegree * x);
}
double muLg(double x) { return x <= 0 ? 0 : std::log(x) / std::log(10.0); }
double muSqr(double x) { return std::sqrt(x); }

void BM_MuParser(benchmark::State& state) {
  const Case& c = kCases[state.range(0)];
  mu::Parser p;
  double x = 0;
  double a = 2;
  double b = 3;
  double bc = 2;
  double cc = 3;
  p.DefineVar("x", &x);
  if (std::string(c.variable) == "a") {
    p.DefineVar("a", &x);
    p.DefineVar("b", &bc);
    p.DefineVar("c", &cc);
  } else {
    p.DefineVar("A", &a);
    p.DefineVar("B", &b);
  }
  p.DefineFun("sinf", muSinf);
  p.DefineFun("lg", muLg);
  p.DefineFun("Sqr", muSqr);
  p.SetExpr(c.muFormula);
  for (auto _ : state) {
    double sum = 0;
    for (double v : xs()) {
      x = v;
      sum += p.Eval();
    }
    benchmark::DoNotOptimize(sum);
  }
  perEvaluation(state);
  state.SetLabel(c.formula);
}

void BM_Lambda(benchmark::State& state) {
  const Case& c = kCases[state.range(0)];
  // Through a pointer, as a formula chosen at run time would be called.
  double (*volatile f)(double) = c.native;
  for (auto _ : state) {
    double sum = 0;
    for (double x : xs()) sum += f(x);
    benchmark::DoNotOptimize(sum);
  }
  perEvaluation(state);
  state.SetLabel(c.formula);
}

// Compiling a formula of about 50 characters, without the cache.
void BM_Calvix_Compile50(benchmark::State& state) {
  AddInFunctions library;
  LanguageFunctions language;
  ExprSymbols symbols;
  symbols.addFunctions(&language);
  symbols.addFunctions(&library);
  const QString formula = QStringLiteral("2.23*sin(A*x)*(cos(B*x))^2+x*cos(x^1.7)-Sqr(x+2)/3");
  for (auto _ : state) benchmark::DoNotOptimize(ExprCompiler(symbols).compileExpression(formula));
  state.SetLabel(QStringLiteral("%1 characters").arg(formula.size()).toStdString());
}

void BM_MuParser_Compile50(benchmark::State& state) {
  double x = 0, a = 2, b = 3;
  for (auto _ : state) {
    mu::Parser p;
    p.DefineVar("x", &x);
    p.DefineVar("A", &a);
    p.DefineVar("B", &b);
    p.DefineFun("Sqr", muSqr);
    p.SetExpr("2.23*sin(A*x)*(cos(B*x))^2+x*cos(x^1.7)-Sqr(x+2)/3");
    benchmark::DoNotOptimize(p.Eval());
  }
}

}  // namespace

BENCHMARK(BM_Calvix_Compiled)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Calvix_Eval)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Calvix_TextFeed)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Calvix_FeedText)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MuParser)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Lambda)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Calvix_Compile50)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MuParser_Compile50)->Unit(benchmark::kMicrosecond);
