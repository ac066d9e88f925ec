// The table's CSV form: both dialects read into the same table, detection,
// headings and blank lines, bad lines named by number with the table left
// as it was, and export then import giving back every cell.
#include <QFile>

#include "funcs/FunctionTable.h"
#include "funcs/TableCsv.h"
#include "shell/ProgramState.h"
#include "tests/funcs/TableTestSupport.h"
#include "tests/support/TestSupport.h"

namespace {

const QString kSemicolonComma = QStringLiteral("X;F(x);G(x)\r\n-1,5;2,25;0\r\n0;0;1e-3\r\n2,5;6,25;-4\r\n");
const QString kCommaPoint = QStringLiteral("\"X\",\"F(x)\",\"G(x)\"\n-1.5,2.25,0\n\n0,0,0.001\n2.5,6.25,-4\n");

QStringList cells(const FunctionTable& t, int col) {
  QStringList out;
  for (int r = 1; r <= program().pointCount; ++r) out << t.TextMatrix(r, col);
  return out;
}

}  // namespace

class TableCsvTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    openInRadians(t);
  }
  FunctionTable t;
};

TEST_F(TableCsvTest, DetectsTheDialectFromTheText) {
  TableCsv csv;
  csv.detect(kSemicolonComma);
  EXPECT_EQ(csv.separator, QLatin1Char(';'));
  EXPECT_EQ(csv.decimal, QLatin1Char(','));
  csv.detect(kCommaPoint);
  EXPECT_EQ(csv.separator, QLatin1Char(','));
  EXPECT_EQ(csv.decimal, QLatin1Char('.'));
  useComma();
  csv.followSystem();
  EXPECT_EQ(csv.separator, QLatin1Char(';'));
  usePoint();
  csv.followSystem();
  EXPECT_EQ(csv.separator, QLatin1Char(','));
}

TEST_F(TableCsvTest, BothDialectsImportToTheSameTable) {
  // Run on both systems: the cells follow the system's decimal symbol.
  for (bool comma : {false, true}) {
    comma ? useComma() : usePoint();
    openInRadians(t);
    QList<QStringList> tables;
    for (const QString& text : {kSemicolonComma, kCommaPoint}) {
      TableCsv csv;
      csv.detect(text);
      csv.columnG = 2;
      const TableCsv::Result r = csv.read(text);
      ASSERT_EQ(r.badLine, 0) << text.toStdString();
      TableCsv::fill(t, r.data);
      tables << (cells(t, FunctionTable::kX) + cells(t, FunctionTable::kF) + cells(t, FunctionTable::kG));
    }
    EXPECT_EQ(tables[0], tables[1]);
    const QString d = comma ? QStringLiteral(",") : QStringLiteral(".");
    EXPECT_EQ(cells(t, FunctionTable::kX), (QStringList{"-1" + d + "5", "0", "2" + d + "5"}));
    EXPECT_EQ(cells(t, FunctionTable::kG), (QStringList{"0", "0" + d + "001", "-4"}));
    EXPECT_EQ(program().pointCount, 3);
    EXPECT_EQ(program().hasG, -1);
    // Filled as edit mode fills it, with the derivatives worked out.
    EXPECT_EQ(t.xCellCount, 3);
    EXPECT_EQ(t.yCellCount, 3);
    EXPECT_FALSE(t.TextMatrix(1, FunctionTable::kDerivative1).isEmpty());
  }
}

TEST_F(TableCsvTest, ChosenColumnsAndNoG) {
  TableCsv csv;
  csv.detect(kSemicolonComma);
  csv.columnX = 2;
  csv.columnF = 0;
  const TableCsv::Result r = csv.read(kSemicolonComma);
  ASSERT_EQ(r.badLine, 0);
  EXPECT_EQ(r.data.x, (std::vector<double>{0, 0.001, -4}));
  EXPECT_EQ(r.data.f, (std::vector<double>{-1.5, 0, 2.5}));
  EXPECT_TRUE(r.data.g.empty());
  TableCsv::fill(t, r.data);
  EXPECT_EQ(program().hasG, 0);
  EXPECT_TRUE(t.TextMatrix(1, FunctionTable::kG).isEmpty());
}

TEST_F(TableCsvTest, ABadLineIsNamedAndTheTableStaysAsItWas) {
  tabulateAtOnce(t, QStringLiteral("x^2"), QStringLiteral("0"), QStringLiteral("1"), 5);
  const QStringList before = cells(t, FunctionTable::kF);
  struct Case {
    const char* name;
    QString text;
    int columnG;
    int badLine;
  };
  const Case cases[] = {
      {"text in a data line", QStringLiteral("X;F\n1;2\n3;abc\n"), -1, 3},
      {"a missing field", QStringLiteral("1;2\n3\n"), -1, 2},
      {"a missing G field", QStringLiteral("1;2;3\n4;5\n"), 2, 2},
      {"a point in a decimal-comma file", QStringLiteral("1;2\n1.5;2\n"), -1, 2},
      {"a first line half numbers is no heading", QStringLiteral("1;F\n2;3\n"), -1, 1},
      {"binary bytes after a heading", QString::fromLatin1("\x01;\x02\n\xff\xfe;\x03\n"), -1, 2},
  };
  for (const Case& c : cases) {
    TableCsv csv;
    csv.columnG = c.columnG;
    const TableCsv::Result r = csv.read(c.text);
    EXPECT_EQ(r.badLine, c.badLine) << c.name;
    EXPECT_TRUE(r.data.x.empty()) << c.name;
  }
  EXPECT_EQ(cells(t, FunctionTable::kF), before);
  EXPECT_EQ(program().pointCount, 5);
}

TEST_F(TableCsvTest, ExportThenImportGivesBackEveryCell) {
  for (bool comma : {false, true}) {
    comma ? useComma() : usePoint();
    openInRadians(t);
    if (t.Check1 == 0) t.Check1_Click();
    tabulateAtOnce(t, QStringLiteral("sin(x)/3"), QStringLiteral("0.5"), QStringLiteral("7"), 37);
    ASSERT_EQ(program().hasG, -1);
    const QStringList x = cells(t, FunctionTable::kX), f = cells(t, FunctionTable::kF), g = cells(t, FunctionTable::kG);
    for (QChar separator : {QLatin1Char(';'), QLatin1Char(',')}) {
      TableCsv csv;
      csv.separator = separator;
      csv.decimal = separator == QLatin1Char(';') ? QLatin1Char(',') : QLatin1Char('.');
      const QString path = appFolder.filePath(QStringLiteral("table.csv"));
      ASSERT_TRUE(TableCsv::writeFile(path, csv.write(t)));
      t.cmdClear_Click();
      QString text;
      ASSERT_TRUE(TableCsv::readFile(path, text));
      TableCsv in;
      in.detect(text);
      in.columnG = 2;
      const TableCsv::Result r = in.read(text);
      ASSERT_EQ(r.badLine, 0);
      TableCsv::fill(t, r.data);
      EXPECT_EQ(cells(t, FunctionTable::kX), x);
      EXPECT_EQ(cells(t, FunctionTable::kF), f);
      EXPECT_EQ(cells(t, FunctionTable::kG), g);
    }
  }
}

TEST_F(TableCsvTest, PreviewShowsTheFirstLinesSplit) {
  QString text;
  for (int i = 1; i <= 25; ++i) text += QStringLiteral("%1;%2;x\n").arg(i).arg(i * 2);
  TableCsv csv;
  const QList<QStringList> rows = csv.preview(text);
  ASSERT_EQ(rows.size(), TableCsv::kPreviewLines);
  EXPECT_EQ(rows[9], (QStringList{"10", "20", "x"}));
  EXPECT_EQ(csv.fieldCount(text), 3);
  // The whole file is read, not just what the preview shows.
  EXPECT_EQ(csv.read(text).data.x.size(), 25u);
}

TEST_F(TableCsvTest, ImportInExpressionModeTurnsToFunctionMode) {
  t.mnuexpr_Click();
  TableCsv csv;
  const TableCsv::Result r = csv.read(QStringLiteral("1;1\n2;4\n"));
  ASSERT_EQ(r.badLine, 0);
  TableCsv::fill(t, r.data);
  EXPECT_EQ(t.operationMode, 0);
  EXPECT_EQ(program().pointCount, 2);
  EXPECT_EQ(t.TextMatrix(2, FunctionTable::kF), QStringLiteral("4"));
}

TEST_F(TableCsvTest, ExportAsksForTheSeparatorsWithTheSystemsFirst) {
  struct Case {
    bool commaSystem;
    QString answer;  // list position, or nothing chosen
    QChar separator, decimal;
  };
  const Case cases[] = {
      {false, QString(), ',', '.'}, {false, "2", ';', ','}, {true, QString(), ';', ','}, {true, "2", ',', '.'},
      {true, "1", ';', ','},
  };
  for (const Case& c : cases) {
    c.commaSystem ? useComma() : usePoint();
    if (!c.answer.isEmpty()) messages.queueText(c.answer);
    TableCsv csv;
    ASSERT_TRUE(csv.askSeparators());
    EXPECT_EQ(csv.separator, c.separator) << c.answer.toStdString();
    EXPECT_EQ(csv.decimal, c.decimal) << c.answer.toStdString();
  }
  messages.queueButton(1);  // Cancel
  TableCsv csv;
  EXPECT_FALSE(csv.askSeparators());
}
