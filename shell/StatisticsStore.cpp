#include "shell/StatisticsStore.h"

#include <cmath>

#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/Variant.h"

namespace {

std::size_t idx(int i) { return static_cast<std::size_t>(i); }

// A quotient as the runtime divides 64-bit floats: by zero is an error.
double quotient(double a, double b) {
  if (b == 0) rt::raise(a == 0 ? rt::kOverflow : rt::kDivisionByZero);
  return rt::checkFinite(a / b);
}

// sumX2 - sum²/n of equal data can come out a few units of the last digit
// below zero; that is a spread of 0, not a failure. A clearly negative value
// (digits lost to a large offset) still fails in the root.
double spread(double sum2, double value) {
  return value < 0 && -value <= 1e-12 * sum2 ? 0.0 : value;
}

double powerOf(double a, double b) { return rt::power(rt::Variant::dbl(a), rt::Variant::dbl(b)).toDouble(); }

}  // namespace

StatisticsStore::StatisticsStore() : X(kSize, 0.0), Y(kSize, 0.0) {}

bool StatisticsStore::add(int list, double v) {
  std::int16_t& n = list == 0 ? nx : ny;
  if (n > kMaxData) return false;
  ++n;
  if (list == 0) {
    X[idx(n)] = v;
    sumX += v;
    sumX2 += v * v;
    if (ny >= n) sumXY += v * Y[idx(n)];
  } else {
    Y[idx(n)] = v;
    sumY += v;
    sumY2 += v * v;
    if (nx >= n) sumXY += X[idx(n)] * v;
  }
  ++revision;
  return true;
}

void StatisticsStore::removeAt(int list, int i) {
  const int n = count(list);
  if (i < 1 || i > n) return;
  if (n < 2) {
    clearList(list);
    return;
  }
  std::vector<double>& data = list == 0 ? X : Y;
  const double v = data[idx(i)];
  (list == 0 ? sumX : sumY) -= v;
  (list == 0 ? sumX2 : sumY2) -= v * v;
  for (int k = i; k < n; ++k) data[idx(k)] = data[idx(k + 1)];
  data[idx(n)] = 0;
  --(list == 0 ? nx : ny);
  // The pairs after i are new pairs now.
  sumXY = pairProducts();
  ++revision;
}

void StatisticsStore::replaceAt(int list, int i, double v) {
  if (i < 1 || i > count(list)) return;
  std::vector<double>& data = list == 0 ? X : Y;
  const double old = data[idx(i)];
  double& sum = list == 0 ? sumX : sumY;
  double& sum2 = list == 0 ? sumX2 : sumY2;
  sum = sum - old + v;
  sum2 = sum2 - old * old + v * v;
  if (i <= count(1 - list)) sumXY = sumXY - old * at(1 - list, i) + v * at(1 - list, i);
  data[idx(i)] = v;
  ++revision;
}

void StatisticsStore::clearList(int list) {
  std::vector<double>& data = list == 0 ? X : Y;
  std::fill(data.begin(), data.end(), 0.0);
  if (list == 0) {
    nx = 0;
    sumX = sumX2 = 0;
  } else {
    ny = 0;
    sumY = sumY2 = 0;
  }
  sumXY = 0;
  ++revision;
}

void StatisticsStore::clearAll() {
  clearList(0);
  clearList(1);
}

void StatisticsStore::setList(int list, const std::vector<double>& values) {
  std::vector<double>& data = list == 0 ? X : Y;
  double s = 0, s2 = 0;
  const int n = static_cast<int>(values.size());
  for (int i = 1; i <= n; ++i) {
    const double v = values[idx(i - 1)];
    data[idx(i)] = v;
    s += v;
    s2 += v * v;
  }
  std::fill(data.begin() + n + 1, data.end(), 0.0);
  (list == 0 ? nx : ny) = static_cast<std::int16_t>(n);
  (list == 0 ? sumX : sumY) = s;
  (list == 0 ? sumX2 : sumY2) = s2;
  ++revision;
}

double StatisticsStore::pairProducts() const {
  double s = 0;
  const int n = nx < ny ? nx : ny;
  for (int i = 1; i <= n; ++i) s += X[idx(i)] * Y[idx(i)];
  return s;
}

void StatisticsStore::extremes(int list, double& max, double& min) const {
  const int n = count(list);
  max = min = at(list, 1);
  for (int i = 2; i <= n; ++i) {
    const double v = at(list, i);
    if (v > max) max = v;
    if (v < min) min = v;
  }
}

double StatisticsStore::measure(int list, Measure m) const {
  const double n = count(list);
  const double sum = list == 0 ? sumX : sumY;
  const double sum2 = list == 0 ? sumX2 : sumY2;
  switch (m) {
    case Measure::Sum: return sum;
    case Measure::SquareSum: return sum2;
    case Measure::Mean: return quotient(sum, n);
    case Measure::GeometricMean: {
      // The product first, then |product|^(1/n), so a negative product is not refused.
      double product = 1;
      for (int i = 1; i <= count(list); ++i) product = rt::checkFinite(product * at(list, i));
      return powerOf(rt::Abs(product), quotient(1, n));
    }
    case Measure::DeviationN: return rt::Sqr(quotient(spread(sum2, sum2 - sum * sum / n), n));
    case Measure::DeviationN1: return rt::Sqr(quotient(spread(sum2, sum2 - quotient(sum * sum, n)), n - 1));
    case Measure::MaxMin: {
      double max = 0, min = 0;
      extremes(list, max, min);
      return max;
    }
  }
  return 0;
}

RegressionResult RegressionPass(const double* x, const double* y, int n, RegressionType type,
                                std::int16_t& askedOnce, std::int16_t& abort, const QString& title) {
  RegressionResult r;
  abort = 0;
  const int kind = static_cast<int>(type);
  // Work copies; a discarded pair is marked.
  std::vector<double> wx(x + 1, x + 1 + n), wy(y + 1, y + 1 + n);
  std::vector<char> good(static_cast<std::size_t>(n), 1);
  double sx = 0, sy = 0, sx2 = 0, sy2 = 0, sxy = 0;
  for (int i = 0; i < n; ++i) {
    int code = 0;
    if (kind > 0) {
      if (wy[idx(i)] > 0) wy[idx(i)] = std::log(wy[idx(i)]);
      else code = 50;
    }
    if (code == 0 && kind == 1) {
      if (wx[idx(i)] > 0) wx[idx(i)] = std::log(wx[idx(i)]);
      else code = 51;
    }
    if (code == 0) continue;
    good[idx(i)] = 0;
    if (askedOnce != 0) continue;
    // Yes (or the box's timer) goes on without the pair; No gives up.
    MBoxShow(3, ErrorText(code), 3, 6, 0, title);
    if (program().MessageResult == 1) {
      abort = 1;
      r.code = code;
      return r;
    }
    askedOnce = 1;
  }
  for (int i = 0; i < n; ++i) {
    if (!good[idx(i)]) continue;
    const double u = wx[idx(i)], v = wy[idx(i)];
    sx += u;
    sy += v;
    sx2 += u * u;
    sy2 += v * v;
    sxy += u * v;
    ++r.used;
  }
  if (r.used < 2) {
    abort = 1;
    r.code = 52;
    return r;
  }
  // X with the Y as frequencies: the spread around the plain mean of X.
  const double mean = sx / r.used;
  double variance = 0;
  for (int i = 0; i < n; ++i) {
    if (good[idx(i)]) variance += wy[idx(i)] * (wx[idx(i)] - mean) * (wx[idx(i)] - mean);
  }
  if (sy != 0 && variance / sy >= 0) {
    r.stdFreq = std::sqrt(variance / sy);
    r.meanFreq = sxy / sy;
  } else {
    r.freqValid = false;
  }
  try {
    const double m = r.used;
    r.a = quotient(m * sxy - sx * sy, m * sx2 - sx * sx);
    r.b = quotient(sy - r.a * sx, m);
    const double rr = quotient(m * sxy - sx * sy, rt::Sqr((m * sx2 - sx * sx) * (m * sy2 - sy * sy)));
    r.r2 = rr * rr;
    if (kind == 2) r.a = rt::Exp(r.a);
    if (kind > 0) r.b = rt::Exp(r.b);
  } catch (const rt::RuntimeError&) {
    abort = 1;
    r.code = 53;
  }
  return r;
}

double regressionEstimateX(RegressionType type, double a, double b, double y) {
  switch (type) {
    case RegressionType::Linear: return quotient(y - b, a);
    case RegressionType::Potential: return powerOf(quotient(y, b), quotient(1, a));
    case RegressionType::Exponential: return quotient(rt::Log(quotient(y, b)), rt::Log(a));
  }
  return 0;
}

double regressionEstimateY(RegressionType type, double a, double b, double x) {
  switch (type) {
    case RegressionType::Linear: return rt::checkFinite(a * x + b);
    case RegressionType::Potential: return rt::checkFinite(b * powerOf(x, a));
    case RegressionType::Exponential: return rt::checkFinite(b * powerOf(a, x));
  }
  return 0;
}
