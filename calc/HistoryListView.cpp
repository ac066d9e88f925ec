#include "calc/HistoryListView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace {
constexpr int kMargin = 4;  // text inset from the left edge
}  // namespace

HistoryListView::HistoryListView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::StyledPanel);
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setAutoFillBackground(true);
  verticalScrollBar()->setSingleStep(1);  // the vertical bar counts rows
}

void HistoryListView::setLines(const QStringList* lines) {
  lines_ = lines;
  linesChanged(true);
}

void HistoryListView::linesChanged(bool cleared) {
  if (cleared || measured_ > count()) {
    measured_ = 0;
    widest_ = 0;
    if (current_ >= count()) current_ = -1;
  }
  // Blanks that pad a line out take no room.
  const QFontMetrics fm = fontMetrics();
  for (; measured_ < count(); ++measured_) {
    const QString& line = lines_->at(measured_);
    qsizetype end = line.size();
    while (end > 0 && line.at(end - 1) == QLatin1Char(' ')) --end;
    widest_ = std::max(widest_, fm.horizontalAdvance(line.left(end)));
  }
  updateScrollBars();
  viewport()->update();
}

QString HistoryListView::text(int row) const { return row >= 0 && row < count() ? lines_->at(row) : QString(); }

void HistoryListView::setCurrentRow(int row) {
  if (row < -1 || row >= count()) row = -1;
  current_ = row;
  if (row >= 0) {
    QScrollBar* bar = verticalScrollBar();
    const int shown = std::max(1, rowsOnScreen());
    if (row < bar->value()) bar->setValue(row);
    else if (row >= bar->value() + shown) bar->setValue(row - shown + 1);
  }
  viewport()->update();
}

int HistoryListView::rowHeight() const { return fontMetrics().height() + 2; }

int HistoryListView::rowsOnScreen() const { return viewport()->height() / rowHeight(); }

QRect HistoryListView::visualRowRect(int row) const {
  const int first = verticalScrollBar()->value();
  if (row < first || row >= count() || row > first + rowsOnScreen()) return {};
  return QRect(0, (row - first) * rowHeight(), viewport()->width(), rowHeight());
}

int HistoryListView::rowAt(const QPoint& point) const {
  if (point.y() < 0) return -1;
  const int row = verticalScrollBar()->value() + point.y() / rowHeight();
  return row < count() ? row : -1;
}

void HistoryListView::updateScrollBars() {
  QScrollBar* v = verticalScrollBar();
  v->setRange(0, std::max(0, count() - rowsOnScreen()));
  v->setPageStep(std::max(1, rowsOnScreen()));
  QScrollBar* h = horizontalScrollBar();
  h->setRange(0, std::max(0, widest_ + 2 * kMargin - viewport()->width()));
  h->setPageStep(viewport()->width());
}

void HistoryListView::paintEvent(QPaintEvent*) {
  QPainter p(viewport());
  const int first = verticalScrollBar()->value();
  const int last = std::min(count() - 1, first + rowsOnScreen());
  const int x = kMargin - horizontalScrollBar()->value();
  const QPalette& pal = palette();
  for (int row = first; row <= last; ++row) {
    const QRect r(0, (row - first) * rowHeight(), viewport()->width(), rowHeight());
    const bool current = row == current_;
    if (current) p.fillRect(r, pal.color(QPalette::Highlight));
    p.setPen(pal.color(current ? QPalette::HighlightedText : QPalette::Text));
    p.drawText(r.adjusted(x, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, lines_->at(row));
  }
}

void HistoryListView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  updateScrollBars();
  // A scroll bar that comes or goes changes the rows on screen: the current
  // row stays in view.
  if (current_ >= 0) setCurrentRow(current_);
}

void HistoryListView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int row = rowAt(event->position().toPoint());
  if (row < 0 || row == current_) return;
  setCurrentRow(row);
  Q_EMIT currentRowChanged(row);
}

void HistoryListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int row = rowAt(event->position().toPoint());
  if (row < 0) return;
  if (row != current_) {
    setCurrentRow(row);
    Q_EMIT currentRowChanged(row);
  }
  Q_EMIT rowDoubleClicked(row);
}

void HistoryListView::scrollContentsBy(int, int) { viewport()->update(); }
