#include "convert/UnitTables.h"

#include <QFile>
#include <QStringList>
#include <cmath>

static void initUnitResource() { Q_INIT_RESOURCE(units); }

namespace {

// One term: a number or atn1, raised when "^" follows.
bool readTerm(const QStringList& tokens, qsizetype& i, double& value) {
  if (i >= tokens.size()) return false;
  const QString& t = tokens.at(i++);
  if (t == QLatin1String("atn1")) {
    value = std::atan(1.0);
  } else {
    bool ok = false;
    value = t.toDouble(&ok);
    if (!ok) return false;
  }
  if (i < tokens.size() && tokens.at(i) == QLatin1String("^")) {
    ++i;
    if (i >= tokens.size()) return false;
    bool ok = false;
    const double power = tokens.at(i++).toDouble(&ok);
    if (!ok) return false;
    value = std::pow(value, power);
  }
  return true;
}

QStringList tokenize(const QString& expression) {
  QStringList tokens;
  QString current;
  for (const QChar c : expression) {
    if (c == QLatin1Char('*') || c == QLatin1Char('/') || c == QLatin1Char('^')) {
      if (!current.isEmpty()) tokens << current;
      tokens << QString(c);
      current.clear();
    } else if (!c.isSpace()) {
      current += c;
    }
  }
  if (!current.isEmpty()) tokens << current;
  return tokens;
}

}  // namespace

bool UnitTables::evaluate(const QString& text, double& value) {
  if (!text.startsWith(QLatin1Char('='))) {
    bool ok = false;
    value = text.toDouble(&ok);
    return ok && std::isfinite(value);
  }
  const QStringList tokens = tokenize(text.mid(1));
  qsizetype i = 0;
  double v = 0;
  if (!readTerm(tokens, i, v)) return false;
  while (i < tokens.size()) {
    const QString op = tokens.at(i++);
    double w = 0;
    if (!readTerm(tokens, i, w)) return false;
    if (op == QLatin1String("*")) v *= w;
    else if (op == QLatin1String("/")) v /= w;
    else return false;
  }
  if (!std::isfinite(v)) return false;
  value = v;
  return true;
}

bool UnitTables::parse(const QString& text, UnitTables& tables, QString* error) {
  QList<UnitTable> result;
  const QStringList lines = text.split(QLatin1Char('\n'));
  auto fail = [&](qsizetype lineNo, const QString& why) {
    if (error) *error = QStringLiteral("line %1: %2").arg(lineNo + 1).arg(why);
    return false;
  };
  for (qsizetype n = 0; n < lines.size(); ++n) {
    QString line = lines.at(n);
    if (line.endsWith(QLatin1Char('\r'))) line.chop(1);
    if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
    const QStringList fields = line.split(QLatin1Char('\t'));
    if (line.startsWith(QLatin1Char('['))) {
      const qsizetype close = fields.at(0).indexOf(QLatin1Char(']'));
      if (close < 2 || fields.size() < 3) return fail(n, QStringLiteral("bad table head"));
      UnitTable table;
      table.item = fields.at(0).mid(1, close - 1);
      bool ok1 = false, ok2 = false;
      table.labelId = fields.at(1).toInt(&ok1);
      table.noteId = fields.at(2).toInt(&ok2);
      if (!ok1 || !ok2) return fail(n, QStringLiteral("bad string id"));
      for (const UnitTable& t : result) {
        if (t.item == table.item) return fail(n, QStringLiteral("table %1 twice").arg(table.item));
      }
      result.append(table);
      continue;
    }
    if (result.isEmpty()) return fail(n, QStringLiteral("unit before any table"));
    if (fields.size() < 2 || fields.at(0).isEmpty()) return fail(n, QStringLiteral("no factor"));
    UnitRow row;
    row.caption = fields.at(0);
    if (!evaluate(fields.at(1), row.factor) || row.factor <= 0) {
      return fail(n, QStringLiteral("bad factor %1").arg(fields.at(1)));
    }
    if (result.last().rows.size() >= kUnitButtons) return fail(n, QStringLiteral("more than 39 units"));
    result.last().rows.append(row);
  }
  for (const UnitTable& t : result) {
    if (t.rows.isEmpty()) return fail(lines.size() - 1, QStringLiteral("table %1 is empty").arg(t.item));
  }
  tables.tables_ = result;
  return true;
}

const UnitTables& UnitTables::builtIn() {
  static const UnitTables tables = [] {
    initUnitResource();
    UnitTables t;
    QFile file(QStringLiteral(":/convert/units.txt"));
    if (file.open(QIODevice::ReadOnly)) parse(QString::fromUtf8(file.readAll()), t);
    return t;
  }();
  return tables;
}

const UnitTable* UnitTables::find(const QString& item) const {
  for (const UnitTable& t : tables_) {
    if (t.item == item) return &t;
  }
  return nullptr;
}

int UnitTables::unitCount() const {
  int n = 0;
  for (const UnitTable& t : tables_) n += static_cast<int>(t.rows.size());
  return n;
}
