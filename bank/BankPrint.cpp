// The printed forms of the banking window (imprimebanco): the results alone
// (resbank), or the results and the table.
#include "bank/BankModel.h"
#include "shell/ErrorReport.h"
#include "shell/Printing.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"

namespace {

constexpr double kTitleSize = 10;
constexpr double kTableSize = 9;
const QString kTitleFont = QStringLiteral("Arial");
const QString kTableFont = QStringLiteral("Courier New");
constexpr int kLabelColumn = 8;
constexpr int kValueColumn = 40;
constexpr int kFirstTableColumn = 8;
constexpr int kTableColumnWidth = 16;

void printHeads(PrintDocument& doc, const QStringList& heads) {
  doc.setFont(kTableFont, kTableSize, true);
  for (int c = 0; c < heads.size(); ++c) doc.printAt(kFirstTableColumn + c * kTableColumnWidth, heads.at(c));
  doc.endLine();
  doc.setFont(kTableFont, kTableSize);
}

}  // namespace

PrintDocument BankModel::printDocument(bool withTables) const {
  PrintDocument doc(Res(749));
  doc.setFont(kTitleFont, kTitleSize);
  doc.emptyLines(2);
  doc.setFont(kTitleFont, kTitleSize + 2, true);
  doc.printAt(6, Res(749));
  doc.setFont(kTitleFont, kTitleSize);
  doc.line(60, rt::FormatDate(rt::Now(), QStringLiteral("General Date")));
  doc.emptyLines(1);
  doc.setFont(kTitleFont, kTitleSize + 1, true);
  doc.line(6, Res(headingId()));
  doc.setFont(kTitleFont, kTitleSize);
  doc.emptyLines(1);
  auto item = [&doc](int labelId, const QString& value) {
    doc.printAt(kLabelColumn, Res(labelId));
    doc.line(kValueColumn, value);
  };
  item(719, capital);
  item(720, interes);
  item(721, tiempo + QLatin1Char(' ') + Res(Option2 ? 723 : 722));
  if (tipo == 2) {
    item(728, aportemes);
    item(742, incremes);
  }
  doc.emptyLines(1);
  if (tipo == 3) {
    doc.printAt(kLabelColumn, Res(725));
    doc.line(kValueColumn, fmt(mensualValue));
  }
  item(747, total);
  item(748, intereses);
  if (!withTables || Bancolist.size() < 2) return doc;

  doc.emptyLines(1);
  printHeads(doc, Bancolist.first());
  // The title block takes about a third of the first page.
  const int perPage = std::max(printRowsPerPage, 1);
  int capacity = std::max(perPage - 20, 1);
  int onPage = 0;
  for (int r = 1; r < Bancolist.size(); ++r) {
    if (onPage == capacity) {
      doc.newPage();
      printHeads(doc, Bancolist.first());
      onPage = 0;
      capacity = perPage;
    }
    ++onPage;
    const QStringList& cells = Bancolist.at(r);
    for (int c = 0; c < cells.size(); ++c) {
      // Figures end at their column's right edge, as on the screen.
      const int width = static_cast<int>(cells.at(c).size());
      const int column = c == 0 ? kFirstTableColumn : kFirstTableColumn + (c + 1) * kTableColumnWidth - 4 - width;
      doc.printAt(column, cells.at(c));
    }
    doc.endLine();
  }
  return doc;
}

void BankModel::imprimebanco(bool withTables) {
  if (helpInstead(60000)) return;
  if (!computed) return;
  ::printDocument(printDocument(withTables));
}
