#include "shell/SqliteTable.h"

#include <QAtomicInt>
#include <QFileInfo>

bool withSqlite(const QString& path, SqliteAccess access, const std::function<bool(QSqlDatabase&)>& work) {
  if (access == SqliteAccess::ReadOnly && !QFileInfo(path).isFile()) return false;
  static QAtomicInt counter;
  const QString name = QStringLiteral("calvix-sqlite-%1").arg(counter.fetchAndAddRelaxed(1));
  bool ok = false;
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    db.setDatabaseName(path);
    if (access == SqliteAccess::ReadOnly) db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    if (db.open()) {
      ok = work(db);
      db.close();
    }
  }
  QSqlDatabase::removeDatabase(name);
  return ok;
}
