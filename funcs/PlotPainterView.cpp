#include "funcs/PlotPainterView.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPainterPath>
#include <QPrinter>
#include <cmath>

#include "funcs/PlotModel.h"

namespace {

constexpr double kHatchSpacing = 6;  // picture units between the lines of a fill pattern

}  // namespace

QColor PainterCanvas::toColor(std::uint32_t bgr) {
  return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF), static_cast<int>((bgr >> 16) & 0xFF));
}

PainterCanvas::PainterCanvas(QPainter& painter, int width, int height, Target target)
    : painter_(painter), width_(std::max(width, 1)), height_(std::max(height, 1)), target_(target) {
  pen_.setCapStyle(Qt::RoundCap);
  pen_.setJoinStyle(Qt::RoundJoin);
  painter_.setRenderHint(QPainter::Antialiasing, true);
  painter_.setRenderHint(QPainter::TextAntialiasing, true);
}

void PainterCanvas::usePen() {
  const QColor c = toColor(ForeColor);
  if (!penSet_ || pen_.color() != c || pen_.widthF() != DrawWidth) {
    pen_.setColor(c);
    pen_.setWidthF(DrawWidth);
    penSet_ = true;
  }
  painter_.setPen(pen_);
  painter_.setBrush(Qt::NoBrush);
}

const QFont& PainterCanvas::font() {
  if (fontSize_ != FontSize || fontBold_ != FontBold) {
    font_ = QFont(QStringLiteral("DejaVu Sans"));
    font_.setStyleHint(QFont::SansSerif);
    // Points at 96 units an inch: the size is the same in picture units on every target.
    font_.setPixelSize(std::max(1, static_cast<int>(std::lround(FontSize * 96.0 / 72.0))));
    font_.setBold(FontBold);
    fontSize_ = FontSize;
    fontBold_ = FontBold;
  }
  return font_;
}

void PainterCanvas::Cls(std::uint32_t background) {
  painter_.fillRect(QRectF(0, 0, width_, height_), toColor(background));
}

void PainterCanvas::Line(double x1, double y1, double x2, double y2) {
  usePen();
  painter_.drawLine(map(x1, y1), map(x2, y2));
}

void PainterCanvas::Polyline(const std::vector<plot::Point>& points) {
  if (points.size() < 2) return;
  usePen();
  QPolygonF poly;
  poly.reserve(static_cast<qsizetype>(points.size()));
  for (const plot::Point& p : points) poly << map(p.x, p.y);
  painter_.drawPolyline(poly);
}

void PainterCanvas::hatch(const QRectF& r) {
  if (FillStyle <= kTransparent || FillStyle > 7) return;
  painter_.save();
  painter_.setClipRect(r, Qt::IntersectClip);
  QPen pen(toColor(FillColor), 1);
  painter_.setPen(pen);
  const bool horizontal = FillStyle == 2 || FillStyle == 6;
  const bool vertical = FillStyle == 3 || FillStyle == 6;
  const bool up = FillStyle == 4 || FillStyle == 7;
  const bool down = FillStyle == 5 || FillStyle == 7;
  // Lines on a fixed lattice of the picture, so neighbouring boxes match.
  const double s = kHatchSpacing;
  if (horizontal) {
    for (double y = std::ceil(r.top() / s) * s; y <= r.bottom(); y += s) painter_.drawLine(QPointF(r.left(), y), QPointF(r.right(), y));
  }
  if (vertical) {
    for (double x = std::ceil(r.left() / s) * s; x <= r.right(); x += s) painter_.drawLine(QPointF(x, r.top()), QPointF(x, r.bottom()));
  }
  const double h = r.height();
  if (up) {
    for (double k = std::floor((r.left() + r.top()) / s) * s; k <= r.right() + r.bottom(); k += s) {
      painter_.drawLine(QPointF(k - r.top(), r.top()), QPointF(k - r.top() - h, r.bottom()));
    }
  }
  if (down) {
    for (double k = std::floor((r.left() - r.bottom()) / s) * s; k <= r.right() - r.top(); k += s) {
      painter_.drawLine(QPointF(k + r.top(), r.top()), QPointF(k + r.top() + h, r.bottom()));
    }
  }
  painter_.restore();
}

void PainterCanvas::Box(double x1, double y1, double x2, double y2, bool filled) {
  const QRectF r = QRectF(map(x1, y1), map(x2, y2)).normalized();
  if (filled) {
    // Without smoothing, so neighbouring boxes (integral steps) meet without a seam.
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.fillRect(r, toColor(ForeColor));
    painter_.setRenderHint(QPainter::Antialiasing, true);
    return;
  }
  if (FillStyle == kSolid) painter_.fillRect(r, toColor(FillColor));
  else hatch(r);
  usePen();
  painter_.drawRect(r);
}

void PainterCanvas::PSet(double x, double y) {
  usePen();
  painter_.drawPoint(map(x, y));
}

void PainterCanvas::PSets(const std::vector<plot::Point>& points) {
  if (points.empty()) return;
  usePen();
  QPolygonF poly;
  poly.reserve(static_cast<qsizetype>(points.size()));
  for (const plot::Point& p : points) poly << map(p.x, p.y);
  painter_.drawPoints(poly);
}

void PainterCanvas::Circle(double x, double y, double radius) {
  usePen();
  if (FillStyle == kSolid) painter_.setBrush(toColor(FillColor));
  const double r = std::fabs(radius * width_ / ScaleWidth);
  painter_.drawEllipse(map(x, y), r, r);
}

void PainterCanvas::Print(const QString& text) {
  painter_.setFont(font());
  painter_.setPen(toColor(ForeColor));
  const QFontMetricsF m(font_, painter_.device());
  const QPointF at = map(CurrentX, CurrentY);
  painter_.drawText(QPointF(at.x(), at.y() + m.ascent()), text);
  CurrentY = userY(at.y() + m.lineSpacing());
}

double PainterCanvas::TextWidth(const QString& text) {
  const QFontMetricsF m(font(), painter_.device());
  return m.horizontalAdvance(text) * std::fabs(ScaleWidth) / width_;
}

double PainterCanvas::TextHeight(const QString& text) {
  const QFontMetricsF m(font(), painter_.device());
  return m.lineSpacing() * std::max<qsizetype>(1, text.count(QLatin1Char('\n')) + 1) * std::fabs(ScaleHeight) / height_;
}

// ---- Targets ------------------------------------------------------------------------------

QImage renderPlotImage(PlotModel& model, int width, int height, qreal density) {
  model.Form_Resize(width, height);
  QImage image(QSize(static_cast<int>(std::ceil(model.pictureWidth * density)),
                     static_cast<int>(std::ceil(model.pictureHeight * density))),
               QImage::Format_RGB32);
  image.setDevicePixelRatio(density);
  QPainter painter(&image);
  PainterCanvas canvas(painter, model.pictureWidth, model.pictureHeight, plot::PlotCanvas::Target::Image);
  model.drawPlot(canvas);
  return image;
}

bool printPlot(PlotModel& model, QPrinter& printer) {
  printer.setPageOrientation(model.pictureWidth >= model.pictureHeight ? QPageLayout::Landscape
                                                                         : QPageLayout::Portrait);
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution()).translated(
      -printer.pageLayout().paintRectPixels(printer.resolution()).topLeft());
  const double scale = std::min(page.width() / model.pictureWidth, page.height() / model.pictureHeight);
  painter.translate((page.width() - model.pictureWidth * scale) / 2, (page.height() - model.pictureHeight * scale) / 2);
  painter.scale(scale, scale);
  painter.setClipRect(QRectF(0, 0, model.pictureWidth, model.pictureHeight));
  PainterCanvas canvas(painter, model.pictureWidth, model.pictureHeight, plot::PlotCanvas::Target::Printer);
  model.drawPlot(canvas);
  return painter.end();
}
