// The element table: its text source agrees with standard atomic weights
// written down separately here, the generated cvxtp.dlj holds element z in
// row z with the fields in sheet order, and the reader round-trips a table
// and refuses damaged or foreign files with an empty answer.
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTextStream>
#include <cmath>

#include "elements/ElementTable.h"
#include "tests/support/TestSupport.h"

namespace {

struct SourceRow {
  int z = 0;
  QStringList fields;  // the source's own columns
};

// Source columns used below.
constexpr int kSymbol = 1;
constexpr int kSpanish = 2;
constexpr int kWeight = 6;

QList<SourceRow> readSource() {
  QList<SourceRow> rows;
  QFile f(sourcePath(QStringLiteral("data/elements/elements.txt")));
  if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return rows;
  QTextStream in(&f);
  while (!in.atEnd()) {
    const QString line = in.readLine();
    if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
    const QStringList parts = line.split(QLatin1Char('|'));
    rows.append({parts.first().toInt(), parts});
  }
  return rows;
}

QString builtTable() { return QDir(QStringLiteral(CALVIX_BIN_DIR)).filePath(QStringLiteral("cvxtp.dlj")); }

// Standard atomic weights (IUPAC, abridged to five significant figures or
// the conventional value), kept apart from the source on purpose.
struct Reference {
  int z;
  const char* symbol;
  double weight;
  double tolerance;
};
constexpr Reference kReference[] = {
    {1, "H", 1.008, 0.001},     {2, "He", 4.0026, 0.0001},  {3, "Li", 6.94, 0.01},     {4, "Be", 9.0122, 0.0001},
    {5, "B", 10.81, 0.01},      {6, "C", 12.011, 0.001},    {7, "N", 14.007, 0.001},   {8, "O", 15.999, 0.001},
    {9, "F", 18.998, 0.001},    {10, "Ne", 20.180, 0.001},  {11, "Na", 22.990, 0.001}, {12, "Mg", 24.305, 0.001},
    {13, "Al", 26.982, 0.001},  {14, "Si", 28.085, 0.001},  {15, "P", 30.974, 0.001},  {16, "S", 32.06, 0.01},
    {17, "Cl", 35.45, 0.01},    {18, "Ar", 39.95, 0.01},    {19, "K", 39.098, 0.001},  {20, "Ca", 40.078, 0.001},
    {24, "Cr", 51.996, 0.001},  {26, "Fe", 55.845, 0.001}, {29, "Cu", 63.546, 0.001}, {30, "Zn", 65.38, 0.01},
    {35, "Br", 79.904, 0.001},  {47, "Ag", 107.87, 0.01},  {50, "Sn", 118.71, 0.01},  {53, "I", 126.90, 0.01},
    {56, "Ba", 137.33, 0.01},   {74, "W", 183.84, 0.01},   {78, "Pt", 195.08, 0.01},  {79, "Au", 196.97, 0.01},
    {80, "Hg", 200.59, 0.01},   {82, "Pb", 207.2, 0.1},    {83, "Bi", 208.98, 0.01},  {90, "Th", 232.04, 0.01},
    {92, "U", 238.03, 0.01},    {43, "Tc", 98, 0},         {61, "Pm", 145, 0},        {94, "Pu", 244, 0},
};

}  // namespace

class ElementTableTest : public CalvixTest {};

TEST_F(ElementTableTest, SourceHoldsElementsOneTo111InOrderWithEveryField) {
  const QList<SourceRow> rows = readSource();
  ASSERT_EQ(rows.size(), 111);
  for (int i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].z, i + 1);
    EXPECT_EQ(rows[i].fields.size(), 25) << "element " << i + 1;
    for (const QString& f : rows[i].fields) EXPECT_FALSE(f.trimmed().isEmpty()) << "element " << i + 1;
  }
}

TEST_F(ElementTableTest, AtomicWeightsAgreeWithAnIndependentList) {
  const QList<SourceRow> rows = readSource();
  ASSERT_EQ(rows.size(), 111);
  for (const Reference& r : kReference) {
    const QStringList& f = rows[r.z - 1].fields;
    EXPECT_EQ(f[kSymbol], QString::fromLatin1(r.symbol)) << "z " << r.z;
    EXPECT_NEAR(f[kWeight].toDouble(), r.weight, r.tolerance) << r.symbol;
  }
}

TEST_F(ElementTableTest, NumericFieldsHoldANumberOrTwoDashes) {
  const QList<SourceRow> rows = readSource();
  // Columns 6 to 20 of the source are numbers; melting points may be below zero.
  for (const SourceRow& row : rows) {
    for (int c = 6; c <= 20; ++c) {
      const QString v = row.fields[c];
      bool ok = false;
      v.toDouble(&ok);
      EXPECT_TRUE(ok || v == QLatin1String("--")) << row.z << " column " << c << ": " << v.toStdString();
      EXPECT_FALSE(v.contains(QLatin1Char(','))) << row.z;
    }
    // Every element has a weight: the mass number when there is no standard one.
    EXPECT_GT(row.fields[kWeight].toDouble(), 0) << row.z;
  }
}

TEST_F(ElementTableTest, BuiltTableHoldsElementZInRowZInSheetOrder) {
  const QList<ElementRecord> table = readElementTable(builtTable());
  const QList<SourceRow> source = readSource();
  ASSERT_EQ(table.size(), 111);
  for (int z : {1, 8, 26, 79, 111}) {
    const ElementRecord& r = table[z - 1];
    EXPECT_EQ(r[fieldIndex(ElementField::numat)], QString::number(z));
    EXPECT_EQ(r[fieldIndex(ElementField::simbolos)], source[z - 1].fields[kSymbol]);
    EXPECT_EQ(r[fieldIndex(ElementField::nombres)], source[z - 1].fields[kSpanish]);
    EXPECT_EQ(r[fieldIndex(ElementField::pesos)], source[z - 1].fields[kWeight]);
  }
  // Gold, field by field in the order of the sheet.
  const ElementRecord& au = table[78];
  EXPECT_EQ(au[fieldIndex(ElementField::ebulliciones)], QStringLiteral("2856"));
  EXPECT_EQ(au[fieldIndex(ElementField::fusiones)], QStringLiteral("1064.18"));
  EXPECT_EQ(au[fieldIndex(ElementField::densidades)], QStringLiteral("19.30"));
  EXPECT_EQ(au[fieldIndex(ElementField::cristal)], QStringLiteral("Cúbico CE"));
}

TEST_F(ElementTableTest, TableFileHasTabla1WithFieldsInSheetOrder) {
  const QString name = QStringLiteral("element-test-columns");
  QStringList columns;
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    db.setDatabaseName(builtTable());
    ASSERT_TRUE(db.open());
    QSqlQuery q(db);
    ASSERT_TRUE(q.exec(QStringLiteral("PRAGMA table_info(Tabla1)")));
    while (q.next()) columns << q.value(1).toString();
    db.close();
  }
  QSqlDatabase::removeDatabase(name);
  ASSERT_EQ(columns.size(), kElementFieldCount);
  for (int i = 0; i < kElementFieldCount; ++i) EXPECT_EQ(columns[i], elementFieldName(i));
}

TEST_F(ElementTableTest, WrittenTableReadsBackUnchanged) {
  ElementRecord a, b;
  for (int i = 0; i < kElementFieldCount; ++i) {
    a[i] = QStringLiteral("a%1").arg(i);
    b[i] = i % 2 ? QStringLiteral("--") : QStringLiteral("1.5");
  }
  const QString path = appFolder.filePath(QStringLiteral("round.dlj"));
  ASSERT_TRUE(writeElementTable(path, {a, b}));
  const QList<ElementRecord> back = readElementTable(path);
  ASSERT_EQ(back.size(), 2);
  EXPECT_EQ(back[0], a);
  EXPECT_EQ(back[1], b);
}

TEST_F(ElementTableTest, MissingDamagedOrForeignFilesGiveNoRows) {
  EXPECT_TRUE(readElementTable(appFolder.filePath(QStringLiteral("none.dlj"))).isEmpty());
  // Reading a missing file must not leave an empty database behind.
  EXPECT_FALSE(QFile::exists(appFolder.filePath(QStringLiteral("none.dlj"))));

  const QString damaged = appFolder.filePath(QStringLiteral("damaged.dlj"));
  QFile copy(builtTable());
  ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
  QByteArray bytes = copy.readAll();
  bytes.truncate(bytes.size() / 3);  // a file cut short
  for (qsizetype i = 0; i < 100 && i < bytes.size(); ++i) bytes[i] = 'x';  // and a header overwritten
  QFile out(damaged);
  ASSERT_TRUE(out.open(QIODevice::WriteOnly));
  out.write(bytes);
  out.close();
  EXPECT_TRUE(readElementTable(damaged).isEmpty());

  const QString text = appFolder.filePath(QStringLiteral("text.dlj"));
  QFile t(text);
  ASSERT_TRUE(t.open(QIODevice::WriteOnly));
  t.write("\"not\",\"a table\"\r\n");
  t.close();
  EXPECT_TRUE(readElementTable(text).isEmpty());

  // An SQLite file of another kind: no Tabla1.
  const QString other = appFolder.filePath(QStringLiteral("other.dlj"));
  const QString name = QStringLiteral("element-test-other");
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    db.setDatabaseName(other);
    ASSERT_TRUE(db.open());
    QSqlQuery(db).exec(QStringLiteral("CREATE TABLE Sorteos (fecha TEXT)"));
    db.close();
  }
  QSqlDatabase::removeDatabase(name);
  EXPECT_TRUE(readElementTable(other).isEmpty());
}
