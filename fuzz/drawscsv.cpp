// The import of official draws from CSV: a bad line is refused with its
// number and the rows are left alone; the rows of a good file are what the
// draw table holds, so they go through the statistics and an analysis.
#include "fuzz/FuzzSupport.h"
#include "lottery/DrawAnalysis.h"
#include "lottery/DrawStatistics.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  const QList<QStringList> before{{QStringLiteral("untouched")}};
  QList<QStringList> rows = before;
  int badLine = -1;
  if (!parseDrawsCsv(fuzz::bytesOf(data, size), rows, badLine)) {
    if (rows != before || badLine < 1) fuzz::finding();
    return 0;
  }
  if (badLine != 0) fuzz::finding();
  // As the table gives them back: the row number first, then its 11 fields.
  QList<QStringList> table;
  for (const QStringList& row : rows) {
    if (row.size() != 11) fuzz::finding();
    table << (QStringList{QString::number(table.size() + 1)} + row);
  }
  DrawTable draws;
  draws.setRows(table);
  for (int tipo = 0; tipo <= 3; ++tipo) drawStatistics(draws, tipo);
  analyseBet({3, 9, 17, 25, 33, 41, 49}, 0, false, draws);
  return 0;
}
