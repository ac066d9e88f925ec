// Reading a CSV file of the function table (TableCsv::read: lines split,
// the heading passed over, each chosen field checked and converted through
// the runtime's locale-aware reading) for 1,000 and 30,000 rows of three
// columns with a decimal comma, beside the naive form in the same run: split
// at ";" and at line ends, swap "," for "." and QString::toDouble, with no
// check of the other decimal mark. The ratio is what to read.
#include <benchmark/benchmark.h>

#include <QLocale>

#include "funcs/TableCsv.h"
#include "shell/ProgramState.h"

namespace {

QString sampleFile(int rows) {
  QString text = QStringLiteral("X;F(x);G(x)\r\n");
  for (int i = 0; i < rows; ++i) {
    const double x = i * 0.0137;
    text += QString::number(x, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(',')) + QLatin1Char(';') +
            QString::number(x * x - 3, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(',')) + QLatin1Char(';') +
            QString::number(-x / 7, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(',')) + QStringLiteral("\r\n");
  }
  return text;
}

void BM_TableCsvRead(benchmark::State& state) {
  resetProgram(QLocale::c());
  const QString text = sampleFile(static_cast<int>(state.range(0)));
  TableCsv csv;
  csv.detect(text);
  csv.columnG = 2;
  for (auto _ : state) {
    const TableCsv::Result r = csv.read(text);
    benchmark::DoNotOptimize(r.data.x.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_NaiveCsvRead(benchmark::State& state) {
  const QString text = sampleFile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::vector<double> x, f, g;
    const QStringList lines = text.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    for (qsizetype i = 1; i < lines.size(); ++i) {
      const QStringList fields = lines.at(i).split(QLatin1Char(';'));
      x.push_back(QString(fields.at(0)).replace(QLatin1Char(','), QLatin1Char('.')).toDouble());
      f.push_back(QString(fields.at(1)).replace(QLatin1Char(','), QLatin1Char('.')).toDouble());
      g.push_back(QString(fields.at(2)).replace(QLatin1Char(','), QLatin1Char('.')).toDouble());
    }
    benchmark::DoNotOptimize(x.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(BM_TableCsvRead)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_NaiveCsvRead)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond);
