#pragma once
// The two smoothings of the plot, worked from column 1 of the function
// table's grid into column 5, rows 1..count, in steps so a window can serve
// its events (and the Esc key) between two of them.
//
//  - Method A: n sweeps of a three-point mean, each done in place: the mean
//    of row i is written at once, so row i+1 already reads the smoothed row
//    i. The end rows have one neighbour and average two values. The first
//    sweep starts from a copy of column 1.
//  - Method B: one pass of the mean of the n+1 values of column 1 centred on
//    each row (n even, h = n/2); a neighbour past an end counts as the end
//    row, so the ends weigh more. Worked as a sliding window, so the time
//    does not grow with n.
//
// Each mean goes through the cell as its default text would (15 digits). A
// cell that holds no number leaves the means that read it empty.
#include <cstdint>
#include <vector>

class CellGrid;

namespace plot {

class Smoothing {
 public:
  enum class Method { A = 0, B = 1 };

  // n: sweeps for A (at least 1); width for B (odd raised by one, below 2
  // taken as 2).
  Smoothing(CellGrid& grid, Method method, int n, int count);

  // Works on up to maxRows rows; true once the whole smoothing is written.
  bool step(std::int64_t maxRows);
  bool done() const { return done_; }
  // 0 to 1.
  double progress() const;
  // The n shown in the title: the sweeps (A) or 2*h (B).
  int shownN() const { return method_ == Method::A ? n_ : 2 * h_; }
  Method method() const { return method_; }

 private:
  bool stepA(std::int64_t& budget);
  bool stepB(std::int64_t& budget);
  // The running sum of method B: compensated, the values that are no number counted apart.
  void add(double v);
  void remove(double v);
  double value(int row) const;  // column 1 of a row clamped to 1..count

  CellGrid& grid_;
  Method method_;
  int n_ = 1, h_ = 1, count_ = 0;
  int pass_ = 0;  // A: 0 the copy, then the sweeps 1..n
  int row_ = 1;
  bool done_ = false;
  std::vector<double> source_;  // B: column 1, rows 1..count (index 0 is row 1)
  double sum_ = 0, carry_ = 0;
  int notNumbers_ = 0;
};

}  // namespace plot
