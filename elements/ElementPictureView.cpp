#include "elements/ElementPictureView.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <array>
#include <cmath>

namespace {

// A point of the unit cell (each coordinate 0..1) projected on the widget:
// x to the right, y to the back (drawn up and to the right), z up.
struct Projection {
  QPointF origin;
  double a, b, c;   // edge lengths in pixels
  double slant = 0;  // monoclinic and rhombohedral cells lean
  QPointF map(double x, double y, double z) const {
    const double depth = 0.45;
    return origin + QPointF(x * a + y * b * depth + z * c * slant, -(z * c) - y * b * depth);
  }
};

void drawCell(QPainter& p, const Projection& pr) {
  const std::array<std::array<int, 3>, 8> corners{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                                   {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}};
  const std::array<std::array<int, 2>, 12> edges{
      {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}}};
  p.setPen(QPen(QColor(60, 60, 90), 1.2));
  for (const auto& e : edges) {
    const auto& u = corners[static_cast<std::size_t>(e[0])];
    const auto& v = corners[static_cast<std::size_t>(e[1])];
    p.drawLine(pr.map(u[0], u[1], u[2]), pr.map(v[0], v[1], v[2]));
  }
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(40, 90, 200));
  for (const auto& c : corners) p.drawEllipse(pr.map(c[0], c[1], c[2]), 3.2, 3.2);
}

void atom(QPainter& p, const Projection& pr, double x, double y, double z, const QColor& colour) {
  p.setPen(Qt::NoPen);
  p.setBrush(colour);
  p.drawEllipse(pr.map(x, y, z), 3.4, 3.4);
}

void drawHexagonalPrism(QPainter& p, const QRectF& r) {
  const QPointF centre = r.center();
  const double rx = r.width() * 0.36, ry = r.height() * 0.12, h = r.height() * 0.5;
  QPolygonF bottom, top;
  for (int i = 0; i < 6; ++i) {
    const double angle = M_PI / 3 * i;
    const QPointF q(centre.x() + rx * std::cos(angle), centre.y() + h / 2 + ry * std::sin(angle));
    bottom << q;
    top << q - QPointF(0, h);
  }
  p.setPen(QPen(QColor(60, 60, 90), 1.2));
  p.setBrush(Qt::NoBrush);
  p.drawPolygon(bottom);
  p.drawPolygon(top);
  for (int i = 0; i < 6; ++i) p.drawLine(bottom[i], top[i]);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(40, 90, 200));
  for (int i = 0; i < 6; ++i) {
    p.drawEllipse(bottom[i], 3.2, 3.2);
    p.drawEllipse(top[i], 3.2, 3.2);
  }
  p.setBrush(QColor(200, 60, 40));
  p.drawEllipse(centre + QPointF(0, h / 2), 3.2, 3.2);
  p.drawEllipse(centre - QPointF(0, h / 2), 3.2, 3.2);
  p.drawEllipse(centre, 3.2, 3.2);
}

}  // namespace

ElementPictureView::ElementPictureView(Kind kind, QWidget* parent) : QWidget(parent), kind_(kind) {
  setMinimumSize(64, 64);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ElementPictureView::setAcidBase(AcidBase a) {
  if (acid_ == a) return;
  acid_ = a;
  update();
}

void ElementPictureView::setCrystal(CrystalSystem c) {
  if (crystal_ == c) return;
  crystal_ = c;
  update();
}

void ElementPictureView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), QColor(250, 250, 245));
  p.setPen(QColor(180, 180, 170));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
  if (kind_ == Kind::AcidBasePicture) paintAcidBase(p);
  else paintCrystal(p);
}

void ElementPictureView::paintAcidBase(QPainter& p) {
  // The colour litmus would take: red for acids, blue for bases, violet for
  // amphoteric oxides; grey when nothing is known.
  QColor liquid;
  double level = 0.55;
  switch (acid_) {
    case AcidBase::Acid: liquid = QColor(235, 110, 110); break;
    case AcidBase::StrongAcid: liquid = QColor(200, 20, 30); level = 0.75; break;
    case AcidBase::Basic: liquid = QColor(110, 140, 235); break;
    case AcidBase::StrongBasic: liquid = QColor(20, 40, 190); level = 0.75; break;
    case AcidBase::Amphoteric: liquid = QColor(150, 80, 190); break;
    case AcidBase::Unknown: liquid = QColor(200, 200, 200); level = 0.3; break;
  }
  const QRectF tube(width() * 0.36, height() * 0.12, width() * 0.28, height() * 0.76);
  QPainterPath outline;
  outline.moveTo(tube.topLeft());
  outline.lineTo(tube.left(), tube.bottom() - tube.width() / 2);
  outline.arcTo(QRectF(tube.left(), tube.bottom() - tube.width(), tube.width(), tube.width()), 180, 180);
  outline.lineTo(tube.topRight());
  QPainterPath fill;
  const double top = tube.bottom() - tube.height() * level;
  fill.addRect(QRectF(tube.left(), top, tube.width(), tube.bottom() - top));
  p.setPen(Qt::NoPen);
  p.setBrush(liquid);
  QPainterPath closed = outline;
  closed.closeSubpath();
  p.drawPath(fill.intersected(closed));
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(QColor(70, 70, 70), 1.6));
  p.drawPath(outline);
  p.drawLine(tube.topLeft() - QPointF(3, 0), tube.topRight() + QPointF(3, 0));
}

void ElementPictureView::paintCrystal(QPainter& p) {
  const QRectF r = QRectF(rect()).adjusted(8, 8, -8, -8);
  const QColor centre(200, 60, 40);
  const QPointF origin(r.left() + 2, r.bottom() - 2);
  const double s = r.width() * 0.58;
  switch (crystal_) {
    case CrystalSystem::Cubic:
      drawCell(p, {origin, s, s, s});
      break;
    case CrystalSystem::BodyCentredCubic: {
      const Projection pr{origin, s, s, s};
      drawCell(p, pr);
      atom(p, pr, 0.5, 0.5, 0.5, centre);
      break;
    }
    case CrystalSystem::FaceCentredCubic: {
      const Projection pr{origin, s, s, s};
      drawCell(p, pr);
      for (const auto& f : {std::array<double, 3>{0.5, 0.5, 0}, {0.5, 0.5, 1}, {0.5, 0, 0.5}, {0.5, 1, 0.5},
                            {0, 0.5, 0.5}, {1, 0.5, 0.5}}) {
        atom(p, pr, f[0], f[1], f[2], centre);
      }
      break;
    }
    case CrystalSystem::Hexagonal:
      drawHexagonalPrism(p, r);
      break;
    case CrystalSystem::Tetragonal:
      drawCell(p, {origin, s * 0.75, s * 0.75, s * 1.2});
      break;
    case CrystalSystem::Rhombic:
    case CrystalSystem::Orthorhombic:
      drawCell(p, {origin, s * 1.0, s * 0.6, s * 0.8});
      break;
    case CrystalSystem::Monoclinic:
      drawCell(p, {origin, s * 0.8, s * 0.6, s * 0.9, 0.3});
      break;
    case CrystalSystem::Rhombohedral:
      drawCell(p, {origin + QPointF(0, -2), s * 0.8, s * 0.8, s * 0.8, 0.35});
      break;
    case CrystalSystem::Unknown:
      p.setPen(QColor(150, 150, 150));
      p.drawText(rect(), Qt::AlignCenter, QStringLiteral("--"));
      break;
  }
}
