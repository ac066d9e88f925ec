#include "funcs/PlotSmoothing.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "funcs/CellGrid.h"

namespace plot {

namespace {
constexpr int kSmoothed = 5;
constexpr int kSource = 1;
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

void store(CellGrid& grid, int row, double mean) {
  if (std::isfinite(mean)) grid.setNumber(row, kSmoothed, mean);
  else grid.set(row, kSmoothed, QString());
}

}  // namespace

Smoothing::Smoothing(CellGrid& grid, Method method, int n, int count)
    : grid_(grid), method_(method), count_(std::max(count, 0)) {
  if (method_ == Method::A) {
    n_ = std::max(n, 1);
    return;
  }
  if (n % 2 != 0) ++n;
  n_ = std::max(n, 2);
  h_ = n_ / 2;
  if (count_ == 0) return;
  source_.resize(static_cast<size_t>(count_));
  for (int r = 1; r <= count_; ++r) {
    double v = 0;
    source_[static_cast<size_t>(r - 1)] = grid_.number(r, kSource, v) && std::isfinite(v) ? v : kNotANumber;
  }
  // The window of row 1: rows 1-h .. 1+h, clamped.
  for (int j = 1 - h_; j <= 1 + h_; ++j) add(value(j));
}

double Smoothing::progress() const {
  if (done_ || count_ == 0) return 1;
  if (method_ == Method::B) return static_cast<double>(row_ - 1) / count_;
  return (static_cast<double>(pass_) * count_ + row_ - 1) / (static_cast<double>(n_ + 1) * count_);
}

bool Smoothing::step(std::int64_t maxRows) {
  if (done_) return true;
  std::int64_t budget = std::max<std::int64_t>(maxRows, 1);
  done_ = count_ == 0 || (method_ == Method::A ? stepA(budget) : stepB(budget));
  return done_;
}

bool Smoothing::stepA(std::int64_t& budget) {
  while (budget > 0) {
    if (row_ > count_) {
      if (pass_ == n_) return true;
      ++pass_;
      row_ = 1;
      continue;
    }
    const int i = row_++;
    --budget;
    if (pass_ == 0) {
      double v = 0;
      store(grid_, i, grid_.number(i, kSource, v) ? v : kNotANumber);
      continue;
    }
    // In place: row i-1 was written in this sweep already.
    double sum = 0;
    int k = 0;
    for (int j = std::max(i - 1, 1); j <= std::min(i + 1, count_); ++j) {
      double v = 0;
      sum += grid_.number(j, kSmoothed, v) ? v : kNotANumber;
      ++k;
    }
    store(grid_, i, sum / k);
  }
  return row_ > count_ && pass_ == n_;
}

bool Smoothing::stepB(std::int64_t& budget) {
  const double width = n_ + 1;
  while (budget > 0 && row_ <= count_) {
    const int i = row_++;
    --budget;
    store(grid_, i, notNumbers_ > 0 ? kNotANumber : (sum_ + carry_) / width);
    // Slide to the window of row i+1.
    remove(value(i - h_));
    add(value(i + h_ + 1));
  }
  return row_ > count_;
}

double Smoothing::value(int row) const {
  return source_[static_cast<size_t>(std::clamp(row, 1, count_) - 1)];
}

// Neumaier's summation: the low bits lost by each addition are kept in
// carry_, so a window slid over a million rows ends as exact as a fresh sum.
void Smoothing::add(double v) {
  if (std::isnan(v)) {
    ++notNumbers_;
    return;
  }
  const double t = sum_ + v;
  carry_ += std::fabs(sum_) >= std::fabs(v) ? (sum_ - t) + v : (v - t) + sum_;
  sum_ = t;
}

void Smoothing::remove(double v) {
  if (std::isnan(v)) {
    --notNumbers_;
    return;
  }
  add(-v);
}

}  // namespace plot
