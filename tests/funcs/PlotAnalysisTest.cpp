// The analyses of a tabulated curve: derivative columns with their 32-bit
// and 64-bit rules, the extrema vote, the zeros rule, the graphic integral
// and the three quadrature rules (even and odd interval counts).
#include <cmath>

#include "funcs/CellGrid.h"
#include "funcs/PlotAnalysis.h"
#include "tests/support/TestSupport.h"

using namespace plot;

namespace {

// A grid of x and y values in columns 0 and 1, rows 1..n.
CellGrid grid(const std::vector<double>& x, const std::vector<double>& y) {
  CellGrid g(7);
  g.setRowCount(static_cast<int>(x.size()) + 2);
  for (size_t i = 0; i < x.size(); ++i) {
    g.setNumber(static_cast<int>(i) + 1, 0, x[i]);
    g.setNumber(static_cast<int>(i) + 1, 1, y[i]);
  }
  return g;
}

std::vector<double> range(double from, double step, int n) {
  std::vector<double> v;
  for (int i = 0; i < n; ++i) v.push_back(from + i * step);
  return v;
}

}  // namespace

class PlotAnalysisTest : public CalvixTest {};

TEST_F(PlotAnalysisTest, DerivativesAreForwardDifferencesWithTheirPrecisionAndEmptyTails) {
  // x² at spacing 0.1: the forward difference puts 0.1 (not 0) at x = 0, as
  // 32-bit floats work it out (0.01 / 0.1 in singles), 0.3 at x = 0.1.
  std::vector<double> x{0, 0.1, 0.2, 0.3, 0.4}, y;
  for (double v : x) y.push_back(v * v);
  CellGrid g = grid(x, y);
  computeDerivatives(g, 5, 1);
  EXPECT_EQ(g.get(1, 2), QStringLiteral("0.09999999"));
  EXPECT_EQ(g.get(2, 2), QStringLiteral("0.3"));
  EXPECT_EQ(g.get(1, 3), QStringLiteral("2"));
  // The last row of F', the last two of F'' and the last three of F''' stay empty.
  EXPECT_TRUE(g.isEmpty(5, 2));
  EXPECT_FALSE(g.isEmpty(4, 2));
  EXPECT_TRUE(g.isEmpty(4, 3));
  EXPECT_FALSE(g.isEmpty(3, 3));
  EXPECT_TRUE(g.isEmpty(3, 4));
  EXPECT_FALSE(g.isEmpty(2, 4));

  // F' and F'' keep 7 digits (32-bit floats); F''' is worked in 64-bit from those texts.
  CellGrid thirds = grid({0, 3, 6, 9, 10}, {0, 9, 36, 81, 100});
  computeDerivatives(thirds, 5, 1);
  EXPECT_EQ(thirds.get(3, 3), QStringLiteral("1.333333"));
  EXPECT_EQ(thirds.get(2, 4), QStringLiteral("-0.222222333333333"));

  // Too few points: nothing beyond what they allow, and old columns are emptied.
  computeDerivatives(thirds, 2, 1);
  EXPECT_EQ(thirds.get(1, 2), QStringLiteral("3"));
  EXPECT_TRUE(thirds.isEmpty(1, 3));
  EXPECT_TRUE(thirds.isEmpty(1, 4));
}

TEST_F(PlotAnalysisTest, DerivativesFollowTheSourceColumnAndEqualXGiveZero) {
  CellGrid g = grid({0, 1, 2}, {0, 0, 0});
  for (int r = 1; r <= 3; ++r) g.setNumber(r, 5, 2.0 * r);  // smoothed data in column 5
  computeDerivatives(g, 3, 5);
  EXPECT_EQ(g.get(1, 2), QStringLiteral("2"));
  CellGrid same = grid({1, 1, 2}, {0, 5, 6});
  computeDerivatives(same, 3, 1);
  EXPECT_EQ(same.get(1, 2), QStringLiteral("0"));
  EXPECT_EQ(same.get(2, 2), QStringLiteral("1"));
}

TEST_F(PlotAnalysisTest, CellsThatAreNoNumbersGiveZeroAndTheRestAsWithNumbersOnly) {
  // A number typed as a text of its own in the X column ("0.370", kept as
  // typed) makes the columns be read cell by cell; the cells worked out are
  // the same as from the arrays.
  const std::vector<double> x = range(0, 0.37, 40);
  std::vector<double> y;
  for (double v : x) y.push_back(std::sin(v) * 3);
  CellGrid plain = grid(x, y);
  CellGrid typed = grid(x, y);
  typed.set(2, 0, QStringLiteral("0.370"));
  ASSERT_EQ(typed.get(2, 0), QStringLiteral("0.370"));
  computeDerivatives(plain, 40, 1);
  computeDerivatives(typed, 40, 1);
  for (int r = 1; r <= 40; ++r) {
    for (int c = 2; c <= 4; ++c) ASSERT_EQ(plain.get(r, c), typed.get(r, c)) << r << " " << c;
  }
  // A word in X and an empty Y cell: the differences that read them are 0.
  typed.set(3, 0, QStringLiteral("word"));
  typed.set(10, 1, QString());
  computeDerivatives(typed, 40, 1);
  EXPECT_EQ(typed.get(2, 2), QStringLiteral("0"));
  EXPECT_EQ(typed.get(3, 2), QStringLiteral("0"));
  EXPECT_EQ(typed.get(9, 2), QStringLiteral("0"));
  EXPECT_EQ(typed.get(10, 2), QStringLiteral("0"));
  EXPECT_EQ(typed.get(4, 2), plain.get(4, 2));
}

TEST_F(PlotAnalysisTest, ExtremaVoteCountsTheEndsAsBeatenAndNeedsStrictWins) {
  // sin on 0..6.28 with 100 points: a maximum near pi/2, a minimum near 3pi/2,
  // and the ends: 0 is a minimum (its neighbour is higher), 6.28 a maximum.
  const std::vector<double> x = range(0, 6.28 / 99, 100);
  std::vector<double> y;
  for (double v : x) y.push_back(std::sin(v));
  const Extrema e = findExtrema(y, 1);
  ASSERT_EQ(e.maxima.size(), 2u);
  ASSERT_EQ(e.minima.size(), 2u);
  EXPECT_NEAR(x[static_cast<size_t>(e.maxima[0])], 1.5708, 0.04);
  EXPECT_EQ(e.maxima[1], 99);
  EXPECT_EQ(e.minima[0], 0);
  EXPECT_NEAR(x[static_cast<size_t>(e.minima[1])], 4.7124, 0.04);

  // A plateau of two equal points yields neither.
  const Extrema plateau = findExtrema({0, 1, 3, 3, 1, 0}, 1);
  EXPECT_EQ(plateau.maxima, std::vector<int>{});
  EXPECT_EQ(plateau.minima, (std::vector<int>{0, 5}));

}

TEST_F(PlotAnalysisTest, ZerosTakeThePointNearerTheAxisAndKeepTheExactZeroTwice) {
  // The point nearer the axis on each side of a change of sign.
  EXPECT_EQ(findZeros({2, 1, -3, -4}), std::vector<int>{1});
  EXPECT_EQ(findZeros({-4, -3, 1, 2}), std::vector<int>{2});
  // An exact 0 between different signs: the change of sign towards it names
  // it, and so does the exact-zero rule.
  EXPECT_EQ(findZeros({-1, 0, 1}), (std::vector<int>{1, 1}));
  // Equally far: the line stays empty.
  EXPECT_EQ(findZeros({-1, 1}), std::vector<int>{-1});
  // A zero in the last row is found through the change of sign before it.
  EXPECT_EQ(findZeros({1, 2, 0}), std::vector<int>{2});
}

TEST_F(PlotAnalysisTest, RowRangeTakesTheRowsBetweenTheLimitsInTableOrder) {
  const RowRange r = rowsInside({3, 2, 1, 0}, 0.5, 2.5);
  EXPECT_EQ(r.first, 1);
  EXPECT_EQ(r.last, 2);
  EXPECT_EQ(r.count, 2);
  EXPECT_EQ(rowsInside({3, 4}, 0, 1).first, -1);
}

TEST_F(PlotAnalysisTest, GraphicIntegralSplitsTheSignsAndCorrectsTheBaseline) {
  // x on -1..1: the two halves cancel, each shown apart.
  const std::vector<double> x = range(-1, 0.1, 21);
  const GraphicIntegral g = graphicIntegral(x, x, rowsInside(x, -1, 1.0001), false);
  EXPECT_NEAR(g.positive, 0.5, 1e-12);
  EXPECT_NEAR(g.negative, -0.5, 1e-12);
  EXPECT_NEAR(g.total(), 0, 1e-12);
  EXPECT_EQ(g.steps.size(), 20u);

  // The constant 1 with the baseline correction: the chord is the curve, nothing is left.
  const std::vector<double> ones(x.size(), 1.0);
  const GraphicIntegral flat = graphicIntegral(x, ones, rowsInside(x, -1, 1.0001), true);
  EXPECT_EQ(flat.total(), 0);
  EXPECT_EQ(flat.steps.front().base, 1);
  EXPECT_NEAR(graphicIntegral(x, ones, rowsInside(x, -1, 1.0001), false).total(), 2, 1e-12);

  // Uneven spacing: each step's real width counts.
  const std::vector<double> ux{0, 1, 3}, uy{2, 2, 2};
  EXPECT_EQ(graphicIntegral(ux, uy, rowsInside(ux, 0, 3), false).total(), 6);
}

TEST_F(PlotAnalysisTest, QuadratureRulesWithEvenAndOddIntervalCounts) {
  // x² on 0..2, 4 intervals: Simpson is exact, 8/3.
  std::vector<double> x = range(0, 0.5, 5), y;
  for (double v : x) y.push_back(v * v);
  QuadratureSums q = quadratureSums(y, rowsInside(x, 0, 2), 0.5);
  EXPECT_EQ(q.n, 5);
  EXPECT_NEAR(q.simpson, 8.0 / 3, 1e-12);
  EXPECT_NEAR(q.trapezoid, 2.75, 1e-12);
  EXPECT_NEAR(q.midpoint, 2.75, 1e-12);

  // 3 intervals: the pattern is neither extended nor corrected: h/3 (1, 4, 4, 1).
  x = range(0, 1, 4);
  y = {0, 1, 4, 9};
  q = quadratureSums(y, rowsInside(x, 0, 3), 1);
  EXPECT_NEAR(q.simpson, 29.0 / 3, 1e-12);
  EXPECT_NEAR(q.trapezoid, 9.5, 1e-12);

  // 6 intervals: 1, 4, 2, 4, 2, 4, 1.
  x = range(0, 1, 7);
  y = {1, 1, 1, 1, 1, 1, 1};
  EXPECT_NEAR(quadratureSums(y, rowsInside(x, 0, 6), 1).simpson, 6, 1e-12);
}
