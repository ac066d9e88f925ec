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
  // Square ends and bevelled joins: at plot widths they look as round ones
  // do, and stroke several times faster (no curves to flatten).
  pen_.setCapStyle(Qt::SquareCap);
  pen_.setJoinStyle(Qt::BevelJoin);
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

// Consecutive points that fall in the same half-unit column are drawn as
// that run's first, lowest, highest and last point: the stroke covers the
// same pixels, and a curve of 100,000 points costs what one of a few
// thousand does.
void PainterCanvas::Polyline(const std::vector<plot::Point>& points) {
  if (points.size() < 2) return;
  usePen();
  QPolygonF poly;
  poly.reserve(static_cast<qsizetype>(std::min<size_t>(points.size(), 4 * static_cast<size_t>(width_) * 2 + 8)));
  const size_t n = points.size();
  for (size_t i = 0; i < n;) {
    const QPointF first = map(points[i].x, points[i].y);
    const double column = std::floor(first.x() * 2);
    QPointF low = first, high = first, last = first;
    size_t lowAt = i, highAt = i, j = i + 1;
    for (; j < n; ++j) {
      const QPointF q = map(points[j].x, points[j].y);
      if (std::floor(q.x() * 2) != column) break;
      if (q.y() < low.y()) low = q, lowAt = j;
      if (q.y() > high.y()) high = q, highAt = j;
      last = q;
    }
    poly << first;
    if (lowAt != i && lowAt != j - 1 && highAt != i && highAt != j - 1) {
      if (lowAt < highAt) poly << low << high;
      else poly << high << low;
    } else if (lowAt != i && lowAt != j - 1) {
      poly << low;
    } else if (highAt != i && highAt != j - 1) {
      poly << high;
    }
    if (j - 1 != i) poly << last;
    i = j;
  }
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

// Points are drawn once per half-unit cell they fall in: the same pixels,
// at a cost that stops growing with the number of points.
void PainterCanvas::PSets(const std::vector<plot::Point>& points) {
  if (points.empty()) return;
  usePen();
  const int cellsX = 2 * width_ + 2, cellsY = 2 * height_ + 2;
  std::vector<bool> taken(static_cast<size_t>(cellsX) * static_cast<size_t>(cellsY));
  QPolygonF poly;
  poly.reserve(static_cast<qsizetype>(std::min<size_t>(points.size(), 8192)));
  for (const plot::Point& p : points) {
    const QPointF q = map(p.x, p.y);
    const int cx = static_cast<int>(std::floor(q.x() * 2)), cy = static_cast<int>(std::floor(q.y() * 2));
    if (cx >= 0 && cy >= 0 && cx < cellsX && cy < cellsY) {
      const size_t cell = static_cast<size_t>(cy) * static_cast<size_t>(cellsX) + static_cast<size_t>(cx);
      if (taken[cell]) continue;
      taken[cell] = true;
    }
    poly << q;
  }
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
