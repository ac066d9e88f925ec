// The plot's fits against an independent least-squares computation (on the
// logarithms where the model asks for them) with the plot's naming of a and
// b, and the Lagrange polynomial.
#include <cmath>

#include "funcs/PlotFits.h"
#include "tests/support/TestSupport.h"

namespace {

// Slope, intercept and r² of the least-squares line, from the centred sums.
void lineThrough(const std::vector<double>& u, const std::vector<double>& v, double& slope, double& intercept,
                 double& r2) {
  double mu = 0, mv = 0;
  for (size_t i = 0; i < u.size(); ++i) {
    mu += u[i] / u.size();
    mv += v[i] / v.size();
  }
  double suv = 0, suu = 0, svv = 0;
  for (size_t i = 0; i < u.size(); ++i) {
    suv += (u[i] - mu) * (v[i] - mv);
    suu += (u[i] - mu) * (u[i] - mu);
    svv += (v[i] - mv) * (v[i] - mv);
  }
  slope = suv / suu;
  r2 = suv * suv / (suu * svv);
  intercept = mv - slope * mu;
}

}  // namespace

class PlotFitsTest : public CalvixTest {};

TEST_F(PlotFitsTest, FitsAgreeWithAnIndependentLeastSquares) {
  const std::vector<double> x{1, 2, 3, 4, 5, 6, 7};
  const std::vector<double> y{2.9, 5.2, 6.8, 9.4, 10.9, 13.2, 15.1};
  for (int kind = 0; kind < 3; ++kind) {
    std::vector<double> u = x, v = y;
    for (size_t i = 0; i < x.size(); ++i) {
      if (kind == 1) u[i] = std::log(x[i]);
      if (kind > 0) v[i] = std::log(y[i]);
    }
    double slope = 0, intercept = 0, r2 = 0;
    lineThrough(u, v, slope, intercept, r2);
    // y = a + b*x; a*x^b; a*b^x.
    const double a = kind == 0 ? intercept : std::exp(intercept);
    const double b = kind == 2 ? std::exp(slope) : slope;
    const plot::Fit f = plot::fitCurve(x, y, kind, QString());
    EXPECT_EQ(f.code, 0);
    EXPECT_NEAR(f.a, a, 1e-9 * std::fabs(a)) << kind;
    EXPECT_NEAR(f.b, b, 1e-9 * std::fabs(b)) << kind;
    EXPECT_EQ(f.points, 7);
    EXPECT_NEAR(f.r2, r2, 1e-9) << kind;
    EXPECT_NEAR(plot::fitValue(kind, f.a, f.b, 3), kind == 0 ? a + b * 3 : kind == 1 ? a * std::pow(3, b) : a * std::pow(b, 3),
                1e-9);
  }
}

TEST_F(PlotFitsTest, LagrangeGoesThroughThePointsAndReproducesAPolynomial) {
  const std::vector<double> x{-2, -0.5, 1, 3};
  std::vector<double> y;
  for (double t : x) y.push_back(t * t * t - 2 * t + 1);
  for (size_t i = 0; i < x.size(); ++i) EXPECT_NEAR(plot::lagrange(x, y, x[i]), y[i], 1e-12);
  for (double t : {-1.7, 0.0, 2.2, 4.0}) EXPECT_NEAR(plot::lagrange(x, y, t), t * t * t - 2 * t + 1, 1e-9);
  // Two equal X: no value.
  EXPECT_TRUE(std::isnan(plot::lagrange({1, 1, 2}, {0, 1, 2}, 1.5)));
}
