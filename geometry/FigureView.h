#pragma once
// Picture3: the drawing of the figure shown, with its parameter letters, and
// below it, while the formula view is on, the formula text of each shown
// line ("¶" drawn as π). The drawings are vector pictures made with
// QPainter in a 300 x 220 frame of their own, one routine per family of
// figures (plane round, plane polygons, round solids, spheres, prisms and
// boxes, pyramids, regular polyhedra).
#include <QStringList>
#include <QWidget>

class FigureView : public QWidget {
  Q_OBJECT

 public:
  explicit FigureView(QWidget* parent = nullptr);

  // The figure (its name's string id and form digit, 0 for one form), the
  // labels of its boxes, and the formula lines to print ("title: text"),
  // empty when the view shows none.
  void setFigure(int nameId, int form, const QStringList& labels);
  void setFormulas(const QStringList& lines);
  QSize sizeHint() const override { return {470, 400}; }

  int nameId() const { return nameId_; }
  const QStringList& formulas() const { return formulas_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int nameId_ = 0;
  int form_ = 0;
  QStringList labels_;
  QStringList formulas_;
};

// Draws a figure into rect: for the view, and for tests and pictures.
void drawFigure(class QPainter& painter, const QRectF& rect, int nameId, int form, const QStringList& labels);
