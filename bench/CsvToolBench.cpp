// Converting a 6000-row CSV file the way the CSV tool's Command2 does it: the
// file read whole, each line rewritten by the separator rule and split into
// the preview grid. The reference reads the same file and splits each line
// at the comma with plain QString calls and nothing else; the ratio is the
// price of the rule and the grid.
#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

#include "shell/ProgramState.h"
#include "stats/CsvToolModel.h"

namespace {

const QString& csvFile() {
  static QTemporaryDir dir;
  static const QString path = [] {
    resetProgram();
    const QString p = dir.filePath(QStringLiteral("bench.csv"));
    QFile f(p);
    f.open(QIODevice::WriteOnly);
    f.write("x,y,z\r\n");
    for (int i = 1; i <= 6000; ++i) {
      f.write(QStringLiteral("%1.25,%2.5,%3\r\n").arg(i).arg(i * 3).arg(i % 97).toLatin1());
    }
    return p;
  }();
  return path;
}

void BM_CsvToolConversion6000(benchmark::State& state) {
  const QString path = csvFile();
  CsvToolModel tool;
  tool.Form_Load();
  tool.fileDialog = [&](const QString&, const QString&, const QString&) { return path; };
  tool.Command1_Click();
  tool.Command4_Click();
  for (auto _ : state) {
    tool.Command2_Click();
    benchmark::DoNotOptimize(tool.MSFlexGrid1.size());
  }
  state.counters["rows"] = static_cast<double>(tool.MSFlexGrid1.size() - 1);
}
BENCHMARK(BM_CsvToolConversion6000)->Unit(benchmark::kMillisecond);

void BM_PlainSplitOfTheSameFile(benchmark::State& state) {
  const QString path = csvFile();
  for (auto _ : state) {
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    QList<QStringList> rows;
    const QStringList lines = QString::fromLatin1(f.readAll()).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    rows.reserve(lines.size());
    for (const QString& line : lines) rows.append(line.split(u','));
    benchmark::DoNotOptimize(rows.size());
  }
}
BENCHMARK(BM_PlainSplitOfTheSameFile)->Unit(benchmark::kMillisecond);

}  // namespace
