#include "shell/Strings.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QStringList>

#include "shell/ProgramState.h"

// The resource lives in a static library: it must be registered by hand.
static void initStringResource() { Q_INIT_RESOURCE(strings); }

namespace {

constexpr int kLanguages = 4;
constexpr int kBlock = 10000;

// Undoes the escapes a TSV cell uses for characters it cannot hold.
QString unescape(const QString& cell) {
  if (!cell.contains(QLatin1Char('\\'))) return cell;
  QString out;
  out.reserve(cell.size());
  for (qsizetype i = 0; i < cell.size(); ++i) {
    const QChar c = cell.at(i);
    if (c == QLatin1Char('\\') && i + 1 < cell.size()) {
      const QChar n = cell.at(++i);
      if (n == QLatin1Char('n')) out += QLatin1Char('\n');
      else if (n == QLatin1Char('r')) out += QLatin1Char('\r');
      else if (n == QLatin1Char('t')) out += QLatin1Char('\t');
      else out += n;
    } else {
      out += c;
    }
  }
  return out;
}

struct Table {
  QHash<int, QString> texts;  // key: block * 10000 + id
  QHash<int, int> present;    // id -> number of languages with a cell
};

const Table& table() {
  static const Table t = [] {
    initStringResource();
    Table tab;
    const QDir dir(QStringLiteral(":/strings"));
    for (const QString& name : dir.entryList({QStringLiteral("*.tsv")}, QDir::Files, QDir::Name)) {
      QFile f(dir.filePath(name));
      if (!f.open(QIODevice::ReadOnly)) continue;
      const QStringList lines = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
      for (const QString& raw : lines) {
        QString line = raw;
        if (line.endsWith(QLatin1Char('\r'))) line.chop(1);
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        const QStringList cells = line.split(QLatin1Char('\t'));
        bool ok = false;
        const int id = cells.value(0).toInt(&ok);
        if (!ok || id < 0 || id >= kBlock) continue;
        int count = 0;
        for (int lang = 0; lang < kLanguages; ++lang) {
          if (cells.size() <= lang + 1) break;
          tab.texts.insert(lang * kBlock + id, unescape(cells.at(lang + 1)));
          ++count;
        }
        tab.present.insert(id, count);
      }
    }
    return tab;
  }();
  return t;
}

}  // namespace

QString LoadResString(int id) { return table().texts.value(id); }

QString Res(int id) {
  // The sum cannot come near 32 bits: ids are below 10000, offsets at most 30000.
  return LoadResString(program().LanguageOffset + id);
}

namespace strings {
bool hasAllLanguages(int id) { return table().present.value(id, 0) == kLanguages; }
int rowCount() { return static_cast<int>(table().present.size()); }
}  // namespace strings
