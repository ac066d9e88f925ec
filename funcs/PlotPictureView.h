#pragma once
// The plot window's picture (Picture2): paints the plot through the
// QPainter canvas and keeps the result, so that mouse moves, the graphic
// cursor and the overlaid boxes never cost a new drawing; only a change of
// the model (invalidate) or of the size does. Mouse moves, the mouse leaving
// and keys are handed to the window.
#include <QImage>
#include <QWidget>
#include <functional>

class PlotModel;

class PlotPictureView : public QWidget {
  Q_OBJECT

 public:
  PlotPictureView(PlotModel& model, QWidget* parent);

  // The model changed: the picture is drawn again at the next paint.
  void invalidate();
  // The pointer for a menuRaton item: 0 cross, 1 circle, 2 circle and cross, 3 arrow.
  void setPointer(int item);

  std::function<void(QPointF)> mouseMoved;
  std::function<void()> mouseLeft;
  std::function<void(QSize)> resized;
  std::function<bool(int key)> keyPressed;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  PlotModel& model_;
  QImage picture_;
  bool dirty_ = true;
};
