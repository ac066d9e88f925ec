#include "shell/PictureHolderView.h"

#include <QHash>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace pictures {

namespace {

QHash<QString, QPixmap>& cache() {
  static QHash<QString, QPixmap> pixmaps;
  return pixmaps;
}

template <typename Draw>
QPixmap cached(const QString& key, QSize size, Draw&& draw) {
  auto it = cache().constFind(key);
  if (it != cache().constEnd()) return *it;
  QPixmap pixmap(size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  draw(painter, QRectF(QPointF(0, 0), QSizeF(size)));
  painter.end();
  cache().insert(key, pixmap);
  return pixmap;
}

// Segments a..g of each digit, as bits 0..6.
constexpr unsigned char kSegments[10] = {0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F};

// One segment as a hexagon along a line of the digit's frame.
QPolygonF segment(QPointF from, QPointF to, qreal thickness) {
  const bool horizontal = qFuzzyCompare(from.y(), to.y());
  const qreal h = thickness / 2;
  if (horizontal) {
    return QPolygonF({QPointF(from.x() + h, from.y()), QPointF(from.x() + 2 * h, from.y() - h),
                      QPointF(to.x() - 2 * h, to.y() - h), QPointF(to.x() - h, to.y()),
                      QPointF(to.x() - 2 * h, to.y() + h), QPointF(from.x() + 2 * h, from.y() + h)});
  }
  return QPolygonF({QPointF(from.x(), from.y() + h), QPointF(from.x() + h, from.y() + 2 * h),
                    QPointF(to.x() + h, to.y() - 2 * h), QPointF(to.x(), to.y() - h),
                    QPointF(to.x() - h, to.y() - 2 * h), QPointF(from.x() - h, from.y() + 2 * h)});
}

}  // namespace

QPixmap digit(int value, int height) {
  const int width = height * 3 / 5;
  const QString key = QStringLiteral("digit-%1-%2").arg(value).arg(height);
  return cached(key, QSize(width, height), [&](QPainter& p, const QRectF& r) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(24, 28, 32));
    p.drawRoundedRect(r, height * 0.08, height * 0.08);
    const qreal m = height * 0.14;
    const qreal t = height * 0.09;
    const qreal left = m, right = width - m, top = m, bottom = height - m, middle = height / 2.0;
    const QPointF pts[7][2] = {
        {{left, top}, {right, top}},          {{right, top}, {right, middle}},  {{right, middle}, {right, bottom}},
        {{left, bottom}, {right, bottom}},    {{left, middle}, {left, bottom}}, {{left, top}, {left, middle}},
        {{left, middle}, {right, middle}},
    };
    const unsigned char lit = value >= 0 && value <= 9 ? kSegments[value] : 0;
    for (int s = 0; s < 7; ++s) {
      const bool on = (lit >> s) & 1;
      p.setBrush(on ? QColor(255, 176, 40) : QColor(52, 46, 40));
      p.drawPolygon(segment(pts[s][0], pts[s][1], t));
    }
  });
}

QPixmap about(int size) {
  return cached(QStringLiteral("about-%1").arg(size), QSize(size, size), [&](QPainter& p, const QRectF& r) {
    QLinearGradient g(r.topLeft(), r.bottomRight());
    g.setColorAt(0, QColor(70, 110, 170));
    g.setColorAt(1, QColor(20, 40, 80));
    p.setPen(QPen(QColor(230, 230, 240), size * 0.04));
    p.setBrush(g);
    p.drawEllipse(r.adjusted(size * 0.05, size * 0.05, -size * 0.05, -size * 0.05));
    QFont f;
    f.setBold(true);
    f.setPixelSize(size * 45 / 100);
    p.setFont(f);
    p.setPen(QColor(250, 250, 255));
    p.drawText(r, Qt::AlignCenter, QStringLiteral("i"));
  });
}

QPixmap calculatorState(bool failure, int size) {
  const QString key = QStringLiteral("state-%1-%2").arg(failure).arg(size);
  return cached(key, QSize(size, size), [&](QPainter& p, const QRectF& r) {
    const QRectF face = r.adjusted(size * 0.06, size * 0.06, -size * 0.06, -size * 0.06);
    p.setPen(QPen(QColor(40, 40, 40), size * 0.05));
    p.setBrush(failure ? QColor(214, 48, 40) : QColor(70, 170, 80));
    p.drawEllipse(face);
    p.setPen(QPen(Qt::white, size * 0.11, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (failure) {
      // An exclamation mark: something went wrong.
      p.drawLine(QPointF(size * 0.5, size * 0.26), QPointF(size * 0.5, size * 0.56));
      p.drawPoint(QPointF(size * 0.5, size * 0.74));
    } else {
      // A tick: ready.
      QPainterPath tick;
      tick.moveTo(size * 0.30, size * 0.52);
      tick.lineTo(size * 0.44, size * 0.66);
      tick.lineTo(size * 0.70, size * 0.36);
      p.setBrush(Qt::NoBrush);
      p.drawPath(tick);
    }
  });
}

}  // namespace pictures
