// The periodic table's two hot paths, each beside a reference in the same run:
//  - opening the table: cvxtp.dlj read whole through Qt's SQLite driver,
//    against reading the same text source line by line with no database;
//  - the data sheet of every element in turn (the texts with the system's
//    decimal symbol, the name cut from the tooltip, the translations), in
//    calories and on a "," system, against copying the stored row as it is;
//  - the molecular-weight builder over glucose, clicked and subscripted as
//    the keys do, against summing the same weights in a plain loop.
#include <benchmark/benchmark.h>

#include <QFileInfo>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include "elements/PeriodicTable.h"
#include "shell/ProgramState.h"

namespace {

// The benchmark is built beside the programs, where the table is; it runs
// with no application object, so the folder comes from the executable's path.
QString binFolder() { return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath(); }

QString builtTable() { return QDir(binFolder()).filePath(QStringLiteral("cvxtp.dlj")); }

const QList<ElementRecord>& tableRows() {
  static const QList<ElementRecord> rows = [] {
    QList<ElementRecord> r = readElementTable(builtTable());
    if (r.size() != kElementCount) qFatal("cvxtp.dlj not found beside the benchmark");
    return r;
  }();
  return rows;
}

void useTableFolder() {
  resetProgram(QLocale(QLocale::Spanish, QLocale::Spain));
  program().AppFolder = rt::Variant(binFolder() + QLatin1Char('/'));
}

void BM_ElementTableOpen(benchmark::State& state) {
  for (auto _ : state) {
    const QList<ElementRecord> rows = readElementTable(builtTable());
    benchmark::DoNotOptimize(rows.size());
  }
}
BENCHMARK(BM_ElementTableOpen)->Unit(benchmark::kMicrosecond);

// Reference: the same 111 rows as plain text split into fields.
void BM_ElementTextSourceRead(benchmark::State& state) {
  QTemporaryDir dir;
  const QString path = dir.filePath(QStringLiteral("rows.txt"));
  {
    QFile f(path);
    f.open(QIODevice::WriteOnly | QIODevice::Text);
    QTextStream out(&f);
    for (const ElementRecord& r : tableRows()) {
      QStringList fields(r.begin(), r.end());
      out << fields.join(QLatin1Char('|')) << '\n';
    }
  }
  for (auto _ : state) {
    QFile f(path);
    f.open(QIODevice::ReadOnly | QIODevice::Text);
    QTextStream in(&f);
    QList<QStringList> rows;
    while (!in.atEnd()) rows.append(in.readLine().split(QLatin1Char('|')));
    benchmark::DoNotOptimize(rows.size());
  }
}
BENCHMARK(BM_ElementTextSourceRead)->Unit(benchmark::kMicrosecond);

void BM_ElementSheetsAll111(benchmark::State& state) {
  useTableFolder();
  PeriodicTable t;
  t.Form_Load();
  t.EnergyUnit_Click(1);
  for (auto _ : state) {
    for (int z = 1; z <= kElementCount; ++z) t.zeta_Click(z);
    benchmark::DoNotOptimize(t.sheet[0]);
  }
}
BENCHMARK(BM_ElementSheetsAll111)->Unit(benchmark::kMicrosecond);

// Reference: the stored rows copied into the labels unchanged.
void BM_ElementRowsCopiedAll111(benchmark::State& state) {
  const QList<ElementRecord>& rows = tableRows();
  std::array<QString, kElementFieldCount> sheet;
  for (auto _ : state) {
    for (const ElementRecord& r : rows) {
      for (std::size_t i = 0; i < sheet.size(); ++i) sheet[i] = QString(r[i].constData(), r[i].size());
    }
    benchmark::DoNotOptimize(sheet[0]);
  }
}
BENCHMARK(BM_ElementRowsCopiedAll111)->Unit(benchmark::kMicrosecond);

void BM_MolecularWeightGlucose(benchmark::State& state) {
  useTableFolder();
  PeriodicTable t;
  t.Form_Load();
  t.calculo_Click();
  for (auto _ : state) {
    t.Command112_Click();
    for (const auto& [z, count] : {std::pair{6, 6}, std::pair{1, 12}, std::pair{8, 6}}) {
      t.zeta_Click(z);
      for (QChar c : QString::number(count)) t.Command1_Click(c.digitValue());
      t.Command123_Click();
    }
    benchmark::DoNotOptimize(t.weight.pesoMol);
  }
}
BENCHMARK(BM_MolecularWeightGlucose)->Unit(benchmark::kMicrosecond);

// Reference: the same weights read from their texts and summed.
void BM_MolecularWeightPlainSum(benchmark::State& state) {
  const QList<ElementRecord>& rows = tableRows();
  const auto weight = [&](int z) { return rows[z - 1][static_cast<std::size_t>(fieldIndex(ElementField::pesos))].toDouble(); };
  for (auto _ : state) {
    double total = 0;
    for (const auto& [z, count] : {std::pair{6, 6}, std::pair{1, 12}, std::pair{8, 6}}) total += weight(z) * count;
    benchmark::DoNotOptimize(total);
  }
}
BENCHMARK(BM_MolecularWeightPlainSum)->Unit(benchmark::kMicrosecond);

}  // namespace
