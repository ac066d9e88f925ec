// The two smoothings on a grid: method A's in-place sweep and two-value
// ends, method B's clamped window and width rule, and the sliding sum (in
// uneven slices) against a fresh sum per row over a long noisy column.
#include <cmath>
#include <random>

#include "funcs/CellGrid.h"
#include "funcs/PlotSmoothing.h"
#include "shell/runtime/NumberText.h"
#include "tests/support/TestSupport.h"

namespace {

CellGrid gridOf(const std::vector<double>& y) {
  CellGrid g(7);
  g.setRowCount(static_cast<int>(y.size()) + 1);
  for (size_t i = 0; i < y.size(); ++i) g.setNumber(static_cast<int>(i) + 1, 1, y[i]);
  return g;
}

std::vector<double> column5(const CellGrid& g, int count) {
  std::vector<double> out;
  for (int r = 1; r <= count; ++r) {
    double v = NAN;
    g.number(r, 5, v);
    out.push_back(v);
  }
  return out;
}

// The text a value gets in a cell.
double asCell(double v) {
  double shown = 0;
  rt::textValue(v, shown);
  return shown;
}

}  // namespace

class PlotSmoothingTest : public CalvixTest {};

TEST_F(PlotSmoothingTest, MethodAUsesTheRowJustSmoothedAndAveragesTwoValuesAtTheEnds) {
  CellGrid g = gridOf({0, 0, 3, 0, 0});
  plot::Smoothing s(g, plot::Smoothing::Method::A, 1, 5);
  EXPECT_TRUE(s.step(1000));
  const double third = asCell(4.0 / 3);  // (1 + 3 + 0) / 3, with the 1 already written
  const double fourth = asCell(third / 3);
  const double fifth = asCell(fourth / 2);
  const std::vector<double> expected{0, 1, third, fourth, fifth};
  EXPECT_EQ(column5(g, 5), expected);
  EXPECT_EQ(g.get(3, 5), QStringLiteral("1.33333333333333"));
  EXPECT_EQ(g.get(3, 1), QStringLiteral("3"));  // column 1 untouched
  EXPECT_EQ(s.shownN(), 1);
}

TEST_F(PlotSmoothingTest, MethodBClampsAtTheEndsAndRaisesAnOddWidth) {
  const std::vector<double> y{1, 2, 4, 8, 16, 32, 64, 128, 256, 512};
  struct Row {
    int n, shown;
  } rows[] = {{3, 4}, {4, 4}, {1, 2}, {2, 2}};
  for (const Row& row : rows) {
    CellGrid g = gridOf(y);
    plot::Smoothing s(g, plot::Smoothing::Method::B, row.n, 10);
    ASSERT_TRUE(s.step(100));
    EXPECT_EQ(s.shownN(), row.shown) << row.n;
    const int h = row.shown / 2;
    for (int i = 1; i <= 10; ++i) {
      double sum = 0;
      for (int j = i - h; j <= i + h; ++j) sum += y[static_cast<size_t>(std::clamp(j, 1, 10) - 1)];
      double v = 0;
      ASSERT_TRUE(g.number(i, 5, v));
      EXPECT_EQ(v, asCell(sum / (row.shown + 1))) << "n " << row.n << " row " << i;
    }
  }
}

TEST_F(PlotSmoothingTest, SlidingWindowMatchesAFreshSumOverALongNoisyColumn) {
  std::mt19937 gen(7);
  std::normal_distribution<double> noise(0, 1);
  const int count = 20000, n = 400, h = n / 2;
  std::vector<double> y(count);
  for (int i = 0; i < count; ++i) y[static_cast<size_t>(i)] = 1e6 + 50 * std::sin(i / 300.0) + noise(gen);
  CellGrid g = gridOf(y);
  plot::Smoothing s(g, plot::Smoothing::Method::B, n, count);
  while (!s.step(777)) {
  }
  const std::vector<double> out = column5(g, count);
  double worst = 0;
  for (int i = 1; i <= count; ++i) {
    double sum = 0;
    for (int j = i - h; j <= i + h; ++j) sum += y[static_cast<size_t>(std::clamp(j, 1, count) - 1)];
    worst = std::max(worst, std::fabs(out[static_cast<size_t>(i - 1)] - sum / (n + 1)));
  }
  EXPECT_LT(worst, 1e-8);
}

TEST_F(PlotSmoothingTest, ACellWithNoNumberLeavesTheMeansThatReadItEmpty) {
  CellGrid g = gridOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  g.set(5, 1, QStringLiteral("Error"));
  plot::Smoothing s(g, plot::Smoothing::Method::B, 2, 10);
  ASSERT_TRUE(s.step(100));
  for (int r = 1; r <= 10; ++r) EXPECT_EQ(g.isEmpty(r, 5), r >= 4 && r <= 6) << r;
  EXPECT_EQ(g.get(8, 5), QStringLiteral("8"));  // the window is whole again past the text
}
