// The printed report of the function table (imprimEval).
#include "funcs/FunctionTable.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

constexpr double kTitleSize = 10;
constexpr double kTableSize = 8;  // four columns of numbers fit a page across
const QString kTitleFont = QStringLiteral("Arial");
const QString kTableFont = QStringLiteral("Courier New");

}  // namespace

// Title, date and the column heading; repeated at the top of each page.
void FunctionTable::printPageHeading(PrintDocument& doc, const QString& date) const {
  const bool function = operationMode == 0;
  doc.setFont(kTitleFont, kTitleSize, true);
  doc.printAt(6, Res(1468));
  doc.line(70, date);
  doc.setFont(kTableFont, kTableSize, true);
  doc.printAt(10, function ? Res(1477) : Res(1470));
  if (function) doc.printAt(20, QStringLiteral("X"));
  doc.printAt(50, function ? QStringLiteral("F(x)") : Res(1461));
  if (function && program().hasG) doc.printAt(80, QStringLiteral("G(x)"));
  doc.endLine();
  doc.setFont(kTableFont, kTableSize);
}

PrintDocument FunctionTable::printDocument(int rowsPerPage) const {
  const ProgramState& p = program();
  const bool function = operationMode == 0;
  const int rows = function ? p.pointCount : expressionRow;
  const QString date = rt::FormatDate(rt::Now(), QStringLiteral("General Date"));
  PrintDocument doc(Res(1468));
  doc.setFont(kTitleFont, kTitleSize);
  doc.emptyLines(2);
  doc.setFont(kTitleFont, kTitleSize + 2, true);
  doc.line(6, Res(1469));
  doc.setFont(kTitleFont, kTitleSize);
  doc.emptyLines(1);
  if (function) {
    doc.line(6, QStringLiteral("F (x) = ") + txtExpression);
    if (p.hasG) doc.line(6, QStringLiteral("G (x) = ") + Text2);
    doc.emptyLines(1);
  }
  printPageHeading(doc, date);
  // The title block takes room on the first page: its lines are about twice
  // as tall as the table's.
  const int perPage = std::max(rowsPerPage, 1);
  const int firstPage = std::max(perPage - 2 * (function ? (p.hasG ? 7 : 6) : 4), 1);
  int onPage = 0;
  int capacity = firstPage;
  for (int r = 1; r <= rows; ++r) {
    if (onPage == capacity) {
      doc.newPage();
      printPageHeading(doc, date);
      onPage = 0;
      capacity = perPage;
    }
    ++onPage;
    doc.printAt(10, rt::Format(r, QStringLiteral("0000")));
    doc.printAt(20, MSFlexGrid1.get(r, kX));
    doc.printAt(50, MSFlexGrid1.get(r, kF));
    if (function && p.hasG) doc.printAt(80, MSFlexGrid1.get(r, kG));
    doc.endLine();
  }
  return doc;
}

void FunctionTable::imprimEval_Click() {
  if (helpInstead(1500) || run_) return;
  const ProgramState& p = program();
  if (expressionRow < 1 && p.pointCount < 1) {
    showMessage(912);
    return;
  }
  ::printDocument(printDocument(printRowsPerPage));
}
