// A long key sequence (digits, separator, the four operators, equals, square
// root and square on F5/F6, a memory add) typed through the normal
// calculator's model, beside the same keys typed through the scientific
// engine in the same run. Both share the engine's rules, so the ratio is the
// cost of the normal window's own key map and dispatch.
#include <benchmark/benchmark.h>

#include <QString>

#include "calc/CalculatorEngine.h"
#include "calc/NormalCalculatorModel.h"
#include "shell/ProgramState.h"

namespace {

// "{" is F5 (square root), "}" F6 (square), "!" Shift+1 (memory add).
const QString& keySequence() {
  static const QString keys = [] {
    QString s;
    for (int i = 0; i < 40; ++i) s += QStringLiteral("12.5+3*2{=7-1.25/4}=!a");
    return s;
  }();
  return keys;
}

template <typename Calculator>
void typeSequence(Calculator& c) {
  for (QChar ch : keySequence()) {
    if (ch == QLatin1Char('{')) c.keyDown(Qt::Key_F5);
    else if (ch == QLatin1Char('}')) c.keyDown(Qt::Key_F6);
    else if (ch == QLatin1Char('!')) c.keyDown(Qt::Key_1, Qt::ShiftModifier);
    else c.typeCharacter(ch);
  }
}

void BM_NormalCalculatorKeys(benchmark::State& state) {
  resetProgram();
  NormalCalculatorModel m;
  for (auto _ : state) {
    typeSequence(m);
    benchmark::DoNotOptimize(m.engine.numero.text().size());
  }
  state.SetItemsProcessed(state.iterations() * keySequence().size());
}
BENCHMARK(BM_NormalCalculatorKeys);

void BM_ScientificCalculatorKeys(benchmark::State& state) {
  resetProgram();
  CalculatorEngine e;
  for (auto _ : state) {
    typeSequence(e);
    benchmark::DoNotOptimize(e.numero.text().size());
  }
  state.SetItemsProcessed(state.iterations() * keySequence().size());
}
BENCHMARK(BM_ScientificCalculatorKeys);

}  // namespace
