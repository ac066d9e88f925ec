#pragma once
// The element table cvxtp.dlj: an SQLite file with table Tabla1, whose
// fields are in the order of the data sheet (ElementField) and whose row z
// is element z. It is opened, read whole and closed in one call, through
// Qt's SQLite driver under a connection name of its own.
#include <QList>
#include <QString>
#include <QStringList>
#include <array>

// The sheet's labels, in the table's field order.
enum class ElementField {
  numat,
  nombres,
  ebulliciones,
  fusiones,
  densidades,
  simbolos,
  pesos,
  volumenes,
  radioas,
  radiocs,
  radiois,
  electronegs,
  electronegs1,
  calores,
  calorfs,
  calorvs,
  energias,
  condutes,
  caracteres,
  estructura,
  valencias,
  cristal,
};
inline constexpr int kElementFieldCount = 22;
inline constexpr int kElementCount = 111;

inline int fieldIndex(ElementField f) { return static_cast<int>(f); }
// The control name of a field ("numat", "nombres", ...).
QString elementFieldName(int index);
// Fields that hold a number (or "--"): their "." becomes the decimal symbol.
bool isNumericField(int index);

// One row of Tabla1: the field texts as stored.
using ElementRecord = std::array<QString, kElementFieldCount>;

// Every row of the table, in row order (element z at index z - 1). A file
// that is missing, damaged or not an element table gives an empty list.
QList<ElementRecord> readElementTable(const QString& path);
// Writes the rows as a table in the same form (tests build small tables).
bool writeElementTable(const QString& path, const QList<ElementRecord>& rows);
// AppFolder + "cvxtp.dlj".
QString elementTablePath();
