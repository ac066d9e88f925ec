#include "geometry/FigureView.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

constexpr double kWidth = 300;
constexpr double kHeight = 220;

const QColor kInk(28, 48, 110);
const QColor kFill(196, 218, 246);
const QColor kShade(164, 194, 236);
const QColor kMark(176, 36, 36);

// Pens, fills and lettering shared by the figure routines.
class Sketch {
 public:
  Sketch(QPainter& painter, const QStringList& labels) : p(painter), labels_(labels) {
    QFont f(QStringLiteral("DejaVu Serif"));
    f.setPixelSize(15);
    f.setItalic(true);
    f.setBold(true);
    p.setFont(f);
    solid();
  }
  QString label(int i) const { return i < labels_.size() ? labels_.at(i) : QString(); }

  void solid() { p.setPen(QPen(kInk, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)); }
  void hidden() { p.setPen(QPen(kInk, 1.1, Qt::DashLine)); }
  void fill(const QColor& c = kFill) { p.setBrush(c); }
  void noFill() { p.setBrush(Qt::NoBrush); }

  void line(QPointF a, QPointF b) { p.drawLine(a, b); }
  void polygon(const std::vector<QPointF>& pts, const QColor& c = kFill) {
    fill(c);
    p.drawPolygon(pts.data(), static_cast<int>(pts.size()));
    noFill();
  }
  // A side face of a round solid: filled, only its two slanted sides drawn.
  void side(QPointF a0, QPointF a1, QPointF b1, QPointF b0) {
    p.setPen(Qt::NoPen);
    polygon({a0, a1, b1, b0});
    solid();
    line(a0, a1);
    line(b0, b1);
  }
  void polyline(const std::vector<QPointF>& pts) { p.drawPolyline(pts.data(), static_cast<int>(pts.size())); }
  // A horizontal ellipse seen from above: the far half dashed when hidden.
  void ring(QPointF c, double rx, double ry, bool backHidden) {
    const QRectF r(c.x() - rx, c.y() - ry, 2 * rx, 2 * ry);
    solid();
    p.drawArc(r, 180 * 16, 180 * 16);
    if (backHidden) hidden();
    p.drawArc(r, 0, 180 * 16);
    solid();
  }
  void disc(QPointF c, double rx, double ry, const QColor& col = kFill) {
    fill(col);
    p.drawEllipse(c, rx, ry);
    noFill();
  }

  // The letter of box i (or a fixed text) beside a point.
  void text(QPointF at, const QString& s) {
    const QPen keep = p.pen();
    p.setPen(kMark);
    const QRectF box(at.x() - 40, at.y() - 12, 80, 24);
    p.drawText(box, Qt::AlignCenter, s);
    p.setPen(keep);
  }
  void letter(QPointF at, int i) { text(at, label(i)); }

  // A measure: a thin line with arrow heads and the letter of box i.
  void measure(QPointF a, QPointF b, int i, QPointF offset) {
    const QPen keep = p.pen();
    p.setPen(QPen(kMark, 1.0, Qt::DashLine));
    p.drawLine(a, b);
    p.setPen(QPen(kMark, 1.0));
    arrowHead(a, b);
    arrowHead(b, a);
    p.setPen(keep);
    letter((a + b) / 2 + offset, i);
  }
  // An angle mark at c from direction d1 to d2 (degrees, counterclockwise).
  void angle(QPointF c, double radius, double from, double span, int i) {
    const QPen keep = p.pen();
    p.setPen(QPen(kMark, 1.2));
    p.drawArc(QRectF(c.x() - radius, c.y() - radius, 2 * radius, 2 * radius), qRound(from * 16), qRound(span * 16));
    p.setPen(keep);
    const double mid = qDegreesToRadians(from + span / 2);
    letter(c + QPointF(std::cos(mid), -std::sin(mid)) * (radius + 14), i);
  }
  void dot(QPointF c) {
    fill(kInk);
    p.drawEllipse(c, 2.2, 2.2);
    noFill();
  }

  QPainter& p;

 private:
  void arrowHead(QPointF from, QPointF to) {
    const QPointF d = to - from;
    const double len = std::hypot(d.x(), d.y());
    if (len < 1) return;
    const QPointF u = d / len, n(-u.y(), u.x());
    p.drawLine(from, from + u * 7 + n * 3);
    p.drawLine(from, from + u * 7 - n * 3);
  }
  QStringList labels_;
};

QPointF polar(QPointF c, double r, double degrees, double squash = 1) {
  const double a = qDegreesToRadians(degrees);
  return c + QPointF(r * std::cos(a), -r * std::sin(a) * squash);
}

// ---- Plane figures with curves -------------------------------------------------------

void drawRound(Sketch& s, int id) {
  const QPointF c(150, 112);
  switch (id) {
    case 3556:  // Círculo
      s.disc(c, 85, 85);
      s.dot(c);
      s.measure(c, polar(c, 85, 20), 0, {0, -14});
      break;
    case 3562:  // Corona Circular
      s.disc(c, 90, 90, kShade);
      s.disc(c, 50, 50, Qt::white);
      s.dot(c);
      s.measure(c, polar(c, 90, 35), 0, {8, -12});
      s.measure(c, polar(c, 50, 200), 1, {0, -12});
      break;
    case 3593: {  // Sector Circular
      const QPointF o(95, 165);
      s.fill();
      s.p.drawPie(QRectF(o.x() - 150, o.y() - 150, 300, 300), 0, 60 * 16);
      s.noFill();
      s.measure(o, polar(o, 150, 0), 0, {0, 14});
      s.angle(o, 40, 0, 60, 1);
      break;
    }
    case 3595: {  // Segmento Circular
      const QPointF o(150, 150);
      const double r = 95;
      s.hidden();
      s.p.drawEllipse(o, r, r);
      s.line(o, polar(o, r, 40));
      s.line(o, polar(o, r, 140));
      s.solid();
      s.fill();
      s.p.drawChord(QRectF(o.x() - r, o.y() - r, 2 * r, 2 * r), 40 * 16, 100 * 16);
      s.noFill();
      s.angle(o, 28, 40, 100, 1);
      s.measure(o, polar(o, r, 140), 0, {-14, 4});
      break;
    }
    case 3600: {  // Trapecio Circular
      const QPointF o(70, 190);
      QPainterPath path;
      path.arcMoveTo(QRectF(o.x() - 200, o.y() - 200, 400, 400), 0);
      path.arcTo(QRectF(o.x() - 200, o.y() - 200, 400, 400), 0, 55);
      path.arcTo(QRectF(o.x() - 110, o.y() - 110, 220, 220), 55, -55);
      path.closeSubpath();
      s.fill();
      s.p.drawPath(path);
      s.noFill();
      s.hidden();
      s.line(o, polar(o, 110, 55));
      s.solid();
      s.measure(o + QPointF(0, 14), polar(o, 200, 0) + QPointF(0, 14), 0, {0, 12});
      s.measure(o + QPointF(0, -8), polar(o, 110, 0) + QPointF(0, -8), 1, {-25, -12});
      s.angle(o, 70, 0, 55, 2);
      break;
    }
    case 3568:  // Elipse
      s.disc(c, 115, 68);
      s.dot(c);
      s.measure(c, c + QPointF(115, 0), 0, {0, 12});
      s.measure(c, c + QPointF(0, -68), 1, {12, 0});
      break;
    case 3566: {  // Huso - Cuña Esférica: a lune between two meridians
      const double r = 90;
      s.hidden();
      s.p.drawEllipse(c, r, r);
      s.ring(c, r, 26, true);
      s.solid();
      QPainterPath lune;
      lune.moveTo(c + QPointF(0, -r));
      lune.cubicTo(c + QPointF(-55, -r * 0.55), c + QPointF(-55, r * 0.55), c + QPointF(0, r));
      lune.cubicTo(c + QPointF(40, r * 0.55), c + QPointF(40, -r * 0.55), c + QPointF(0, -r));
      s.fill();
      s.p.drawPath(lune);
      s.noFill();
      s.measure(c, c + QPointF(r, 0), 0, {0, 12});
      s.angle(c + QPointF(0, -r), 30, 230, 60, 1);
      break;
    }
    default:
      break;
  }
}

// ---- Plane polygons ----------------------------------------------------------------------

std::vector<QPointF> regular(QPointF c, double r, int n, double start) {
  std::vector<QPointF> pts;
  for (int i = 0; i < n; ++i) pts.push_back(polar(c, r, start + 360.0 * i / n));
  return pts;
}

void drawPolygon(Sketch& s, int id, int form) {
  switch (id) {
    case 3563:  // Cuadrado
      s.polygon({{80, 40}, {220, 40}, {220, 180}, {80, 180}});
      s.measure({80, 196}, {220, 196}, 0, {0, 12});
      break;
    case 3588:  // Rectángulo
      s.polygon({{45, 55}, {255, 55}, {255, 175}, {45, 175}});
      s.measure({45, 192}, {255, 192}, 0, {0, 12});
      s.measure({270, 55}, {270, 175}, 1, {14, 0});
      break;
    case 3576:  // Paralelogramo - Romboide
      s.polygon({{40, 175}, {210, 175}, {260, 55}, {90, 55}});
      s.measure({40, 192}, {210, 192}, 0, {0, 12});
      s.measure({90, 55}, {90, 175}, 1, {12, 0});
      break;
    case 3589:  // Rombo
      s.polygon({{40, 110}, {150, 40}, {260, 110}, {150, 180}});
      s.measure({40, 110}, {260, 110}, 0, {40, -12});
      s.measure({150, 40}, {150, 180}, 1, {14, 40});
      break;
    case 3599:  // Trapecio
      s.polygon({{35, 175}, {265, 175}, {200, 60}, {95, 60}});
      s.measure({35, 192}, {265, 192}, 0, {0, 12});
      s.measure({95, 45}, {200, 45}, 1, {0, -10});
      s.measure({150, 60}, {150, 175}, 2, {12, 0});
      break;
    case 3590:  // Triángulo
      s.polygon({{40, 175}, {260, 175}, {110, 45}});
      if (form == 1) {
        s.measure({40, 192}, {260, 192}, 0, {0, 12});
        s.measure({110, 45}, {110, 175}, 1, {12, 0});
      } else {
        s.letter({62, 104}, 0);
        s.letter({196, 100}, 1);
        s.letter({150, 190}, 2);
      }
      break;
    case 3591:  // Triángulo Equilátero
      s.polygon({{60, 180}, {240, 180}, {150, 24}});
      s.letter({150, 196}, 0);
      s.letter({90, 96}, 0);
      s.letter({210, 96}, 0);
      break;
    case 3602: {  // Cuadrilátero: diagonals a and b at angle n
      const QPointF A(40, 130), B(150, 35), C(262, 120), D(110, 190);
      s.polygon({A, B, C, D});
      s.line(A, C);
      s.line(B, D);
      // The diagonals meet where A + t (C - A) = B + u (D - B).
      const QPointF r = C - A, q = D - B, w = B - A;
      const double t = (w.x() * q.y() - w.y() * q.x()) / (r.x() * q.y() - r.y() * q.x());
      const QPointF m = A + r * t;
      s.letter((A + m) / 2 + QPointF(0, -12), 0);
      s.letter((B + m) / 2 + QPointF(12, 0), 1);
      const double ac = qRadiansToDegrees(std::atan2(-(C - m).y(), (C - m).x()));
      const double bd = qRadiansToDegrees(std::atan2(-(B - m).y(), (B - m).x()));
      s.angle(m, 22, ac, bd - ac, 2);
      break;
    }
    case 3584: {  // Polígono Regular (n lados): apothem a, side b
      const QPointF c(150, 110);
      const auto pts = regular(c, 90, 6, 0);
      s.polygon(pts);
      const QPointF mid = (pts[4] + pts[5]) / 2;
      s.measure(c, mid, 1, {12, 0});
      s.measure(pts[4] + QPointF(0, 14), pts[5] + QPointF(0, 14), 2, {0, 12});
      s.dot(c);
      s.letter(c + QPointF(-22, -14), 0);
      break;
    }
    case 3583: {  // Polígono Irregular Pentagonal: three triangles from one corner
      const QPointF P0(150, 30), P1(265, 100), P2(225, 195), P3(70, 195), P4(35, 95);
      s.polygon({P0, P1, P2, P3, P4});
      s.hidden();
      s.line(P0, P2);
      s.line(P0, P3);
      s.solid();
      // Bases a, b, c: the far sides of the three triangles; heights from P0.
      auto foot = [](QPointF p, QPointF a, QPointF b) {
        const QPointF d = b - a;
        const double t = ((p - a).x() * d.x() + (p - a).y() * d.y()) / (d.x() * d.x() + d.y() * d.y());
        return a + d * t;
      };
      s.letter((P1 + P2) / 2 + QPointF(14, 0), 0);
      s.letter((P2 + P3) / 2 + QPointF(0, 12), 1);
      s.letter((P3 + P4) / 2 + QPointF(-14, 0), 2);
      const std::array<std::pair<QPointF, QPointF>, 3> sides{{{P1, P2}, {P2, P3}, {P3, P4}}};
      for (int i = 0; i < 3; ++i) {
        const QPointF f = foot(P0, sides[i].first, sides[i].second);
        s.measure(P0, f, 3 + i, (f - P0) * 0.18 + QPointF(i == 0 ? 10 : i == 2 ? -10 : 10, 0));
      }
      break;
    }
    default:
      break;
  }
}

// ---- Round solids ----------------------------------------------------------------------

void drawRoundSolid(Sketch& s, int id, int form) {
  const double rx = 70, ry = 20;
  switch (id) {
    case 3557:    // Cilindro
    case 3558: {  // Cilindro Oblícuo
      const QPointF b(id == 3557 ? 150 : 125, 185);
      const QPointF t = b + QPointF(id == 3557 ? 0 : 60, -145);
      s.fill();
      s.p.drawPolygon(std::vector<QPointF>{b + QPointF(-rx, 0), t + QPointF(-rx, 0), t + QPointF(rx, 0), b + QPointF(rx, 0)}.data(), 4);
      s.p.setPen(Qt::NoPen);
      s.p.drawEllipse(b, rx, ry);
      s.solid();
      s.line(b + QPointF(-rx, 0), t + QPointF(-rx, 0));
      s.line(b + QPointF(rx, 0), t + QPointF(rx, 0));
      s.ring(b, rx, ry, true);
      s.disc(t, rx, ry, kShade);
      s.measure(b, b + QPointF(rx, 0), 0, {0, -11});
      s.measure(QPointF(t.x(), t.y()), QPointF(t.x(), b.y()), 1, {12, 0});
      break;
    }
    case 3560:    // Cono
    case 3561: {  // Cono Oblícuo
      const QPointF b(id == 3560 ? 150 : 120, 182);
      const QPointF apex(id == 3560 ? 150 : 230, 30);
      s.p.setPen(Qt::NoPen);
      s.disc(b, rx, ry);
      s.side(b + QPointF(-rx, 0), apex, apex, b + QPointF(rx, 0));
      s.ring(b, rx, ry, true);
      s.measure(b, b + QPointF(-rx, 0), 0, {0, -11});
      if (id == 3560 && form == 2) {
        s.letter((apex + b + QPointF(rx, 0)) / 2 + QPointF(14, 0), 1);
        s.hidden();
        s.line(apex, b);
      } else {
        s.measure(apex, QPointF(apex.x(), b.y()), 1, {12, 10});
        if (id == 3560) s.text((apex + b + QPointF(rx, 0)) / 2 + QPointF(16, 0), QStringLiteral("g"));
      }
      break;
    }
    case 3592: {  // Tronco de Cono: R r h g
      const QPointF b(150, 185), t(150, 60);
      const double r2 = 42;
      s.p.setPen(Qt::NoPen);
      s.disc(b, 85, 22);
      s.side(b + QPointF(-85, 0), t + QPointF(-r2, 0), t + QPointF(r2, 0), b + QPointF(85, 0));
      s.ring(b, 85, 22, true);
      s.disc(t, r2, 12, kShade);
      s.measure(b, b + QPointF(-85, 0), 0, {0, -11});
      s.measure(t, t + QPointF(-r2, 0), 1, {0, -12});
      s.measure(t, b, 2, {10, 0});
      s.letter((t + QPointF(r2, 0) + b + QPointF(85, 0)) / 2 + QPointF(16, 0), 3);
      break;
    }
    case 3604: {  // Tronco Cilíndrico: r, the longer side H, the shorter h
      const QPointF b(150, 185);
      const QPointF tl = b + QPointF(-rx, -150), tr = b + QPointF(rx, -90);
      s.fill();
      s.p.drawPolygon(std::vector<QPointF>{b + QPointF(-rx, 0), tl, tr, b + QPointF(rx, 0)}.data(), 4);
      s.noFill();
      s.ring(b, rx, ry, true);
      // The slanted cut, an ellipse through tl and tr.
      const QPointF mid = (tl + tr) / 2;
      s.p.save();
      s.p.translate(mid);
      s.p.rotate(qRadiansToDegrees(std::atan2(tr.y() - tl.y(), tr.x() - tl.x())));
      const double half = std::hypot(tr.x() - tl.x(), tr.y() - tl.y()) / 2;
      s.fill(kShade);
      s.p.drawEllipse(QPointF(0, 0), half, ry);
      s.noFill();
      s.p.restore();
      s.line(b + QPointF(-rx, 0), tl);
      s.line(b + QPointF(rx, 0), tr);
      s.measure(b, b + QPointF(rx, 0), 0, {0, -11});
      s.measure(tl + QPointF(-14, 0), b + QPointF(-rx - 14, 0), 1, {-12, 0});
      s.measure(tr + QPointF(14, 0), b + QPointF(rx + 14, 0), 2, {12, 0});
      break;
    }
    case 3565: {  // Cuña Cilíndrica: a slice of angle n of a cylinder, opening to the front right
      const QPointF t(105, 62), b(105, 172);
      const double r = 150, sq = 0.35, a1 = 295, span = 80;
      const QRectF topRect(t.x() - r, t.y() - r * sq, 2 * r, 2 * r * sq);
      const QRectF baseRect(b.x() - r, b.y() - r * sq, 2 * r, 2 * r * sq);
      auto rim = [&](QPointF c, double a) { return polar(c, r, a, sq); };
      s.polygon({t, rim(t, a1 + span), rim(b, a1 + span), b}, kShade);  // the far cut
      QPainterPath curved;
      curved.moveTo(rim(b, a1));
      curved.arcTo(baseRect, a1, span);
      curved.lineTo(rim(t, a1 + span));
      curved.arcTo(topRect, a1 + span, -span);
      curved.closeSubpath();
      s.fill();
      s.p.drawPath(curved);
      s.polygon({t, rim(t, a1), rim(b, a1), b}, kShade);  // the near cut
      QPainterPath top;
      top.moveTo(t);
      top.lineTo(rim(t, a1));
      top.arcTo(topRect, a1, span);
      top.closeSubpath();
      s.fill(kFill);
      s.p.drawPath(top);
      s.noFill();
      s.measure(t, rim(t, a1 + span), 0, {0, -12});
      s.measure(b + QPointF(-16, 0), t + QPointF(-16, 0), 1, {-12, 0});
      s.angle(t, 40, a1, span, 2);
      break;
    }
    case 3574: {  // Paraboloide
      const QPointF v(150, 190), top(150, 50);
      QPainterPath path;
      path.moveTo(top + QPointF(-85, 0));
      path.quadTo(QPointF(150, 330), top + QPointF(85, 0));
      s.fill();
      s.p.drawPath(path);
      s.noFill();
      s.disc(top, 85, 20, kShade);
      s.measure(top, top + QPointF(85, 0), 0, {0, -12});
      s.measure(top, v, 1, {12, 0});
      break;
    }
    case 3597: {  // Tonel: the greatest diameter D
      const QPointF t(150, 40), b(150, 185);
      QPainterPath side;
      side.moveTo(t + QPointF(-62, 0));
      side.quadTo(QPointF(40, 112), b + QPointF(-62, 0));
      side.lineTo(b + QPointF(62, 0));
      side.quadTo(QPointF(260, 112), t + QPointF(62, 0));
      side.closeSubpath();
      s.fill();
      s.p.drawPath(side);
      s.noFill();
      s.ring(b, 62, 16, true);
      s.disc(t, 62, 16, kShade);
      s.hidden();
      s.ring(QPointF(150, 112), 90, 22, true);
      s.measure(QPointF(60, 112), QPointF(240, 112), 0, {0, -12});
      break;
    }
    default:
      break;
  }
}

// ---- Spheres and their parts -------------------------------------------------------

void drawSphere(Sketch& s, int id) {
  const QPointF c(150, 112);
  const double r = 88;
  switch (id) {
    case 3570:  // Esfera
      s.disc(c, r, r);
      s.hidden();
      s.ring(c, r, 24, true);
      s.dot(c);
      s.measure(c, polar(c, r, 30), 0, {0, -12});
      break;
    case 3559:    // Casquete Esférico
    case 3594: {  // Sector Esférico
      const double planeY = c.y() - 45;
      const double half = std::sqrt(r * r - 45.0 * 45.0);
      s.hidden();
      s.p.drawEllipse(c, r, r);
      s.solid();
      QPainterPath cap;
      cap.moveTo(c.x() - half, planeY);
      const double a0 = qRadiansToDegrees(std::asin(45.0 / r));
      cap.arcTo(QRectF(c.x() - r, c.y() - r, 2 * r, 2 * r), 180 - a0, -(180 - 2 * a0));
      cap.closeSubpath();
      s.fill();
      s.p.drawPath(cap);
      if (id == 3594) {
        s.polygon({QPointF(c.x() - half, planeY), c, QPointF(c.x() + half, planeY)});
      }
      s.noFill();
      s.ring(QPointF(c.x(), planeY), half, 14, true);
      s.dot(c);
      s.measure(c, polar(c, r, -30), 0, {10, 8});
      s.measure(QPointF(c.x() + 12, c.y() - r), QPointF(c.x() + 12, planeY), 1, {12, 0});
      break;
    }
    case 3607: {  // Zona Esférica: R r1 r2 h
      const double y1 = c.y() + 30, y2 = c.y() - 40;
      const double h1 = std::sqrt(r * r - 30.0 * 30.0), h2 = std::sqrt(r * r - 40.0 * 40.0);
      s.hidden();
      s.p.drawEllipse(c, r, r);
      s.solid();
      QPainterPath zone;
      zone.moveTo(c.x() - h2, y2);
      zone.lineTo(c.x() + h2, y2);
      const double a2 = qRadiansToDegrees(std::asin(40.0 / r)), a1 = qRadiansToDegrees(std::asin(30.0 / r));
      zone.arcTo(QRectF(c.x() - r, c.y() - r, 2 * r, 2 * r), a2, -(a2 + a1));
      zone.lineTo(c.x() - h1, y1);
      zone.arcTo(QRectF(c.x() - r, c.y() - r, 2 * r, 2 * r), 180 + a1, -(a1 + a2));
      s.fill();
      s.p.drawPath(zone);
      s.noFill();
      s.ring(QPointF(c.x(), y1), h1, 14, true);
      s.disc(QPointF(c.x(), y2), h2, 13, kShade);
      s.dot(c);
      s.measure(c, polar(c, r, 250), 0, {-10, 8});
      s.measure(QPointF(c.x(), y2), QPointF(c.x() + h2, y2), 2, {0, -10});
      s.measure(QPointF(c.x(), y1), QPointF(c.x() + h1, y1), 1, {0, 10});
      s.measure(QPointF(c.x() - h2 - 12, y2), QPointF(c.x() - h2 - 12, y1), 3, {-12, 0});
      break;
    }
    case 3569:  // Elipsoide
      s.disc(c, 120, 80);
      s.hidden();
      s.ring(c, 120, 30, true);
      s.dot(c);
      s.measure(c, c + QPointF(120, 0), 0, {30, -10});
      s.measure(c, c + QPointF(0, -80), 1, {12, 0});
      s.measure(c, c + QPointF(-40, 28), 2, {-8, 8});
      break;
    case 3598: {  // Toro: R to the tube's centre, r the tube
      s.disc(c, 130, 62);
      s.p.setBrush(Qt::white);
      s.p.drawEllipse(c + QPointF(0, -6), 58, 20);
      s.noFill();
      s.hidden();
      s.ring(c, 94, 40, true);
      s.solid();
      const QPointF tube = c + QPointF(94, 0);
      s.measure(c, tube, 0, {-20, 10});
      s.measure(tube, tube + QPointF(36, 0), 1, {0, -12});
      s.dot(c);
      break;
    }
    default:
      break;
  }
}

// ---- Prisms and boxes (oblique projection) --------------------------------------------------

const QPointF kDepth(55, -38);

// A right prism over a base polygon drawn on the ground; hidden edges dashed
// for the corners whose index is in back.
void prism(Sketch& s, const std::vector<QPointF>& base, QPointF up, const std::vector<int>& back) {
  auto isBack = [&](int i) { return std::find(back.begin(), back.end(), i) != back.end(); };
  const int n = static_cast<int>(base.size());
  std::vector<QPointF> top;
  for (const QPointF& p : base) top.push_back(p + up);
  // Faces: the outline first (silhouette), then edges.
  for (int i = 0; i < n; ++i) {
    const int j = (i + 1) % n;
    if (isBack(i) || isBack(j)) continue;
    s.polygon({base[i], base[j], top[j], top[i]}, i % 2 ? kShade : kFill);
  }
  s.polygon(top, kShade);
  for (int i = 0; i < n; ++i) {
    const int j = (i + 1) % n;
    if (isBack(i) || isBack(j)) s.hidden();
    s.line(base[i], base[j]);
    if (isBack(i)) s.line(base[i], top[i]);
    s.solid();
  }
}

void drawBox(Sketch& s, int id) {
  switch (id) {
    case 3564: {  // Cubo - Hexaedro
      const QPointF o(80, 195);
      prism(s, {o, o + QPointF(120, 0), o + QPointF(120, 0) + kDepth, o + kDepth}, {0, -120}, {3});
      s.letter(o + QPointF(60, 12), 0);
      s.letter(o + QPointF(-12, -60), 0);
      s.letter(o + QPointF(120, 0) + kDepth / 2 + QPointF(12, 4), 0);
      break;
    }
    case 3573: {  // Ortoedro a b c
      const QPointF o(45, 195);
      prism(s, {o, o + QPointF(170, 0), o + QPointF(170, 0) + kDepth, o + kDepth}, {0, -100}, {3});
      s.letter(o + QPointF(85, 12), 0);
      s.letter(o + QPointF(170, 0) + kDepth / 2 + QPointF(12, 4), 1);
      s.letter(o + QPointF(-12, -50), 2);
      break;
    }
    case 3575: {  // Paralelepípedo Oblícuo: base a x b, lateral edge c, height h
      const QPointF o(35, 195);
      const QPointF lean(60, -100);
      prism(s, {o, o + QPointF(150, 0), o + QPointF(150, 0) + kDepth, o + kDepth}, lean, {3});
      s.letter(o + QPointF(75, 12), 0);
      s.letter(o + QPointF(150, 0) + kDepth / 2 + QPointF(14, 4), 1);
      s.letter(o + lean / 2 + QPointF(-14, 0), 2);
      s.measure(o + lean + QPointF(0, 0), QPointF(o.x() + lean.x(), o.y()), 3, {10, 0});
      break;
    }
    case 3585: {  // Prisma Regular Recto (n lados): apothem a, side b, height h
      const QPointF c(140, 190);
      std::vector<QPointF> base;
      for (int i = 0; i < 6; ++i) base.push_back(polar(c, 80, 210 + 60.0 * i, 0.38));
      prism(s, base, {0, -120}, {4});
      const QPointF tc = c + QPointF(0, -120);
      const QPointF mid = (base[0] + base[1]) / 2 + QPointF(0, -120);
      s.measure(tc, mid, 1, {-8, -8});
      s.letter((base[0] + base[1]) / 2 + QPointF(0, 14), 2);
      s.measure(base[2] + QPointF(14, 0), base[2] + QPointF(14, -120), 3, {12, 0});
      s.letter(tc + QPointF(-24, -10), 0);
      break;
    }
    case 3586:    // Prisma Triangular Oblícuo
    case 3587: {  // Prisma Triangular Recto
      const QPointF o(55, 195);
      const std::vector<QPointF> base{o, o + QPointF(150, 0), o + QPointF(60, -50)};
      const QPointF up = id == 3587 ? QPointF(0, -125) : QPointF(60, -125);
      prism(s, base, up, {2});
      s.letter(o + QPointF(75, 12), 0);
      s.letter((base[1] + base[2]) / 2 + QPointF(10, 10), 1);
      s.letter((base[0] + base[2]) / 2 + QPointF(-6, 10), 2);
      if (id == 3587) {
        s.measure(base[1] + QPointF(14, 0), base[1] + up + QPointF(14, 0), 3, {12, 0});
      } else {
        s.measure(base[1] + up, QPointF(base[1].x() + up.x(), base[1].y()), 3, {12, 0});
      }
      break;
    }
    default:
      break;
  }
}

// ---- Pyramids ----------------------------------------------------------------------------

void pyramid(Sketch& s, const std::vector<QPointF>& base, QPointF apex, const std::vector<int>& back) {
  auto isBack = [&](int i) { return std::find(back.begin(), back.end(), i) != back.end(); };
  const int n = static_cast<int>(base.size());
  for (int i = 0; i < n; ++i) {
    const int j = (i + 1) % n;
    if (isBack(i) || isBack(j)) continue;
    s.polygon({base[i], base[j], apex}, i % 2 ? kShade : kFill);
  }
  for (int i = 0; i < n; ++i) {
    const int j = (i + 1) % n;
    if (isBack(i) || isBack(j)) s.hidden();
    s.line(base[i], base[j]);
    if (isBack(i)) s.line(base[i], apex);
    s.solid();
  }
}

std::vector<QPointF> groundPolygon(QPointF c, double r, int n, double start) {
  std::vector<QPointF> pts;
  for (int i = 0; i < n; ++i) pts.push_back(polar(c, r, start + 360.0 * i / n, 0.38));
  return pts;
}

void drawPyramid(Sketch& s, int id, int form) {
  const QPointF c(140, 175);
  switch (id) {
    case 3577:    // Pirámide Cuadrada Oblícua: a h
    case 3580:    // Pirámide Regular Cuadrada: a with h or the slant b
    case 3581: {  // Pirámide Recta: a b h
      const bool oblique = id == 3577;
      const double w = id == 3581 ? 95 : 75;
      const std::vector<QPointF> base{c + QPointF(-w, 18), c + QPointF(w, 18), c + QPointF(w + 40, -22),
                                      c + QPointF(-w + 40, -22)};
      const QPointF centre = c + QPointF(20, -2);
      const QPointF apex = centre + QPointF(oblique ? 45 : 0, -150);
      pyramid(s, base, apex, {3});
      s.letter((base[0] + base[1]) / 2 + QPointF(0, 12), 0);
      if (id == 3581) s.letter((base[1] + base[2]) / 2 + QPointF(14, 6), 1);
      const bool slant = id == 3580 && form == 2;
      if (slant) {
        const QPointF m = (base[0] + base[1]) / 2;
        s.measure(apex, m, 1, {-12, 0});
      } else {
        s.hidden();
        s.measure(apex, QPointF(apex.x(), centre.y()), id == 3581 ? 2 : 1, {12, 20});
        if (id == 3580) s.text((apex + (base[0] + base[1]) / 2) / 2 + QPointF(-14, 0), QStringLiteral("b"));
      }
      break;
    }
    case 3578: {  // Pirámide Oblícua: base area B, height h
      const auto base = groundPolygon(c, 95, 5, 250);
      const QPointF apex = c + QPointF(40, -150);
      pyramid(s, base, apex, {3});
      s.letter(c + QPointF(-20, 4), 0);
      s.measure(apex, QPointF(apex.x(), c.y()), 1, {12, 0});
      break;
    }
    case 3579:    // Pirámide Regular Obl. (n lados): n a b h
    case 3582: {  // Pirámide Regular (n lados): n a b c / n a b h
      const auto base = groundPolygon(c, 95, 6, 240);
      const QPointF apex = c + QPointF(id == 3579 ? 40 : 0, -150);
      pyramid(s, base, apex, {3, 4});
      const QPointF mid = (base[0] + base[1]) / 2;
      s.measure(c, mid, 1, {-12, 0});
      s.letter(mid + QPointF(0, 14), 2);
      if (id == 3582 && form == 1) {
        s.measure(apex, mid, 3, {-14, 0});
      } else {
        s.measure(apex, QPointF(apex.x(), c.y()), 3, {12, 0});
      }
      s.letter(c + QPointF(-30, -10), 0);
      break;
    }
    case 3601: {  // Tronco de Pirámide: B b P p a h
      const double w = 95, t = 48;
      const QPointF top = c + QPointF(20, -125);
      const std::vector<QPointF> base{c + QPointF(-w, 18), c + QPointF(w, 18), c + QPointF(w + 40, -22),
                                      c + QPointF(-w + 40, -22)};
      const std::vector<QPointF> upper{top + QPointF(-t, 9), top + QPointF(t, 9), top + QPointF(t + 20, -11),
                                       top + QPointF(-t + 20, -11)};
      for (int i = 0; i < 4; ++i) {
        const int j = (i + 1) % 4;
        if (i == 3 || j == 3) continue;
        s.polygon({base[i], base[j], upper[j], upper[i]}, i % 2 ? kShade : kFill);
      }
      s.polygon(upper, kShade);
      s.hidden();
      s.line(base[2], base[3]);
      s.line(base[3], base[0]);
      s.line(base[3], upper[3]);
      s.solid();
      s.letter(c + QPointF(20, 0), 0);
      s.letter(top + QPointF(6, -1), 1);
      s.letter((base[0] + base[1]) / 2 + QPointF(0, 13), 2);
      s.letter((upper[2] + upper[3]) / 2 + QPointF(0, -12), 3);
      const QPointF bm = (base[0] + base[1]) / 2, tm = (upper[0] + upper[1]) / 2;
      s.measure(bm, tm, 4, {-12, 0});
      s.measure(QPointF(c.x() + 135, c.y() - 2), QPointF(c.x() + 135, top.y()), 5, {12, 0});
      break;
    }
    default:
      break;
  }
}

// ---- Regular polyhedra (a turned view of their vertices) ---------------------------------

struct Vec3 {
  double x, y, z;
};

std::vector<Vec3> polyhedron(int id) {
  const double phi = (1 + std::sqrt(5.0)) / 2;
  std::vector<Vec3> v;
  switch (id) {
    case 3596:  // Tetraedro
      v = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
      break;
    case 3572:  // Octaedro
      v = {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}};
      break;
    case 3571:  // Icosaedro
      for (double a : {-1.0, 1.0}) {
        for (double b : {-phi, phi}) v.insert(v.end(), {{0, a, b}, {a, b, 0}, {b, 0, a}});
      }
      break;
    case 3567:  // Dodecaedro
      for (double a : {-1.0, 1.0}) {
        for (double b : {-1.0, 1.0}) {
          for (double c : {-1.0, 1.0}) v.push_back({a, b, c});
          v.insert(v.end(), {{0, a / phi, b * phi}, {a / phi, b * phi, 0}, {b * phi, 0, a / phi}});
        }
      }
      break;
    default:
      break;
  }
  return v;
}

void drawPolyhedron(Sketch& s, int id) {
  std::vector<Vec3> v = polyhedron(id);
  if (v.empty()) return;
  // Turn the solid so that no edge lies along the line of sight.
  const double ay = 0.33, ax = 0.27;
  for (Vec3& p : v) {
    const double x = p.x * std::cos(ay) + p.z * std::sin(ay), z = -p.x * std::sin(ay) + p.z * std::cos(ay);
    const double y = p.y * std::cos(ax) - z * std::sin(ax), z2 = p.y * std::sin(ax) + z * std::cos(ax);
    p = {x, y, z2};
  }
  double radius = 0, edge = 1e9;
  for (const Vec3& p : v) radius = std::max(radius, std::hypot(p.x, p.y, p.z));
  for (size_t i = 0; i < v.size(); ++i) {
    for (size_t j = i + 1; j < v.size(); ++j) {
      edge = std::min(edge, std::hypot(v[i].x - v[j].x, v[i].y - v[j].y, v[i].z - v[j].z));
    }
  }
  const double scale = 95 / radius;
  auto at = [&](const Vec3& p) { return QPointF(150 + p.x * scale, 112 - p.y * scale); };
  // The outline: the convex hull of the projected corners (gift wrapping).
  std::vector<size_t> hull;
  size_t first = 0;
  for (size_t i = 1; i < v.size(); ++i) {
    if (v[i].x < v[first].x) first = i;
  }
  size_t current = first;
  do {
    hull.push_back(current);
    size_t next = (current + 1) % v.size();
    for (size_t k = 0; k < v.size(); ++k) {
      const double cross = (v[next].x - v[current].x) * (v[k].y - v[current].y) -
                           (v[next].y - v[current].y) * (v[k].x - v[current].x);
      if (cross < -1e-9) next = k;
    }
    current = next;
  } while (current != first && hull.size() <= v.size());
  auto onOutline = [&](size_t i, size_t j) {
    for (size_t k = 0; k < hull.size(); ++k) {
      const size_t a = hull[k], b = hull[(k + 1) % hull.size()];
      if ((a == i && b == j) || (a == j && b == i)) return true;
    }
    return false;
  };
  std::vector<QPointF> outline;
  for (size_t k : hull) outline.push_back(at(v[k]));
  s.p.setPen(Qt::NoPen);
  s.polygon(outline);
  // An edge of a regular solid faces the viewer when its middle does (the
  // middle points along the sum of the two faces' normals) or when it lies on
  // the outline; the others are hidden.
  std::vector<std::pair<size_t, size_t>> front;
  QPointF labelEdge[2];
  double lowest = -1e9;
  for (size_t i = 0; i < v.size(); ++i) {
    for (size_t j = i + 1; j < v.size(); ++j) {
      const double d = std::hypot(v[i].x - v[j].x, v[i].y - v[j].y, v[i].z - v[j].z);
      if (d > edge * 1.01) continue;
      if ((v[i].z + v[j].z) / 2 > 1e-9 || onOutline(i, j)) {
        front.push_back({i, j});
        const double y = at(v[i]).y() + at(v[j]).y();
        if (y > lowest) {
          lowest = y;
          labelEdge[0] = at(v[i]);
          labelEdge[1] = at(v[j]);
        }
      } else {
        s.hidden();
        s.line(at(v[i]), at(v[j]));
      }
    }
  }
  s.solid();
  for (const auto& [i, j] : front) s.line(at(v[i]), at(v[j]));
  const QPointF m = (labelEdge[0] + labelEdge[1]) / 2;
  s.letter(m + QPointF(0, 14), 0);
}

}  // namespace

void drawFigure(QPainter& painter, const QRectF& rect, int nameId, int form, const QStringList& labels) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = std::min(rect.width() / kWidth, rect.height() / kHeight);
  painter.translate(rect.center().x() - kWidth * scale / 2, rect.center().y() - kHeight * scale / 2);
  painter.scale(scale, scale);
  Sketch s(painter, labels);
  switch (nameId) {
    case 3556: case 3562: case 3593: case 3595: case 3600: case 3568: case 3566:
      drawRound(s, nameId);
      break;
    case 3563: case 3588: case 3576: case 3589: case 3599: case 3590: case 3591: case 3602: case 3584: case 3583:
      drawPolygon(s, nameId, form);
      break;
    case 3557: case 3558: case 3560: case 3561: case 3592: case 3604: case 3565: case 3574: case 3597:
      drawRoundSolid(s, nameId, form);
      break;
    case 3570: case 3559: case 3594: case 3607: case 3569: case 3598:
      drawSphere(s, nameId);
      break;
    case 3564: case 3573: case 3575: case 3585: case 3586: case 3587:
      drawBox(s, nameId);
      break;
    case 3577: case 3578: case 3579: case 3580: case 3581: case 3582: case 3601:
      drawPyramid(s, nameId, form);
      break;
    case 3596: case 3572: case 3571: case 3567:
      drawPolyhedron(s, nameId);
      break;
    default:
      break;
  }
  painter.restore();
}

FigureView::FigureView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Picture3"));
  setMinimumSize(380, 330);
  setAutoFillBackground(true);
  QPalette pal = palette();
  pal.setColor(QPalette::Window, Qt::white);
  setPalette(pal);
}

void FigureView::setFigure(int nameId, int form, const QStringList& labels) {
  nameId_ = nameId;
  form_ = form;
  labels_ = labels;
  update();
}

void FigureView::setFormulas(const QStringList& lines) {
  formulas_ = lines;
  update();
}

void FigureView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QColor(180, 190, 210));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
  QRectF area = QRectF(rect()).adjusted(8, 8, -8, -8);
  if (!formulas_.isEmpty()) {
    QFont f = font();
    f.setPointSizeF(f.pointSizeF() + 0.5);
    p.setFont(f);
    const QFontMetricsF fm(f);
    const double lineHeight = fm.height() + 4;
    const double block = lineHeight * formulas_.size() + 8;
    const QRectF box(area.left(), area.bottom() - block, area.width(), block);
    p.fillRect(box, QColor(244, 247, 252));
    p.setPen(QColor(30, 40, 70));
    double y = box.top() + 4;
    for (QString line : formulas_) {
      line.replace(u'¶', u'π');
      p.drawText(QRectF(box.left() + 6, y, box.width() - 12, lineHeight), Qt::AlignVCenter | Qt::AlignLeft,
                 fm.elidedText(line, Qt::ElideRight, box.width() - 12));
      y += lineHeight;
    }
    area.setBottom(box.top() - 6);
  }
  drawFigure(p, area, nameId_, form_, labels_);
}
