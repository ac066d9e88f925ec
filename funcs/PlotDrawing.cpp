// The plot's drawing procedure: PlotModel::paintPlot and its steps, in the
// order they are painted. Layout works in picture units (the frame stands
// kMarginX and kMarginY inside the picture) and draws in user units, so a
// reversed axis needs no case of its own.
#include <algorithm>
#include <cmath>

#include "funcs/FunctionTable.h"
#include "funcs/PlotModel.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"

using plot::PlotCanvas;
using plot::Point;

namespace {

constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr double kNumberSize = 8;
constexpr double kTitleSize = 9;
constexpr int kTicks = 10;
// Picture units of a tick mark inside and outside the frame.
constexpr double kTickIn = 1, kTickOut = 5;

bool semicolour(const PlotCanvas& c, int printcolor) { return c.target() == PlotCanvas::Target::Printer && printcolor == 0; }

// Text widths in picture units.
double unitsWide(PlotCanvas& c, const QString& text) { return c.TextWidth(text) * c.width() / std::fabs(c.ScaleWidth); }

QString elided(PlotCanvas& c, const QString& text, double room) {
  if (unitsWide(c, text) <= room) return text;
  QString t = text;
  while (t.size() > 1 && unitsWide(c, t + QStringLiteral("...")) > room) t.chop(1);
  return t + QStringLiteral("...");
}

}  // namespace

std::uint32_t PlotModel::drawColour(const PlotCanvas& c, int index) const {
  return semicolour(c, printcolor) ? kBlack : colour(index);
}

// The number of an inner tick k between the limits low and high: as the
// axis numbers are written, but with no more decimals than the spacing of
// the ticks needs, so that a tick reads -4800 rather than -4799.999.
QString PlotModel::tickText(int low, int high, int k) const {
  const double step = std::fabs(limit(high) - limit(low)) / kTicks;
  const double v = limit(low) + k * (limit(high) - limit(low)) / kTicks;
  const double a = std::fabs(v);
  if (step == 0 || a <= 0.0001 || a >= 10000) return formatAxisNumber(v);
  const int needed = std::max(0, 1 - static_cast<int>(std::floor(std::log10(step))));
  const double shown = rt::Round(v, std::min<int>(decimals, needed));
  return shown == 0 ? QStringLiteral("0") : rt::NumberToText(shown);
}

// Text at a point of the picture: align -1 left, 0 centred, 1 right of px; py is the top.
void PlotModel::printAt(PlotCanvas& c, double px, double py, const QString& text, int align) const {
  const double w = unitsWide(c, text);
  c.CurrentX = c.userX(px - (align + 1) * w / 2);
  c.CurrentY = c.userY(py);
  c.Print(text);
}

void PlotModel::paintPlot(PlotCanvas& c) const {
  c.setScale(ScaleLeft, ScaleTop, ScaleWidth, ScaleHeight);
  const bool semi = semicolour(c, printcolor);
  c.Cls(semi ? kWhite : colour(kBackground));
  c.FillStyle = barrasopc;
  c.DrawWidth = lineWidth();

  drawFrame(c, drawColour(c, kAxes));
  drawTitles(c);
  if (leyenda) drawLegend(c);

  const int n = pointCount();
  const std::vector<double> x = column(0, n);
  const Curve f{x, column(fColumn(), n)};
  const bool smoothed = fColumn() != 1;
  const bool original = smoothed && muestrafxOrig;
  const std::uint32_t fColour = drawColour(c, smoothed ? kSmoothed : kCurveF);
  Curve orig, g;
  if (original) orig = {x, column(FunctionTable::kF, n)};
  if (GdXON) g = {x, column(FunctionTable::kG, n)};

  // The areas go under the curves, so the curve stays on top of them.
  if (integralGRAF) drawIntegral(c);
  if (!ocultarPuntos) {
    drawPoints(c, f, fColour, false);
    if (original) drawPoints(c, orig, drawColour(c, kCurveF), false);
    if (GdXON) drawPoints(c, g, drawColour(c, kCurveG), false);
  }
  if (menuufunc[0]) drawJoined(c, f, fColour, false);
  if (menuufunc[1] && GdXON) drawJoined(c, g, drawColour(c, kCurveG), false);

  if (table_.menuIPLA && hooks.drawInterpolation) hooks.drawInterpolation(c);
  if (std::any_of(PlotRegression.begin(), PlotRegression.end(), [](bool b) { return b; }) && hooks.drawRegression) {
    hooks.drawRegression(c);
  }
  drawMarks(c);
  if (DerivON) drawDerivative(c);
  if (hooks.drawDifference) hooks.drawDifference(c);
  if (menubarras) drawBars(c);
  if (menucero) drawOriginAxes(c);
}

// The frame's bottom and left sides, tick marks, and the grid.
void PlotModel::drawFrame(PlotCanvas& c, std::uint32_t lineColour) const {
  const double l1 = limit(1), l2 = limit(2), l3 = limit(3), l4 = limit(4);
  const double left = kMarginX, bottom = c.height() - kMarginY;
  const double stepX = (c.width() - 2.0 * kMarginX) / kTicks, stepY = (c.height() - 2.0 * kMarginY) / kTicks;
  c.ForeColor = lineColour;
  c.Line(l1, l3, l2, l3);
  c.Line(l1, l3, l1, l4);
  const double width = c.DrawWidth;
  c.DrawWidth = std::min(width, 1.5);
  for (int k = 0; k <= kTicks; ++k) {
    const double px = left + k * stepX, py = bottom - k * stepY;
    c.Line(c.userX(px), c.userY(bottom - kTickIn), c.userX(px), c.userY(bottom + kTickOut));
    c.Line(c.userX(left + kTickIn), c.userY(py), c.userX(left - kTickOut), c.userY(py));
  }
  if (menureja) {
    c.ForeColor = drawColour(c, kGrid);
    c.DrawWidth = 1;
    for (int k = 1; k <= kTicks; ++k) {
      const double x = c.userX(left + k * stepX), y = c.userY(bottom - k * stepY);
      c.Line(x, l3, x, l4);
      c.Line(l1, y, l2, y);
    }
  }
  c.DrawWidth = width;
}

// Titles, the numbers of the limits where the boxes are not on the picture
// (printer, image), and the annotations.
void PlotModel::drawTitles(PlotCanvas& c) const {
  const ProgramState& p = program();
  const double left = kMarginX, right = c.width() - kMarginX;
  const double top = kMarginY, bottom = c.height() - kMarginY;
  c.ForeColor = drawColour(c, kText);
  c.FontSize = kTitleSize;
  c.FontBold = false;
  // The titles may run over the right margin, which is empty at that height.
  const double titleRight = c.width() - 8.0, room = titleRight - left;
  auto title = [this](int i, const QString& table) { return Text3[static_cast<size_t>(i)].isEmpty() ? table : Text3[static_cast<size_t>(i)]; };
  const QString titleF = title(0, p.titleF);
  if (GdXON && !p.titleG.isEmpty()) {
    const QString fTitle = elided(c, titleF, room * 0.55);
    printAt(c, left, 6, fTitle, -1);
    printAt(c, titleRight, 6, elided(c, p.titleG, room - unitsWide(c, fTitle) - 24), 1);
  } else {
    printAt(c, left, 6, elided(c, titleF, room), -1);
  }
  printAt(c, left - 6, top - 34, title(2, p.titleY), 1);
  printAt(c, right, bottom + 28, title(1, p.titleX), 1);

  c.FontSize = kNumberSize;
  if (c.target() != PlotCanvas::Target::Screen) {
    for (int i = 0; i <= 5; ++i) {
      if (!Text1Visible[static_cast<size_t>(i)]) continue;
      const QRectF r = limitBoxRect(i);
      const QString text = formatAxisNumber(limit(i));
      const int align = (i == 1 || i == 2) ? 0 : (i == 3 || i == 4 ? 1 : -1);
      const double px = align == 0 ? r.center().x() : (align > 0 ? r.right() - 2 : r.left() + 2);
      printAt(c, px, r.top() + 3, text, align);
    }
  }
  // Numbers at every other tick between the limits, where they have room.
  const double stepX = (right - left) / kTicks, stepY = (bottom - top) / kTicks;
  for (int k = 2; k < kTicks; k += 2) {
    const QString xText = tickText(1, 2, k);
    if (unitsWide(c, xText) / 2 + limitBoxRect(1).width() / 2 + 8 <= 2 * stepX) {
      printAt(c, left + k * stepX, bottom + 9, xText, 0);
    }
    if (2 * stepY >= 24) {
      printAt(c, left - 8, bottom - k * stepY - 7, tickText(3, 4, k), 1);
    }
  }
  for (const Annotation& a : Label11) {
    c.CurrentX = a.x;
    c.CurrentY = a.y;
    c.Print(a.text);
  }
}

// One row per curve shown, with a sample of its line, in the frame's top left corner.
void PlotModel::drawLegend(PlotCanvas& c) const {
  struct Row {
    QString name;
    std::uint32_t colour;
  };
  std::vector<Row> rows;
  const bool smoothed = fColumn() != 1;
  if (smoothed && muestrafxOrig) {
    rows.push_back({QStringLiteral("Smooth"), drawColour(c, kSmoothed)});
    rows.push_back({QStringLiteral("F(x)"), drawColour(c, kCurveF)});
  } else {
    rows.push_back({QStringLiteral("F(x)"), drawColour(c, smoothed ? kSmoothed : kCurveF)});
  }
  if (GdXON) rows.push_back({QStringLiteral("G(x)"), drawColour(c, kCurveG)});
  if (DerivON) rows.push_back({derivativeLabel, drawColour(c, kCurveDerivative)});
  if (pointCount() == 0) return;

  c.FontSize = kNumberSize;
  double textWidth = 0;
  for (const Row& r : rows) textWidth = std::max(textWidth, unitsWide(c, r.name));
  const double left = kMarginX + 6, top = kMarginY + 6, rowHeight = 15;
  const bool semi = semicolour(c, printcolor);
  c.ForeColor = semi ? kWhite : colour(kBackground);
  c.Box(c.userX(left), c.userY(top), c.userX(left + 38 + textWidth), c.userY(top + 6 + rowHeight * rows.size()), true);
  c.ForeColor = drawColour(c, kGrid);
  c.FillStyle = PlotCanvas::kTransparent;
  const double width = c.DrawWidth;
  c.DrawWidth = 1;
  c.Box(c.userX(left), c.userY(top), c.userX(left + 38 + textWidth), c.userY(top + 6 + rowHeight * rows.size()), false);
  c.FillStyle = barrasopc;
  c.DrawWidth = width;
  for (size_t i = 0; i < rows.size(); ++i) {
    const double y = top + 3 + rowHeight * i + rowHeight / 2;
    c.ForeColor = rows[i].colour;
    c.Line(c.userX(left + 5), c.userY(y), c.userX(left + 22), c.userY(y));
    c.ForeColor = drawColour(c, kText);
    printAt(c, left + 30, y - 7, rows[i].name, -1);
  }
}

void PlotModel::drawPoints(PlotCanvas& c, const Curve& curve, std::uint32_t colour, bool isDerivative) const {
  std::vector<Point> points;
  points.reserve(curve.y.size());
  for (size_t i = 0; i < curve.y.size(); ++i) {
    const double x = curve.x[i], y = curve.y[i];
    if (isOutX(x) || (isDerivative ? isOutYd(y) : isOutY(y))) continue;
    points.push_back({x, isDerivative ? mapDerivative(y) : y});
  }
  c.ForeColor = colour;
  const double width = c.DrawWidth;
  c.DrawWidth = std::max(width, 2.0);
  c.PSets(points);
  c.DrawWidth = width;
  if (pointSize > 0) {
    c.FillStyle = PlotCanvas::kTransparent;
    for (const Point& p : points) c.Circle(p.x, p.y, std::fabs(unitX) * pointSize);
    c.FillStyle = barrasopc;
  }
}

// Each pair of neighbouring rows inside the limits is joined, unless the
// asymptote rule takes the jump between them for a pole. Consecutive joins
// go out as one polyline.
void PlotModel::drawJoined(PlotCanvas& c, const Curve& curve, std::uint32_t colour, bool isDerivative) const {
  const double span = isDerivative ? std::fabs(limit(5) - limit(0)) : std::fabs(limit(4) - limit(3));
  const double tallest = 0.95 * span;
  const std::vector<double>& y = curve.y;
  // A pole: a jump of nearly the whole span, or a sign change across at
  // least half of it towards which the curve grows from both sides (as
  // tan(x) does next to pi/2, where the samples on either side are large
  // and of opposite signs, but rarely the two extremes of the span).
  auto pole = [&](size_t i) {
    const double jump = std::fabs(y[i + 1] - y[i]);
    if (jump >= tallest) return true;
    if (jump < 0.5 * span || (y[i] > 0) == (y[i + 1] > 0) || y[i] == 0 || y[i + 1] == 0) return false;
    const bool growsBefore = i > 0 && std::fabs(y[i]) > std::fabs(y[i - 1]) && (y[i] > 0) == (y[i - 1] > 0);
    const bool growsAfter =
        i + 2 < y.size() && std::fabs(y[i + 1]) > std::fabs(y[i + 2]) && (y[i + 1] > 0) == (y[i + 2] > 0);
    return growsBefore && growsAfter;
  };
  auto inside = [&](size_t i) {
    return !isOutX(curve.x[i]) && !(isDerivative ? isOutYd(curve.y[i]) : isOutY(curve.y[i]));
  };
  auto point = [&](size_t i) { return Point{curve.x[i], isDerivative ? mapDerivative(curve.y[i]) : curve.y[i]}; };
  c.ForeColor = colour;
  std::vector<Point> run;
  auto flush = [&] {
    if (run.size() >= 2) c.Polyline(run);
    run.clear();
  };
  const size_t n = curve.y.size();
  for (size_t i = 0; i + 1 < n; ++i) {
    const bool joined = inside(i) && inside(i + 1) && !(NoUnirPolos && pole(i));
    if (!joined) {
      flush();
      continue;
    }
    if (run.empty()) run.push_back(point(i));
    run.push_back(point(i + 1));
  }
  flush();
}

// Circles on the extrema and squares on the zeros of the list shown.
void PlotModel::drawMarks(PlotCanvas& c) const {
  if (!Picture1Visible || list.kind == ResultList::Kind::None) return;
  const int item = list.item;
  if (item == 1 && !DerivON) return;
  int col = 1, last = 0;
  analysisRows(item, col, last);
  const std::vector<double> x = column(0, last), y = column(col, last);
  std::vector<int> rows;
  if (list.kind == ResultList::Kind::Extrema) {
    const plot::Extrema e = plot::findExtrema(y, MymNivel);
    rows = e.maxima;
    rows.insert(rows.end(), e.minima.begin(), e.minima.end());
  } else {
    for (int r : plot::findZeros(y)) {
      if (r >= 0) rows.push_back(r);
    }
  }
  c.ForeColor = drawColour(c, kText);
  c.FillStyle = PlotCanvas::kTransparent;
  const double width = c.DrawWidth;
  c.DrawWidth = 1.5;
  for (int r : rows) {
    const double px = x[static_cast<size_t>(r)], py = y[static_cast<size_t>(r)];
    if (isOutX(px) || (item == 1 ? isOutYd(py) : isOutY(py))) continue;
    const double yy = item == 1 ? mapDerivative(py) : py;
    if (list.kind == ResultList::Kind::Extrema) {
      c.Circle(px, yy, std::fabs(unitX) * 5);
    } else {
      const double cx = c.unitsX(px), cy = c.unitsY(yy);
      c.Box(c.userX(cx - 4), c.userY(cy - 4), c.userX(cx + 4), c.userY(cy + 4), false);
    }
  }
  c.DrawWidth = width;
  c.FillStyle = barrasopc;
}

// The derivative on its own axis at the right of the frame.
void PlotModel::drawDerivative(PlotCanvas& c) const {
  const std::uint32_t colour = drawColour(c, kCurveDerivative);
  const double right = c.width() - kMarginX, top = kMarginY, bottom = c.height() - kMarginY;
  const double stepY = (bottom - top) / kTicks;
  c.ForeColor = colour;
  const double width = c.DrawWidth;
  c.DrawWidth = std::min(width, 1.5);
  c.Line(c.userX(right), c.userY(bottom), c.userX(right), c.userY(top));
  for (int k = 0; k <= kTicks; ++k) {
    const double py = bottom - k * stepY;
    c.Line(c.userX(right - kTickIn), c.userY(py), c.userX(right + kTickOut), c.userY(py));
  }
  c.FontSize = kNumberSize;
  printAt(c, right + 6, top - 34, derivativeLabel, -1);
  if (2 * stepY >= 24) {
    for (int k = 2; k < kTicks; k += 2) {
      printAt(c, right + 8, bottom - k * stepY - 7, tickText(0, 5, k), -1);
    }
  }
  // Thicker on the screen, where the derivative has to stand out from F.
  c.DrawWidth = c.target() == PlotCanvas::Target::Screen ? width + 1 : width;
  const int n = pointCount();
  const Curve d{column(0, n - derivOrder), column(derivOrder + 1, n - derivOrder)};
  if (!ocultarPuntos) drawPoints(c, d, colour, true);
  if (menuuderiv) drawJoined(c, d, colour, true);
  c.DrawWidth = width;
}

// The graphic integral: one box per step, positive and negative areas in
// their colours, the interval's frame, the chord with the correction, and
// the readout above the frame.
void PlotModel::drawIntegral(PlotCanvas& c) const {
  const int n = pointCount();
  const std::vector<double> x = column(0, n);
  const plot::RowRange r = plot::rowsInside(x, Text5Tag[0], Text5Tag[1]);
  if (r.count < 2) return;
  const plot::GraphicIntegral g = plot::graphicIntegral(x, column(fColumn(), n), r, Icorrection);
  for (const plot::IntegralStep& s : g.steps) {
    if (isOutX(s.x1) || isOutX(s.x2)) continue;
    c.ForeColor = colour(s.height <= 0 ? kAreaNegative : kAreaPositive);
    c.Box(s.x1, clampY(s.base), s.x2, clampY(s.base + s.height), true);
  }
  c.ForeColor = drawColour(c, kAxes);
  const double width = c.DrawWidth;
  c.DrawWidth = std::min(width, 1.5);
  for (double xi : Text5Tag) {
    if (!isOutX(xi)) c.Line(xi, limit(3), xi, limit(4));
  }
  if (Icorrection) c.Line(g.chordX1, clampY(g.chordY1), g.chordX2, clampY(g.chordY2));
  c.DrawWidth = width;
  c.ForeColor = drawColour(c, kText);
  c.FontSize = kNumberSize;
  const QStringList lines = integralReadout();
  for (qsizetype i = 0; i < lines.size(); ++i) printAt(c, kMarginX + 16, 24 + 13 * i, lines.at(i), -1);
}

// Bars from 0 to each value, half a spacing wide, in the fill style chosen.
void PlotModel::drawBars(PlotCanvas& c) const {
  const int n = pointCount();
  if (n == 0) return;
  const double w = std::fabs(xHigh - xLow) / (n * 2.0) - std::fabs(unitX);
  const std::vector<double> x = column(0, n), y = column(fColumn(), n);
  const double base = clampY(0);
  // Bars at the ends are cut at the frame.
  auto clampX = [this](double v) { return std::clamp(v, xLow, xHigh); };
  const double width = c.DrawWidth;
  c.DrawWidth = std::min(width, 1.5);
  for (size_t i = 0; i < y.size(); ++i) {
    if (isOutX(x[i]) || std::isnan(y[i])) continue;
    const double top = clampY(y[i]);
    const double x1 = clampX(x[i] - w), x2 = clampX(x[i] + w);
    const std::uint32_t barColour = colour(y[i] >= 0 ? kBarsPositive : kBarsNegative);
    if (barrasopc == PlotCanvas::kSolid) {
      c.ForeColor = barColour;
      c.Box(x1, base, x2, top, true);
      continue;
    }
    if (barrasopc != PlotCanvas::kTransparent) {
      c.ForeColor = colour(kBarBackground);
      c.Box(x1, base, x2, top, true);
    }
    c.ForeColor = semicolour(c, printcolor) ? kBlack : barColour;
    c.FillColor = barColour;
    c.FillStyle = barrasopc;
    c.Box(x1, base, x2, top, false);
  }
  c.DrawWidth = width;
}

void PlotModel::drawOriginAxes(PlotCanvas& c) const {
  c.ForeColor = drawColour(c, kAxes);
  if (!isOutY(0)) c.Line(limit(1), 0, limit(2), 0);
  if (!isOutX(0)) c.Line(0, limit(3), 0, limit(4));
}
