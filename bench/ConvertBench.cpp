// The converter's hot path: choosing two units and entering a value, which
// divides two factors, multiplies and writes the texts and history lines.
// Measured beside the bare arithmetic with std::to_chars texts on the same
// pairs in the same run: the ratio is the model's cost per conversion.
#include <benchmark/benchmark.h>

#include <charconv>
#include <vector>

#include "convert/ConverterModel.h"
#include "shell/ProgramState.h"

namespace {

struct Pair {
  QString item;
  int from;
  int to;
};

// Every ordered pair of different units of every table.
const std::vector<Pair>& pairs() {
  static const std::vector<Pair> all = [] {
    std::vector<Pair> out;
    for (const UnitTable& t : UnitTables::builtIn().tables()) {
      for (int i = 0; i < t.rows.size(); ++i) {
        for (int j = 0; j < t.rows.size(); ++j) {
          if (i != j) out.push_back({t.item, i, j});
        }
      }
    }
    return out;
  }();
  return all;
}

void BM_ConverterModelConversion(benchmark::State& state) {
  resetProgram();
  ConverterModel model;
  model.Form_Load();
  const std::vector<Pair>& all = pairs();
  size_t k = 0;
  for (auto _ : state) {
    const Pair& p = all[k++ % all.size()];
    if (model.item != p.item) model.magnitud_Click(p.item);
    model.Command2_Click();
    model.Command1_Click(p.from);
    model.Command1_Click(p.to);
    model.Text2 = QStringLiteral("12.5");
    model.Text2_Enter();
    if (model.List1.size() > 3000) model.borrhis_Click();
    benchmark::DoNotOptimize(model.Text4);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ConverterModelConversion);

// The same conversions as two array reads, a quotient, a product and two
// shortest texts: what no converter can do with less.
void BM_BareConversionReference(benchmark::State& state) {
  const std::vector<Pair>& all = pairs();
  const UnitTables& tables = UnitTables::builtIn();
  size_t k = 0;
  char buf[64];
  for (auto _ : state) {
    const Pair& p = all[k++ % all.size()];
    const UnitTable* t = tables.find(p.item);
    const double factor = t->rows.at(p.from).factor / t->rows.at(p.to).factor;
    const double result = 12.5 * factor;
    auto r1 = std::to_chars(buf, buf + sizeof buf, factor);
    auto r2 = std::to_chars(r1.ptr, buf + sizeof buf, result);
    benchmark::DoNotOptimize(r2.ptr);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_BareConversionReference);

}  // namespace
