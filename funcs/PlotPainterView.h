#pragma once
// The plot's canvas over QPainter, and the three places it draws on: the
// screen picture (PlotWindow paints through it), an offscreen image (the
// command line's PNG, the benchmark) and the printer. The picture is drawn
// in picture units; an image with a pixel density or a printer page scales
// the whole picture, so every target shows the same drawing.
#include <QFont>
#include <QImage>
#include <QPen>

#include "funcs/PlotCanvas.h"

class PlotModel;
class QPainter;
class QPrinter;

class PainterCanvas : public plot::PlotCanvas {
 public:
  // width and height in picture units; the painter's transform maps them to its device.
  PainterCanvas(QPainter& painter, int width, int height, Target target);

  Target target() const override { return target_; }
  int width() const override { return width_; }
  int height() const override { return height_; }

  void Cls(std::uint32_t background) override;
  void Line(double x1, double y1, double x2, double y2) override;
  void Box(double x1, double y1, double x2, double y2, bool filled) override;
  void PSet(double x, double y) override;
  void Circle(double x, double y, double radius) override;
  void Print(const QString& text) override;
  double TextWidth(const QString& text) override;
  double TextHeight(const QString& text) override;
  void Polyline(const std::vector<plot::Point>& points) override;
  void PSets(const std::vector<plot::Point>& points) override;

  static QColor toColor(std::uint32_t bgr);

 private:
  QPointF map(double x, double y) const { return {unitsX(x), unitsY(y)}; }
  void usePen();
  const QFont& font();
  void hatch(const QRectF& r);

  QPainter& painter_;
  int width_, height_;
  Target target_;
  QPen pen_;
  bool penSet_ = false;
  QFont font_;
  double fontSize_ = -1;
  bool fontBold_ = false;
};

// The plot drawn into an image of width x height picture units, at the
// given pixel density (the image is that much larger).
QImage renderPlotImage(PlotModel& model, int width, int height, qreal density = 1);

// The plot on a printer page, as large as fits with the picture's shape.
// False when the printer cannot be drawn on.
bool printPlot(PlotModel& model, QPrinter& printer);
