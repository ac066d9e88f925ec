#include "lottery/DrawAnalysis.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

#include "shell/SqliteTable.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/RuntimeError.h"

namespace {

const QString kCrLf = QStringLiteral("\r\n");
const QString kRule = QString(34, QLatin1Char('_'));
const QString kHead = QStringLiteral("     6(1ª)  5c(2ª)  5(3ª)  4(4ª)  3(5ª)   ");
constexpr int kFieldCount = 11;  // Tabla1's fields: grid cells 1 to 11

QString weekdayAndDate(const QString& text) {
  try {
    return rt::FormatDate(rt::DateValue(text), QStringLiteral("ddd")) + QLatin1Char(' ') + text;
  } catch (const rt::RuntimeError&) {
    return QStringLiteral("  ") + text;
  }
}

}  // namespace

void DrawTable::setRows(QList<QStringList> newRows) {
  rows = std::move(newRows);
  numbers.clear();
  numbers.reserve(rows.size());
  reintegros.clear();
  reintegros.reserve(rows.size());
  types.clear();
  types.reserve(rows.size());
  for (const QStringList& row : rows) {
    std::array<std::uint8_t, 7> n{};
    for (int c = 2; c <= 8; ++c) {
      const double v = c < row.size() ? rt::Val(row.at(c)) : 0;
      n[c - 2] = v >= 1 && v <= 49 && v == static_cast<int>(v) ? static_cast<std::uint8_t>(v) : 0;
    }
    numbers << n;
    const QString reintegro = row.value(9);
    std::int8_t r = -1;
    if (!reintegro.isEmpty()) {
      const double v = rt::Val(reintegro);
      r = v >= 0 && v <= 49 && v == static_cast<int>(v) ? static_cast<std::int8_t>(v) : 0;
    }
    reintegros << r;
    const QString type = row.value(11);
    types << (type.size() == 1 ? type.at(0).toLatin1() : '\0');
  }
}

bool DrawTable::load(const QString& path) {
  setRows({});
  if (!QFileInfo::exists(path)) return false;
  QList<QStringList> read;
  const bool ok = withSqlite(path, SqliteAccess::ReadOnly, [&](QSqlDatabase& db) {
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("SELECT * FROM Tabla1")) || q.record().count() < kFieldCount) return false;
    while (q.next()) {
      QStringList row{QString::number(read.size() + 1)};
      for (int f = 0; f < kFieldCount; ++f) row << q.value(f).toString();
      read << row;
    }
    return true;
  });
  if (!ok) return false;
  setRows(std::move(read));
  return true;
}

QStringList prizeTableRows(int n) {
  switch (n) {
    case 5:
      return {"5a    1      1      42      0      0   ", "4a+c  0      2       0     42      0   ",
              "4a    0      0       2     42      0   ", "3a    0      0       0      3     41   ",
              "2a    0      0       0      0      4   "};
    case 7:
      return {"6a+c  1      6       0      0      0   ", "6a    1      0       6      0      0   ",
              "5a+c  0      1       1      5      0   ", "5a    0      0       2      5      0   ",
              "4a    0      0       0      3      4   ", "3a    0      0       0      0      4   "};
    case 8:
      return {"6a+c  1      6       6     15      0   ", "6a    1      0      12     15      0   ",
              "5a+c  0      1       2     15     10   ", "5a    0      0       3     15     10   ",
              "4a    0      0       0      6     16   ", "3a    0      0       0      0     10   "};
    case 9:
      return {"6a+c  1      6      12     45     20   ", "6a    1      0      18     45     20   ",
              "5a+c  0      1       3     30     40   ", "5a    0      0       4     30     40   ",
              "4a    0      0       0     10     40   ", "3a    0      0       0      0     20   "};
    case 10:
      return {"6a+c  1      6      18     90     80   ", "6a    1      0      24     90     80   ",
              "5a+c  0      1       4     50    100   ", "5a    0      0       5     50    100   ",
              "4a    0      0       0     15     80   ", "3a    0      0       0      0     35   "};
    case 11:
      return {"6a+c  1      6      24    150    200   ", "6a    1      0      30    150    200   ",
              "5a+c  0      1       5     75    200   ", "5a    0      0       6     75    200   ",
              "4a    0      0       0     21    140   ", "3a    0      0       0      0     56   "};
    default:
      return {};
  }
}

AnalysisResult analyseBet(const QList<int>& bet, int tipoSorteo, bool express, const DrawTable& draws,
                          const std::function<bool(int)>& keepGoing) {
  AnalysisResult r;
  const int n = static_cast<int>(bet.size());
  std::array<bool, 50> inBet{};
  for (int x : bet) {
    if (x >= 1 && x <= 49) inBet[x] = true;
  }
  static const QString letters = QStringLiteral("PBG");
  QString body;
  for (int i = 0; i < draws.rows.size(); ++i) {
    if (keepGoing && !keepGoing(i)) {
      r.stopped = true;
      r.report.clear();
      return r;
    }
    const QStringList& row = draws.rows.at(i);
    if (tipoSorteo >= 0 && tipoSorteo <= 2 && row.value(11) != letters.at(tipoSorteo)) continue;
    const auto& numbers = draws.numbers.at(i);
    int aciertos = 0;
    for (int c = 0; c < 6; ++c) aciertos += inBet[numbers[c]] ? 1 : 0;
    int comp = inBet[numbers[6]] ? 1 : 0;
    r.sorteosBase += 1;
    QString suffix, lineBreak;
    if (aciertos == 2) {
      if (n != 5) continue;
      comp = 0;
      ++r.premios[2];
    } else if (aciertos == 3) {
      comp = 0;
      ++r.premios[3];
    } else if (aciertos == 4) {
      if (n != 5 || comp == 0) {
        ++r.premios[4];
      } else {
        ++r.premios[9];
        suffix = QStringLiteral("C");
      }
      lineBreak = kCrLf;
    } else if (aciertos == 5 || aciertos == 6) {
      if (comp == 0) {
        ++r.premios[aciertos];
      } else {
        ++r.premios[aciertos + 2];
        suffix = QStringLiteral("C");
      }
      lineBreak = kCrLf;
    } else {
      continue;
    }
    ++r.premiados;
    if (!express) {
      body += Res(591) + QLatin1Char(' ') + weekdayAndDate(row.value(1)) + QStringLiteral(": ") +
              QString::number(aciertos) + suffix + lineBreak;
    }
  }

  QString table;
  if (n != 6) {
    for (int id : {592, 593, 594, 595}) table += Res(id) + kCrLf;
    table += kRule + kCrLf + kHead + kCrLf + kRule + kCrLf;
    for (const QString& line : prizeTableRows(n)) table += line + kCrLf;
    table += Res(596) + kCrLf;
    for (int id : {597, 598, 599}) table += Res(id) + kCrLf;
    for (int id : {607, 608}) table += Res(id) + kCrLf;
  }

  QStringList betText;
  for (int x : bet) betText << QString::number(x);
  QString head = Res(600) + QLatin1Char(' ') + Res(527 + tipoSorteo) + QLatin1Char(' ') + kCrLf +
                 rt::NumberToTextSingle(r.sorteosBase) + QLatin1Char(' ') + Res(601) + kCrLf + Res(602) +
                 QStringLiteral(": ") + betText.join(QStringLiteral("  ")) + kCrLf + Res(603) + QLatin1Char(' ') +
                 QString::number(r.premiados) + QLatin1Char(' ') + Res(604) + kCrLf;
  const std::pair<const char*, int> categories[] = {{" 2 ", 2}, {" 3 ", 3},  {" 4 ", 4}, {" 5 ", 5},
                                                    {"4C ", 9}, {" 5C ", 7}, {" 6 ", 6}, {" 6C ", 8}};
  for (const auto& [label, index] : categories) {
    if (index == 9 && n != 5) continue;
    const int count = r.premios[index];
    if (count > 0) {
      head += QLatin1String(label) + Res(605) + QLatin1Char(' ') + QString::number(count) + QLatin1Char(' ') +
              Res(606) + QLatin1Char('.') + kCrLf;
    }
  }
  r.report = head + kCrLf + body + (body.isEmpty() ? QString() : kCrLf) + table;
  return r;
}

bool parseDrawsCsv(const QByteArray& bytes, QList<QStringList>& rows, int& badLine) {
  QList<QStringList> out;
  const QList<QByteArray> lines = bytes.split('\n');
  for (int i = 0; i < lines.size(); ++i) {
    const QString line = QString::fromUtf8(lines.at(i)).trimmed();
    if (line.isEmpty()) continue;
    badLine = i + 1;
    const QStringList f = line.split(QLatin1Char(','));
    if (f.size() != 10) return false;
    const QDate date = QDate::fromString(f.at(0).trimmed(), QStringLiteral("dd/MM/yyyy"));
    if (!date.isValid()) return false;
    std::array<bool, 50> seen{};
    QStringList row{date.toString(QStringLiteral("dd/MM/yyyy"))};
    for (int c = 1; c <= 7; ++c) {
      bool ok = false;
      const int x = f.at(c).trimmed().toInt(&ok);
      if (!ok || x < 1 || x > 49 || seen[x]) return false;
      seen[x] = true;
      row << QString::number(x);
    }
    const QString reintegro = f.at(8).trimmed();
    bool ok = true;
    if (!reintegro.isEmpty() && (reintegro.size() != 1 || !reintegro.at(0).isDigit())) ok = false;
    const QString letter = f.at(9).trimmed().toUpper();
    if (!ok || (letter != QLatin1String("P") && letter != QLatin1String("B") && letter != QLatin1String("G"))) {
      return false;
    }
    row << reintegro << QString() << letter;
    out << row;
  }
  badLine = 0;
  rows = out;
  return true;
}

int storeDraws(const QString& path, const QList<QStringList>& rows, bool append) {
  int count = -1;
  withSqlite(path, SqliteAccess::ReadWrite, [&](QSqlDatabase& db) {
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS Tabla1 (Fecha TEXT, N1 TEXT, N2 TEXT, N3 TEXT, N4 TEXT, "
                               "N5 TEXT, N6 TEXT, Complementario TEXT, Reintegro TEXT, Sorteo TEXT, Tipo TEXT)"))) {
      return false;
    }
    db.transaction();
    if (!append && !q.exec(QStringLiteral("DELETE FROM Tabla1"))) {
      db.rollback();
      return false;
    }
    int next = 0;
    if (q.exec(QStringLiteral("SELECT COUNT(*) FROM Tabla1")) && q.next()) next = q.value(0).toInt();
    q.prepare(QStringLiteral("INSERT INTO Tabla1 VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const QStringList& row : rows) {
      for (int f = 0; f < kFieldCount; ++f) q.bindValue(f, f == 9 ? QString::number(++next) : row.value(f));
      if (!q.exec()) {
        db.rollback();
        return false;
      }
    }
    if (!db.commit()) return false;
    if (q.exec(QStringLiteral("SELECT COUNT(*) FROM Tabla1")) && q.next()) count = q.value(0).toInt();
    return true;
  });
  return count;
}
