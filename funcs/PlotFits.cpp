#include "funcs/PlotFits.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "shell/StatisticsStore.h"

namespace plot {

Fit fitCurve(const std::vector<double>& x, const std::vector<double>& y, int kind, const QString& title) {
  // The routine counts from 1.
  std::vector<double> wx(1, 0.0), wy(1, 0.0);
  wx.insert(wx.end(), x.begin(), x.end());
  wy.insert(wy.end(), y.begin(), y.end());
  std::int16_t askedOnce = 0, abort = 0;
  const RegressionResult r = RegressionPass(wx.data(), wy.data(), static_cast<int>(x.size()),
                                            static_cast<RegressionType>(kind), askedOnce, abort, title);
  Fit f;
  f.code = r.code;
  f.a = r.b;
  f.b = r.a;
  f.r2 = r.r2;
  f.points = r.used;
  return f;
}

double fitValue(int kind, double a, double b, double x) {
  double y = 0;
  switch (kind) {
    case 0: y = a + b * x; break;
    case 1: y = a * std::pow(x, b); break;
    default: y = a * std::pow(b, x); break;
  }
  return std::isfinite(y) ? y : std::numeric_limits<double>::quiet_NaN();
}

double lagrange(const std::vector<double>& x, const std::vector<double>& y, double t) {
  const size_t n = std::min(x.size(), y.size());
  double sum = 0;
  for (size_t i = 0; i < n; ++i) {
    double num = 1, den = 1;
    for (size_t j = 0; j < n; ++j) {
      if (j == i) continue;
      num *= t - x[j];
      den *= x[i] - x[j];
    }
    sum += y[i] * num / den;
  }
  return std::isfinite(sum) ? sum : std::numeric_limits<double>::quiet_NaN();
}

std::vector<Point> sampleCurve(double x1, double x2, int steps, const std::function<double(double)>& f,
                               const std::function<bool()>& keepGoing) {
  std::vector<Point> points;
  points.reserve(static_cast<size_t>(steps) + 1);
  const double dx = (x2 - x1) / steps;
  for (int k = 0; k <= steps; ++k) {
    if (keepGoing && !keepGoing()) break;
    const double x = k == steps ? x2 : x1 + k * dx;
    points.push_back({x, f(x)});
  }
  return points;
}

}  // namespace plot
