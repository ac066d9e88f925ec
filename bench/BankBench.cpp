// A 30-year monthly loan (360 rows): the banking model's Cálculo, which
// computes each row through PPMT and formats it, beside a plain loop of the
// same arithmetic (closed-form payment and principal, the half-cent rounding,
// the cells written with std::to_chars) in the same run. The ratio of the two
// is the figure to watch.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <vector>

#include "bank/BankModel.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"

namespace {

constexpr double kCapital = 200000;
constexpr double kRate = 0.05 / 12;
constexpr int kMonths = 360;

void BM_LoanTableModel(benchmark::State& state) {
  resetProgram();
  ScriptedPresenter quiet;  // answers the end-of-month question with its first button
  PresenterScope scope(&quiet);
  BankModel m;
  m.BanKOperations(3);
  m.capital = QStringLiteral("200000");
  m.interes = QStringLiteral("5");
  m.tiempo = QStringLiteral("30");
  m.Option_Click(true);
  for (auto _ : state) {
    quiet.clear();
    m.Command7_Click();
    benchmark::DoNotOptimize(m.Bancolist.size());
  }
  if (m.rowCount() != kMonths + 1) state.SkipWithError("the table is not 360 rows");
}
BENCHMARK(BM_LoanTableModel)->Unit(benchmark::kMicrosecond);

void BM_LoanTablePlainLoop(benchmark::State& state) {
  std::vector<std::string> cells(kMonths * 5);
  for (auto _ : state) {
    const double g = std::pow(1 + kRate, kMonths);
    const double payment = kCapital * kRate * g / (g - 1);
    double pending = kCapital;
    char buf[32];
    auto put = [&](int index, double x) {
      const auto r = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed, 2);
      cells[index].assign(buf, r.ptr);
    };
    for (int m = 1; m <= kMonths; ++m) {
      // Principal of month m: the payment less the interest on the balance
      // that the exact schedule leaves after m - 1 payments.
      const double before = kCapital * std::pow(1 + kRate, m - 1) - payment * (std::pow(1 + kRate, m - 1) - 1) / kRate;
      const double nominal = std::floor((payment - before * kRate + 0.005) * 100) / 100;
      const double interest = std::floor((payment - nominal + 0.005) * 100) / 100;
      pending -= nominal;
      const int base = (m - 1) * 5;
      put(base, m);
      put(base + 1, payment);
      put(base + 2, nominal);
      put(base + 3, interest);
      put(base + 4, pending);
    }
    benchmark::DoNotOptimize(cells.data());
  }
}
BENCHMARK(BM_LoanTablePlainLoop)->Unit(benchmark::kMicrosecond);

}  // namespace
