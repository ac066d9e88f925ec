#include "funcs/PlotAnalysis.h"

#include <cmath>
#include <limits>
#include <vector>

#include "funcs/CellGrid.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/VectorState.h"

namespace plot {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int kFirstDerivativeColumn = 2;

double cellValue(const CellGrid& grid, int row, int col) {
  double v = 0;
  return grid.number(row, col, v) ? v : kNaN;
}

int sign(double v) { return v > 0 ? 1 : (v < 0 ? -1 : 0); }

}  // namespace

std::vector<double> readColumn(const CellGrid& grid, int col, int first, int last) {
  std::vector<double> values;
  if (last < first) return values;
  values.reserve(static_cast<size_t>(last - first + 1));
  for (int r = first; r <= last; ++r) values.push_back(cellValue(grid, r, col));
  return values;
}

double singleTextValue(float f) { return rt::singleTextValue(f); }

namespace {

// One cell of the first or second order: the operands cut to 32 bits, the
// quotient kept as the value of its 32-bit text. One of the third order: in
// 64 bits, kept as the value of its 15-digit text. A quotient that fails
// (two X equal at that precision, a result beyond the range, an operand
// that is no number) is 0.
double singleDifference(double y0, double y1, double x0, double x1) {
  const float dx = static_cast<float>(x1) - static_cast<float>(x0);
  const float d = (static_cast<float>(y1) - static_cast<float>(y0)) / dx;
  return std::isfinite(d) ? rt::singleTextValue(d) : 0.0;
}

double doubleDifference(double y0, double y1, double x0, double x1) {
  const double d = (y1 - y0) / (x1 - x0);
  double value = 0;
  if (!std::isfinite(d) || !rt::textValue(d, value)) value = 0;
  return value;
}

}  // namespace

void computeDerivatives(CellGrid& grid, int pointCount, int sourceColumn) {
  constexpr int kFirst = kFirstDerivativeColumn, kSecond = kFirst + 1, kThird = kFirst + 2;
  for (int c = kFirst; c <= kThird; ++c) grid.clearColumn(c);
  if (grid.rowCount() < pointCount + 2) grid.setRowCount(pointCount + 2);
  if (pointCount < 2) return;
  for (int c = kFirst; c <= kThird; ++c) grid.reserveRows(c, pointCount);
  // Each order from the values the order before it stored: the first at row
  // j from rows j and j+1, the second at row j from the first at j and j+1,
  // the third likewise from the second. One pass per order: the cells of a
  // pass do not wait on each other, so the processor works on several at once.
  // (Library code before may leave the vector registers slowing that down.)
  rt::clearUpperVectorState();
  const int n = pointCount;
  // X and Y straight from the grid's arrays where they hold no texts.
  std::vector<double> xCopy, yCopy;
  auto rows = [&grid, n](int col, std::vector<double>& copy) {
    int count = 0;
    const double* cells = grid.numbers(col, 1, n, count);
    if (cells && count > n) return cells + 1;  // row 1 first
    copy = readColumn(grid, col, 1, n);
    return static_cast<const double*>(copy.data());
  };
  const double* x = rows(0, xCopy);
  const double* y = rows(sourceColumn, yCopy);
  // Each order straight into its column, read back by the next: the rows
  // are reserved, so filling one column moves no other column's array.
  auto fill = [&grid, x](int col, int count, const double* from, auto difference) -> const double* {
    double* to = from ? grid.rowsToFill(col, 1, count) : nullptr;
    if (!to) return nullptr;
    for (int i = 0; i < count; ++i) to[i] = difference(from[i], from[i + 1], x[i], x[i + 1]);
    return to;
  };
  const double* first = fill(kFirst, n - 1, y, singleDifference);
  const double* second = fill(kSecond, n - 2, first, singleDifference);
  fill(kThird, n - 3, second, doubleDifference);
}

Extrema findExtrema(const std::vector<double>& y, int depth) {
  Extrema e;
  const int n = static_cast<int>(y.size());
  for (int i = 0; i < n; ++i) {
    const double yi = y[static_cast<size_t>(i)];
    double up = 0, down = 0;
    for (int j = 1; j <= depth; ++j) {
      for (const int k : {i - j, i + j}) {
        if (k < 0 || k >= n) {
          up += 0.5;
          down += 0.5;
          continue;
        }
        const double yk = y[static_cast<size_t>(k)];
        if (yk < yi) up += 0.5;
        if (yk > yi) down += 0.5;
      }
    }
    if (up == depth) e.maxima.push_back(i);
    if (down == depth) e.minima.push_back(i);
  }
  return e;
}

std::vector<int> findZeros(const std::vector<double>& y) {
  std::vector<int> lines;
  for (size_t i = 0; i + 1 < y.size(); ++i) {
    const double a = y[i], b = y[i + 1];
    if (a == 0) {
      lines.push_back(static_cast<int>(i));
    } else if (!std::isnan(a) && !std::isnan(b) && sign(a) != sign(b)) {
      if (std::fabs(b) > std::fabs(a)) lines.push_back(static_cast<int>(i));
      else if (std::fabs(b) < std::fabs(a)) lines.push_back(static_cast<int>(i + 1));
      else lines.push_back(-1);
    }
  }
  return lines;
}

RowRange rowsInside(const std::vector<double>& x, double xIni, double xFin) {
  RowRange r;
  for (size_t i = 0; i < x.size(); ++i) {
    if (x[i] >= xIni && x[i] <= xFin) {
      if (r.first < 0) r.first = static_cast<int>(i);
      r.last = static_cast<int>(i);
      ++r.count;
    }
  }
  return r;
}

GraphicIntegral graphicIntegral(const std::vector<double>& x, const std::vector<double>& y, const RowRange& range,
                                bool corrected) {
  GraphicIntegral g;
  if (range.count < 2) return g;
  const auto f = static_cast<size_t>(range.first), l = static_cast<size_t>(range.last);
  g.chordX1 = x[f];
  g.chordY1 = y[f];
  g.chordX2 = x[l];
  g.chordY2 = y[l];
  const double slope = (y[l] - y[f]) / (x[l] - x[f]);
  for (size_t i = f; i < l; ++i) {
    const double dx = std::fabs(x[i + 1] - x[i]);
    double ym = (y[i] + y[i + 1]) / 2;
    const double xm = (x[i] + x[i + 1]) / 2;
    double base = 0;
    if (corrected) {
      base = slope * (xm - x[f]) + y[f];
      ym -= base;
    }
    if (std::isnan(dx) || std::isnan(ym)) continue;
    g.steps.push_back({x[i], x[i + 1], base, ym});
    const double area = dx * ym;
    if (area > 0) g.positive += area;
    else g.negative += area;
  }
  return g;
}

QuadratureSums quadratureSums(const std::vector<double>& y, const RowRange& range, double h) {
  QuadratureSums q;
  q.n = range.count;
  q.h = h;
  if (range.count < 2) return q;
  double s1 = 0, s2 = 0, s3 = 0;
  for (int k = range.first; k <= range.last; ++k) {
    const double yk = y[static_cast<size_t>(k)];
    const int position = k - range.first + 1;  // 1-based in the range
    if (k < range.last) s1 += (yk + y[static_cast<size_t>(k) + 1]) / 2;
    s2 += (k == range.first || k == range.last ? 0.5 : 1.0) * yk;
    double s = position % 2 == 0 ? 2.0 : 1.0;
    if (k == range.first || k == range.last) s = 0.5;
    else if (k == range.last - 1) s = 2.0;
    s3 += s * yk;
  }
  q.midpoint = s1 * h;
  q.trapezoid = s2 * h;
  q.simpson = (s3 * h + s3 * h) / 3;
  return q;
}

}  // namespace plot
