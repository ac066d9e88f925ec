#pragma once
// The numeric analyses of a tabulated curve, read from the function table's
// cells: the derivative columns, the extrema vote, the zeros, the graphic
// (per-step) integral and the three quadrature rules. They work on whatever
// the table holds, typed data included; a cell that holds no number reads
// as NaN and takes part in no comparison.
#include <QString>
#include <vector>

class CellGrid;

namespace plot {

// Column col of rows first..last read as numbers (NaN where a cell holds none).
std::vector<double> readColumn(const CellGrid& grid, int col, int first, int last);

// The forward differences of the curve in column sourceColumn, stored in
// columns 2 to 4 of rows 1..pointCount-n: F' and F'' in 32-bit floats (the
// cells' values cut to 32 bits, the result stored as the text of a 32-bit
// float), F''' in 64-bit floats. Columns 2 to 4 are emptied first. A cell
// that cannot be worked out (two X equal at that precision, a cell that holds
// no number) gets "0".
void computeDerivatives(CellGrid& grid, int pointCount, int sourceColumn);

// The value whose default text is the text of the 32-bit float f.
double singleTextValue(float f);

// Rows (0-based in y) voted maxima and minima: a point beats strictly each
// of its `depth` neighbours on both sides; a side past the ends counts as beaten.
struct Extrema {
  std::vector<int> maxima;
  std::vector<int> minima;
};
Extrema findExtrema(const std::vector<double>& y, int depth);

// The zero lines, in order: a row (0-based in y) or -1 for a line left
// empty (a sign change between two points equally far from the axis).
std::vector<int> findZeros(const std::vector<double>& y);

// Rows whose X lies within [xIni, xFin] (0-based in x): the first, the last
// and how many. first is -1 when none.
struct RowRange {
  int first = -1;
  int last = -1;
  int count = 0;
};
RowRange rowsInside(const std::vector<double>& x, double xIni, double xFin);

// The graphic integral over a range: one midpoint-height rectangle per step,
// positive and negative areas summed apart; with the baseline correction the
// heights are measured from the chord between the range's end points.
struct IntegralStep {
  double x1 = 0, x2 = 0;
  double base = 0;    // where the box starts: 0, or the chord at the step's middle
  double height = 0;  // signed height above base
};
struct GraphicIntegral {
  std::vector<IntegralStep> steps;
  double positive = 0;
  double negative = 0;
  double total() const { return positive + negative; }
  // The chord (with correction): from (x1, y1) to (x2, y2).
  double chordX1 = 0, chordY1 = 0, chordX2 = 0, chordY2 = 0;
};
GraphicIntegral graphicIntegral(const std::vector<double>& x, const std::vector<double>& y, const RowRange& range,
                                bool corrected);

// Midpoint, trapezoid and Simpson sums over a range with one spacing h
// assumed for the whole range: h = |X(last) - X(first)| / (n - 1). Simpson
// weighs the points 1, 4, 2, 4, ..., 4, 1 (times h/3) with the weight before
// the last forced to 4, whatever the parity of the range.
struct QuadratureSums {
  int n = 0;
  double h = 0;
  double midpoint = 0;
  double trapezoid = 0;
  double simpson = 0;
};
QuadratureSums quadratureSums(const std::vector<double>& y, const RowRange& range, double h);

}  // namespace plot
