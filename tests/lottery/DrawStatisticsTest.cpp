// Draw statistics over the history by draw type, the frequency grid and its
// orders, the ten most and least frequent numbers, and the chart series.
#include "lottery/DrawStatistics.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

QStringList draw(const char* date, std::initializer_list<int> seven, const char* reintegro, char type) {
  QStringList row{QStringLiteral("0"), QLatin1String(date)};
  for (int x : seven) row << QString::number(x);
  row << QLatin1String(reintegro) << QString() << QString(QLatin1Char(type));
  return row;
}

DrawTable sample() {
  DrawTable t;
  t.setRows({draw("05/01/2006", {1, 2, 3, 4, 5, 6, 7}, "3", 'P'),
             draw("06/01/2006", {1, 2, 3, 10, 11, 12, 6}, "", 'B'),
             draw("07/01/2006", {1, 20, 30, 40, 45, 49, 2}, "9", 'P'),
             draw("08/01/2006", {7, 8, 9, 10, 11, 12, 1}, "0", 'G')});
  return t;
}

class DrawStatisticsTest : public CalvixTest {};

}  // namespace

TEST_F(DrawStatisticsTest, CountsTheRowsOfTheChosenTypeInFourLists) {
  const DrawTable t = sample();
  struct Case {
    int tipo;
    float sorteos, one, two, six, complementaryOfOne, reintegroZero, reintegroNine;
  };
  const Case cases[] = {{0, 2, 2, 1, 1, 0, 0, 1}, {1, 1, 1, 1, 0, 0, 0, 0}, {2, 1, 0, 0, 0, 1, 1, 0},
                        {3, 4, 3, 2, 1, 1, 1, 1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.tipo);
    const DrawStatistics s = drawStatistics(t, c.tipo);
    EXPECT_EQ(s.sorteosBase, c.sorteos);
    EXPECT_EQ(s.frecDB[0][1], c.one);
    EXPECT_EQ(s.frecDB[0][2], c.two);
    EXPECT_EQ(s.frecDB[0][6], c.six);
    EXPECT_EQ(s.frecDB[2][1], c.complementaryOfOne);
    EXPECT_EQ(s.frecDB[3][0], c.reintegroZero);
    EXPECT_EQ(s.frecDB[3][9], c.reintegroNine);
    for (int i = 1; i <= 49; ++i) EXPECT_EQ(s.frecDB[1][i], s.frecDB[0][i] + s.frecDB[2][i]) << i;
  }
  // The empty reintegro of the Bonoloto row is not counted anywhere.
  const DrawStatistics all = drawStatistics(t, 3);
  float reintegros = 0;
  for (float x : all.frecDB[3]) reintegros += x;
  EXPECT_EQ(reintegros, 3);
}

TEST_F(DrawStatisticsTest, EmptyCellsGoToIndexZeroAndAStopLeavesNothing) {
  DrawTable t;
  t.setRows({draw("05/01/2006", {1, 2, 3, 4, 5, 6, 7}, "1", 'P')});
  t.rows[0][4] = QString();
  t.setRows(t.rows);
  const DrawStatistics s = drawStatistics(t, 0);
  EXPECT_EQ(s.frecDB[0][0], 1);
  EXPECT_EQ(s.frecDB[0][3], 0);
  EXPECT_EQ(s.sorteosBase, 1);

  const DrawStatistics stopped = drawStatistics(sample(), 3, [](int) { return false; });
  EXPECT_TRUE(stopped.stopped);
  EXPECT_EQ(stopped.sorteosBase, 0);
  EXPECT_EQ(stopped.frecDB[0][1], 0);
}

TEST_F(DrawStatisticsTest, FrequencyRowsInTheThreeOrders) {
  Frequencies f{};
  f[5] = 3;
  f[9] = 1;
  f[40] = 3;
  const auto byNumber = frequencyRows(f, 4, 0);
  ASSERT_EQ(byNumber.size(), 49);
  EXPECT_EQ(byNumber.at(4), (QStringList{"5", "3", "75.00"}));
  EXPECT_EQ(byNumber.at(0), (QStringList{"1", "0", "0.00"}));
  const auto descending = frequencyRows(f, 4, 2);
  EXPECT_EQ(descending.at(0).at(0), QStringLiteral("5"));  // equal counts keep number order
  EXPECT_EQ(descending.at(1).at(0), QStringLiteral("40"));
  EXPECT_EQ(descending.at(2), (QStringList{"9", "1", "25.00"}));
  const auto ascending = frequencyRows(f, 4, 1);
  EXPECT_EQ(ascending.at(0).at(0), QStringLiteral("1"));
  EXPECT_EQ(ascending.at(48).at(0), QStringLiteral("40"));
  EXPECT_EQ(ascending.at(46).at(0), QStringLiteral("9"));
  useComma();
  EXPECT_EQ(frequencyRows(f, 3, 0).at(8).at(2), QStringLiteral("33,33"));
  EXPECT_EQ(frequencyRows(f, 0, 0).at(4).at(2), QStringLiteral("0,00"));  // no rows: no division
}

TEST_F(DrawStatisticsTest, TenMostAndLeastFrequentNumbers) {
  DrawStatistics s;
  s.sorteosBase = 8;
  for (int i = 1; i <= 49; ++i) s.frecDB[0][i] = static_cast<float>(i % 7);
  s.frecDB[2][48] = 6;  // with the complementary 48 leads
  for (int i = 1; i <= 49; ++i) s.frecDB[1][i] = s.frecDB[0][i] + s.frecDB[2][i];

  const QStringList most = tenNumbersReport(s, false, false).split(QStringLiteral("\r\n"));
  ASSERT_EQ(most.size(), 14);  // heading, list note, blank, ten lines, the end
  EXPECT_EQ(most.at(0), Res(632) + QStringLiteral(" 8 ") + Res(604));
  EXPECT_EQ(most.at(1), Res(634));
  EXPECT_EQ(most.at(3), QStringLiteral(" 6 ") + Res(635) + QStringLiteral(" 6 ") + Res(636) + "  ( 75.00 % )");
  EXPECT_TRUE(most.at(4).startsWith(QStringLiteral("13 ")));
  const QStringList withComp = tenNumbersReport(s, false, true).split(QStringLiteral("\r\n"));
  EXPECT_EQ(withComp.at(1), Res(643));
  EXPECT_EQ(withComp.at(3), QStringLiteral("48 ") + Res(635) + QStringLiteral(" 12 ") + Res(636) + "  ( 150.00 % )");
  const QStringList least = tenNumbersReport(s, true, false).split(QStringLiteral("\r\n"));
  EXPECT_EQ(least.at(0), Res(633) + QStringLiteral(" 8 ") + Res(604));
  EXPECT_EQ(least.at(3), QStringLiteral(" 7 ") + Res(635) + QStringLiteral(" 0 ") + Res(636) + "  ( 0.00 % )");
  EXPECT_TRUE(least.at(10).startsWith(QStringLiteral(" 1 ")));  // after the seven zeros, the ones from 1
  EXPECT_TRUE(least.at(12).startsWith(QStringLiteral("15 ")));
}

TEST_F(DrawStatisticsTest, ChartSeriesForNumbersAndReintegros) {
  Frequencies f{};
  const FrequencyChart empty = frequencyChart(QStringLiteral("t"), f, 1, 49, QStringLiteral("49"));
  EXPECT_EQ(empty.keys.size(), 49);
  EXPECT_FALSE(empty.hasData());
  f[0] = 2;
  f[9] = 1;
  const FrequencyChart reintegros = frequencyChart(QStringLiteral("r"), f, 0, 9, QStringLiteral("10"));
  EXPECT_EQ(reintegros.keys.first(), 0);
  EXPECT_EQ(reintegros.keys.last(), 9);
  EXPECT_EQ(reintegros.values.first(), 2);
  EXPECT_EQ(reintegros.rangeTo, QStringLiteral("10"));
  EXPECT_TRUE(reintegros.hasData());
}
