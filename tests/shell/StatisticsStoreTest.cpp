// The statistics store: running sums as data come and go, the measures and
// the regression pass against independent two-pass computations on 1, 2, 10
// and 6000 points, the loss of the classic formulas on large offsets, and the
// questions about discarded pairs.
#include <cmath>
#include <random>
#include <vector>

#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/StatisticsStore.h"
#include "tests/support/TestSupport.h"

namespace {

using Measure = StatisticsStore::Measure;

std::vector<double> sample(int n, unsigned seed, double offset = 0) {
  std::mt19937 gen(seed);
  std::uniform_real_distribution<double> u(0.5, 1.5);
  std::bernoulli_distribution negative(0.3);
  std::vector<double> v;
  for (int i = 0; i < n; ++i) v.push_back(offset + (negative(gen) ? -u(gen) : u(gen)));
  return v;
}

void fill(StatisticsStore& s, int list, const std::vector<double>& v) {
  for (double d : v) ASSERT_TRUE(s.add(list, d));
}

struct TwoPass {
  double mean = 0, ssd = 0;  // sum of squared deviations
  explicit TwoPass(const std::vector<double>& v) {
    for (double d : v) mean += d;
    mean /= static_cast<double>(v.size());
    for (double d : v) ssd += (d - mean) * (d - mean);
  }
};

void expectNear(double actual, double expected, double rel) {
  EXPECT_NEAR(actual, expected, rel * std::max(1.0, std::fabs(expected)));
}

class StatisticsStoreTest : public CalvixTest {
 protected:
  StatisticsStore& s = program().stats;
  // A regression pass over fresh data.
  RegressionResult pass(const std::vector<double>& x, const std::vector<double>& y, RegressionType type) {
    s.clearAll();
    fill(s, 0, x);
    fill(s, 1, y);
    return RegressionPass(s.X.data(), s.Y.data(), s.nx, type, s.regAskedOnce, s.regAbort);
  }
};

// ---- Running sums -----------------------------------------------------------------

TEST_F(StatisticsStoreTest, SumsFollowEntryDeletionReplacementAndErasure) {
  fill(s, 0, {1, 2, 3, 4});
  fill(s, 1, {10, 20, 30});
  EXPECT_EQ(s.sumXY, 1 * 10 + 2 * 20 + 3 * 30);
  ASSERT_TRUE(s.add(1, 40));  // completes pair 4
  EXPECT_EQ(s.sumXY, 300);
  s.removeAt(0, 2);           // X 1 3 4: the pairs after it are new pairs
  EXPECT_EQ(s.nx, 3);
  EXPECT_EQ(s.X[2], 3);
  EXPECT_EQ(s.X[4], 0);
  EXPECT_EQ(s.sumX, 8);
  EXPECT_EQ(s.sumX2, 26);
  EXPECT_EQ(s.sumXY, 1 * 10 + 3 * 20 + 4 * 30);
  s.replaceAt(1, 1, -10);
  EXPECT_EQ(s.sumY, 80);
  EXPECT_EQ(s.sumY2, 100 + 400 + 900 + 1600);
  EXPECT_EQ(s.sumXY, -10 + 60 + 120);
  s.removeAt(0, 9);  // no such datum
  EXPECT_EQ(s.nx, 3);
  s.clearList(0);
  EXPECT_EQ(s.nx, 0);
  EXPECT_EQ(s.sumX, 0);
  EXPECT_EQ(s.sumXY, 0);
  EXPECT_EQ(s.ny, 4);
  for (int i = 0; i < 4; ++i) s.removeAt(1, 1);  // the last one empties the list with its sums
  EXPECT_EQ(s.ny, 0);
  EXPECT_EQ(s.sumY, 0);
  EXPECT_EQ(s.sumY2, 0);
}

TEST_F(StatisticsStoreTest, TakesDatum6001AndRefuses6002) {
  for (int i = 1; i <= 6000; ++i) ASSERT_TRUE(s.add(0, i));
  EXPECT_TRUE(s.add(0, 6001));
  EXPECT_EQ(s.nx, 6001);
  const int revision = s.revision;
  EXPECT_FALSE(s.add(0, 6002));
  EXPECT_EQ(s.nx, 6001);
  EXPECT_EQ(s.X[6001], 6001);
  EXPECT_EQ(s.sumX, 6001.0 * 6002 / 2);
  EXPECT_EQ(s.revision, revision);
}

// ---- Measures against a two-pass computation ---------------------------------------

class StatisticsMeasures : public StatisticsStoreTest, public ::testing::WithParamInterface<int> {};

TEST_P(StatisticsMeasures, AgreeWithTwoPass) {
  const int n = GetParam();
  const std::vector<double> v = sample(n, 7u + static_cast<unsigned>(n));
  fill(s, 1, v);
  const TwoPass ref(v);
  double sum = 0, sum2 = 0, logs = 0, max = v[0], min = v[0];
  for (double d : v) {
    sum += d;
    sum2 += d * d;
    logs += std::log(std::fabs(d));
    max = std::max(max, d);
    min = std::min(min, d);
  }
  expectNear(s.measure(1, Measure::Sum), sum, 1e-12);
  expectNear(s.measure(1, Measure::SquareSum), sum2, 1e-12);
  expectNear(s.measure(1, Measure::Mean), ref.mean, 1e-12);
  expectNear(s.measure(1, Measure::GeometricMean), std::exp(logs / n), 1e-9);
  expectNear(s.measure(1, Measure::DeviationN), std::sqrt(ref.ssd / n), 1e-8);
  double mx = 0, mn = 0;
  s.extremes(1, mx, mn);
  EXPECT_EQ(mx, max);
  EXPECT_EQ(mn, min);
  EXPECT_EQ(s.measure(1, Measure::MaxMin), max);
  if (n > 1) {
    expectNear(s.measure(1, Measure::DeviationN1), std::sqrt(ref.ssd / (n - 1)), 1e-8);
  } else {
    // One datum: n - 1 makes it 0/0, a run-time failure (overflow).
    EXPECT_EQ(errorOf([&] { s.measure(1, Measure::DeviationN1); }), rt::kOverflow);
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, StatisticsMeasures, ::testing::Values(1, 2, 10, 6000));

TEST_F(StatisticsStoreTest, EqualDataHaveNoSpreadDespiteRounding) {
  fill(s, 0, {0.1, 0.1, 0.1});
  ASSERT_LT(s.sumX2 - s.sumX * s.sumX / 3, 0);  // the rounding this is about
  EXPECT_EQ(s.measure(0, Measure::DeviationN), 0);
  EXPECT_EQ(s.measure(0, Measure::DeviationN1), 0);
}

TEST_F(StatisticsStoreTest, GeometricMeanTakesTheProductsSizeAndOverflowFails) {
  fill(s, 0, {-2, 8});
  EXPECT_DOUBLE_EQ(s.measure(0, Measure::GeometricMean), 4);  // |-16|^(1/2)
  s.clearAll();
  fill(s, 0, {1e200, 1e200});
  EXPECT_EQ(errorOf([&] { s.measure(0, Measure::GeometricMean); }), rt::kOverflow);
}

// The deviation keeps the one-pass formula sqrt((sumX2 - sum²/n)/n): with a
// large common offset the squares swamp the spread. A moderate offset still
// agrees; at 1e8 the classic answer is wrong (or the root's argument goes
// negative, a failure), which is what users of the classic formulas get.
TEST_F(StatisticsStoreTest, LargeOffsetsLoseDigitsInTheDeviations) {
  const std::vector<double> moderate = sample(10, 3, 1e3);
  fill(s, 0, moderate);
  expectNear(s.measure(0, Measure::DeviationN), std::sqrt(TwoPass(moderate).ssd / 10), 1e-9);

  s.clearAll();
  const std::vector<double> far = sample(10, 3, 1e8);
  fill(s, 0, far);
  const double truth = std::sqrt(TwoPass(far).ssd / 10);
  expectNear(s.measure(0, Measure::Mean), TwoPass(far).mean, 1e-15);  // the mean keeps its digits
  bool failed = false;
  double classic = 0;
  try {
    classic = s.measure(0, Measure::DeviationN);
  } catch (const rt::RuntimeError&) {
    failed = true;
  }
  EXPECT_TRUE(failed || std::fabs(classic - truth) > 0.01 * truth) << classic << " vs " << truth;
}

// ---- Regression -----------------------------------------------------------------------

struct Fit {
  double slope = 0, intercept = 0, r2 = 0;
};

Fit leastSquares(const std::vector<double>& x, const std::vector<double>& y) {
  const TwoPass px(x), py(y);
  double sxy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) sxy += (x[i] - px.mean) * (y[i] - py.mean);
  Fit f;
  f.slope = sxy / px.ssd;
  f.intercept = py.mean - f.slope * px.mean;
  f.r2 = sxy * sxy / (px.ssd * py.ssd);
  return f;
}

std::vector<double> mapped(const std::vector<double>& v, double (*fn)(double)) {
  std::vector<double> out;
  for (double d : v) out.push_back(fn(d));
  return out;
}

class RegressionModels : public StatisticsStoreTest, public ::testing::WithParamInterface<std::tuple<int, int>> {};

TEST_P(RegressionModels, AgreeWithTwoPassLeastSquares) {
  const auto [type, n] = GetParam();
  std::mt19937 gen(static_cast<unsigned>(11 + n + type));
  std::uniform_real_distribution<double> noise(0.9, 1.1), spread(0.2, 5);
  std::vector<double> x, y;
  for (int i = 0; i < n; ++i) {
    const double xi = spread(gen);
    x.push_back(xi);
    if (type == 0) y.push_back(2.5 * xi - 4 + noise(gen) - 1);
    else if (type == 1) y.push_back(3 * std::pow(xi, 1.5) * noise(gen));
    else y.push_back(2 * std::pow(1.3, xi) * noise(gen));
  }
  fill(s, 0, x);
  fill(s, 1, y);
  const std::vector<double> ty = type == 0 ? y : mapped(y, std::log);
  const std::vector<double> tx = type == 1 ? mapped(x, std::log) : x;
  const Fit f = leastSquares(tx, ty);
  const RegressionResult r =
      RegressionPass(s.X.data(), s.Y.data(), s.nx, static_cast<RegressionType>(type), s.regAskedOnce, s.regAbort);
  ASSERT_EQ(r.code, 0);
  EXPECT_EQ(r.used, n);
  EXPECT_EQ(s.regAbort, 0);
  expectNear(r.a, type == 2 ? std::exp(f.slope) : f.slope, 1e-8);
  expectNear(r.b, type == 0 ? f.intercept : std::exp(f.intercept), 1e-8);
  expectNear(r.r2, f.r2, 1e-8);
  // X with Y as frequencies (Y as the model sees it).
  double sy = 0, sxy = 0, var = 0;
  const double mean = TwoPass(tx).mean;
  for (std::size_t i = 0; i < tx.size(); ++i) {
    sy += ty[i];
    sxy += tx[i] * ty[i];
    var += ty[i] * (tx[i] - mean) * (tx[i] - mean);
  }
  expectNear(r.meanFreq, sxy / sy, 1e-9);
  expectNear(r.stdFreq, std::sqrt(var / sy), 1e-9);
  // The model's estimates invert each other.
  const auto t = static_cast<RegressionType>(type);
  expectNear(regressionEstimateX(t, r.a, r.b, regressionEstimateY(t, r.a, r.b, 2.0)), 2.0, 1e-9);
  EXPECT_TRUE(messages.shown().empty());
}

INSTANTIATE_TEST_SUITE_P(TypesAndSizes, RegressionModels,
                         ::testing::Combine(::testing::Values(0, 1, 2), ::testing::Values(2, 10, 6000)));

TEST_F(StatisticsStoreTest, DeclinedBadPairsAbortTheWholePass) {
  messages.queueButton(1);  // no
  const RegressionResult r = pass({1, 2, 3}, {1, -2, 3}, RegressionType::Exponential);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].text, ErrorText(50));
  EXPECT_EQ(messages.shown()[0].buttonSet, 6);
  EXPECT_EQ(r.code, 50);
  EXPECT_EQ(s.regAbort, 1);
  EXPECT_EQ(s.regAskedOnce, 0);
}

TEST_F(StatisticsStoreTest, TooFewGoodPairsAndFlatDataFail) {
  // Exponential: only one pair keeps a positive Y.
  EXPECT_EQ(pass({1, 2, 3}, {0, -1, 2}, RegressionType::Exponential).code, 52);
  EXPECT_EQ(s.regAbort, 1);
  EXPECT_EQ(pass({1}, {1}, RegressionType::Linear).code, 52);               // one pair is never enough
  EXPECT_EQ(pass({2, 2, 2}, {1, 2, 3}, RegressionType::Linear).code, 53);   // all X equal: slope is x/0
  EXPECT_EQ(pass({1, 2, 3}, {5, 5, 5}, RegressionType::Linear).code, 53);   // all Y equal: r is 0/0
  // Y summing to zero leaves a, b and r² but no frequencies.
  const RegressionResult r = pass({1, 2, 3, 4}, {-3, -1, 1, 3}, RegressionType::Linear);
  EXPECT_EQ(r.code, 0);
  EXPECT_FALSE(r.freqValid);
  EXPECT_DOUBLE_EQ(r.a, 2);
  EXPECT_DOUBLE_EQ(r.b, -5);
}

}  // namespace
