// The analysis against a small in-memory draw table: the type filter, the
// categories by bet size, the report's lines and line breaks, stopping; the
// SQLite table, the CSV import and a database that is missing or foreign.
#include <QDir>
#include <QDate>
#include <QFile>
#include <QMap>
#include <set>

#include "lottery/DrawAnalysis.h"
#include "lottery/LotteryModel.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

// A draw as Tabla1 holds it, with the row number in front.
QStringList draw(const char* date, std::array<int, 7> n, const char* type) {
  QStringList row{QStringLiteral("0"), QString::fromLatin1(date)};
  for (int x : n) row << QString::number(x);
  row << QStringLiteral("5") << QString() << QString::fromLatin1(type);
  return row;
}

class DrawAnalysisTest : public CalvixTest {
 protected:
  QString path(const QString& name) const { return QDir(appFolder.path()).filePath(name); }
  DrawTable table(QList<QStringList> rows) {
    DrawTable t;
    t.setRows(std::move(rows));
    return t;
  }
};

TEST_F(DrawAnalysisTest, CategoriesDependOnTheBetSize) {
  const DrawTable t = table({
      draw("01/01/2000", {1, 2, 10, 20, 30, 40, 45}, "P"),  // 2 hits of 1-5
      draw("02/01/2000", {1, 2, 3, 20, 30, 40, 4}, "P"),    // 3 hits, complementary in 1-5
      draw("03/01/2000", {1, 2, 3, 4, 30, 40, 5}, "P"),     // 4 + C for 1-5
      draw("04/01/2000", {1, 2, 3, 4, 5, 40, 7}, "P"),      // 5 hits; 5 + C for 1-7
      draw("05/01/2000", {1, 2, 3, 4, 5, 6, 7}, "P"),       // 6 + C for 1-7
      draw("06/01/2000", {1, 2, 3, 4, 5, 6, 7}, "B"),       // other type
  });
  struct Row {
    int n;
    std::array<int, 10> premios;
    int premiados;
  };
  const Row rows[] = {
      {5, {0, 0, 1, 1, 0, 2, 0, 0, 0, 1}, 5},  // 2 hits count; 4C; 5 hits twice
      {6, {0, 0, 0, 1, 1, 1, 1, 0, 0, 0}, 4},  // 4 + C is plain 4 hits; 6 hits
      {7, {0, 0, 0, 1, 1, 0, 0, 1, 1, 0}, 4},  // 5C and 6C
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.n);
    QList<int> bet;
    for (int x = 1; x <= r.n; ++x) bet << x;
    const AnalysisResult a = analyseBet(bet, 0, false, t);
    EXPECT_EQ(a.sorteosBase, 5);
    EXPECT_EQ(a.premiados, r.premiados);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(a.premios[i], r.premios[i]) << i;
  }
}

TEST_F(DrawAnalysisTest, TheFilterTakesOneLetterOrEveryRow) {
  const DrawTable t = table({draw("01/01/2000", {1, 2, 3, 20, 30, 40, 45}, "P"),
                             draw("02/01/2000", {1, 2, 3, 20, 30, 40, 45}, "B"),
                             draw("03/01/2000", {1, 2, 3, 20, 30, 40, 45}, "G")});
  const QList<int> bet{1, 2, 3, 4, 5, 6};
  for (int type = 0; type <= 2; ++type) EXPECT_EQ(analyseBet(bet, type, true, t).sorteosBase, 1);
  EXPECT_EQ(analyseBet(bet, 3, true, t).sorteosBase, 3);
}

TEST_F(DrawAnalysisTest, ReportLinesBreakOnlyAfterFourToSixHits) {
  const DrawTable t = table({draw("06/01/2000", {1, 2, 3, 20, 30, 40, 45}, "P"),
                             draw("13/01/2000", {1, 2, 3, 20, 30, 40, 45}, "P"),
                             draw("20/01/2000", {1, 2, 3, 4, 5, 40, 6}, "P")});
  const AnalysisResult a = analyseBet({1, 2, 3, 4, 5, 6}, 0, false, t);
  const QString head = QStringLiteral(
      "Sorteos de Primitiva \r\n3 sorteos analizados\r\nApuesta: 1  2  3  4  5  6\r\nPremiada en 3 sorteos\r\n"
      " 3 aciertos: 2 veces.\r\n 5C aciertos: 1 veces.\r\n\r\n");
  EXPECT_EQ(a.report, head + QStringLiteral("Sorteo Thu 06/01/2000: 3Sorteo Thu 13/01/2000: 3"
                                            "Sorteo Thu 20/01/2000: 5C\r\n\r\n"));
  // Express: no draw lines; a 6-number bet has no prize table.
  EXPECT_EQ(analyseBet({1, 2, 3, 4, 5, 6}, 0, true, t).report, head);
}

TEST_F(DrawAnalysisTest, PrizeTablesAppearLetterForLetter) {
  const DrawTable t = table({});
  const struct {
    int n;
    const char* first;
    const char* last;
  } rows[] = {{5, "5a    1      1      42      0      0   ", "2a    0      0       0      0      4   "},
              {7, "6a+c  1      6       0      0      0   ", "3a    0      0       0      0      4   "},
              {8, "6a    1      0      12     15      0   ", "3a    0      0       0      0     10   "},
              {9, "5a+c  0      1       3     30     40   ", "3a    0      0       0      0     20   "},
              {10, "5a    0      0       5     50    100   ", "3a    0      0       0      0     35   "},
              {11, "6a+c  1      6      24    150    200   ", "3a    0      0       0      0     56   "}};
  for (const auto& r : rows) {
    QList<int> bet;
    for (int x = 1; x <= r.n; ++x) bet << x;
    const QString report = analyseBet(bet, 0, false, t).report;
    EXPECT_TRUE(report.contains(QStringLiteral("\r\n") + QLatin1String(r.first) + QStringLiteral("\r\n"))) << r.n;
    EXPECT_TRUE(report.contains(QStringLiteral("\r\n") + QLatin1String(r.last) + QStringLiteral("\r\n"))) << r.n;
    EXPECT_TRUE(report.contains(QStringLiteral("\r\n     6(1ª)  5c(2ª)  5(3ª)  4(4ª)  3(5ª)   \r\n")));
    EXPECT_TRUE(report.startsWith(QStringLiteral("Sorteos de Primitiva \r\n0 sorteos analizados\r\n")));
    EXPECT_EQ(prizeTableRows(r.n).size(), r.n == 5 ? 5 : 6);
  }
  EXPECT_TRUE(prizeTableRows(6).isEmpty());
}

TEST_F(DrawAnalysisTest, StoppingDiscardsTheReport) {
  const DrawTable t = table({draw("01/01/2000", {1, 2, 3, 20, 30, 40, 45}, "P"),
                             draw("02/01/2000", {1, 2, 3, 20, 30, 40, 45}, "P")});
  const AnalysisResult a = analyseBet({1, 2, 3, 4, 5, 6}, 0, false, t, [](int row) { return row < 1; });
  EXPECT_TRUE(a.stopped);
  EXPECT_TRUE(a.report.isEmpty());
}

TEST_F(DrawAnalysisTest, CsvImportRefusesABadFileWholeAndNamesTheLine) {
  const QByteArray good = "01/02/2003,1,2,3,4,5,6,7,8,P\n08/02/2003,10,20,30,40,41,42,43,,B\n";
  const struct {
    const char* line;
  } bad[] = {{"09/02/2003,1,2,3,4,5,6,6,1,P"}, {"09/02/2003,1,2,3,4,5,6,50,1,P"}, {"31/02/2003,1,2,3,4,5,6,7,1,P"},
             {"09/02/2003,1,2,3,4,5,6,7,12,P"}, {"09/02/2003,1,2,3,4,5,6,7,1,X"},  {"09/02/2003,1,2,3,4,5,6,7,1"}};
  ASSERT_EQ(storeDraws(path("d.dlj"), {}, false), 0);
  for (const auto& b : bad) {
    QList<QStringList> rows;
    int line = 0;
    EXPECT_FALSE(parseDrawsCsv(good + b.line + "\n", rows, line)) << b.line;
    EXPECT_EQ(line, 3) << b.line;
    EXPECT_TRUE(rows.isEmpty());
  }
  QList<QStringList> rows;
  int line = 0;
  ASSERT_TRUE(parseDrawsCsv(good, rows, line));
  EXPECT_EQ(storeDraws(path("d.dlj"), rows, false), 2);
  EXPECT_EQ(storeDraws(path("d.dlj"), rows, true), 4);
  EXPECT_EQ(storeDraws(path("d.dlj"), rows, false), 2);
  DrawTable t;
  ASSERT_TRUE(t.load(path("d.dlj")));
  ASSERT_EQ(t.rows.size(), 2);
  EXPECT_EQ(t.rows.at(1), QStringList({"2", "08/02/2003", "10", "20", "30", "40", "41", "42", "43", "", "2", "B"}));
}

TEST_F(DrawAnalysisTest, MissingForeignOrEmptyDatabasesGiveNoRows) {
  QFile f(path("foreign.dlj"));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("not a database");
  f.close();
  DrawTable t;
  EXPECT_FALSE(t.load(path("missing.dlj")));
  EXPECT_FALSE(t.load(path("foreign.dlj")));
  EXPECT_TRUE(t.rows.isEmpty());
  ASSERT_EQ(storeDraws(path("empty.dlj"), {}, false), 0);
  ASSERT_TRUE(t.load(path("empty.dlj")));
  const AnalysisResult a = analyseBet({1, 2, 3, 4, 5, 6}, 0, false, t);
  EXPECT_EQ(a.sorteosBase, 0);
  EXPECT_TRUE(a.report.contains(QStringLiteral("\r\n0 sorteos analizados\r\n")));
}

TEST_F(DrawAnalysisTest, TheModelAnalysesTheBoardAndEveryListRow) {
  QList<QStringList> rows;
  int line = 0;
  ASSERT_TRUE(parseDrawsCsv("06/01/2000,1,2,3,4,20,30,5,1,P\n", rows, line));
  ASSERT_EQ(storeDraws(path("cvxlp.dlj"), rows, false), 1);
  LotteryModel m;
  ASSERT_EQ(m.draws.rows.size(), 1);
  m.manualoto_Click();
  for (int x : {1, 2, 3, 4, 5, 6}) m.Label10_Click(x - 1);
  m.Command9_Click();
  m.Command6_Click();
  EXPECT_EQ(m.analysis.premios[4], 1);
  EXPECT_EQ(m.informeTitle, Res(586) + QLatin1Char(' '));
  for (int x : {1, 2, 3, 4, 5, 6}) m.Label10_Click(x - 1);
  for (int x : {1, 2, 3, 4, 5}) m.Label10_Click(x - 1);
  m.Command9_Click();
  m.analizeTodapu_Click();
  EXPECT_FALSE(m.LotoInfoExpress);
  EXPECT_EQ(m.analysis.premios[4], 1);
  EXPECT_EQ(m.analysis.premios[9], 1);  // 4 hits and the complementary
  EXPECT_EQ(m.informeLoto.count(QStringLiteral("Sorteos de Primitiva")), 2);
  EXPECT_FALSE(m.informeLoto.contains(QStringLiteral("Sorteo Thu")));  // forced express
  // The last row analysed is named under the board.
  EXPECT_TRUE(m.Label9bVisible);
  EXPECT_EQ(m.Label9bText, Res(602) + QStringLiteral(": 1  2  3  4  5"));

  // Stopped at the second row: nothing is shown.
  m.hooks.analysisStep = [](int row, int) { return row < 1; };
  m.analizeTodapu_Click();
  EXPECT_TRUE(m.analysis.stopped);
  EXPECT_TRUE(m.informeLoto.isEmpty());
  EXPECT_TRUE(m.informeTitle.isEmpty());
}

TEST_F(DrawAnalysisTest, TheShippedSampleHoldsValidDrawsOnTheirWeekdays) {
  DrawTable t;
  ASSERT_TRUE(t.load(QStringLiteral(CALVIX_BIN_DIR) + QStringLiteral("/cvxlp.dlj")));
  EXPECT_GT(t.rows.size(), 4500);
  EXPECT_LT(t.rows.size(), 6000);
  QMap<QString, int> perType;
  for (const QStringList& row : t.rows) {
    ASSERT_EQ(row.size(), 12);
    std::set<int> numbers;
    for (int c = 2; c <= 8; ++c) numbers.insert(row.at(c).toInt());
    ASSERT_EQ(numbers.size(), 7u) << row.join(',').toStdString();
    ASSERT_GE(*numbers.begin(), 1);
    ASSERT_LE(*numbers.rbegin(), 49);
    const QDate date = QDate::fromString(row.at(1), QStringLiteral("dd/MM/yyyy"));
    ASSERT_TRUE(date.isValid());
    ASSERT_GE(date.year(), 1985);
    const QString type = row.at(11);
    ++perType[type];
    if (type == QLatin1String("P")) {
      ASSERT_TRUE(date.dayOfWeek() == 6 || (date.dayOfWeek() == 4 && date.year() >= 1997));
    } else if (type == QLatin1String("B")) {
      ASSERT_EQ(date.dayOfWeek(), 2);
    } else {
      ASSERT_EQ(type, QStringLiteral("G"));
      ASSERT_EQ(date.dayOfWeek(), 7);
      ASSERT_LE(date, QDate(2005, 1, 30));
    }
  }
  EXPECT_EQ(perType.size(), 3);
}

}  // namespace
