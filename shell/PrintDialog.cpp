#include "shell/PrintDialog.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>

namespace {

QFont toFont(const PrintFont& f, QPaintDevice* device) {
  QFont font(f.family, -1);
  font.setPointSizeF(f.pointSize);
  font.setBold(f.bold);
  // Where the family is not installed, the nearest kind of face stands in.
  if (f.family.contains(QLatin1String("Courier"), Qt::CaseInsensitive)) font.setStyleHint(QFont::TypeWriter);
  else font.setStyleHint(QFont::SansSerif);
  return QFont(font, device);
}

// Pieces of text that each fit the width, cut at blanks where possible.
QStringList wrap(const QString& text, const QFontMetricsF& fm, qreal width) {
  if (width <= fm.averageCharWidth() || fm.horizontalAdvance(text) <= width) return {text};
  QStringList pieces;
  QString rest = text;
  while (!rest.isEmpty()) {
    // The longest beginning that fits, by halving (at least one character).
    qsizetype low = 1;
    qsizetype high = rest.size();
    while (low < high) {
      const qsizetype mid = (low + high + 1) / 2;
      if (fm.horizontalAdvance(rest.left(mid)) <= width) low = mid;
      else high = mid - 1;
    }
    qsizetype fit = low;
    if (fit < rest.size()) {
      const qsizetype blank = rest.lastIndexOf(QLatin1Char(' '), fit - 1);
      if (blank > 0) fit = blank + 1;
    }
    pieces << rest.left(fit);
    rest = rest.mid(fit);
  }
  return pieces;
}

// Restores the pointer at the end, whatever happens.
struct BusyPointer {
  BusyPointer() {
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
      QApplication::setOverrideCursor(Qt::WaitCursor);
      set = true;
    }
  }
  ~BusyPointer() {
    if (set) QApplication::restoreOverrideCursor();
  }
  bool set = false;
};

}  // namespace

bool renderDocument(QPrinter& printer, const PrintDocument& document) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QSizeF page = printer.pageLayout().paintRectPixels(printer.resolution()).size();
  const int from = printer.fromPage();
  const int to = printer.toPage();
  auto wanted = [&](int n) { return (from == 0 || n >= from) && (to == 0 || n <= to); };

  struct Placed {
    QFont font;
    QColor colour;
    qreal x;
    QStringList rows;
  };
  int pageNumber = 1;
  int sheet = 0;  // the page the open sheet belongs to; 0 before the first
  qreal y = 0;
  for (const PrintLine& line : document.lines()) {
    qreal height = QFontMetricsF(toFont(line.font, &printer)).lineSpacing();
    QList<Placed> placed;
    int rows = 1;
    for (const PrintSpan& span : line.spans) {
      const QFont font = toFont(span.font, &printer);
      const QFontMetricsF fm(font);
      const qreal x = (span.column - 1) * fm.averageCharWidth();
      QString text = span.text;
      text.remove(QLatin1Char('\r'));  // a carriage return stays in its line and draws as nothing
      const QStringList pieces = wrap(text, fm, page.width() - x);
      placed.append({font, QColor::fromRgb(static_cast<QRgb>(span.colour)), x, pieces});
      height = std::max(height, fm.lineSpacing());
      rows = std::max(rows, static_cast<int>(pieces.size()));
    }
    const qreal needed = height * rows;
    if (y > 0 && (line.pageBreakBefore || y + needed > page.height())) {
      ++pageNumber;
      y = 0;
    }
    if (wanted(pageNumber)) {
      // The first sheet is open from the start; each later page takes a new one.
      if (sheet != 0 && sheet != pageNumber) printer.newPage();
      sheet = pageNumber;
      for (const Placed& p : placed) {
        painter.setFont(p.font);
        painter.setPen(p.colour);
        const qreal ascent = QFontMetricsF(p.font).ascent();
        for (int r = 0; r < p.rows.size(); ++r) painter.drawText(QPointF(p.x, y + r * height + ascent), p.rows.at(r));
      }
    }
    y += needed;
  }
  return painter.end();
}

bool execPrintDialog(QPrinter& printer, QWidget* parent, const QString& title, bool pageRange) {
  printer.setDocName(title);
  QPrintDialog dialog(&printer, parent);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, pageRange);
  // The dialog fills its file box when it shows (with a name in the home
  // folder); the program's own proposal goes in once it is up.
  const QString file = printFileName(title);
  QTimer::singleShot(0, &dialog, [&dialog, file] {
    if (auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("filename"))) box->setText(file);
  });
  return dialog.exec() == QDialog::Accepted;
}

void PrinterPresenter::setPdfOutput(const QString& path, int fromPage, int toPage) {
  pdf_ = path;
  fromPage_ = fromPage;
  toPage_ = toPage;
}

PrintResult PrinterPresenter::print(const PrintDocument& document) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(document.name().isEmpty() ? QStringLiteral("Calvix") : document.name());
  if (!pdf_.isEmpty()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf_);
    if (fromPage_ > 0 || toPage_ > 0) printer.setFromTo(fromPage_, toPage_);
  } else if (!execPrintDialog(printer, QApplication::activeWindow(), printer.docName(), true)) {
    return PrintResult::Cancelled;  // cancelling stops silently
  }
  BusyPointer busy;
  return renderDocument(printer, document) ? PrintResult::Printed : PrintResult::Failed;
}
