#pragma once
// The program-wide statistics store: two lists X and Y of 64-bit floats,
// numbered from 1 (index 0 unused), with their counts and the running sums
// kept up to date as data come and go; and the results of the last
// regression pass. The calculator owns what is in it; the charts and the CSV
// tool read and fill it. It lives in program() as `stats`.
//
// The measures keep the classic one-pass formulas on the running sums (the
// answers users know), so data with a large common offset lose digits in the
// deviations; the tests pin that down. Failures of the arithmetic (overflow,
// division by zero, the root of a negative) raise rt::RuntimeError.
//
// RegressionPass is the one least-squares routine of the program: the
// calculator's pair keys and the plotter call it with their own arrays.
#include <QString>
#include <cstdint>
#include <vector>

struct StatisticsStore {
  // Entry takes a datum while the count is not above this, so the last index
  // used is kMaxData + 1.
  static constexpr int kMaxData = 6000;
  static constexpr int kSize = kMaxData + 2;

  StatisticsStore();

  std::vector<double> X, Y;  // index 1..6001
  std::int16_t nx = 0, ny = 0;
  double sumX = 0, sumY = 0, sumX2 = 0, sumY2 = 0;
  double sumXY = 0;
  // Results of the last regression pass.
  double regA = 0, regB = 0, regR2 = 0, stdFreq = 0, meanFreq = 0;
  std::int16_t regUsed = 0;
  std::int16_t regAskedOnce = 0;  // the user accepted discarded pairs since the type last changed
  std::int16_t regAbort = 0;      // the last pass gave up
  // Grows with every change of the data, so a view knows when to reread.
  int revision = 0;

  // List 0 is X, 1 is Y.
  int count(int list) const { return list == 0 ? nx : ny; }
  double at(int list, int i) const { return list == 0 ? X[static_cast<std::size_t>(i)] : Y[static_cast<std::size_t>(i)]; }

  // Appends a datum; false (nothing changed) when the count is already above
  // kMaxData. sumXY gains x*y when the new datum completes a pair.
  bool add(int list, double v);
  // Removes datum i (1-based); later data move down. A list of one datum
  // empties with its sums at 0.
  void removeAt(int list, int i);
  // Replaces datum i by v.
  void replaceAt(int list, int i, double v);
  // Empties a list: its data, count and sums, and sumXY.
  void clearList(int list);
  void clearAll();
  // Puts a whole list in place (sorting, files) and recomputes its sums;
  // sumXY is left alone.
  void setList(int list, const std::vector<double>& values);
  // The sum of products over the pairs both lists hold.
  double pairProducts() const;

  // ---- Measures of one list (n >= 1 is the caller's test) -----------------
  enum class Measure { Sum = 0, SquareSum, Mean, GeometricMean, DeviationN, DeviationN1, MaxMin };
  double measure(int list, Measure m) const;
  // The largest and smallest datum, in one pass.
  void extremes(int list, double& max, double& min) const;
};

// The three models: linear y = a*x + b, potential y = b*x^a, exponential
// y = b*a^x.
enum class RegressionType { Linear = 0, Potential = 1, Exponential = 2 };

struct RegressionResult {
  // 0 done; 50 or 51 the user declined the discarded pairs; 52 fewer than two
  // good pairs; 53 a division by zero in the coefficients.
  int code = 0;
  double a = 0, b = 0, r2 = 0;
  // Mean and deviation of X with the Y as frequencies (over the good pairs,
  // Y transformed as the model does). freqValid is false when the Y sum to 0.
  double meanFreq = 0, stdFreq = 0;
  bool freqValid = true;
  int used = 0;  // pairs kept
};

// One least-squares pass over x[1..n], y[1..n] (index 0 unused). A pair whose
// Y (potential, exponential) or X (potential) is not above 0 is discarded;
// the first one asks through the message box (code 50 for Y, 51 for X)
// unless askedOnce is set; "No" sets abort and ends the pass, "Yes" sets
// askedOnce. abort is cleared at the start.
RegressionResult RegressionPass(const double* x, const double* y, int n, RegressionType type,
                                std::int16_t& askedOnce, std::int16_t& abort, const QString& title = {});

// Estimates from the model: X from a y, Y from an x. Raise on a failed
// operation (division by zero, root of a negative, logarithm of 0).
double regressionEstimateX(RegressionType type, double a, double b, double y);
double regressionEstimateY(RegressionType type, double a, double b, double x);
