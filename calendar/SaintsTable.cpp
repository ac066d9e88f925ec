#include "calendar/SaintsTable.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "shell/SqliteTable.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"

namespace calendar {

namespace {

constexpr int kNotFoundSound = 4;

}  // namespace

QString SaintsTable::defaultPath() {
  if (QCoreApplication::instance()) {
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/cvxcl.dlj");
    if (QFileInfo::exists(beside)) return beside;
  }
  return sharedFile(QStringLiteral("cvxcl.dlj"));
}

SaintsTable::SaintsTable(QString path) : path_(std::move(path)) {}

QString SaintsTable::saintsOf(double date) const {
  // The stored rows always write "/", whatever the system's date separator.
  const QString key = QStringLiteral("%1/%2/2003")
                          .arg(rt::Day(date), 2, 10, QLatin1Char('0'))
                          .arg(rt::Month(date), 2, 10, QLatin1Char('0'));
  QString saints;
  withSqlite(path_, SqliteAccess::ReadOnly, [&](QSqlDatabase& db) {
    QSqlQuery q(db);
    q.prepare(QStringLiteral("SELECT Santos FROM Santoral WHERE Fecha LIKE ? ORDER BY rowid LIMIT 1"));
    q.addBindValue(QString(QLatin1Char('%') + key + QLatin1Char('%')));
    if (q.exec() && q.next()) saints = q.value(0).toString();
    return true;
  });
  return saints;
}

std::optional<SaintsRow> SaintsTable::findFrom(qint64 afterRow) {
  std::optional<SaintsRow> found;
  withSqlite(path_, SqliteAccess::ReadOnly, [&](QSqlDatabase& db) {
    QSqlQuery q(db);
    q.prepare(QStringLiteral(
        "SELECT rowid, Fecha, Santos FROM Santoral WHERE rowid > ? AND Santos LIKE ? ORDER BY rowid LIMIT 1"));
    q.addBindValue(afterRow);
    q.addBindValue(QString(QLatin1Char('%') + searchText_ + QLatin1Char('%')));
    if (q.exec() && q.next()) {
      lastRow_ = q.value(0).toLongLong();
      found = SaintsRow{q.value(1).toString(), q.value(2).toString()};
    }
    return true;
  });
  return found;
}

std::optional<SaintsRow> SaintsTable::search(const QString& text) {
  searchText_ = text;
  lastRow_ = 0;
  return findFrom(0);
}

std::optional<SaintsRow> SaintsTable::searchNext() {
  if (searchText_.isEmpty()) return std::nullopt;
  return findFrom(lastRow_);
}

void SaintsTable::notFound() {
  program().MessageSound = kNotFoundSound;
  MBoxShow(3, Res(lastRow_ == 0 ? 352 : 353) + searchText_, 3, 0, 0, Res(350));
}

std::optional<SaintsRow> SaintsTable::santobusca_Click() {
  MBoxShow(0, Res(351), 5, 3, 0, Res(350));
  const ProgramState& p = program();
  const QString text = p.MessageValue.toText().trimmed();
  if (p.MessageResult != 0 || text.isEmpty()) return std::nullopt;
  return find(text);
}

std::optional<SaintsRow> SaintsTable::find(const QString& text) {
  auto found = search(text);
  if (!found) notFound();
  return found;
}

std::optional<SaintsRow> SaintsTable::santobuscasig_Click() {
  if (searchText_.isEmpty()) return santobusca_Click();
  auto found = searchNext();
  if (!found) notFound();
  return found;
}

double SaintsTable::dateOfRow(const SaintsRow& row, int year) {
  return rt::DateSerial(year, row.Fecha.mid(3, 2).toInt(), row.Fecha.left(2).toInt());
}

}  // namespace calendar
