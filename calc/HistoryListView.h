#pragma once
// The list box of the calculator history (Combo1): the lines of a QStringList
// it does not own, one row each, with a current row and double clicks.
//
// Why not a QListWidget: an item view lays out every row again after each
// insertion, so a line added to a list of 4000 cost some thirty times what it
// costs to a short one. This view paints only the rows on screen and measures
// only the lines added since it last looked, so a line costs the same at any
// length of the list.
#include <QAbstractScrollArea>
#include <QStringList>

class HistoryListView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit HistoryListView(QWidget* parent = nullptr);

  // The lines shown (not owned; they must outlive the view).
  void setLines(const QStringList* lines);
  // The lines were appended to; cleared says they were emptied first.
  void linesChanged(bool cleared);
  int count() const { return lines_ ? static_cast<int>(lines_->size()) : 0; }
  QString text(int row) const;

  int currentRow() const { return current_; }
  // Makes the row current (-1 for none) and scrolls it into view.
  void setCurrentRow(int row);
  // The rectangle of a row in viewport coordinates (empty when off screen)
  // and the row at a viewport point (-1 for none).
  QRect visualRowRect(int row) const;
  int rowAt(const QPoint& point) const;

 Q_SIGNALS:
  void currentRowChanged(int row);  // by the mouse
  void rowDoubleClicked(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  int rowHeight() const;
  int rowsOnScreen() const;
  void updateScrollBars();

  const QStringList* lines_ = nullptr;
  int current_ = -1;
  int measured_ = 0;  // lines whose width is in widest_
  int widest_ = 0;
};
