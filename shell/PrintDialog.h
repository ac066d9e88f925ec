#pragma once
// The printer side of text printing: the print presenter of the desktop
// program, which asks for the printer (copies and page range included) with
// the print dialog, and the renderer that puts a PrintDocument on any
// QPrinter, breaking pages at the printer's height.
#include <QString>

#include "shell/Printing.h"

class QPrinter;
class QWidget;

// Draws the document; lines too long for the page go on below, at their
// column. Pages outside the printer's page range are left out. False when the
// printer cannot be drawn on.
bool renderDocument(QPrinter& printer, const PrintDocument& document);

// Asks for the printer with Qt's print dialog (copies, and the page range when
// pageRange). The document's title names the printer's job, and a print to
// file proposes printFileName(title). True when the user accepted.
bool execPrintDialog(QPrinter& printer, QWidget* parent, const QString& title, bool pageRange = false);

class PrinterPresenter : public PrintPresenter {
 public:
  // With a PDF path the dialog is not shown and the document goes to that
  // file (tests); fromPage/toPage (1-based, 0 for all) pick pages as the
  // dialog would.
  void setPdfOutput(const QString& path, int fromPage = 0, int toPage = 0);
  PrintResult print(const PrintDocument& document) override;

 private:
  QString pdf_;
  int fromPage_ = 0;
  int toPage_ = 0;
};
