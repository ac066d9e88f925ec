#include "funcs/PlotPictureView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

#include "funcs/PlotModel.h"
#include "funcs/PlotPainterView.h"

namespace {

// A pointer drawn at run time: a circle, with or without a cross.
QCursor drawnPointer(bool cross) {
  QPixmap pixmap(25, 25);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  for (const auto& [colour, width] : {std::pair{QColor(Qt::black), 3.0}, std::pair{QColor(Qt::white), 1.2}}) {
    p.setPen(QPen(colour, width));
    p.drawEllipse(QPointF(12, 12), 7, 7);
    if (cross) {
      p.drawLine(QPointF(12, 1), QPointF(12, 23));
      p.drawLine(QPointF(1, 12), QPointF(23, 12));
    }
  }
  return QCursor(pixmap, 12, 12);
}

}  // namespace

PlotPictureView::PlotPictureView(PlotModel& model, QWidget* parent) : QWidget(parent), model_(model) {
  setObjectName(QStringLiteral("Picture2"));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(2 * PlotModel::kMarginX + 80, 2 * PlotModel::kMarginY + 80);
}

void PlotPictureView::invalidate() {
  dirty_ = true;
  update();
}

void PlotPictureView::setPointer(int item) {
  switch (item) {
    case 1: setCursor(drawnPointer(false)); break;
    case 2: setCursor(drawnPointer(true)); break;
    case 3: setCursor(Qt::ArrowCursor); break;
    default: setCursor(Qt::CrossCursor); break;
  }
}

void PlotPictureView::paintEvent(QPaintEvent*) {
  const qreal density = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * density).toSize();
  if (dirty_ || picture_.size() != pixels) {
    picture_ = QImage(pixels, QImage::Format_RGB32);
    picture_.setDevicePixelRatio(density);
    QPainter painter(&picture_);
    PainterCanvas canvas(painter, model_.pictureWidth, model_.pictureHeight, plot::PlotCanvas::Target::Screen);
    model_.paintPlot(canvas);
    dirty_ = false;
  }
  QPainter painter(this);
  painter.drawImage(QPointF(0, 0), picture_);
}

void PlotPictureView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  dirty_ = true;
  if (resized) resized(size());
}

void PlotPictureView::mouseMoveEvent(QMouseEvent* event) {
  if (mouseMoved) mouseMoved(event->position());
}

void PlotPictureView::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  QWidget::mousePressEvent(event);
}

void PlotPictureView::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  if (mouseLeft) mouseLeft();
}

void PlotPictureView::keyPressEvent(QKeyEvent* event) {
  if (keyPressed && keyPressed(event->key())) return;
  QWidget::keyPressEvent(event);
}
