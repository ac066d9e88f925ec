// The function table's CSV import: the separators detected or the system's,
// the columns named by the first byte; a refused file leaves the table as it
// was, a read one fills it.
#include "funcs/FunctionTable.h"
#include "funcs/TableCsv.h"
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  if (size == 0) return 0;
  session.reset();
  const std::uint8_t choice = data[0];
  if (choice & 0x80) program().DecimalSymbol = rt::Variant(QStringLiteral(","));
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1));

  TableCsv csv;
  if (choice & 0x40) csv.detect(text);
  else csv.followSystem();
  csv.columnX = choice & 3;
  csv.columnF = (choice >> 2) & 3;
  csv.columnG = ((choice >> 4) & 3) - 1;
  csv.preview(text);
  csv.fieldCount(text);

  const TableCsv::Result r = csv.read(text);
  const bool refused = !TableCsv::failureText(r).isEmpty();
  if (refused != (r.badLine > 0 || r.data.x.empty())) fuzz::finding();
  if (!refused && (r.data.f.size() != r.data.x.size() || (csv.columnG >= 0 && r.data.g.size() != r.data.x.size()))) {
    fuzz::finding();
  }
  FunctionTable table;
  const int pointsBefore = program().pointCount;
  if (csv.import(table, text) == refused) fuzz::finding();
  if (refused && program().pointCount != pointsBefore) fuzz::finding();
  if (!refused) csv.write(table);
  return 0;
}
