// The matrix panel through its handlers, as the user presses them: the
// checks and their messages (a failure leaves every grid as it was), the
// results in C, the determinant and rank in the display, the dependence
// report, copy, exchange, capture of numero and the random fill.
#include "calc/CalculatorEngine.h"
#include "shell/ErrorReport.h"
#include "shell/Printing.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

QList<QStringList> rows(const char* text) {
  QList<QStringList> out;
  for (const QString& r : QString::fromUtf8(text).split(QLatin1Char(';'))) {
    out << r.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  }
  return out;
}

class MatrixModelTest : public CalvixTest {
 protected:
  CalculatorEngine e;
  MatrixModel& m = e.matrices;

  QStringList cellsOf(int grid) const { return m.MSFlexGrid2[static_cast<std::size_t>(grid)].cells; }
  void op(int grid, int index) {
    m.clickedGrid = grid;
    m.MatrizOp_Click(index);
  }
  // The last message, with its title.
  QString lastMessage() const { return messages.shown().empty() ? QString() : messages.shown().back().text; }
  QString lastTitle() const { return messages.shown().empty() ? QString() : messages.shown().back().title; }
};

TEST_F(MatrixModelTest, ChecksRefuseWithTheirCodesAndLeaveTheGridsAlone) {
  struct Row {
    const char* name;
    const char* a;
    const char* b;
    int key;  // Command75 index, or 10 + MatrizOp index on A
    int code;
    bool titledA;
  } table[] = {
      {"sumSizes", "1 2;3 4", "1 2 3", 0, 42, false},
      {"differenceSizes", "1 2", "1;2", 1, 42, false},
      {"product2x3by2x3", "1 2 3;4 5 6", "1 2 3;4 5 6", 2, 44, false},
      {"divideNotSquare", "1 2;3 4", "1 2 3;4 5 6", 3, 47, false},
      {"divideSingularB", "1 2;3 4", "1 2;2 4", 3, 48, true},
      {"nonNumericCell", "1 x;3 4", "1 2;3 4", 0, 43, true},
      {"adjointNotSquare", "1 2 3", "", 13, 45, true},
      {"gaussJordanNotSquare", "1 2 3", "", 14, 45, true},
      {"determinantNotSquare", "1 2 3", "", 15, 46, true},
      {"adjointSingular", "1 2;2 4", "", 13, 48, true},
      {"gaussJordanSingular", "1 2;2 4", "", 14, 48, true},
      // The division failure of 1/0 takes the unexpected-failure path.
      {"gaussJordanOfZero", "0", "", 14, 31, false},
  };
  for (const Row& r : table) {
    m.setGrid(0, rows(r.a));
    m.setGrid(1, r.b[0] ? rows(r.b) : QList<QStringList>{});
    m.setGrid(2, rows("9"));
    const auto before = m.MSFlexGrid2;
    if (r.key < 10) m.Command75_Click(r.key);
    else op(0, r.key - 10);
    EXPECT_EQ(m.errorCode, r.code) << r.name;
    EXPECT_EQ(lastMessage(), ErrorText(r.code)) << r.name;
    if (r.code == 48 && r.key == 3) EXPECT_EQ(lastTitle(), Res(4548) + QStringLiteral(" B")) << r.name;
    else if (r.titledA) EXPECT_EQ(lastTitle(), Res(4548) + QStringLiteral(" A")) << r.name;
    else EXPECT_EQ(lastTitle(), Res(4520)) << r.name;
    for (int g = 0; g < 3; ++g) EXPECT_EQ(m.MSFlexGrid2[g].cells, before[g].cells) << r.name << " grid " << g;
  }
  // Code 47 carries the line that names the operation.
  EXPECT_TRUE(ErrorText(47).endsWith(Res(2080)));
}

TEST_F(MatrixModelTest, DefineNeedsSizesOfAtLeastOne) {
  m.Text6[1] = QStringLiteral("2");
  m.Text7[1] = QStringLiteral("3");
  m.Command54_Click(1);
  EXPECT_EQ(cellsOf(1), QStringList(6, QStringLiteral("0")));
  m.setGrid(1, rows("1 2 3;4 5 6"));
  // A larger matrix keeps the cells it already had.
  m.Text6[1] = QStringLiteral("3");
  m.Command54_Click(1);
  EXPECT_EQ(cellsOf(1), (QStringList{"1", "2", "3", "4", "5", "6", "0", "0", "0"}));
  m.Text7[1] = QStringLiteral("0");
  m.Command54_Click(1);
  EXPECT_EQ(m.errorCode, 41);
  EXPECT_EQ(m.MSFlexGrid2[1].rows, 3);
  // Random fill of a matrix not yet defined.
  m.Command77_Click(0);
  EXPECT_EQ(m.errorCode, 41);
}

TEST_F(MatrixModelTest, TwoMatrixResultsGoToC) {
  m.setGrid(0, rows("1 2;3 4"));
  m.setGrid(1, rows("0 1;2 3"));
  m.Command75_Click(0);
  EXPECT_EQ(cellsOf(2), (QStringList{"1", "3", "5", "7"}));
  m.Command75_Click(2);
  EXPECT_EQ(cellsOf(2), (QStringList{"4", "7", "8", "15"}));
  // B's first pivot is 0: its inverse comes through the row exchange.
  m.Command75_Click(3);
  EXPECT_EQ(cellsOf(2), (QStringList{"0.5", "0.5", "-0.5", "1.5"}));
  EXPECT_EQ(m.Text6[2], QStringLiteral("2"));
}

TEST_F(MatrixModelTest, OneMatrixResultsGoToC) {
  m.setGrid(1, rows("1 2 3;4 5 6"));
  op(1, 1);
  EXPECT_EQ(cellsOf(2), (QStringList{"-1", "-2", "-3", "-4", "-5", "-6"}));
  op(1, 2);
  EXPECT_EQ(cellsOf(2), (QStringList{"1", "4", "2", "5", "3", "6"}));
  EXPECT_EQ(m.MSFlexGrid2[2].rows, 3);
  EXPECT_EQ(m.MSFlexGrid2[2].cols, 2);
  m.setGrid(0, rows("0 1;2 3"));
  op(0, 3);
  EXPECT_EQ(cellsOf(2), (QStringList{"-1.5", "0.5", "1", "0"}));
  op(0, 4);
  EXPECT_EQ(cellsOf(2), (QStringList{"-1.5", "0.5", "1", "0"}));
}

TEST_F(MatrixModelTest, ScalarProductAsksForTheFactorInTheSystemNotation) {
  useComma();
  m.setGrid(0, rows("1 2"));
  messages.queueAnswer(QStringLiteral("2,5"));
  op(0, 0);
  EXPECT_EQ(messages.shown().front().title, Res(4552));
  EXPECT_EQ(cellsOf(2), (QStringList{"2,5", "5"}));
  // Cancelled: nothing changes.
  messages.queueAnswer(QStringLiteral("button:1"));
  m.setGrid(0, rows("7"));
  op(0, 0);
  EXPECT_EQ(cellsOf(2), (QStringList{"2,5", "5"}));
}

TEST_F(MatrixModelTest, DeterminantShowsInResultNumeroAndC) {
  m.setGrid(0, rows("1 2;3 4"));
  op(0, 5);
  EXPECT_EQ(e.result.text(), QStringLiteral("|A|  =  (-2)"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("-2"));
  EXPECT_EQ(cellsOf(2), QStringList{QStringLiteral("-2")});
  m.setGrid(1, rows("0.1 0.3;0.3 0.9"));
  op(1, 5);
  EXPECT_EQ(e.result.text(), QStringLiteral("|B|  =  (2.22044604925031E-17)"));
}

TEST_F(MatrixModelTest, RankAndRowDependence) {
  m.setGrid(0, rows("1 2 3;4 5 6;7 8 9"));
  op(0, 6);
  EXPECT_EQ(e.result.text(), Res(4557) + QStringLiteral("2"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("2"));
  op(0, 7);
  EXPECT_EQ(m.dependentRows, std::vector<int>{3});
  const QString report = lastMessage();
  EXPECT_TRUE(report.startsWith(Res(4558))) << report.toStdString();
  EXPECT_TRUE(report.contains(Res(4561) + QStringLiteral(" 3 ") + Res(4562)));
  EXPECT_TRUE(report.endsWith(Res(4563)));
  m.setGrid(0, rows("1 0;0 1"));
  op(0, 7);
  EXPECT_TRUE(m.dependentRows.empty());
  EXPECT_EQ(lastMessage(), Res(4564) + QStringLiteral(" A ") + Res(4565));
}

TEST_F(MatrixModelTest, CopyExchangeAndCellCapture) {
  m.setGrid(0, rows("1 2"));
  m.setGrid(1, rows("3;4"));
  m.setGrid(2, rows("5 6 7"));
  m.clickedGrid = 1;
  m.MatrizCcopia_Click();
  EXPECT_EQ(cellsOf(1), (QStringList{"5", "6", "7"}));
  EXPECT_EQ(m.Text7[1], QStringLiteral("3"));
  m.ChangeMatriz_Click();
  EXPECT_EQ(cellsOf(0), (QStringList{"5", "6", "7"}));
  EXPECT_EQ(cellsOf(1), (QStringList{"1", "2"}));
  e.numero = QStringLiteral("42");
  m.cellClick(1, 0, 1);
  EXPECT_EQ(cellsOf(1), (QStringList{"1", "42"}));
  m.Command57_Click(1);
  EXPECT_EQ(cellsOf(1), (QStringList{"0", "0"}));
}

TEST_F(MatrixModelTest, RandomFillUsesTheRandomBase) {
  m.Text6[0] = QStringLiteral("4");
  m.Text7[0] = QStringLiteral("5");
  m.Command54_Click(0);
  m.Command77_Click(0);
  for (const QString& cell : cellsOf(0)) {
    bool ok = false;
    const double v = cell.toDouble(&ok);
    EXPECT_TRUE(ok && v >= 0 && v <= 100 && v == std::floor(v)) << cell.toStdString();
  }
  program().randomBase = 1.5f;  // five tenths: five decimals
  m.Command77_Click(0);
  for (const QString& cell : cellsOf(0)) {
    EXPECT_EQ(cell.section(QLatin1Char('.'), 1).size(), 5) << cell.toStdString();
    EXPECT_LE(cell.toDouble(), 1.5);
  }
}

}  // namespace

namespace {

TEST_F(MatrixModelTest, PrintedSheetHoldsEveryGridRowByRow) {
  m.setGrid(0, rows("1 2;3 4"));
  m.setGrid(2, rows("-7.5"));
  QStringList lines;
  const PrintDocument doc = m.document();
  for (const PrintLine& line : doc.lines()) {
    QStringList texts;
    for (const PrintSpan& span : line.spans) texts << span.text;
    lines << texts.join(QLatin1Char('|'));
  }
  EXPECT_TRUE(lines.contains(Res(4549)));
  const qsizetype a = lines.indexOf(Res(4548) + QStringLiteral(" A   (2 x 2)"));
  ASSERT_GE(a, 0);
  EXPECT_EQ(lines.mid(a + 1, 2), (QStringList{"1|2", "3|4"}));
  EXPECT_TRUE(lines.contains(Res(4548) + QStringLiteral(" B   (0 x 0)")));
  EXPECT_TRUE(lines.contains(QStringLiteral("-7.5")));
}

}  // namespace
