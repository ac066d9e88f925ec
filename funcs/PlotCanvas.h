#pragma once
// What the plot draws on: a picture with a user scale and the classic
// drawing operations (Cls, Line, box, PSet, Circle, Print at CurrentX and
// CurrentY, with ForeColor, DrawWidth, FillStyle, FontSize). The screen
// picture, an offscreen image and the printer implement it over QPainter
// (PlotPainterView); tests record the calls. Colours are 32-bit values with
// red in the low byte.
//
// Coordinates are user units: x runs from ScaleLeft over ScaleWidth across
// width() picture units, y from ScaleTop over ScaleHeight (negative: y grows
// upwards) down height() units. A picture unit is a pixel of the picture as
// the screen shows it; a printer or a larger image scales the whole picture.
#include <QString>
#include <cstdint>
#include <vector>

namespace plot {

struct Point {
  double x = 0;
  double y = 0;
};

class PlotCanvas {
 public:
  enum class Target { Screen, Printer, Image };
  // FillStyle values: 0 solid, 1 transparent, 2 horizontal lines, 3 vertical
  // lines, 4 upward diagonals, 5 downward diagonals, 6 cross, 7 diagonal cross.
  enum FillStyles { kSolid = 0, kTransparent = 1 };

  virtual ~PlotCanvas() = default;

  virtual Target target() const = 0;
  virtual int width() const = 0;   // picture units
  virtual int height() const = 0;

  double ScaleLeft = 0, ScaleTop = 0, ScaleWidth = 1, ScaleHeight = -1;
  double CurrentX = 0, CurrentY = 0;
  std::uint32_t ForeColor = 0;
  std::uint32_t FillColor = 0;
  double DrawWidth = 1;  // picture units
  int FillStyle = kTransparent;
  double FontSize = 8;  // points at the screen's 96 units an inch
  bool FontBold = false;

  // Fills the whole picture with a colour.
  virtual void Cls(std::uint32_t background) = 0;
  virtual void Line(double x1, double y1, double x2, double y2) = 0;
  // A box with corners (x1, y1), (x2, y2): filled with ForeColor when
  // filled is set, otherwise outlined with ForeColor and its inside painted
  // with FillColor in the FillStyle pattern.
  virtual void Box(double x1, double y1, double x2, double y2, bool filled) = 0;
  virtual void PSet(double x, double y) = 0;
  // radius in user units of x.
  virtual void Circle(double x, double y, double radius) = 0;
  // Text with its top left corner at CurrentX, CurrentY; CurrentY moves one line down.
  virtual void Print(const QString& text) = 0;
  // Size of a text in user units (positive).
  virtual double TextWidth(const QString& text) = 0;
  virtual double TextHeight(const QString& text) = 0;

  // The same as Line between each point and the next, in one call.
  virtual void Polyline(const std::vector<Point>& points) {
    for (size_t i = 1; i < points.size(); ++i) Line(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
  }
  // The same as PSet at each point.
  virtual void PSets(const std::vector<Point>& points) {
    for (const Point& p : points) PSet(p.x, p.y);
  }

  void setScale(double left, double top, double w, double h) {
    ScaleLeft = left;
    ScaleTop = top;
    ScaleWidth = w;
    ScaleHeight = h;
  }
  // Between user units and picture units.
  double unitsX(double x) const { return (x - ScaleLeft) * width() / ScaleWidth; }
  double unitsY(double y) const { return (y - ScaleTop) * height() / ScaleHeight; }
  double userX(double px) const { return ScaleLeft + px * ScaleWidth / width(); }
  double userY(double py) const { return ScaleTop + py * ScaleHeight / height(); }
};

}  // namespace plot
