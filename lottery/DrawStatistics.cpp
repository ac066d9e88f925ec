#include "lottery/DrawStatistics.h"

#include <algorithm>
#include <numeric>

#include "shell/Strings.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/VectorState.h"

namespace {

const QString kCrLf = QStringLiteral("\r\n");

QString percent(double count, double total) {
  return rt::Format(total > 0 ? count * 100 / total : 0.0, QStringLiteral("0.00"));
}

// Numbers 1 to 49 ordered by their counts (stable: equal counts by number).
std::array<int, 49> byCount(const Frequencies& counts, bool descending) {
  std::array<int, 49> order{};
  std::iota(order.begin(), order.end(), 1);
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
    return descending ? counts[a] > counts[b] : counts[a] < counts[b];
  });
  return order;
}

}  // namespace

bool drawPassesFilter(const DrawTable& draws, int row, int tipoSorteo) {
  if (tipoSorteo < 0 || tipoSorteo > 2) return true;
  return draws.types.at(row) == "PBG"[tipoSorteo];
}

DrawStatistics drawStatistics(const DrawTable& draws, int tipoSorteo, const std::function<bool(int)>& keepGoing) {
  DrawStatistics s;
  auto& drawn = s.frecDB[0];
  auto& complementary = s.frecDB[2];
  auto& reintegro = s.frecDB[3];
  const int rows = static_cast<int>(draws.numbers.size());
  // The counts are floats: after other code (events, a hash) their plain
  // vector instructions may wait on the registers' upper halves.
  rt::clearUpperVectorState();
  for (int i = 0; i < rows; ++i) {
    if (keepGoing && i % kStatisticsStep == 0) {
      if (!keepGoing(i)) {
        DrawStatistics none;
        none.stopped = true;
        return none;
      }
      rt::clearUpperVectorState();  // after the caller's code
    }
    if (!drawPassesFilter(draws, i, tipoSorteo)) continue;
    const auto& n = draws.numbers[i];
    for (int c = 0; c < 6; ++c) drawn[n[c]] += 1;
    complementary[n[6]] += 1;
    if (draws.reintegros[i] >= 0) reintegro[draws.reintegros[i]] += 1;
    s.sorteosBase += 1;
  }
  for (int i = 1; i <= 49; ++i) s.frecDB[1][i] = drawn[i] + complementary[i];
  return s;
}

QList<QStringList> frequencyRows(const Frequencies& counts, double total, int order) {
  std::array<int, 49> numbers{};
  if (order == 0) std::iota(numbers.begin(), numbers.end(), 1);
  else numbers = byCount(counts, order == 2);
  QList<QStringList> rows;
  for (int x : numbers) {
    rows << QStringList{QString::number(x), rt::NumberToTextSingle(counts[x]), percent(counts[x], total)};
  }
  return rows;
}

QString tenNumbersReport(const DrawStatistics& stats, bool least, bool withComplementary) {
  const Frequencies& counts = stats.frecDB[withComplementary ? 1 : 0];
  QString text = Res(least ? 633 : 632) + QLatin1Char(' ') + rt::NumberToTextSingle(stats.sorteosBase) +
                 QLatin1Char(' ') + Res(604) + kCrLf + Res(withComplementary ? 643 : 634) + kCrLf + kCrLf;
  const std::array<int, 49> order = byCount(counts, !least);
  for (int i = 0; i < 10; ++i) {
    const int x = order[i];
    text += QString::number(x).rightJustified(2) + QLatin1Char(' ') + Res(635) + QLatin1Char(' ') +
            rt::NumberToTextSingle(counts[x]) + QLatin1Char(' ') + Res(636) + QStringLiteral("  ( ") +
            percent(counts[x], stats.sorteosBase) + QStringLiteral(" % )") + kCrLf;
  }
  return text;
}

bool FrequencyChart::hasData() const {
  return std::any_of(values.begin(), values.end(), [](double v) { return v != 0; });
}

FrequencyChart frequencyChart(const QString& title, const Frequencies& counts, int first, int last,
                              const QString& rangeTo) {
  FrequencyChart c{title, QStringLiteral("0"), rangeTo, {}, {}};
  for (int x = first; x <= last; ++x) {
    c.keys << x;
    c.values << counts[x];
  }
  return c;
}
