#include "elements/ElementTable.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "shell/SqliteTable.h"

namespace {

constexpr const char* kFieldNames[kElementFieldCount] = {
    "numat",     "nombres",     "ebulliciones", "fusiones",     "densidades", "simbolos",
    "pesos",     "volumenes",   "radioas",      "radiocs",      "radiois",    "electronegs",
    "electronegs1", "calores",  "calorfs",      "calorvs",      "energias",   "condutes",
    "caracteres", "estructura", "valencias",    "cristal"};

QString fieldList() {
  QStringList names;
  for (const char* n : kFieldNames) names << QString::fromLatin1(n);
  return names.join(QStringLiteral(", "));
}

}  // namespace

QString elementFieldName(int index) {
  if (index < 0 || index >= kElementFieldCount) return {};
  return QString::fromLatin1(kFieldNames[index]);
}

bool isNumericField(int index) {
  switch (static_cast<ElementField>(index)) {
    case ElementField::nombres:
    case ElementField::simbolos:
    case ElementField::caracteres:
    case ElementField::estructura:
    case ElementField::valencias:
    case ElementField::cristal:
      return false;
    default:
      return index >= 0 && index < kElementFieldCount;
  }
}

QList<ElementRecord> readElementTable(const QString& path) {
  QList<ElementRecord> rows;
  if (!QFileInfo(path).isFile()) return rows;
  const bool ok = withSqlite(path, SqliteAccess::ReadOnly, [&](QSqlDatabase& db) {
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT ") + fieldList() + QStringLiteral(" FROM Tabla1 ORDER BY rowid"))) {
      return false;
    }
    while (query.next()) {
      ElementRecord r;
      for (int i = 0; i < kElementFieldCount; ++i) {
        const QVariant v = query.value(i);
        r[static_cast<std::size_t>(i)] = v.isNull() ? QString() : v.toString();
      }
      rows.append(r);
    }
    return !query.lastError().isValid();
  });
  if (!ok) rows.clear();
  return rows;
}

bool writeElementTable(const QString& path, const QList<ElementRecord>& rows) {
  return withSqlite(path, SqliteAccess::ReadWrite, [&](QSqlDatabase& db) {
    QSqlQuery query(db);
    QStringList columns;
    for (const char* n : kFieldNames) columns << QString::fromLatin1(n) + QStringLiteral(" TEXT");
    if (!query.exec(QStringLiteral("CREATE TABLE Tabla1 (") + columns.join(QStringLiteral(", ")) + u')')) return false;
    QStringList marks;
    for (int i = 0; i < kElementFieldCount; ++i) marks << QStringLiteral("?");
    if (!db.transaction()) return false;
    for (const ElementRecord& r : rows) {
      if (!query.prepare(QStringLiteral("INSERT INTO Tabla1 VALUES (") + marks.join(u',') + u')')) return false;
      for (const QString& value : r) query.addBindValue(value);
      if (!query.exec()) return false;
    }
    return db.commit();
  });
}

QString elementTablePath() { return sharedFile(QStringLiteral("cvxtp.dlj")); }
