// The function table's cell store: every text comes back with all its
// characters, numbers read back as their texts say, and a long column of
// numbers costs about a plain array of doubles.
#include <cmath>
#include <limits>
#include <random>

#include "funcs/CellGrid.h"
#include "shell/runtime/NumberText.h"
#include "tests/support/TestSupport.h"

class CellGridTest : public CalvixTest {};

TEST_F(CellGridTest, NumbersSetByValueReadAsTheirDefaultTextAndItsValue) {
  CellGrid grid(2);
  grid.setRowCount(2);
  std::mt19937_64 gen(11);
  std::uniform_int_distribution<std::uint64_t> bits;
  std::uniform_real_distribution<double> unit(-1, 1);
  auto check = [&](double v) {
    grid.setNumber(1, 1, v);
    const QString text = rt::NumberToText(v);
    ASSERT_EQ(grid.get(1, 1), text) << v;
    double back = 0;
    ASSERT_TRUE(grid.number(1, 1, back)) << v;
    ASSERT_EQ(back, rt::TextToDouble(text)) << v;
  };
  for (int i = 0; i < 20000; ++i) {
    double v = std::bit_cast<double>(bits(gen));
    if (!std::isfinite(v)) continue;
    check(v);
    check(unit(gen) * std::pow(10.0, i % 40 - 20));
  }
  for (double v : {0.1 + 0.2, 1.0 / 3, -0.0, 1e15, 999999999999999.5, 1e-5, 123456789012345678.0,
                   std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::min(), 5.0 / 199}) {
    check(v);
  }
  // Around the powers of ten where the digit count changes.
  for (int e = -10; e <= 40; ++e) {
    const double p = std::pow(10.0, e);
    double v = p;
    for (int i = 0; i < 4; ++i) v = std::nextafter(v, 0.0);
    for (int i = 0; i < 8; ++i, v = std::nextafter(v, 2 * p)) check(v);
    check(p * 0.99999999999999995);
    check(-p * 9.999999999999995);
  }
  // Exact halves at the sixteenth digit go to the even digit.
  for (double v = 1000000000000005.0; v < 1000000000000400.0; v += 10) {
    check(v);
    check(-v);
    check(v / 1024);
  }
}

TEST_F(CellGridTest, TheValueOfANumbersTextIsFoundExactlyOverTheUsualRange) {
  std::mt19937_64 gen(5);
  std::uniform_real_distribution<double> mantissa(1, 10);
  std::uniform_int_distribution<int> exponent(-12, 40);
  for (int i = 0; i < 200000; ++i) {
    const double v = mantissa(gen) * std::pow(10.0, exponent(gen)) * (i % 2 ? -1 : 1);
    double shown = 0;
    ASSERT_TRUE(CellGrid::textValue(v, shown)) << v;
    ASSERT_EQ(shown, rt::TextToDouble(rt::NumberToText(v))) << v;
  }
}

TEST_F(CellGridTest, TextsThatAreNotDefaultNumberTextsComeBackAsTyped) {
  CellGrid grid(7);
  grid.setRowCount(3);
  for (const QString& t : {QStringLiteral("1.50"), QStringLiteral("-0"), QStringLiteral("0000"), QStringLiteral("Error"),
                           QStringLiteral(" 5"), QStringLiteral("1E+300"), QStringLiteral("&h10"), QStringLiteral("1,5"),
                           QStringLiteral("F'(x)"), QStringLiteral("0.30000000000000004")}) {
    grid.set(2, 6, t);
    EXPECT_EQ(grid.get(2, 6), t);
  }
  // A text a number writes the same way is kept as that number.
  grid.set(1, 0, QStringLiteral("0.1"));
  double v = 0;
  ASSERT_TRUE(grid.number(1, 0, v));
  EXPECT_EQ(v, 0.1);
  EXPECT_TRUE(grid.storedNumber(1, 0, v));
  // Texts that are numbers in another form still read as numbers, but are
  // not stored as such.
  grid.set(1, 1, QStringLiteral("1.50"));
  ASSERT_TRUE(grid.number(1, 1, v));
  EXPECT_EQ(v, 1.5);
  EXPECT_FALSE(grid.storedNumber(1, 1, v));
  grid.set(1, 1, QStringLiteral("Error"));
  EXPECT_FALSE(grid.number(1, 1, v));
  grid.set(1, 1, QString());
  EXPECT_TRUE(grid.isEmpty(1, 1));
  EXPECT_FALSE(grid.number(1, 1, v));
  // The largest double's text rounds past it: the text itself is kept.
  grid.setNumber(1, 2, std::numeric_limits<double>::max());
  EXPECT_EQ(grid.get(1, 2), rt::NumberToText(std::numeric_limits<double>::max()));
}

TEST_F(CellGridTest, NumbersFollowTheSystemDecimalSymbol) {
  useComma();
  CellGrid grid(1);
  grid.setRowCount(2);
  grid.set(1, 0, QStringLiteral("2,5"));
  double v = 0;
  ASSERT_TRUE(grid.number(1, 0, v));
  EXPECT_EQ(v, 2.5);
  EXPECT_EQ(grid.get(1, 0), QStringLiteral("2,5"));
  grid.set(1, 0, QStringLiteral("2.5"));  // a point is no decimal mark here
  EXPECT_EQ(grid.get(1, 0), QStringLiteral("2.5"));
}

// Readers of many cells append them to one text: each cell adds exactly
// what get gives, on a "," system too, and nothing outside the grid.
TEST_F(CellGridTest, AppendedCellsAddTheirTextsAsGetGivesThem) {
  useComma();
  CellGrid grid(3);
  grid.setRowCount(3);
  grid.setNumber(1, 0, -0.1 * 3);
  grid.setNumber(1, 1, std::numeric_limits<double>::max());  // kept as its text
  grid.set(1, 2, QStringLiteral("Error"));
  grid.setTextValue(2, 0, 2.5);
  grid.set(2, 1, QStringLiteral("0000"));
  QString out = QStringLiteral(">");
  QString expected = out;
  for (int row = -1; row <= 3; ++row) {
    for (int col = -1; col <= 3; ++col) {
      grid.appendText(row, col, out);
      expected += grid.get(row, col);
    }
  }
  EXPECT_EQ(out, expected);
  EXPECT_TRUE(out.contains(QStringLiteral("-0,3"))) << out.toStdString();
}

TEST_F(CellGridTest, RowsCutAwayTakeTheirCellsAndTexts) {
  CellGrid grid(3);
  grid.setRowCount(10);
  grid.set(8, 2, QStringLiteral("kept text"));
  grid.setNumber(9, 0, 4.5);
  grid.set(12, 0, QStringLiteral("outside"));  // beyond the rows: ignored
  EXPECT_EQ(grid.get(12, 0), QString());
  grid.setRowCount(5);
  grid.setRowCount(10);
  EXPECT_TRUE(grid.isEmpty(8, 2));
  EXPECT_TRUE(grid.isEmpty(9, 0));
  grid.set(3, 2, QStringLiteral("a"));
  grid.set(4, 2, QStringLiteral("b"));
  grid.clearColumn(2, 4);
  EXPECT_EQ(grid.get(3, 2), QStringLiteral("a"));
  EXPECT_TRUE(grid.isEmpty(4, 2));
  grid.clearRow(3, 0, 2);
  EXPECT_TRUE(grid.isEmpty(3, 2));
  grid.set(2, 1, QStringLiteral("x"));
  grid.clear();
  EXPECT_EQ(grid.rowCount(), 10);
  EXPECT_TRUE(grid.isEmpty(2, 1));
}

TEST_F(CellGridTest, WholeColumnsAreReadAndFilledInPlace) {
  CellGrid grid(3);
  grid.setRowCount(6);
  grid.setNumber(1, 0, 1.5);
  grid.setNumber(3, 0, -2);
  int count = 0;
  grid.set(0, 0, QStringLiteral("X"));  // a title above the rows read
  const double* cells = grid.numbers(0, 1, 5, count);
  ASSERT_NE(cells, nullptr);
  ASSERT_EQ(count, 4);
  EXPECT_EQ(cells[1], 1.5);
  EXPECT_TRUE(std::isnan(cells[2]));  // an empty cell
  EXPECT_EQ(cells[3], -2);
  grid.set(4, 0, QStringLiteral("word"));
  EXPECT_EQ(grid.numbers(0, 1, 5, count), nullptr);  // texts are read one by one
  EXPECT_NE(grid.numbers(0, 1, 3, count), nullptr);

  // Filling takes the texts of those rows away, keeps the others, and
  // refuses rows past the grid.
  grid.set(2, 1, QStringLiteral("old"));
  grid.set(5, 1, QStringLiteral("stays"));
  double* to = grid.rowsToFill(1, 1, 3);
  ASSERT_NE(to, nullptr);
  to[0] = 0.25;
  to[1] = 7;
  to[2] = -1;
  EXPECT_EQ(grid.get(2, 1), QStringLiteral("7"));
  EXPECT_EQ(grid.get(5, 1), QStringLiteral("stays"));
  EXPECT_EQ(grid.rowsToFill(2, 4, 3), nullptr);
  EXPECT_EQ(grid.rowsToFill(2, 1, 0), nullptr);
}

TEST_F(CellGridTest, AMillionNumbersCostAboutAPlainArray) {
  constexpr int kRows = 1'000'000;
  CellGrid grid(7);
  grid.setRowCount(kRows + 1);
  grid.reserveRows(0, kRows + 1);
  grid.reserveRows(1, kRows + 1);
  for (int r = 1; r <= kRows; ++r) {
    grid.setNumber(r, 0, r * 0.001);
    grid.setNumber(r, 1, std::sin(r * 0.001));
  }
  const std::size_t plain = 2 * sizeof(double) * kRows;
  EXPECT_LE(grid.memoryBytes(), plain + plain / 10);
  EXPECT_EQ(grid.get(kRows, 0), rt::NumberToText(1000.0));
  // Cut short for a table of the same length, the memory stays; cut short
  // for good, it goes back, as it does when a far shorter table reserves.
  grid.setRowCount(6, true);
  EXPECT_GE(grid.memoryBytes(), plain);
  grid.reserveRows(0, 100);
  grid.reserveRows(1, 100);
  EXPECT_LT(grid.memoryBytes(), 4096u);
  grid.setRowCount(kRows + 1);
  grid.reserveRows(0, kRows + 1);
  grid.setNumber(kRows, 0, 1);
  grid.setRowCount(6);
  EXPECT_LT(grid.memoryBytes(), 1024u);
}
