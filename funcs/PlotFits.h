#pragma once
// The curves the plot derives from its points: the least-squares fits
// (through the statistics store's one regression routine) and the Lagrange
// polynomial through every point.
#include <QString>
#include <functional>
#include <vector>

#include "funcs/PlotCanvas.h"

namespace plot {

// The plot's kinds: 0 y = a + b*x, 1 y = a*x^b, 2 y = a*b^x. The statistics
// routine names its coefficients the other way round (y = a*x + b, b*x^a,
// b*a^x): here a and b are those of the formulas above.
struct Fit {
  int code = 0;  // 0 done, else the routine's failure (50, 51 declined, 52 too few pairs, 53 division by zero)
  double a = 0, b = 0, r2 = 0;
  int points = 0;  // pairs the fit used
};
// x and y hold the pairs; the routine's question on discarded pairs goes
// through the message box under this title.
Fit fitCurve(const std::vector<double>& x, const std::vector<double>& y, int kind, const QString& title);
// y of the fitted curve at x; NaN where the formula has no value.
double fitValue(int kind, double a, double b, double x);

// The Lagrange polynomial through (x[i], y[i]) at t: for each i one product
// for the numerator and one for the denominator, then one division.
double lagrange(const std::vector<double>& x, const std::vector<double>& y, double t);

// steps + 1 points of a function from x1 to x2 at equal spacing
// (x1 + k*(x2 - x1)/steps). keepGoing is asked before each point; the list
// ends where it answers false.
std::vector<Point> sampleCurve(double x1, double x2, int steps, const std::function<double(double)>& f,
                               const std::function<bool()>& keepGoing = {});

}  // namespace plot
